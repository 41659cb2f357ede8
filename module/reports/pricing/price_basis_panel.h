// TPriceBasisPanel: what a money report values stock at, chosen from price levels and price history, and kept
// in the host's settings.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/components/drop_down.h"
#include "host/components/grid.h"
#include "host/components/tabs.h"
#include "host/services/host.h"
#include "module/data/stock_data.h"

namespace goods {

// What differs between the reports that value stock.
struct PriceBasisStyle {
  int softwarePart = 0;  // under which the settings items are saved
  CostLevelList levels = CostLevelList::Plain;
  std::string_view buyTab;
  std::string_view sellTab;
  std::string_view historyTab;
  std::string_view unchosenText;    // of the drop-down while nothing was ever chosen
  std::string_view restoredPrefix;  // before the name of a price level that was restored
  std::string_view note;
};

inline constexpr int kPriceBasisNone = -1;  // cost, by moving weighted average
inline constexpr int kPriceBasisLevel = 5;
inline constexpr std::string_view kCostPrice = "بهای تمام شده";

// Basis: -1 none; 5 a price level; 1, 2, 3 the highest, lowest and last purchase price; 11, 12, 13 the same
// of sales. Buy or sell: 1 and 0, -1 not set. The level's code is -1 while none is set. All three are -1 at
// first. Choosing saves; unticking by the user resets the basis alone and saves that.
class TPriceBasisPanel : public TPanel {
 public:
  // host and data must outlive it.
  TPriceBasisPanel(TComponent* owner, std::string name, THost& host, PriceData& data,
                   const PriceBasisStyle& style);

  int Basis() const { return basis_; }
  int BuyOrSell() const { return buyOrSell_; }
  int LevelCode() const { return levelCode_; }
  // A basis is in use: the box is ticked and something was chosen.
  bool InUse() const { return Stock_CHK.Checked() && basis_ != kPriceBasisNone; }

  // A basis is in use and the drop-down says which; a level that is gone has no name.
  bool Named() const { return InUse() && Report_CMB.Text() != style_.unchosenText; }

  // Sets all three to -1, fills the lists, and takes over what the settings keep. The box is ticked, or
  // unticked, by the program. Throws where the lists cannot be read: the box is unticked then, and nothing is
  // saved; and what OnBoxClick throws.
  void Restore();
  // Restores again where that failed the last time and the user has not chosen since; a report whose basis
  // cannot be known is not run.
  void EnsureRestored();

  // The box was ticked or unticked, whoever did it.
  std::function<void()> OnBoxClick;
  // The user chose a basis; the box is ticked.
  std::function<void()> OnChosen;

  void Stock_CHKClick();
  void Label_QRTDEVX3Click() { Stock_CHK.Click(); }
  void Sel_BTNClick();
  void CostLevelType_PGCChange();
  void CostLevelBuyList_GRDDblClick() { ChooseLevel(1); }
  void CostLevelSellList_GRDDblClick() { ChooseLevel(0); }
  void RialsHistory_GRDDblClick();
  // Shared by the three lists: Enter chooses, Escape closes.
  void RialsHistory_GRDKeyDown(TKey& key);

  TLabel Label_QRTDEVX3{this, "Label_QRTDEVX3", "&فی  کالا بر اساس :"};
  TCheckBox Stock_CHK{this, "Stock_CHK", "&ف"};
  TDropDownCombo Report_CMB{this, "Report_CMB"};
  TPanel CostLevelType_PNL{this, "CostLevelType_PNL"};
  TPageControl CostLevelType_PGC{this, "CostLevelType_PGC"};
  TTabSheet ts1{this, "ts1"};
  TTabSheet ts2{this, "ts2"};
  TTabSheet ts3{this, "ts3"};
  TSmartDBGrid_QRT CostLevelBuyList_GRD{this, "CostLevelBuyList_GRD"};
  TSmartDBGrid_QRT CostLevelSellList_GRD{this, "CostLevelSellList_GRD"};
  TSmartDBGrid_QRT RialsHistory_GRD{this, "RialsHistory_GRD"};
  TButton Sel_BTN{this, "Sel_BTN", "انتخاب Enter"};
  TLabel Label_QRTDEVX4{this, "Label_QRTDEVX4"};

 private:
  void LayOut();
  void LayOutList(TTabSheet& page, std::string_view title, TSmartDBGrid_QRT& grid, TQueryWithSource& rows);
  TSmartDBGrid_QRT& ShownList();
  void ChooseLevel(int buyOrSell);
  void Choose(int basis, int buyOrSell, int levelCode, const std::string& text);
  void ReadLists();
  void TakeOver();
  void RestoreLevel();
  void RestoreHistory();
  void SaveNone();

  THost& host_;
  PriceData& data_;
  PriceBasisStyle style_;
  int basis_ = kPriceBasisNone;
  int buyOrSell_ = -1;
  int levelCode_ = -1;
  bool restored_ = true;  // what the settings keep was taken over, or never asked for
};

}  // namespace goods
