#include "module/data/good_transactions_dm.h"

#include "module/framework/criteria_text.h"

namespace goods {
namespace {

constexpr std::string_view kEnglishLayout = "00000409";
constexpr std::string_view kPersianLayout = "00000429";

}  // namespace

TGoodTransactions_DM::TGoodTransactions_DM(THost& host, TComponent* owner) : DataModuleOf(host, owner) {}
TGoodTransactions_DM::~TGoodTransactions_DM() = default;

void TGoodTransactions_DM::SerialBarcode_EDTOnEnter(TEdit& /*edit*/) {
  Host().Windows().ActivateKeyboardLayout(kEnglishLayout);
}

void TGoodTransactions_DM::SerialBarcode_EDTOnExit(TEdit& /*edit*/) {
  Host().Windows().ActivateKeyboardLayout(kPersianLayout);
}

std::string TGoodTransactions_DM::ADDFarsiFilter(std::string_view condition, std::string_view filter) {
  return AddFarsiFilter(condition, filter);
}

std::string TGoodTransactions_DM::FarsiFilterOf(const std::vector<std::string>& conditions) {
  return goods::FarsiFilterOf(conditions);
}

}  // namespace goods
