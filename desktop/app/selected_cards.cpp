#include "desktop/app/selected_cards.h"

#include <QProgressDialog>
#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "desktop/views/shown_text.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"

namespace goods {
namespace {

constexpr std::size_t kMostNotes = 8;

bool IsListOfGoods(const TSmartDBGrid_QRT& grid) {
  const auto* report = dynamic_cast<const TBaseDock_FRM*>(grid.Form());
  return report != nullptr && report->PrintedGrid() == &grid &&
         report->Name() == Describe(ReportId::GoodsInQuantity).form;
}

// Gives back on every way out what was answered before.
class Unattended {
 public:
  Unattended(DesktopWindows& windows, DesktopMessages& messages, DesktopWindows::Attendant attendant,
             DesktopMessages::Answer answer)
      : attended_(windows, std::move(attendant)),
        messages_(messages),
        answer_(messages.SetUnattended(std::move(answer))) {}
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;
  ~Unattended() { messages_.SetUnattended(std::move(answer_)); }

 private:
  DesktopWindows::Attended attended_;
  DesktopMessages& messages_;
  DesktopMessages::Answer answer_;
};

// The row and the selection that the user had.
class PlaceInList {
 public:
  explicit PlaceInList(TSmartDBGrid_QRT& grid)
      : grid_(grid), row_(grid.DataSet()->RecNo()), selection_(grid.Selection()) {}
  PlaceInList(const PlaceInList&) = delete;
  PlaceInList& operator=(const PlaceInList&) = delete;
  ~PlaceInList() {
    RunUserAction(grid_.Form()->Host(), [this] {
      if (row_) grid_.MoveTo(*row_);
      grid_.SetSelection(selection_);
    });
  }

 private:
  TSmartDBGrid_QRT& grid_;
  std::optional<std::size_t> row_;
  std::set<std::size_t> selection_;
};

// Each note once, in order, as far as they can be read at a glance.
std::string Together(const std::vector<std::string>& notes) {
  std::string text;
  std::vector<std::string> told;
  for (const std::string& note : notes) {
    if (std::find(told.begin(), told.end(), note) != told.end()) continue;
    told.push_back(note);
    if (told.size() <= kMostNotes) text += (text.empty() ? "" : "\n") + note;
  }
  if (told.size() > kMostNotes) text += "\nو " + std::to_string(told.size() - kMostNotes) + " پیام دیگر";
  return text;
}

}  // namespace

GridCommand SelectedCards::Command() {
  return {"چاپ کاردکس کالاهای برگزیده…",
          [this](TSmartDBGrid_QRT& grid, QWidget* window) { Print(grid, window); }, 0, IsListOfGoods};
}

SelectedCards::Outcome SelectedCards::Take(TSmartDBGrid_QRT& grid, std::size_t position,
                                           std::vector<Card>& cards, std::vector<std::string>& notes) {
  Outcome outcome = Outcome::None;
  const auto attend = [&](TForm& form) {
    auto* card = dynamic_cast<TBaseDock_FRM*>(&form);
    if (card == nullptr || card->Name() != Describe(ReportId::StockCard).form) return;
    TSmartDBGrid_QRT* rows = card->PrintedGrid();
    const TADOQuery* query = rows == nullptr ? nullptr : rows->DataSet();
    if (query == nullptr || !query->Active()) {
      if (query != nullptr && query->Stopped()) outcome = Outcome::Stopped;
      return;
    }
    if (!DesktopPrinting::MayTakeAway(*rows)) return;
    cards.push_back({card->HostTitle(), card->PrintLines(), std::make_unique<TableSnapshot>(*rows->Table()),
                     DesktopPrinting::PaperOf(*card)});
    outcome = Outcome::Taken;
  };
  const Unattended scope(windows_, messages_, attend, [&notes](const ShownMessage& message) {
    notes.push_back(message.text);
    return false;
  });
  RunUserAction(grid.Form()->Host(), [&] {
    grid.MoveTo(position);
    grid.DoubleClick();
  });
  return outcome;
}

void SelectedCards::Print(TSmartDBGrid_QRT& grid, QWidget* window) {
  std::vector<std::size_t> positions(grid.Selection().begin(), grid.Selection().end());
  if (positions.empty() && grid.DataSet()->RecNo()) positions.push_back(*grid.DataSet()->RecNo());
  std::vector<Card> cards;
  std::vector<std::string> notes;
  std::size_t rows = 0;
  {
    const PlaceInList place(grid);
    QProgressDialog progress("در حال خواندن کاردکس کالاها…", "توقف", 0, static_cast<int>(positions.size()),
                             window);
    progress.setObjectName("Cards_DLG");
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);  // the list takes no keys meanwhile
    for (std::size_t i = 0; i < positions.size(); ++i) {
      progress.setValue(static_cast<int>(i));
      if (progress.wasCanceled() || Take(grid, positions[i], cards, notes) == Outcome::Stopped) return;
      rows = 0;
      for (const Card& card : cards) rows += card.table->RowCount();
      if (rows <= kMostRows) continue;
      notes.push_back("کاردکس‌ها بیش از آن است که یکجا چاپ شود؛ " +
                      std::to_string(positions.size() - i - 1) + " کالای دیگر کنار ماند.");
      break;
    }
  }
  if (!notes.empty()) messages_.ShowSmartMessage(Together(notes), "", MessageIcon::Information);
  if (cards.empty()) return;
  std::vector<PrintedJob> jobs;
  for (const Card& card : cards) {
    PrintJob job;
    job.title = card.title;
    job.lines = card.lines;
    job.table = card.table.get();
    jobs.emplace_back(std::move(job));
  }
  printing_.PreviewAll(std::move(jobs), cards.front().paper);
}

}  // namespace goods
