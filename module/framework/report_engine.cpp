#include "module/framework/report_engine.h"

#include <algorithm>

#include "module/framework/endings.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"
#include "module/framework/told_once.h"

namespace goods {
TReport_FRM::TReport_FRM(THost& host, std::string name, int formMode, Variant customParameter,
                         std::string settingsName)
    : TBaseDock_FRM(host, std::move(name), formMode, std::move(customParameter), std::move(settingsName)),
      delayedSearch_(*this, [this] { Run(Waiting::Silent); }) {
  CriteriaChanged_LBL.SetVisible(false);
  CriteriaChanged_LBL.SetHint("این ردیف ها با شرایط پیشین خوانده شده است.");
  delayedSearch_.OnHeld = [this] { UpdateHint(); };
  delayedSearch_.OnTyped = [this] { UpdateHint(); };
  delayedSearch_.OnHurried = [this] {
    for (TSmartDBGrid_QRT* grid : grids_) {
      if (grid->Visible() && !grid->DataSet()->IsEmpty()) return grid->SetFocus();
    }
  };
}

TReport_FRM::~TReport_FRM() = default;

void TReport_FRM::ShowRows(TSmartDBGrid_QRT& grid, TDataSource& source) {
  grids_.push_back(&grid);
  grid.SetDataSource(&source);
}

void TReport_FRM::WatchCriteria(TControl& container) {
  for (TControl* control : container.Controls()) {
    const bool isGrid = dynamic_cast<TSmartDBGrid_QRT*>(control) != nullptr;
    if (control->TakesFocus() && !isGrid) {
      watched_.push_back(control->Changed.Connect([this] { UpdateHint(); }));
    }
    WatchCriteria(*control);
  }
}

void TReport_FRM::UseDialog(TADVSearch_Fram& frame, TForm& dialog) {
  WatchCriteria(frame);
  WatchCriteria(dialog);
  OnAction(frame.ADVSearch_BTN, [this, &frame, &dialog] {
    if (dialog.ShowModal() != kModalOk) return UpdateHint();
    {
      const ProgramChange change(frame.ADVSearch_CHK);
      frame.ADVSearch_CHK.SetChecked(true);
    }
    Run(Waiting::Shown);
  });
  frame.ADVSearch_CHK.OnClick = [this, &frame] {
    if (!ByProgram(frame.ADVSearch_CHK)) Run(Waiting::Shown);
  };
}

void TReport_FRM::Typed(int message) {
  if (shown_) delayedSearch_.Typed(message);
}

void TReport_FRM::OnAction(TButton& button, std::function<void()> action) {
  button.OnClick = [this, action = std::move(action)] {
    AcceptTyping(*this);
    action();
  };
}

void TReport_FRM::SetProcParams(std::string& parameters) const {
  parameters = shown_ ? ParametersNow() : std::string();
}

void TReport_FRM::ShowAndRun(TControl& first) {
  SetShown();
  first.SetFocus();
  Run(Waiting::Silent);
}

void TReport_FRM::FormClose() {
  shown_ = false;
  delayedSearch_.Cancel();
  CloseRows();
  TBaseDock_FRM::FormClose();
}

void TReport_FRM::CloseRows() {
  run_.reset();
  for (TADOQuery* query : Queries()) query->Close();
  UpdateHint();
}

void TReport_FRM::WindowMessage(int code) {
  delayedSearch_.Handle(code, dynamic_cast<TEdit*>(ActiveControl()));
}

void TReport_FRM::Run(Waiting waiting) {
  delayedSearch_.Cancel();
  if (!shown_) return;
  if (running_) {
    again_ = std::max(again_.value_or(waiting), waiting);
    return;
  }
  const DelayedSearch::RunScope noneInside(delayedSearch_);
  running_ = true;
  WithEnd(
      [&] {
        UpdateHint();
        RunOnce(waiting);
        while (again_ && shown_) RunOnce(*std::exchange(again_, std::nullopt));
      },
      [this] {
        running_ = false;
        again_.reset();
        UpdateHint();
      });
}

void TReport_FRM::RunOnce(Waiting waiting) {
  if (!MayRun()) return;
  const CriteriaText text = Ask();
  OnFailure([&] { ToldOnce(Queries(), [&] { FetchAndArrange(text, waiting); }); },
            [this] {
              if (!RowsAreOpen()) run_.reset();
            });
}

void TReport_FRM::FetchAndArrange(const CriteriaText& text, Waiting waiting) {
  Fetch(text.parameters, waiting);
  const std::size_t rows = grids_.empty() ? 0 : grids_.front()->DataSet()->TotalCount();
  run_ = ReportRun{text.parameters, text.caption, Host().Windows().TickCount(), rows};
  KeepRun();
  RowsCame();
}

void TReport_FRM::RowsCame() {
  ArrangeRows();
  PlaceRow();
}

void TReport_FRM::PlaceRow() {
  for (TADOQuery* query : Queries()) query->First();
}

void TReport_FRM::ArrangeRows() {
  NarrowRows();
  ApplySort();
  for (TSmartDBGrid_QRT* grid : grids_) grid->RefreshFooters();
}

void TReport_FRM::TellNarrowing() {
  if (!run_) return;
  run_->caption = Ask().caption;
  KeepRun();
}

void TReport_FRM::ApplySort() {
  for (TSmartDBGrid_QRT* grid : grids_) {
    TADOQuery* query = grid->DataSet();
    if (grid->Visible() && query->Active()) query->SetSort(GetGridSort(*grid));
  }
}

std::vector<TADOQuery*> TReport_FRM::Queries() const {
  std::vector<TADOQuery*> queries;
  for (TSmartDBGrid_QRT* grid : grids_) {
    if (std::find(queries.begin(), queries.end(), grid->DataSet()) == queries.end()) {
      queries.push_back(grid->DataSet());
    }
  }
  return queries;
}

bool TReport_FRM::RowsAreOpen() const {
  const std::vector<TADOQuery*> queries = Queries();
  return std::all_of(queries.begin(), queries.end(), [](const TADOQuery* query) { return query->Active(); });
}

bool TReport_FRM::CriteriaChanged() const {
  return !run_ || !RowsAreOpen() || ParametersNow() != run_->parameters;
}

// Without rows there is nothing that could be out of date; what is being typed runs by itself in a moment.
void TReport_FRM::UpdateHint() {
  const bool mayTell = shown_ && !running_ && run_ && (!delayedSearch_.Pending() || delayedSearch_.IsHeld());
  CriteriaChanged_LBL.SetVisible(mayTell && CriteriaChanged());
}

void TReport_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  AddPrintLines(lines);
  AddFilterLine(lines, FilterCaption());
}

}  // namespace goods
