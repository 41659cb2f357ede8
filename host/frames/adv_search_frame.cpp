#include "host/frames/adv_search_frame.h"

#include <utility>

namespace goods {

TADVSearch_Fram::TADVSearch_Fram(TComponent* owner, std::string name)
    : TPanel(owner, std::move(name), Flow::Row) {
  ADVSearch_CHK.SetAccessibleName("استفاده از جستجوی پیشرفته");
  ADVSearch_BTN.SetAccessibleName("جستجوی پیشرفته");
  ADVSearch_BTN.SetHint("جستجوی پیشرفته (Ctrl+F10)");
  ADVSearch_LBL.OnClick = [this] { ADVSearch_CHK.Click(); };
  Place(ADVSearch_CHK);
  Place(ADVSearch_LBL);
  Place(ADVSearch_BTN);
}

}  // namespace goods
