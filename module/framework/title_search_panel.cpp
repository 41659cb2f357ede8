#include "module/framework/title_search_panel.h"

#include <utility>

#include "module/framework/program_change.h"

namespace goods {

TTitleSearchPanel::TTitleSearchPanel(TComponent* window, std::string name, DelayedSearch& typing,
                                     TSmartDBGrid_QRT& grid, int message)
    : TPanel(window, std::move(name), Flow::Row),
      GoodDetailSearch_LBL(window, "GoodDetailSearch_LBL", "F10  جستجو بر اساس :"),
      GoodDetailSearch_CMB(window, "GoodDetailSearch_CMB"),
      GoodDetailSearch_EDT(window, "GoodDetailSearch_EDT") {
  GoodDetailSearch_LBL.FocusControl = &GoodDetailSearch_CMB;
  GoodDetailSearch_CMB.SetAccessibleName("جستجو بر اساس");
  GoodDetailSearch_EDT.SearchBox = true;
  GoodDetailSearch_EDT.SetAccessibleName("متن جستجو");
  GoodDetailSearch_CMB.OnChange = [this] {
    if (ByProgram(GoodDetailSearch_CMB)) return;
    ApplyItem();
    if (OnItemChange) OnItemChange();
  };
  GoodDetailSearch_EDT.OnChange = [this, &typing, message] {
    if (!ByProgram(GoodDetailSearch_EDT)) typing.Typed(message);
  };
  GoodDetailSearch_EDT.OnKeyDown = [&typing, &grid](TKey& key) {
    if (key.Is(Key::Up) || key.Is(Key::Down)) {
      key.Consume();
      grid.SetFocus();
    } else {
      typing.TakeEnter(key);
    }
  };
  Place(GoodDetailSearch_LBL);
  Place(GoodDetailSearch_CMB);
  Place(GoodDetailSearch_EDT, 1);
}

void TTitleSearchPanel::SetItems(std::vector<TitleSearchItem> items, int chosen) {
  items_ = std::move(items);
  std::vector<TComboItem> entries;
  for (const TitleSearchItem& item : items_) entries.push_back({item.text, item.object, "", item.money});
  {
    const ProgramChange change(GoodDetailSearch_CMB);
    GoodDetailSearch_CMB.SetItems(std::move(entries));
    GoodDetailSearch_CMB.SetItemIndex(chosen);
  }
  ApplyItem();
}

void TTitleSearchPanel::Preset(int item, const std::string& text) {
  {
    const ProgramChange change(GoodDetailSearch_CMB);
    GoodDetailSearch_CMB.SetItemIndex(item);
  }
  ApplyItem();
  const ProgramChange change(GoodDetailSearch_EDT);
  GoodDetailSearch_EDT.SetText(text);
}

void TTitleSearchPanel::ApplyItem() {
  const ProgramChange change(GoodDetailSearch_EDT);
  GoodDetailSearch_EDT.SetVisible(true);
  GoodDetailSearch_EDT.SetKind(Item().kind);
  GoodDetailSearch_EDT.Clear();
}

void TTitleSearchPanel::TakeSearchKeys(TKey& key, TADVSearch_Fram& advanced) {
  if (key.IsCtrl(Key::F10) && advanced.ADVSearch_BTN.CanFocus()) {
    Press(key, advanced.ADVSearch_BTN);
  } else if (key.Is(Key::F10) || key.IsCtrl(Key::F10)) {
    key.Consume();
    GoodDetailSearch_CMB.SetFocus();
  }
}

}  // namespace goods
