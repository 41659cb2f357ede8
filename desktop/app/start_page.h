// StartPage: the reports of the loaded module as cards, grouped as in the menu.
#pragma once

#include <QScrollArea>
#include <functional>
#include <vector>

namespace goods {

struct ReportDescription;
class ReportCard;

// A report that the library has, and why the user may not open it; empty when the user may.
struct OfferedReport {
  const ReportDescription* entry = nullptr;
  QString reason;
};

// The arrow keys move between the cards, Enter and Space open.
class StartPage : public QScrollArea {
 public:
  StartPage(const QString& title, const QString& subtitle, const std::vector<OfferedReport>& reports,
            std::function<void(const ReportDescription&)> open, QWidget* parent);

  void FocusFirst();
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::vector<ReportCard*> cards_;  // those that can be opened, in order
};

}  // namespace goods
