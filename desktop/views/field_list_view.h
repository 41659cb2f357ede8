// The view of a field list: captions and texts of the current row, in columns that use the width.
#pragma once

#include <QAbstractScrollArea>
#include <vector>

#include "desktop/views/control_view.h"
#include "host/components/field_list.h"

namespace goods {

class TSmartDBGrid_QRT;

// Paints pairs of a caption and a text in reading direction, row by row. What is cut is told in full by a
// tool tip; what does not fit the height is scrolled to.
class FieldListWidget : public QAbstractScrollArea {
 public:
  explicit FieldListWidget(QWidget* parent);

  // columns: how many pairs stand beside each other; 0 as many as fit.
  void Show(const std::vector<TFieldList::Entry>& entries, int columns);
  int ShownColumns() const { return shownColumns_; }
  // Where the caption and the text of a pair are painted, in the viewport.
  QRect CaptionRect(std::size_t pair) const;
  QRect TextRect(std::size_t pair) const;
  bool Cut(std::size_t pair) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void changeEvent(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  struct Pair {
    QString caption;
    QString text;
  };
  void Arrange();
  int RowHeight() const;
  int RowCount() const;
  QRect CellRect(std::size_t pair) const;
  void PaintPair(QPainter& painter, std::size_t pair) const;

  std::vector<Pair> pairs_;
  int wantedColumns_ = 0;
  int shownColumns_ = 1;
  std::vector<int> captionWidths_;  // of each column of pairs
};

class FieldListView : public ControlView {
 public:
  FieldListView(FormView& form, TFieldList& list, QWidget* parent);
  void Refresh() override;

 private:
  void AddFacts(std::vector<TFieldList::Entry>& entries) const;
  const TSmartDBGrid_QRT* GridOver(const TControl& container) const;

  TFieldList& list_;
  FieldListWidget* widget_;
};

}  // namespace goods
