// TTitleSearchPanel: "search by this column for that text", as the good-detail reports have it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/standard.h"
#include "host/frames/adv_search_frame.h"
#include "module/framework/delayed_search.h"
#include "module/framework/report_window.h"

namespace goods {

// A column that can be searched, the input that it takes, the number that statements send for it, and whether
// it holds prices or amounts.
struct TitleSearchItem {
  std::string text;
  InputKind kind = InputKind::Text;
  std::int64_t object = 0;
  bool money = false;
};

// Choosing another column empties the edit and sets its kind of input, without a search of its own for that.
// Up and Down in the edit move the focus to the grid; Enter ends the wait for more keys. List and edit belong
// to the window.
class TTitleSearchPanel : public TPanel {
 public:
  // typing hears of keys in the edit, by that message; it and grid must outlive the panel.
  TTitleSearchPanel(TComponent* window, std::string name, DelayedSearch& typing, TSmartDBGrid_QRT& grid,
                    int message = kSearchEditTyped);

  // The item at chosen becomes the chosen one, silently; the edit is emptied.
  void SetItems(std::vector<TitleSearchItem> items, int chosen);
  const TitleSearchItem& Item() const { return items_.at(static_cast<std::size_t>(ItemIndex())); }
  int ItemIndex() const {
    return GoodDetailSearch_CMB.ItemIndex() < 0 ? 0 : GoodDetailSearch_CMB.ItemIndex();
  }
  // As a criterion: empty while nothing, or no value yet, stands in the edit.
  std::string Text() const { return GoodDetailSearch_EDT.TextOfValue(); }
  // Both silently.
  void Preset(int item, const std::string& text);
  // Sets the edit up for the chosen column, as choosing does.
  void ApplyItem();

  // Ctrl+F10 opens the criteria dialog where it can be opened; F10, and Ctrl+F10 else, goes to the list.
  void TakeSearchKeys(TKey& key, TADVSearch_Fram& advanced);

  // Another column was chosen.
  std::function<void()> OnItemChange;

  TLabel GoodDetailSearch_LBL;
  TComboBox GoodDetailSearch_CMB;
  TEdit GoodDetailSearch_EDT;

 private:
  std::vector<TitleSearchItem> items_;
};

}  // namespace goods
