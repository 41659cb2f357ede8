// TypedJump: letters typed in a table go to the row whose text begins with them.
#pragma once

#include <QElapsedTimer>
#include <QString>

class QLabel;
class QWidget;

namespace goods {

class TGridColumn;
class TSmartDBGrid_QRT;

// Letters that follow each other within a second belong together; a label over the table shows them.
class TypedJump {
 public:
  explicit TypedJump(QWidget* over);

  // True when a row was gone to. Nothing else is changed where there is none; the label says so.
  bool Type(TSmartDBGrid_QRT& grid, const QString& text);
  bool Waiting() const { return clock_.isValid() && !clock_.hasExpired(kPauseMs); }

  // The column whose texts are meant: the one that the rows are sorted by first, else the first one of texts.
  static const TGridColumn* ColumnMeant(const TSmartDBGrid_QRT& grid);

 private:
  static constexpr int kPauseMs = 1000;

  void Show(const TGridColumn& column, bool found);

  QLabel* label_;
  QElapsedTimer clock_;
  QString typed_;
};

}  // namespace goods
