#include "module/reports/detail/detail_report.h"

#include <utility>

#include "host/services/public_methods.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"

namespace goods {

TDetailReport_FRM::TDetailReport_FRM(THost& host, std::string name, std::string gridName, int formMode,
                                     Variant customParameter, std::string settingsName)
    : TReportOf(host, std::move(name), formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this),
      List_GRD(this, std::move(gridName)),
      Search_PNL(this, "Search_PNL", delayedSearch_, List_GRD),
      Search_FRM(host) {}

TDetailReport_FRM::~TDetailReport_FRM() = default;

void TDetailReport_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  ShowRows(List_GRD, Rows().Source);
  Search_PNL.OnItemChange = [this] { Run(Waiting::Silent); };

  DetailRow1.GoodDetailSelectSearch_CMB.OnChange = [this] {
    if (!ByProgram(DetailRow1.GoodDetailSelectSearch_CMB)) GoodDetailSelectSearch1_CMBChange();
  };
  DetailRow1.GoodDetail_CMB.OnChange = [this] {
    if (ByProgram(DetailRow1.GoodDetail_CMB)) return;
    if (DetailRow1.IsPickList()) {
      Run(Waiting::Silent);
    } else {
      Typed(kValueComboTyped);
    }
  };
  DetailRow1.GoodDetail_CMB.OnKeyDown = [this](TKey& key) { delayedSearch_.TakeEnter(key); };
  for (auto [edit, message] : {std::pair{&DetailRow1.FromGoodDetail_EDT, kLowerEditTyped},
                               std::pair{&DetailRow1.ToGoodDetail_EDT, kUpperEditTyped}}) {
    edit->OnKeyDown = [this](TKey& key) { delayedSearch_.TakeEnter(key); };
    edit->OnChange = [this, edit = edit, message = message] {
      if (!ByProgram(*edit)) Typed(message);
    };
  }
  DetailRow1.ToGoodDetailDate_EDT.OnExit = [this] { Run(Waiting::Silent); };
  for (TPanel* panel : {static_cast<TPanel*>(&Search_PNL), static_cast<TPanel*>(&DetailRow1)}) {
    WatchCriteria(*panel);
  }
  UseDialog(ADVSearch_Fram1, Search_FRM);

  QeratSearchManager1.SetDataSource(&Rows().Source);
  QeratSearchManager1.OnCustomFilter_DataSet = [this](std::string& filter) {
    QeratSearchManager1CustomFilter_DataSet(filter);
  };
  QeratSearchManager1.OnAfterExecute = [this] { QeratSearchManager1AfterExecute(); };
  DetailRow1.Fill(dataModule_);
  GoodDetailSelectSearch1_CMBChange();
}

void TDetailReport_FRM::FormShow() {
  TReportOf::FormShow();
  SetShortCut(*this);
  SetPopMenu(*this);
  SetPopMenu(List_GRD);
  ResetCriteria();
  ShowAndRun(Search_PNL.GoodDetailSearch_EDT);
}

void TDetailReport_FRM::ResetCriteria() {
  Search_PNL.ApplyItem();
  DetailRow1.Clear(dataModule_);
}

void TDetailReport_FRM::FormKeyDown(TKey& key) {
  Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  TReportOf::FormKeyDown(key);
}

DetailListCriteria TDetailReport_FRM::ReadCriteria() const {
  DetailListCriteria criteria;
  ReadOwnCriteria(criteria);
  criteria.titleItem = Search_PNL.ItemIndex();
  criteria.title = Search_PNL.Text();
  criteria.detail = DetailRow1.Criterion();
  if (ADVSearch_Fram1.ADVSearch_CHK.Checked()) criteria.dialog = Search_FRM.Criteria();
  return criteria;
}

void TDetailReport_FRM::LookUpNames(DetailListCriteria& criteria) {
  if (!criteria.dialog) return;
  DetailDialogCriteria& dialog = *criteria.dialog;
  if (Search_FRM.TTags_search_FRM1.HasTags()) dialog.tagNames = dataModule_.ReturnTagName(dialog.tags);
  if (!dialog.category.empty()) {
    dialog.categoryName = Host().Lookups().ReturnCategoryName(dialog.category);
  }
}

void TDetailReport_FRM::GoodDetailSelectSearch1_CMBChange() {
  DetailRow1.ApplySelection(dataModule_);
  Run(Waiting::Silent);
}

void TDetailReport_FRM::QeratSearchManager1CustomFilter_DataSet(std::string& filter) const {
  const DetailListCriteria* run = RunCriteria();
  if (rowGood_ != 0 && run != nullptr && run->dialog && run->dialog->good.code == rowGood_) {
    filter = AddFilter(filter, "Kala=" + std::to_string(rowGood_));
  }
  filter = AddFilter(filter, RowCondition());
}

}  // namespace goods
