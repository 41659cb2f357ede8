// TPeriodPanel: the effective period of a turnover report, and whether stock before it counts.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "module/framework/general_search.h"

namespace goods {

// What becomes of AvalDore_CHK when the period is unticked.
enum class BeforePeriodBox { KeepsItsState, IsUnticked };

// The dates can be typed, and AvalDore_CHK ticked, while Date_CHK is ticked. A date that does not exist marks
// its edit and counts as not given, without a message.
class TPeriodPanel : public TPanel {
 public:
  TPeriodPanel(TComponent* owner, std::string name, BeforePeriodBox onUntick);

  bool InUse() const { return Date_CHK.Checked(); }
  // The dates that are given and exist; none else, whether the period is in use or not.
  std::optional<std::string> FromDate() const;
  std::optional<std::string> ToDate() const;
  // Ticked, and the period in use.
  bool CountsBefore() const { return AvalDore_CHK.Enabled() && AvalDore_CHK.Checked(); }
  void Clear();
  // AvalDore_CHK says nothing itself; a label beside it carries the caption and clicks the box.
  void CaptionOnLabel(std::string caption);
  PeriodCriteria Criteria() const { return {InUse(), FromDate(), ToDate(), CountsBefore()}; }

  // After the panel's own handling of the boxes, and when the from-date loses the focus.
  std::function<void()> OnDateClick;
  std::function<void()> OnBeforeClick;
  std::function<void()> OnFromExit;

  void Date_CHKClick();
  void SelectEntity_Cap_LBLClick() { Date_CHK.Click(); }
  void SelectEntity_Reverst_LBLClick() { AvalDore_CHK.Click(); }

  TCheckBox Date_CHK{this, "Date_CHK", "&ا"};
  TLabel SelectEntity_Cap_LBL{this, "SelectEntity_Cap_LBL", "از ت&اریخ  :"};
  TDateEdit Date1_EDT{this, "Date1_EDT"};
  TLabel SelectEntity_To_LBL{this, "SelectEntity_To_LBL", " تا  :"};
  TDateEdit Date2_EDT{this, "Date2_EDT"};
  TCheckBox AvalDore_CHK{this, "AvalDore_CHK", "&محاسبه موجودي پيش از بازه"};
  TLabel SelectEntity_Reverst_LBL{this, "SelectEntity_Reverst_LBL"};

 private:
  BeforePeriodBox onUntick_;
};

}  // namespace goods
