// ReportCard: a report on the start page.
#pragma once

#include <QPushButton>
#include <QString>
#include <optional>

namespace goods {

// What a card says. With a reason it is disabled and tells why.
struct CardTexts {
  QString name;  // of the button
  QString title;
  QString about;
  QString key;  // that opens it, empty for none
  QString reason;
};

// A button with a title, a line about what it opens and its shortcut.
class ReportCard : public QPushButton {
 public:
  ReportCard(const CardTexts& texts, QWidget* parent);

  // The least width that the texts can do with, and the width that looks best; pixels.
  static int LeastWidth();
  static int BestWidth();
  void SetCardWidth(int width);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int width_;
  // Of the texts at that width. Layouts ask often, and laying out Persian text is dear.
  mutable std::optional<int> height_;
};

}  // namespace goods
