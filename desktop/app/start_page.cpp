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
    : QScrollArea(parent), title_(title), subtitle_(subtitle), reports_(reports), open_(std::move(open)) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  Build();
}

void StartPage::SetViews(const std::vector<OfferedView>& views, std::function<void(std::size_t view)> open) {
  openView_ = std::move(open);
  if (views == views_) return;
  const auto had =
      std::find_if(cards_.begin(), cards_.end(), [](const auto* card) { return card->hasFocus(); });
  const QString focused = had == cards_.end() ? QString() : (*had)->objectName();
  views_ = views;
  Build();
  const auto again = std::find_if(cards_.begin(), cards_.end(),
                                  [&](const auto* card) { return card->objectName() == focused; });
  if (again != cards_.end()) {
    (*again)->setFocus();
  } else if (!focused.isEmpty()) {
    FocusFirst();
  }
}

void StartPage::AddGroup(const QString& title) {
  layout_->addSpacing(8);
  layout_->addWidget(GroupLabel(title, widget()));
  groups_.push_back({new QGridLayout, {}});
  groups_.back().grid->setSpacing(kCardGap);
  groups_.back().grid->setColumnStretch(kMostInLine, 1);
  layout_->addLayout(groups_.back().grid);
}

void StartPage::AddCard(const CardTexts& texts, std::function<void()> open) {
  auto* card = new ReportCard(texts, widget());
  groups_.back().cards.push_back(card);
  if (!texts.reason.isEmpty()) return;
  cards_.push_back(card);
  card->installEventFilter(this);
  connect(card, &QPushButton::clicked, this, std::move(open));
}

void StartPage::Build() {
  groups_.clear();
  cards_.clear();
  cardsInLine_ = 0;
  // What a card opens may build this page anew while the card still waits for it.
  if (QWidget* before = takeWidget()) {
    before->hide();
    before->deleteLater();
  }
  auto* page = new QWidget;
  setWidget(page);
  page->setObjectName("Start_PNL");
  layout_ = new QVBoxLayout(page);
  layout_->setContentsMargins(kSideMargin, 32, kSideMargin, 32);
  layout_->setSpacing(12);
  layout_->addLayout(Head(title_, subtitle_, page));
  layout_->addSpacing(8);

  if (!views_.empty()) AddGroup("نماهای من");
  for (std::size_t i = 0; i < views_.size(); ++i) {
    const OfferedView& view = views_[i];
    AddCard({"View_" + QString::number(i), ShownText(view.name), view.about, {}, view.reason},
            [this, i] { openView_(i); });
  }
  std::string_view group;
  for (const OfferedReport& report : reports_) {
    if (group.empty() || group != report.entry->group) {
      group = report.entry->group;
      AddGroup(ToQt(group));
    }
    AddCard({report.entry->exportName, ToQt(report.entry->title), ToQt(report.entry->about),
             QString("Ctrl+%1").arg(report.entry->digit), report.reason},
            [this, entry = report.entry] { open_(*entry); });
  }
  layout_->addStretch(1);
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
