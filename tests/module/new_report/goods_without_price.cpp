#include "tests/module/new_report/goods_without_price.h"

#include <optional>
#include <utility>

#include "module/framework/report_window.h"
#include "module/framework/texts.h"

namespace goods {

TGoodsWithoutPrice_FRM::TGoodsWithoutPrice_FRM(THost& host, int formMode, Variant customParameter,
                                               std::string settingsName)
    : TReportOf(host, "GoodsWithoutPrice_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      GoodsWithoutPrice_QRY(this, "GoodsWithoutPrice_QRY", host.Connection()) {
  DeclareForm();
  Initialise();
}

TGoodsWithoutPrice_FRM::~TGoodsWithoutPrice_FRM() = default;

void TGoodsWithoutPrice_FRM::FormCreate() {
  TReportOf::FormCreate();
  PrintOption.SoftwarePart = kPartAmountAsset;
  SetCommonControls(GoodsWithoutPrice_GRD, PrintList_BTN, Exit_BTN);
  ShowRows(GoodsWithoutPrice_GRD, GoodsWithoutPrice_DS);
  GoodsWithoutPrice_GRD.OnDblClick = [this] { OpenKardex_BTN.Click(); };
  OnAction(OpenKardex_BTN, [this] { OpenKardex_BTNClick(); });
  Search_PNL.OnItemChange = [this] { Run(Waiting::Silent); };
  WithStock_CHK.OnClick = [this] { Run(Waiting::Silent); };
  Codes_FRAME.Search.OnChange = [this] { Typed(kLowerEditTyped); };
  WatchCriteria(*this);
}

void TGoodsWithoutPrice_FRM::FormShow() {
  TReportOf::FormShow();
  SetShortCut(GoodsWithoutPrice_GRD);
  SetPopMenu(GoodsWithoutPrice_GRD);
  Search_PNL.ApplyItem();
  WithStock_CHK.SetChecked(false);
  Codes_FRAME.Clear();
  ShowAndRun(Search_PNL.GoodDetailSearch_EDT);
}

void TGoodsWithoutPrice_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::F2)) Press(key, OpenKardex_BTN);
  TReportOf::FormKeyDown(key);
}

GoodsWithoutPriceCriteria TGoodsWithoutPrice_FRM::ReadCriteria() const {
  return {Search_PNL.ItemIndex(), Search_PNL.Text(), WithStock_CHK.Checked(), RangeOf(Codes_FRAME)};
}

void TGoodsWithoutPrice_FRM::Fetch(const std::string& parameters, Waiting waiting) {
  std::optional<WaitingScope> shown;
  if (waiting == Waiting::Shown) shown.emplace(Host().Waiting(), this, kFetchingData);
  GoodsWithoutPrice_QRY.SetSQL(" EXEC GoodsWithoutPrice " + parameters);
  GoodsWithoutPrice_QRY.Open();
}

void TGoodsWithoutPrice_FRM::OpenKardex_BTNClick() {
  if (!GoodsWithoutPrice_QRY.RecNo()) return;
  Host().Documents().Call_KardexKala(GoodsWithoutPrice_QRY.FieldByName("GoodCode").AsInteger(), 0, "", "");
}

}  // namespace goods
