#include "host/frames/vouchers_warning_frame.h"

#include <utility>

#include "host/components/form.h"

namespace goods {

TDontSavedVouchers_Frame::TDontSavedVouchers_Frame(TComponent* owner, std::string name, std::string kind)
    : TPanel(owner, std::move(name), Flow::Row), kind_(std::move(kind)) {
  Warning = true;
  SetVisible(false);
  Refresh_BTN.OnClick = [this] {
    TForm* form = Form();
    if (form == nullptr) return;
    CheckRefresh(form->Host().Documents());
    if (!Visible() && OnChecked) OnChecked();
  };
  Place(Warning_LBL, 1);
  Place(Refresh_BTN);
}

void TDontSavedVouchers_Frame::CheckRefresh(IDocuments& documents) {
  SetVisible(documents.DontSavedVouchers(kind_));
}

}  // namespace goods
