// ReportCard: a report on the start page.
#pragma once

#include <QPushButton>

namespace goods {

struct ReportDescription;

// A button with a title, a line about the report and its shortcut. With a reason it is disabled and tells
// why.
class ReportCard : public QPushButton {
 public:
  ReportCard(const ReportDescription& report, const QString& reason, QWidget* parent);

  // The least width that the texts can do with, and the width that looks best; pixels.
  static int LeastWidth();
  static int BestWidth();
  void SetCardWidth(int width);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int width_;
};

}  // namespace goods
