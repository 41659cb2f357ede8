// StartPage: the reports of the loaded module as cards, grouped as in the menu.
#pragma once

#include <QScrollArea>
#include <functional>
#include <string>
#include <vector>

class QGridLayout;
class QVBoxLayout;

namespace goods {

struct CardTexts;
struct ReportDescription;
class ReportCard;

// A report that the library has, and why the user may not open it; empty when the user may.
struct OfferedReport {
  const ReportDescription* entry = nullptr;
  QString reason;
};

// A saved view that its user wants here.
struct OfferedView {
  std::string report;
  std::string name;
  QString about;   // which report it is of
  QString reason;  // why the user may not open it; empty when the user may
  bool operator==(const OfferedView&) const = default;
};

// The arrow keys move between the cards, Enter and Space open.
// As many cards stand beside each other as the width has room for, three at most.
class StartPage : public QScrollArea {
 public:
  StartPage(const QString& title, const QString& subtitle, const std::vector<OfferedReport>& reports,
            std::function<void(const ReportDescription&)> open, QWidget* parent);

  // The views stand above the reports; open is given the place of one in the list.
  void SetViews(const std::vector<OfferedView>& views, std::function<void(std::size_t view)> open);
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
  void Build();
  void AddGroup(const QString& title);
  void AddCard(const CardTexts& texts, std::function<void()> open);
  void PlaceCards();

  QString title_;
  QString subtitle_;
  std::vector<OfferedReport> reports_;
  std::function<void(const ReportDescription&)> open_;
  std::vector<OfferedView> views_;
  std::function<void(std::size_t view)> openView_;
  QVBoxLayout* layout_ = nullptr;
  std::vector<Group> groups_;
  std::vector<ReportCard*> cards_;  // those that can be opened, in order
  int cardsInLine_ = 0;
};

}  // namespace goods
