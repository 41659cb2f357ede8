#include "module/reports/pricing/price_basis_panel.h"

#include <array>
#include <utility>

#include "host/core/text.h"
#include "module/data/price_history.h"
#include "module/framework/endings.h"
#include "module/framework/program_change.h"

namespace goods {
namespace {

constexpr int kLevelItem = 27;
constexpr int kHistoryItem = 28;
constexpr std::string_view kOfPurchase = " [خرید]";
constexpr std::string_view kOfSale = " [فروش]";

std::string LevelText(std::string_view name, bool buy) {
  return std::string(name) + std::string(buy ? kOfPurchase : kOfSale);
}

}  // namespace

TPriceBasisPanel::TPriceBasisPanel(TComponent* owner, std::string name, THost& host, PriceData& data,
                                   const PriceBasisStyle& style)
    : TPanel(owner, std::move(name), Flow::Row), host_(host), data_(data), style_(style) {
  LayOut();
  Report_CMB.SetText(std::string(style_.unchosenText));
  Report_CMB.SetEnabled(false);
  Report_CMB.OnDropDown = [this] { ShownList().SetFocus(); };
  Stock_CHK.OnClick = [this] { Stock_CHKClick(); };
  Label_QRTDEVX3.OnClick = [this] { Label_QRTDEVX3Click(); };
  Sel_BTN.OnClick = [this] { Sel_BTNClick(); };
  CostLevelType_PGC.OnChange = [this] { CostLevelType_PGCChange(); };
  CostLevelBuyList_GRD.OnDblClick = [this] { CostLevelBuyList_GRDDblClick(); };
  CostLevelSellList_GRD.OnDblClick = [this] { CostLevelSellList_GRDDblClick(); };
  RialsHistory_GRD.OnDblClick = [this] { RialsHistory_GRDDblClick(); };
}

void TPriceBasisPanel::LayOut() {
  SetMoney();
  Stock_CHK.CaptionShown = false;
  Stock_CHK.SetAccessibleName("فی کالا بر اساس");
  Report_CMB.SetAccessibleName("مبنای قیمت");
  Report_CMB.SetWidth(240);
  Label_QRTDEVX4.SetCaption(std::string(style_.note));

  LayOutList(ts1, style_.buyTab, CostLevelBuyList_GRD, data_.CostLevel);
  LayOutList(ts2, style_.sellTab, CostLevelSellList_GRD, data_.CostLevel);
  LayOutList(ts3, style_.historyTab, RialsHistory_GRD, data_.RialHistory);
  CostLevelType_PNL.Framed = true;
  CostLevelType_PNL.SetWidth(380);
  CostLevelType_PNL.SetHeight(270);
  CostLevelType_PNL.Place(CostLevelType_PGC, 1);
  CostLevelType_PNL.Place(Sel_BTN);
  Report_CMB.SetPanel(CostLevelType_PNL);

  Place(Stock_CHK);
  Place(Label_QRTDEVX3);
  Place(Report_CMB);
  Place(Label_QRTDEVX4, 1);
}

void TPriceBasisPanel::LayOutList(TTabSheet& page, std::string_view title, TSmartDBGrid_QRT& grid,
                                  TQueryWithSource& rows) {
  page.SetCaption(std::string(title));
  grid.ShowFooter = false;
  grid.MultiSelect = false;
  grid.SetAccessibleName(std::string(Trim(PlainCaption(title))));
  grid.AddColumn("Code", "").SetVisible(false).SetCustomizable(false);
  grid.AddColumn("Name", "عنوان").SetAutoFit(true);
  grid.SetDataSource(&rows.Source);
  grid.OnKeyDown = [this](TKey& key) { RialsHistory_GRDKeyDown(key); };
  page.Place(grid, 1);
  CostLevelType_PGC.Place(page);
}

TSmartDBGrid_QRT& TPriceBasisPanel::ShownList() {
  const std::array<TSmartDBGrid_QRT*, 3> lists{&CostLevelBuyList_GRD, &CostLevelSellList_GRD,
                                               &RialsHistory_GRD};
  return *lists[static_cast<std::size_t>(CostLevelType_PGC.ActivePageIndex())];
}

void TPriceBasisPanel::Stock_CHKClick() {
  const bool byUser = !ByProgram(Stock_CHK);
  Report_CMB.SetEnabled(Stock_CHK.Checked());
  if (!Stock_CHK.Checked()) {
    basis_ = kPriceBasisNone;
    Report_CMB.SetText(std::string(kCostPrice));
    Report_CMB.SetDroppedDown(false);
    if (byUser) SaveNone();
  }
  if (OnBoxClick) OnBoxClick();
  if (Stock_CHK.Checked() && byUser && Report_CMB.CanDropDown()) Report_CMB.SetDroppedDown(true);
}

void TPriceBasisPanel::Sel_BTNClick() {
  ShownList().DoubleClick();
  Report_CMB.SetDroppedDown(false);
}

// The consumer price is a selling price: where the list has it, it is not offered among the buying ones.
void TPriceBasisPanel::CostLevelType_PGCChange() {
  const bool hides =
      style_.levels == CostLevelList::WithConsumerPrice && CostLevelType_PGC.ActivePage() == &ts1;
  data_.CostLevel.Query.SetFilter(hides ? "Code <> -100" : "");
  if (Report_CMB.DroppedDown()) ShownList().SetFocus();
}

void TPriceBasisPanel::RialsHistory_GRDKeyDown(TKey& key) {
  if (key.Is(Key::Enter)) {
    key.Consume();
    Sel_BTN.Click();
  } else if (key.Is(Key::Escape)) {
    key.Consume();
    Report_CMB.SetDroppedDown(false);
  }
}

void TPriceBasisPanel::ChooseLevel(int buyOrSell) {
  const TADOQuery& levels = data_.CostLevel.Query;
  if (!levels.RecNo()) return;
  const auto code = static_cast<int>(levels.FieldByName("Code").AsInteger());
  Choose(kPriceBasisLevel, buyOrSell, code, LevelText(levels.FieldByName("Name").AsText(), buyOrSell == 1));
}

void TPriceBasisPanel::RialsHistory_GRDDblClick() {
  const TADOQuery& history = data_.RialHistory.Query;
  if (!history.RecNo()) return;
  const auto code = static_cast<int>(history.FieldByName("Code").AsInteger());
  Choose(code, 1, code, history.FieldByName("Name").AsText());
}

void TPriceBasisPanel::Choose(int basis, int buyOrSell, int levelCode, const std::string& text) {
  restored_ = true;  // the choice takes the place of what the settings kept
  basis_ = basis;
  buyOrSell_ = buyOrSell;
  levelCode_ = levelCode;
  Report_CMB.SetText(text);
  {
    const ProgramChange change(Stock_CHK);
    Stock_CHK.SetChecked(true);
  }
  TSettings& settings = host_.Settings().Settings();
  const bool level = basis == kPriceBasisLevel;
  settings.PriceLevel = level;
  settings.PriceHistory = !level;
  settings.PriceBasis = basis;
  if (level) {
    settings.BuyOrSell = buyOrSell;
    settings.PriceLevelCode = levelCode;
  }
  host_.Settings().SaveSettingItem(style_.softwarePart, kLevelItem, level, buyOrSell,
                                   std::to_string(levelCode));
  host_.Settings().SaveSettingItem(style_.softwarePart, kHistoryItem, !level, level ? kPriceBasisNone : basis,
                                   "");
  Report_CMB.SetDroppedDown(false);
  if (OnChosen) OnChosen();
}

void TPriceBasisPanel::SaveNone() {
  restored_ = true;
  TSettings& settings = host_.Settings().Settings();
  settings.PriceLevel = false;
  settings.PriceHistory = false;
  host_.Settings().SaveSettingItem(style_.softwarePart, kHistoryItem, false, kPriceBasisNone, "");
  host_.Settings().SaveSettingItem(style_.softwarePart, kLevelItem, false, 0, "");
}

void TPriceBasisPanel::Restore() {
  restored_ = false;
  basis_ = kPriceBasisNone;
  buyOrSell_ = -1;
  levelCode_ = -1;
  OnFailure([this] { ReadLists(); },
            [this] {
              // The box would seem to say a basis that nothing is valued at.
              const ProgramChange change(Stock_CHK);
              Stock_CHK.SetChecked(false);
            });
  TakeOver();
  restored_ = true;
}

void TPriceBasisPanel::EnsureRestored() {
  if (!restored_) Restore();
}

void TPriceBasisPanel::ReadLists() {
  Report_CMB.SetDroppedDown(false);  // it may have hung open when the window was closed
  data_.RialHistory_Fill();
  data_.CostLevelGet(style_.levels);
}

void TPriceBasisPanel::TakeOver() {
  const TSettings& settings = host_.Settings().Settings();
  const ProgramChange change(Stock_CHK);
  if (settings.PriceLevel) {
    RestoreLevel();
  } else if (settings.PriceHistory) {
    RestoreHistory();
  }
  CostLevelType_PGCChange();
  const bool saved = settings.PriceLevel || settings.PriceHistory;
  if (Stock_CHK.Checked() != saved) {
    Stock_CHK.SetChecked(saved);
  } else if (saved) {
    Stock_CHKClick();
  }
}

// A level that is gone leaves the basis at "a price level", so that nothing is valued at another price than
// the one that was asked for.
void TPriceBasisPanel::RestoreLevel() {
  const TSettings& settings = host_.Settings().Settings();
  TADOQuery& levels = data_.CostLevel.Query;
  basis_ = kPriceBasisLevel;
  levels.SetFilter("");
  const std::array<Value, 1> code{Value(std::int64_t{settings.PriceLevelCode})};
  if (!levels.Locate("Code", code)) return;
  buyOrSell_ = settings.BuyOrSell;
  levelCode_ = settings.PriceLevelCode;
  CostLevelType_PGC.SetActivePageIndex(buyOrSell_ != 0 ? 0 : 1);
  Report_CMB.SetText(std::string(style_.restoredPrefix) +
                     LevelText(levels.FieldByName("Name").AsText(), buyOrSell_ != 0));
}

void TPriceBasisPanel::RestoreHistory() {
  const int saved = host_.Settings().Settings().PriceBasis;
  const auto row = PriceHistoryRow(saved);
  if (!row) return;
  basis_ = saved;
  data_.RialHistory.Query.MoveTo(*row);
  CostLevelType_PGC.SetActivePageIndex(2);
  Report_CMB.SetText(std::string(Trim(PriceHistoryKinds()[*row].name)));
}

}  // namespace goods
