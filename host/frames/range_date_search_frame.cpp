#include "host/frames/range_date_search_frame.h"

#include <utility>

#include "host/components/form.h"
#include "host/core/jalali.h"

namespace goods {
namespace {

constexpr const char* kNoSuchTime = "ساعت باید از 00:00 تا 23:59 باشد.";

std::string DateOrEmpty(const TDateEdit& edit) { return edit.IsValidDate() ? edit.Text() : std::string(); }

}  // namespace

TRange_Date_Search_Frame::TRange_Date_Search_Frame(TComponent* owner, std::string name, std::string caption)
    : TSearchFrame(owner, std::move(name), RangeDate_CHK, RangeDate_CMB, RangeDate_Reverst_CHK),
      RangeDate_CHK(this, "RangeDate_CHK", std::move(caption)) {
  LayOut();
  RangeDate_From_LBL.FocusControl = &RangeDate_From_EDT;
  RangeDate_To_LBL.FocusControl = &RangeDate_To_EDT;
  RangeDate_From_EDT.SetAccessibleName("از تاریخ");
  RangeDate_To_EDT.SetAccessibleName("تا تاریخ");
  RangeTime_From_EDT.SetAccessibleName("از ساعت");
  RangeTime_To_EDT.SetAccessibleName("تا ساعت");
  for (TControl* each :
       {static_cast<TControl*>(&RangeDate_From_LBL), static_cast<TControl*>(&RangeDate_From_EDT),
        static_cast<TControl*>(&RangeTime_From_EDT), static_cast<TControl*>(&RangeDate_To_LBL),
        static_cast<TControl*>(&RangeDate_To_EDT), static_cast<TControl*>(&RangeTime_To_EDT)}) {
    Place(*each);
  }
  for (TEdit* edit : {&RangeTime_From_EDT, &RangeTime_To_EDT}) {
    edit->SetWidth(56);
    edit->SetPlaceholder("00:00");
    edit->SetVisible(false);
    edit->OnAccept = [this, edit] { TimeAccepted(*edit); };
  }
  for (TDateEdit* edit : {&RangeDate_From_EDT, &RangeDate_To_EDT}) {
    edit->SetWidth(100);
    edit->OnChange = [this, edit] { DateChanged(*edit); };
    edit->OnAccept = [this, edit] { DateAccepted(*edit); };
  }
}

void TRange_Date_Search_Frame::SetRange(std::string_view from, std::string_view to) {
  RangeDate_From_EDT.SetText(from);
  RangeDate_To_EDT.SetText(to);
  RangeDate_CHK.SetChecked(!RangeDate_From_EDT.Text().empty());
}

void TRange_Date_Search_Frame::Clear() {
  RangeDate_CHK.SetChecked(false);
  for (TEdit* edit : {static_cast<TEdit*>(&RangeDate_From_EDT), static_cast<TEdit*>(&RangeDate_To_EDT),
                      &RangeTime_From_EDT, &RangeTime_To_EDT}) {
    edit->Clear();
  }
  RangeDate_Reverst_CHK.SetChecked(false);
}

void TRange_Date_Search_Frame::FillSearch() {
  Search.Operator = SearchOperator::Range;
  Search.From = DateOrEmpty(RangeDate_From_EDT);
  Search.To = DateOrEmpty(RangeDate_To_EDT);
}

// A date in the making leaves the criterion as it was, so that the rows do not flicker while it is typed.
void TRange_Date_Search_Frame::DateChanged(TDateEdit& edit) {
  if (edit.HalfTyped()) return;
  const bool given = !RangeDate_From_EDT.Text().empty() || !RangeDate_To_EDT.Text().empty();
  if (RangeDate_CHK.Checked() != given) {
    RangeDate_CHK.SetChecked(given);
  } else {
    ControlsChanged();
  }
}

void TRange_Date_Search_Frame::DateAccepted(TDateEdit& edit) {
  ControlsChanged();
  if (edit.HalfTyped()) TellProblem(edit);
}

void TRange_Date_Search_Frame::TimeAccepted(TEdit& edit) {
  const bool wrong = !edit.Text().empty() && !edit.IsValidTime();
  edit.SetProblem(wrong ? kNoSuchTime : "");
  if (wrong) TellProblem(edit);
}

void TRange_Date_Search_Frame::TellProblem(TEdit& edit) {
  if (TForm* form = Form()) form->Host().Messages().ShowTooltipMessage(edit, edit.Problem());
}

void TRange_Date_Search_Frame::ShowTimes() {
  RangeTime_From_EDT.SetVisible(true);
  RangeTime_To_EDT.SetVisible(true);
}

}  // namespace goods
