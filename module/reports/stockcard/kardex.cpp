#include "module/reports/stockcard/kardex.h"

#include <initializer_list>
#include <utility>

#include "module/framework/document_opening.h"
#include "module/framework/endings.h"
#include "module/framework/good_header_panel.h"
#include "module/framework/report_window.h"
#include "module/framework/row_facts.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr int kPreTimePanelHeight = 45;

std::string CodeInUse(const TSelectEntity_Search_Frame& frame) {
  return frame.InUse() ? std::to_string(frame.CodeAsInt()) : std::string();
}

}  // namespace

TKardex_FRM::TKardex_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName)
    : TReportOf(host, "Kardex_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      dataModule_(host, this) {
  DeclareForm();
  Initialise();
}

TKardex_FRM::~TKardex_FRM() = default;

void TKardex_FRM::FormCreate() {
  TReportOf::FormCreate();
  DescribeWindow(*this);
  SetCommonControls(Kardex_GRD, PrintList_BTN, Exit_BTN);

  ShowRows(Kardex_GRD, dataModule_.Kardex.Source);
  Kardex_GRD.OnDblClick = [this] { OpenInfo_BTN.Click(); };
  OnAction(OpenInfo_BTN, [this] { OpenInfo_BTNClick(); });

  Good_SEF.OnCodeChange = [this] { Good_SEFCodeChange(); };
  Date_RDSF.OnCheckClick = [this] { Date_RDSFCheckClick(); };
  Store_SESF.SetItems({{"انبار", "Anbar", DataKind::Number}});
  Person_SESF.SetItems({{"شخص", "PerCode", DataKind::Number}});
  Date_RDSF.SetItems({{"تاریخ", "Date", DataKind::Text}});

  DescribeMovements(Host(), Kardex_GRD, {.type = "Type", .code = "OperationCode", .store = "Anbar"});
  QeratSearchManager1.SetDataSource(&dataModule_.Kardex.Source);
  for (TSearchFrame* frame : std::initializer_list<TSearchFrame*>{&Store_SESF, &Person_SESF, &Date_RDSF}) {
    QeratSearchManager1.AddItem(frame->Search);
  }
  QeratSearchManager1.OnSearchItems_Changed = [this] { QeratSearchManager1SearchItems_Changed(); };
  QeratSearchManager1.OnCustomFilter_DataSet = [this](std::string& filter) {
    filter = RowConditionOf(ReadCriteria());
  };
  QeratSearchManager1.OnAfterExecute = [this] { QeratSearchManager1AfterExecute(); };
  QeratSearchManager1.OnAfterExecute_DataSet = [this] { QeratSearchManager1AfterExecute_DataSet(); };
}

void TKardex_FRM::OnCustomParameter(const CustomParameter& parameter) {
  parameter_ = parameter;
  Good_SEF.SetEnabled(parameter_.Integer(0) == 1);
}

void TKardex_FRM::FormShow() {
  TReportOf::FormShow();
  ApplySettings();
  Criteria_PNL.SetFolded(true);
  SetShortCut(Kardex_GRD);
  SetPopMenu(Kardex_GRD);
  ApplyParameter();
  SetShown();
  if (Good_SEF.Enabled()) {
    Good_SEF.Code_EDT.SetFocus();
  } else {
    Kardex_GRD.SetFocus();
  }
  FillCard();
}

void TKardex_FRM::FormKeyDown(TKey& key) {
  TReportOf::FormKeyDown(key);
  if (key.IsAlt(Key::Digit2)) {
    key.Consume();
    Criteria_PNL.SetFolded(!Criteria_PNL.Folded());
  } else if (key.Is(Key::F2)) {
    key.Consume();
    OpenInfo_BTN.Click();
  }
}

// Criteria that the parameter leaves out are off, so that a kept window does not show the last call's. What
// cannot be looked up is told, leaves its own criterion empty, and the rest holds; a good that the caller
// fixed can then be typed.
void TKardex_FRM::ApplyParameter() {
  Person_SESF.Clear();
  Store_SESF.Clear();
  Date_RDSF.Clear();
  if (!Preset(Good_SEF, parameter_.Integer(1))) Good_SEF.SetEnabled(true);
  Preset(Store_SESF, parameter_.Integer(2));
  // An end alone is no date range.
  if (!parameter_.Text(3).empty()) Date_RDSF.SetRange(parameter_.Text(3), parameter_.Text(4));
  if (Store_SESF.InUse() || Date_RDSF.RangeDate_CHK.Checked()) Criteria_PNL.SetFolded(false);
}

template <typename Frame>
bool TKardex_FRM::Preset(Frame& frame, std::int64_t code) {
  bool found = false;
  RunUserAction(Host(), [&] {
    frame.SetCode(code);
    found = true;
  });
  if (!found) frame.SetCode(0);
  return found;
}

void TKardex_FRM::ApplySettings() {
  const TSettings& settings = Host().Settings().Settings();
  ApplyUnitCaptions(settings, Unit_Cap_LBL, Unit2_Cap_LBL, Unit2_LBL);
  Kardex_GRD.FindColumn("Meghdar2")->SetVisible(settings.SecondUnit).SetCustomizable(settings.SecondUnit);
}

void TKardex_FRM::Good_SEFCodeChange() {
  ShowGood();
  if (Shown()) FillCard();
}

void TKardex_FRM::ShowGood() {
  const auto unitName = [this](std::size_t field) {
    const std::string name = Good_SEF.Field(field);
    return name.empty() ? std::string(kNoName) : name;
  };
  Unit_LBL.SetCaption(unitName(1));
  Unit2_LBL.SetCaption(unitName(2));
}

