#include "desktop/app/start_page.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/app/report_card.h"
#include "desktop/views/shown_text.h"
#include "goods_reports.h"

namespace goods {
namespace {

constexpr int kMostInLine = 3;
constexpr int kCardGap = 14;
constexpr int kSideMargin = 40;

QLabel* GroupLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont font = label->font();
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QHBoxLayout* Head(const QString& title, const QString& subtitle, QWidget* parent) {
  constexpr int kSignSize = 56;
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addWidget(TitleLabel(title, parent));
  texts->addWidget(MutedLabel(subtitle, parent));
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(ProgramSign(kSignSize, parent), 0, Qt::AlignVCenter);
  head->addLayout(texts, 1);
  return head;
}

}  // namespace

StartPage::StartPage(const QString& title, const QString& subtitle, const std::vector<OfferedReport>& reports,
                     std::function<void(const ReportDescription&)> open, QWidget* parent)
    : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  auto* page = new QWidget;
  setWidget(page);
  page->setObjectName("Start_PNL");
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(kSideMargin, 32, kSideMargin, 32);
  layout->setSpacing(12);
  layout->addLayout(Head(title, subtitle, page));
  layout->addSpacing(8);

  std::string_view group;
  for (const OfferedReport& report : reports) {
    if (groups_.empty() || group != report.entry->group) {
      group = report.entry->group;
      layout->addSpacing(8);
      layout->addWidget(GroupLabel(ToQt(group), page));
      groups_.push_back({new QGridLayout, {}});
      groups_.back().grid->setSpacing(kCardGap);
      groups_.back().grid->setColumnStretch(kMostInLine, 1);
      layout->addLayout(groups_.back().grid);
    }
    auto* card = new ReportCard(*report.entry, report.reason, page);
    groups_.back().cards.push_back(card);
    if (!report.reason.isEmpty()) continue;
    cards_.push_back(card);
    card->installEventFilter(this);
    connect(card, &QPushButton::clicked, this, [open, entry = report.entry] { open(*entry); });
  }
  layout->addStretch(1);
  PlaceCards();
}

void StartPage::PlaceCards() {
  const int room = viewport()->width() - 2 * kSideMargin;
  const int inLine = std::clamp((room + kCardGap) / (ReportCard::LeastWidth() + kCardGap), 1, kMostInLine);
  const int width = std::clamp((room - (inLine - 1) * kCardGap) / inLine, ReportCard::LeastWidth(),
                               ReportCard::BestWidth());
  for (const Group& group : groups_) {
    int place = 0;
    for (ReportCard* card : group.cards) {
      card->SetCardWidth(width);
      if (inLine != cardsInLine_) group.grid->addWidget(card, place / inLine, place % inLine);
      ++place;
    }
  }
  cardsInLine_ = inLine;
}

void StartPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  PlaceCards();
}

// Which way an arrow key moves among cards that stand from right to left; 0 for other keys.
int StartPage::StepOf(int key) const {
  switch (key) {
    case Qt::Key_Left:
      return 1;
    case Qt::Key_Right:
      return -1;
    case Qt::Key_Down:
      return cardsInLine_;
    case Qt::Key_Up:
      return -cardsInLine_;
    default:
      return 0;
  }
}

void StartPage::FocusFirst() {
  if (!cards_.empty()) cards_.front()->setFocus();
}

bool StartPage::eventFilter(QObject* watched, QEvent* event) {
  const auto here = std::find(cards_.begin(), cards_.end(), watched);
  if (event->type() != QEvent::KeyPress || here == cards_.end())
    return QScrollArea::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    (*here)->click();
    return true;
  }
  const int step = StepOf(key);
  if (step == 0) return QScrollArea::eventFilter(watched, event);
  const auto last = static_cast<std::ptrdiff_t>(cards_.size()) - 1;
  const auto target = std::clamp<std::ptrdiff_t>((here - cards_.begin()) + step, 0, last);
  ReportCard* card = cards_[static_cast<std::size_t>(target)];
  card->setFocus();
  ensureWidgetVisible(card);
  return true;
}

}  // namespace goods
