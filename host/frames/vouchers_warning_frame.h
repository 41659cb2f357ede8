// TDontSavedVouchers_Frame: the warning that vouchers made by the program wait for being saved.
#pragma once

#include <functional>
#include <string>

#include "host/components/standard.h"
#include "host/services/documents.h"

namespace goods {

// Seen while the host reports such vouchers; its button asks again.
class TDontSavedVouchers_Frame : public TPanel {
 public:
  // kind is the host's: "3" for vouchers of stock.
  TDontSavedVouchers_Frame(TComponent* owner, std::string name, std::string kind);

  // Asks the host, and shows or hides the warning.
  void CheckRefresh(IDocuments& documents);
  // The user asked again, and the vouchers have been saved meanwhile.
  std::function<void()> OnChecked;

  TLabel Warning_LBL{this, "Warning_LBL",
                     "سندهای خودکار ثبت نشده وجود دارد؛ مبالغ این گزارش پس از ثبت آنها کامل می شود."};
  TButton Refresh_BTN{this, "Refresh_BTN", "بررسی دوباره"};

 private:
  std::string kind_;
};

}  // namespace goods
