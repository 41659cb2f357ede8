// StartPage: the reports of the loaded module as cards, grouped as in the menu.
#pragma once

#include <QScrollArea>
#include <functional>
#include <vector>

class QGridLayout;

namespace goods {

struct ReportDescription;
class ReportCard;

// A report that the library has, and why the user may not open it; empty when the user may.
struct OfferedReport {
  const ReportDescription* entry = nullptr;
  QString reason;
};

// The arrow keys move between the cards, Enter and Space open.
// As many cards stand beside each other as the width has room for, three at most.
class StartPage : public QScrollArea {
 public:
  StartPage(const QString& title, const QString& subtitle, const std::vector<OfferedReport>& reports,
            std::function<void(const ReportDescription&)> open, QWidget* parent);

  void FocusFirst();
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // A group of cards, those among them that cannot be opened too.
  struct Group {
    QGridLayout* grid;
    std::vector<ReportCard*> cards;
  };
  int StepOf(int key) const;
  void PlaceCards();

  std::vector<Group> groups_;
  std::vector<ReportCard*> cards_;  // those that can be opened, in order
  int cardsInLine_ = 0;
};

}  // namespace goods
