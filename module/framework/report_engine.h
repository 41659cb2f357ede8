// TReport_FRM: the engine under the report windows. TReportOf: the same for a report whose criteria are a
// value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/base_dock.h"
#include "host/frames/adv_search_frame.h"
#include "module/framework/criteria_text.h"
#include "module/framework/delayed_search.h"

namespace goods {

// The run that the rows at hand came from.
struct ReportRun {
  std::string parameters;  // as the statement had them
  std::string caption;     // the criteria in Persian
  std::uint64_t tick = 0;  // IWindows::TickCount when the rows had come
  std::size_t rows = 0;    // read by the first grid's query, whatever was filtered afterwards
};

// Whether the fetch shows the waiting indicator.
enum class Waiting { Silent, Shown };

// A window that runs a statement and shows its rows. It owns what every run does, in this order:
//   1. What waits for the typing to end is cancelled; before the window is shown nothing happens.
//   2. MayRun; then the criteria are read and put together, with the names that their caption needs. What
//      throws here (a look-up that is refused) leaves the rows of the last run, and that run, as they were.
//   3. Fetch runs the statement. Rows that it loses take their run with them.
//   4. The run is kept with its rows: parameters, caption, time, row count.
//   5. NarrowRows, the sort of the visible grid (also one that was set while nothing was open), the footers,
//      PlaceRow. Whoever watches the rows is told once, at the end.
// A run that is asked for while another one is running, by a host that delivers messages during a statement,
// begins when that one has ended.
//
// The printed page has the caption of the run, not that of the controls. A label tells, without a word more,
// that the criteria are others than those of the run: whenever a watched control changes, the parameters as
// they stand are compared with those of the run.
//
// A window on it:
//   - names its grids with ShowRows, its criteria with WatchCriteria and its dialog with UseDialog, in
//     FormCreate, and places CriteriaChanged_LBL;
//   - derives from TReportOf, gives ReadCriteria, and the statement with Fetch;
//   - ends its FormShow with ShowAndRun;
//   - runs with Run, from the handlers of its criteria; keys in an edit call Typed; buttons that run or open
//     something are wired with OnAction;
//   - ends its FormClose with that of this class, which closes the rows.
class TReport_FRM : public TBaseDock_FRM {
 public:
  ~TReport_FRM() override;

  // Null while there are no rows of a run.
  const ReportRun* LastRun() const { return run_ ? &*run_ : nullptr; }
  // That of the run; empty without one.
  std::string FilterCaption() const { return run_ ? run_->caption : std::string(); }
  // The parameters as the criteria stand now; empty until the window is shown.
  void SetProcParams(std::string& parameters) const;

  void FormClose() override;
  void WindowMessage(int code) override;
  // The window's own lines, then the caption of the run.
  void PrintDBGridEhBeforePrint(std::vector<std::string>& lines) override;

  TLabel CriteriaChanged_LBL{this, "CriteriaChanged_LBL", "شرایط تغییر کرده است"};

 protected:
  TReport_FRM(THost& host, std::string name, int formMode, Variant customParameter, std::string settingsName);

  // The grid shows the rows of the source; its sort is put on them after every run. Both must live as long as
  // the window. Enter that ends the wait for more keys moves to the first grid.
  void ShowRows(TSmartDBGrid_QRT& grid, TDataSource& source);
  // The controls in container, at any depth, hold criteria: changing one may bring the hint.
  void WatchCriteria(TControl& container);
  // The button opens the dialog, and an accepted one ticks the box and runs the report, under the waiting
  // indicator; a click on the box runs it too. The dialog's controls are watched.
  void UseDialog(TADVSearch_Fram& frame, TForm& dialog);
  // A key in an edit: the report runs when the typing has ended.
  void Typed(int message);
  // A click accepts what is being typed in the window, as leaving the edit would, before the action.
  void OnAction(TButton& button, std::function<void()> action);

  // From now on criteria run.
  void SetShown() { shown_ = true; }
  bool Shown() const { return shown_; }
  // The end of FormShow: the window counts as shown, first has the focus, and the report runs once.
  void ShowAndRun(TControl& first);
  void Run(Waiting waiting);
  // The order of the visible grid, put on its rows; nothing while they are closed.
  void ApplySort();
  // NarrowRows, sort and footers again, over the rows at hand.
  void ArrangeRows();
  // The rows at hand have been narrowed by criteria that are not sent: they are told with the run from now
  // on.
  void TellNarrowing();
  // No rows, and no run.
  void CloseRows();
  // Whether the criteria are others than those of the rows at hand, or there are none.
  bool CriteriaChanged() const;
  // Compares now; for what changes without a control's saying so.
  void UpdateHint();

  // False, after telling the user, while the report cannot be run.
  virtual bool MayRun() { return true; }
  // The criteria as they stand, with every name looked up.
  virtual CriteriaText Ask() = 0;
  // The criteria as they stand, as parameters; asks nobody and changes nothing.
  virtual std::string ParametersNow() const = 0;
  virtual void Fetch(const std::string& parameters, Waiting waiting) = 0;
  // The rows have come: what Ask read is now that of the run.
  virtual void KeepRun() {}
  // Conditions on the rows that were read.
  virtual void NarrowRows() {}
  // The rows of a run have come: their order, footers and current row.
  virtual void RowsCame();
  // Which row is current after a run: the first.
  virtual void PlaceRow();
  // Lines of the printed page above that of the criteria.
  virtual void AddPrintLines(std::vector<std::string>& /*lines*/) {}

  DelayedSearch delayedSearch_;

 private:
  void RunOnce(Waiting waiting);
  void FetchAndArrange(const CriteriaText& text, Waiting waiting);
  std::vector<TADOQuery*> Queries() const;
  bool RowsAreOpen() const;

  std::vector<TSmartDBGrid_QRT*> grids_;
  std::vector<Subscription> watched_;
  std::optional<ReportRun> run_;
  bool shown_ = false;
  bool running_ = false;
  std::optional<Waiting> again_;
};

// A report whose criteria are a struct. Beside the struct stands its pure function, found by its argument:
//   CriteriaText TextOf(const Criteria&);
// No widget, no host and no clock in either.
template <typename Criteria>
class TReportOf : public TReport_FRM {
 protected:
  using TReport_FRM::TReport_FRM;

  // What the controls hold; asks nobody.
  virtual Criteria ReadCriteria() const = 0;
  // Names that the caption says and no control holds, such as those of tags.
  virtual void LookUpNames(Criteria& /*criteria*/) {}
  // The criteria of the run that the rows at hand came from; none while there are no rows of a run.
  const Criteria* RunCriteria() const { return LastRun() != nullptr && ran_ ? &*ran_ : nullptr; }

  CriteriaText Ask() final {
    asked_ = ReadCriteria();
    LookUpNames(*asked_);
    return TextOf(*asked_);
  }
  std::string ParametersNow() const final { return TextOf(ReadCriteria()).parameters; }
  void KeepRun() final { ran_ = std::move(asked_); }

 private:
  std::optional<Criteria> asked_;
  std::optional<Criteria> ran_;
};

}  // namespace goods
