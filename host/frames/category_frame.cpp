#include "host/frames/category_frame.h"

#include <utility>

#include "host/components/form.h"

namespace goods {

TCategorysearchframe::TCategorysearchframe(TComponent* owner, std::string name, std::string caption)
    : TPanel(owner, std::move(name), Flow::Row), Category_LBL(this, "Category_LBL", std::move(caption)) {
  Category_LBL.FocusControl = &Category_EDT;
  Category_EDT.SetAccessibleName(PlainCaption(Category_LBL.Caption()));
  Category_EDT.SetPlaceholder("نام دسته");
  Category_EDT.OnChange = [this] {
    if (OnChange) OnChange();
  };
  Category_EDT.OnKeyDown = [this](TKey& key) {
    if (!key.Is(Key::F4)) return;
    key.Consume();
    select_BTNClick();
  };
  select_BTN.SetAccessibleName("انتخاب دسته");
  select_BTN.SetHint("انتخاب از درخت دسته ها (F4)");
  select_BTN.OnClick = [this] { select_BTNClick(); };
  Place(Category_LBL);
  Place(Category_EDT, 1);
  Place(select_BTN);
}

void TCategorysearchframe::Open(ILookups& lookups) {
  std::vector<TToken> tokens;
  for (const TCategory& category : lookups.Categories()) tokens.push_back({category.Code, category.Name, {}});
  Category_EDT.SetChoices(std::move(tokens));
}

void TCategorysearchframe::select_BTNClick() {
  TForm* form = Form();
  if (form == nullptr) return;
  const auto chosen = form->Host().Lookups().SelectCategories(form, Category_EDT.Codes());
  if (chosen) Category_EDT.SetCodes(*chosen);
}

}  // namespace goods