void TKardex_FRM::FillCard() {
  if (!GoodChosen()) {
    CloseRows();
    ShowRemainderColumns();
    ShowPreTimeData();
    return;
  }
  SetPreTimeCaptions({});  // a card that cannot be filled must not stand under another good's figures
  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  Run(Waiting::Silent);
}

StockCardCriteria TKardex_FRM::ReadCriteria() const {
  const auto entity = [](const TSelectEntity_Search_Frame& frame) {
    return StockCardEntity{frame.Search, frame.TSelect_Entity_Frame1.EntityName()};
  };
  return {
      .good = {Good_SEF.CodeAsInt(), Good_SEF.EntityName()},
      .store = entity(Store_SESF),
      .person = entity(Person_SESF),
      .dates = Date_RDSF.Search,
  };
}

// A card that is filled anew starts from no filter and ends on its last row, in whatever order.
void TKardex_FRM::Fetch(const std::string& /*parameters*/, Waiting /*waiting*/) {
  Good_SEF.SetFilled(false);
  TADOQuery& query = dataModule_.Kardex.Query;
  query.Close();
  query.SetFilter("");
  dataModule_.FillDataKardexTransact(Good_SEF.CodeAsInt());
}

void TKardex_FRM::RowsCame() {
  ApplyFilter(CurrentAfter::Last);
  Good_SEF.SetFilled(true);
}

void TKardex_FRM::QeratSearchManager1SearchItems_Changed() {
  if (!Shown()) return;
  if (dataModule_.Kardex.Query.Active()) {
    ApplyFilter(CurrentAfter::TheSame);
  } else {
    ShowRemainderColumns();
    ShowPreTimeData();
  }
}

// The row that was current stays so while it is shown, where that is wanted; else the last one is.
void TKardex_FRM::ApplyFilter(CurrentAfter current) {
  const auto before = CurrentRow();
  TADOQuery& query = dataModule_.Kardex.Query;
  ShowRemainderColumns();
  query.DisableControls();
  // When the figures fail, the rows are filtered all the same.
  WithEnd([this] { QeratSearchManager1.ExecuteFilter_DataSet(); },
          [&] {
            if (current == CurrentAfter::Last || CurrentRow() != before) query.Last();
            TellNarrowing();
            query.EnableControls();
          });
}

std::optional<std::uint32_t> TKardex_FRM::CurrentRow() const {
  const TADOQuery& query = dataModule_.Kardex.Query;
  const auto position = query.RecNo();
  return position ? std::optional(query.VisibleRows()[*position]) : std::nullopt;
}

void TKardex_FRM::ShowRemainderColumns() {
  const bool oneStore = Store_SESF.IsOnlyThisOne();
  remainder_->SetFieldName(oneStore ? "RemainInAnbar" : "Bagh");
  remainderAmount_->SetFieldName(oneStore ? "Mab_RemainInAnbar" : "Mab_Bagh");
}

void TKardex_FRM::QeratSearchManager1AfterExecute() { ApplySort(); }

void TKardex_FRM::QeratSearchManager1AfterExecute_DataSet() {
  Kardex_GRD.RefreshFooters();
  ShowPreTimeData();
}

void TKardex_FRM::Date_RDSFCheckClick() {
  const bool checked = Date_RDSF.RangeDate_CHK.Checked();
  if (checked == PreTime_PNL.Visible()) return;
  PreTime_PNL.SetVisible(checked);
  Criteria_PNL.SetHeight(Criteria_PNL.Height() + (checked ? kPreTimePanelHeight : -kPreTimePanelHeight));
  // With a start date the criterion changes now, and brings the figures with it.
  if (Date_RDSF.FromDate().empty()) ShowPreTimeData();
}

void TKardex_FRM::ShowPreTimeData() {
  if (!Date_RDSF.RangeDate_CHK.Checked()) return;
  SetPreTimeCaptions({});
  const std::string& from = Date_RDSF.FromDate();
  if (!GoodChosen() || from.empty()) return;
  SetPreTimeCaptions(dataModule_.GetPreTimeData(std::to_string(Good_SEF.CodeAsInt()), from,
                                                CodeInUse(Store_SESF), CodeInUse(Person_SESF)));
}

void TKardex_FRM::SetPreTimeCaptions(const TPreTimeData& data) {
  PreVarede_LBL.SetCaption(data.Incoming);
  PreSadere_LBL.SetCaption(data.Outgoing);
  PreBagh_LBL.SetCaption(data.Remainder);
  PreMiangin_LBL.SetCaption(data.LastAverage);
  PreMablagh_LBL.SetCaption(data.RemainderAmount);
}

void TKardex_FRM::OpenInfo_BTNClick() {
  TADOQuery& query = dataModule_.Kardex.Query;
  if (!query.RecNo()) return;
  const Value type = query.FieldByName("Type");
  const Value operationCode = query.FieldByName("OperationCode");
  if (OpenDocument(Host(), type, operationCode.AsInteger()) != DocumentOutcome::Opened) return;
  if (!ChangesStockCard(type)) return;

  const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
  Run(Waiting::Silent);
  const Value key[] = {type, operationCode};
  query.Locate("Type;OperationCode", key);
}

void TKardex_FRM::AddPrintLines(std::vector<std::string>& lines) {
  if (RunCriteria() != nullptr) lines.push_back("کالا: " + RunCriteria()->good.CodeAndName());
}

}  // namespace goods
