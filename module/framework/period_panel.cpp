#include "module/framework/period_panel.h"

#include <utility>

namespace goods {
namespace {

constexpr int kDateWidth = 104;

std::optional<std::string> DateOf(const TDateEdit& edit) {
  if (!edit.IsValidDate()) return std::nullopt;
  return edit.Text();
}

}  // namespace

TPeriodPanel::TPeriodPanel(TComponent* owner, std::string name, BeforePeriodBox onUntick)
    : TPanel(owner, std::move(name), Flow::Row), onUntick_(onUntick) {
  Date_CHK.CaptionShown = false;
  Date_CHK.SetAccessibleName("محدود به بازه زمانی");
  Date_CHK.OnClick = [this] { Date_CHKClick(); };
  SelectEntity_Cap_LBL.FocusControl = &Date1_EDT;
  SelectEntity_Cap_LBL.OnClick = [this] { SelectEntity_Cap_LBLClick(); };
  SelectEntity_To_LBL.FocusControl = &Date2_EDT;
  Date1_EDT.SetAccessibleName("از تاریخ");
  Date2_EDT.SetAccessibleName("تا تاریخ");
  for (TDateEdit* edit : {&Date1_EDT, &Date2_EDT}) {
    edit->SetWidth(kDateWidth);
    edit->SetEnabled(false);
  }
  Date1_EDT.OnExit = [this] {
    if (OnFromExit) OnFromExit();
  };
  AvalDore_CHK.SetEnabled(false);
  AvalDore_CHK.OnClick = [this] {
    if (OnBeforeClick) OnBeforeClick();
  };
  SelectEntity_Reverst_LBL.SetVisible(false);
  SelectEntity_Reverst_LBL.OnClick = [this] { SelectEntity_Reverst_LBLClick(); };
  Place(Date_CHK);
  Place(SelectEntity_Cap_LBL);
  Place(Date1_EDT);
  Place(SelectEntity_To_LBL);
  Place(Date2_EDT);
  Place(AvalDore_CHK);
  Place(SelectEntity_Reverst_LBL);
}

std::optional<std::string> TPeriodPanel::FromDate() const { return DateOf(Date1_EDT); }
std::optional<std::string> TPeriodPanel::ToDate() const { return DateOf(Date2_EDT); }

void TPeriodPanel::Clear() {
  Date_CHK.SetChecked(false);
  AvalDore_CHK.SetChecked(false);
  Date1_EDT.Clear();
  Date2_EDT.Clear();
}

void TPeriodPanel::CaptionOnLabel(std::string caption) {
  SelectEntity_Reverst_LBL.SetCaption(std::move(caption));
  SelectEntity_Reverst_LBL.FocusControl = &AvalDore_CHK;
  SelectEntity_Reverst_LBL.SetVisible(true);
  AvalDore_CHK.SetCaption("");
  AvalDore_CHK.CaptionShown = false;
  AvalDore_CHK.SetAccessibleName(SelectEntity_Reverst_LBL.AccessibleName());
}

void TPeriodPanel::Date_CHKClick() {
  const bool inUse = Date_CHK.Checked();
  Date1_EDT.SetEnabled(inUse);
  Date2_EDT.SetEnabled(inUse);
  if (!inUse && onUntick_ == BeforePeriodBox::IsUnticked) AvalDore_CHK.SetChecked(false);
  AvalDore_CHK.SetEnabled(inUse);
  if (inUse) Date1_EDT.SetFocus();
  if (OnDateClick) OnDateClick();
}

}  // namespace goods
