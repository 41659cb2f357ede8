#include "module/reports/detail/detail_report.h"

#include <utility>

#include "host/services/public_methods.h"
#include "module/framework/program_change.h"
#include "module/framework/report_window.h"

namespace goods {
namespace {

constexpr int kWithWaiting = 1;
constexpr int kWithoutWaiting = 0;

}  // namespace

TDetailReport_FRM::TDetailReport_FRM(THost& host, std::string name, std::string gridName, int formMode,
                                     Variant customParameter, std::string settingsName)
    : TBaseDock_FRM(host, std::move(name), formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this),
      delayedSearch_(*this, [this] { Rerun(kWithoutWaiting); }),
      List_GRD(this, std::move(gridName)),
      Search_PNL(this, "Search_PNL", delayedSearch_, List_GRD),
      Search_FRM(host) {}

TDetailReport_FRM::~TDetailReport_FRM() = default;

void TDetailReport_FRM::FormCreate() {
  TBaseDock_FRM::FormCreate();
  DescribeWindow(*this);
  delayedSearch_.OnHurried = [this] {
    if (!Rows().Query.IsEmpty()) List_GRD.SetFocus();
  };
  List_GRD.SetDataSource(&Rows().Source);
  List_GRD.OnSortChanged = [this] { QeratSearchManager1AfterExecute(); };
  Search_PNL.OnItemChange = [this] { Rerun(kWithoutWaiting); };

  DetailRow1.GoodDetailSelectSearch_CMB.OnChange = [this] { GoodDetailSelectSearch1_CMBChange(); };
  DetailRow1.GoodDetail_CMB.OnChange = [this] {
    if (busy_) return;
    if (DetailRow1.IsPickList()) {
      Rerun(kWithoutWaiting);
    } else {
      delayedSearch_.Typed(kValueComboTyped);
    }
  };
  for (TControl* typed : std::initializer_list<TControl*>{
           &DetailRow1.FromGoodDetail_EDT, &DetailRow1.ToGoodDetail_EDT, &DetailRow1.GoodDetail_CMB}) {
    typed->OnKeyDown = [this](TKey& key) { delayedSearch_.TakeEnter(key); };
  }
  DetailRow1.FromGoodDetail_EDT.OnChange = [this] {
    if (!busy_) delayedSearch_.Typed(kLowerEditTyped);
  };
  DetailRow1.ToGoodDetail_EDT.OnChange = [this] {
    if (!busy_) delayedSearch_.Typed(kUpperEditTyped);
  };
  DetailRow1.ToGoodDetailDate_EDT.OnExit = [this] { Rerun(kWithoutWaiting); };
  ADVSearch_Fram1.ADVSearch_BTN.OnClick = [this] { ADVSearch_Fram1ADVSearch_BTNClick(); };
  ADVSearch_Fram1.ADVSearch_CHK.OnClick = [this] { ADVSearch_Fram1ADVSearch_CHKClick(); };

  QeratSearchManager1.SetDataSource(&Rows().Source);
  QeratSearchManager1.OnCustomFilter_DataSet = [this](std::string& filter) {
    QeratSearchManager1CustomFilter_DataSet(filter);
  };
  QeratSearchManager1.OnAfterExecute = [this] { QeratSearchManager1AfterExecute(); };
  DetailRow1.Fill(dataModule_);
  GoodDetailSelectSearch1_CMBChange();
}

void TDetailReport_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  SetShortCut(*this);
  SetPopMenu(*this);
  SetPopMenu(List_GRD);
  shown_ = true;
  Search_PNL.GoodDetailSearch_EDT.SetFocus();
  Rerun(kWithoutWaiting);
}

void TDetailReport_FRM::FormClose() {
  shown_ = false;
  delayedSearch_.Cancel();
  Rows().Query.Close();
  TBaseDock_FRM::FormClose();
}

void TDetailReport_FRM::FormKeyDown(TKey& key) {
  Search_PNL.TakeSearchKeys(key, ADVSearch_Fram1);
  TBaseDock_FRM::FormKeyDown(key);
}

void TDetailReport_FRM::WindowMessage(int code) {
  TEdit* edit = nullptr;
  if (code == kSearchEditTyped) edit = &Search_PNL.GoodDetailSearch_EDT;
  if (code == kLowerEditTyped) edit = &DetailRow1.FromGoodDetail_EDT;
  if (code == kUpperEditTyped) edit = &DetailRow1.ToGoodDetail_EDT;
  delayedSearch_.Handle(code, edit);
}

void TDetailReport_FRM::SetProcParams(std::string& parameters) {
  parameters.clear();
  filterCaption_.clear();
  if (!shown_) return;
  DetailCriteria criteria(Host(), dataModule_, Style());
  AddCriteria(criteria);
  criteria.AddDetailRow(DetailRow1);
  if (ADVSearch_Fram1.ADVSearch_CHK.Checked()) criteria.AddDialog(Search_FRM);
  parameters = criteria.Parameters();
  filterCaption_ = criteria.Caption();
}

void TDetailReport_FRM::Rerun(int mode) {
  delayedSearch_.Cancel();  // a run reads every criterion as it stands
  const DelayedSearch::RunScope running(delayedSearch_);
  if (!shown_) return;
  std::string parameters;
  SetProcParams(parameters);
  Fetch(parameters, mode);
  FilterRows();
  List_GRD.RefreshFooters();
}

void TDetailReport_FRM::LimitRows(std::int64_t good, std::string condition) {
  rowGood_ = good;
  rowCondition_ = std::move(condition);
}

void TDetailReport_FRM::GoodDetailSelectSearch1_CMBChange() {
  busy_ = true;
  struct Busy {
    bool& flag;
    ~Busy() { flag = false; }
  } const scope{busy_};
  DetailRow1.ApplySelection(dataModule_);
  Rerun(kWithoutWaiting);
}

void TDetailReport_FRM::ADVSearch_Fram1ADVSearch_BTNClick() {
  if (Search_FRM.ShowModal() != kModalOk) return;
  {
    const ProgramChange change(ADVSearch_Fram1.ADVSearch_CHK);
    ADVSearch_Fram1.ADVSearch_CHK.SetChecked(true);
  }
  Rerun(kWithWaiting);
}

void TDetailReport_FRM::ADVSearch_Fram1ADVSearch_CHKClick() {
  if (ADVSearch_Fram1.ADVSearch_CHK.Tag == 0) Rerun(kWithWaiting);
}

bool TDetailReport_FRM::AsksForGood(std::int64_t good) const {
  return ADVSearch_Fram1.ADVSearch_CHK.Checked() && Search_FRM.Good_SESF.InUse() &&
         Search_FRM.Good_SESF.CodeAsInt() == good;
}

void TDetailReport_FRM::QeratSearchManager1CustomFilter_DataSet(std::string& filter) const {
  if (rowGood_ != 0 && AsksForGood(rowGood_)) filter = AddFilter(filter, "Kala=" + std::to_string(rowGood_));
  filter = AddFilter(filter, rowCondition_);
  filter = AddFilter(filter, RowCondition());
}

void TDetailReport_FRM::QeratSearchManager1AfterExecute() {
  TADOQuery& query = Rows().Query;
  if (query.Active()) query.SetSort(GetGridSort(List_GRD));
}

void TDetailReport_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  TBaseDock_FRM::PrintDBGridEhBeforePrint(lines);
  AddFilterLine(lines, filterCaption_);
}

}  // namespace goods
