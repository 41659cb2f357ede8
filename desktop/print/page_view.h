// PageView: the pages of a document one under the other, scrolled and zoomed.
#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "desktop/print/printed_document.h"

namespace goods {

// Paints the pages that are in view straight from the document, so that the text is laid out as on paper.
class PageView : public QAbstractScrollArea {
 public:
  // document must outlive the view.
  PageView(const PrintedDocument& document, QWidget* parent);
  // Its pages have been laid out anew.
  void DocumentChanged();

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

  const PrintedDocument& document_;
  double zoom_ = 1;
  Fit fit_ = Fit::Width;
};

}  // namespace goods
