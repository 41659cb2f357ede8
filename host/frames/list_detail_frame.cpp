#include "host/frames/list_detail_frame.h"

#include <utility>

namespace goods {

TListDetail_FRAME::TListDetail_FRAME(TComponent* owner, std::string name) : TPanel(owner, std::move(name)) {
  View_LBL.FocusControl = &View_CMB;
  View_CMB.SetAccessibleName("نمایش مشخصات");
  View_CMB.SetItems({{"به اندازه پهنا", 0, ""}, {"یک ستون", 1, ""}, {"دو ستون", 2, ""}, {"سه ستون", 3, ""}});
  View_CMB.OnChange = [this] { DetailFields_QRT1.SetColumns(static_cast<int>(View_CMB.ItemObject())); };
  DetailFields_QRT1.SetAccessibleName("مشخصات ردیف جاری");
  View_PNL.Place(Rest_PNL, 1);
  View_PNL.Place(View_LBL);
  View_PNL.Place(View_CMB);
  Framed = true;
  Place(DetailFields_QRT1, 1);
}

}  // namespace goods
