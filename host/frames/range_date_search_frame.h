// TRange_Date_Search_Frame: the criterion "from this date to that one", both ends included, with exclude.
#pragma once

#include <string>

#include "host/components/edit.h"
#include "host/frames/search_frame.h"

namespace goods {

// An end that is empty is open. A date that is given ticks the box, two emptied edits untick it. A date that
// does not exist marks its edit, is left out of the criterion, and the user hears of it when the edit is
// accepted; what was typed stays. Times of the day may be shown beside the dates. Movements
// carry a date alone, so a time is checked and kept like a date but is no part of the criterion.
class TRange_Date_Search_Frame : public TSearchFrame {
 public:
  TRange_Date_Search_Frame(TComponent* owner, std::string name, std::string caption);

  // Sets both dates and ticks the box; an empty from-date unticks it.
  void SetRange(std::string_view from, std::string_view to);
  // The dates as they count: empty where the edit is empty or holds no date.
  const std::string& FromDate() const { return Search.From; }
  const std::string& ToDate() const { return Search.To; }
  // Ticked, with a date at one end at least.
  bool InUse() const { return RangeDate_CHK.Checked() && !(FromDate().empty() && ToDate().empty()); }
  void Clear() override;
  // The time edits are hidden until a window asks for them.
  void ShowTimes();

  TCheckBox RangeDate_CHK;
  TComboBox RangeDate_CMB{this, "RangeDate_CMB"};
  TLabel RangeDate_From_LBL{this, "RangeDate_From_LBL", "از :"};
  TDateEdit RangeDate_From_EDT{this, "RangeDate_From_EDT"};
  TEdit RangeTime_From_EDT{this, "RangeTime_From_EDT", InputKind::Time};
  TLabel RangeDate_To_LBL{this, "RangeDate_To_LBL", "تا :"};
  TDateEdit RangeDate_To_EDT{this, "RangeDate_To_EDT"};
  TEdit RangeTime_To_EDT{this, "RangeTime_To_EDT", InputKind::Time};
  TCheckBox RangeDate_Reverst_CHK{this, "RangeDate_Reverst_CHK", "به جز"};

 protected:
  void FillSearch() override;

 private:
  void DateChanged(TDateEdit& edit);
  void DateAccepted(TDateEdit& edit);
  void TimeAccepted(TEdit& edit);
  void TellProblem(TEdit& edit);
};

}  // namespace goods
