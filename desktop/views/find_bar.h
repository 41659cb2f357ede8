// FindBar: looks for a text in a table and goes from hit to hit.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/views/grid_finder.h"

class QLabel;
class QToolButton;

namespace goods {

class LineEdit;

// Typing marks all hits, Enter goes to the next, Shift+Enter to the one before, and Esc closes it. A large
// table is looked through between the events of the window, which stays usable; a step to a hit that is not
// known yet is taken as soon as it is.
class FindBar : public QWidget {
 public:
  FindBar(TSmartDBGrid_QRT& grid, QWidget* parent);
  ~FindBar() override;

  // Shows it and takes the keyboard, with what was looked for last to be typed over.
  void Open();
  void Close();
  bool IsOpen() const { return !isHidden(); }
  // The rows or the columns are others.
  void RowsChanged();
  // The current row is another one.
  void RowMoved() { ShowCount(); }
  bool Marks(std::size_t row, const TGridColumn& column);
  LineEdit& Edit() const { return *edit_; }

  // Makes a row the current one.
  std::function<void(std::size_t row)> OnGoTo;
  // Other cells are marked.
  std::function<void()> OnMarks;
  // It was closed by the user.
  std::function<void()> OnClosed;
  // It was opened or closed.
  std::function<void()> OnHeight;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Step { None, Next, Previous };

  QToolButton* AddButton(const QString& name, const QString& text, const QString& tip, Step step);
  void Look();
  void LookOn();
  void Go(Step step);
  void TakeStep();
  void ShowCount();
  std::size_t CurrentRow() const;

  TSmartDBGrid_QRT& grid_;
  LineEdit* edit_;
  QLabel* count_;
  std::unique_ptr<GridFinder> finder_;
  QTimer work_;
  Step wanted_ = Step::None;
  bool fresh_ = false;  // nothing was gone to since the text was typed: the current row counts as a next one
};

}  // namespace goods
