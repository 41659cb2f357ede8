// PageView: the pages of a layout one under the other, scrolled and zoomed.
#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "desktop/print/page_layout.h"

namespace goods {

// Paints the pages that are in view straight from the layout, so that the text is laid out as on paper.
class PageView : public QAbstractScrollArea {
 public:
  // layout must outlive the view.
  PageView(const PageLayout& layout, QWidget* parent);

  // From 1: the page in the upper half of the view.
  int CurrentPage() const;
  void GoToPage(int page);
  double Zoom() const { return zoom_; }  // screen pixels a point
  void SetZoom(double zoom);
  void FitWidth();
  void FitPage();
  std::function<void()> OnScrolled;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Fit { None, Width, Page };
  QSize PageSize() const;
  int PageTop(int index) const;  // from 0, in the whole roll of pages
  void Arrange();

  const PageLayout& layout_;
  double zoom_ = 1;
  Fit fit_ = Fit::Width;
};

}  // namespace goods
