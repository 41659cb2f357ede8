#include "module/reports/turnover/good_transaction_search.h"

#include <initializer_list>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/framework/program_change.h"

namespace goods {
namespace {

// Tags and categories are known by their names.
std::string NamesOf(const TTokenEditor& editor) {
  std::string names;
  for (const TToken& token : editor.Tokens()) names += (names.empty() ? "" : "، ") + token.Text;
  return names;
}

}  // namespace

TGoodTransactionSearch_FRM::TGoodTransactionSearch_FRM(THost& host, SelectedListData& data, int reportKind)
    : TBaseSearch_FRM(host, "GoodTransactionSearch_FRM"), data_(data), reportKind_(reportKind) {
  DeclareForm();
  FormCreate();
}

TGoodTransactionSearch_FRM::~TGoodTransactionSearch_FRM() = default;

void TGoodTransactionSearch_FRM::FormCreate() {
  TBaseSearch_FRM::FormCreate();
  Go_BTN.OnClick = [this] { Go_BTNClick(); };

  ILookups& lookups = Host().Lookups();
  TTags_search_FRM1.OpenTags(lookups);
  TCategorySearchFrame1.Open(lookups);
  AddItems();

  TCategorySearchFrame1.OnChange = [this] { TCategorySearchFrame1Change(); };
  QeratSearchManager1.OnCustomFilter_Proc = [this](std::string& text) {
    QeratSearchManager1CustomFilter_Proc(text);
  };

  selectedLists_ = data_.FillSelectedList(SelectedList_CMB);
  SelectedList_CMB.SetItemIndex(selectedLists_.SelectedIndex);
  SelectedList_CMBChange();
  SelectedList_CMB.OnChange = [this] { SelectedList_CMBChange(); };
  selectedListPermission_ =
      IsAllowed(Host().Rights(), reportKind_ == kPartCashAsset ? kPartCashAsset : kPartAmountAsset,
                kPermissionSelectedLists);
  SelectedListEnable(selectedListPermission_);
  boxes_.Load(Host().Settings());
  ranges_.Load(Host().Settings());
}

bool TGoodTransactionSearch_FRM::ShowsAmounts() const { return reportKind_ != kPartAmountAsset; }

void TGoodTransactionSearch_FRM::AddItems() {
  const TSettings& settings = Host().Settings().Settings();
  Code_Frame.SetItems({{"کد", "Code", DataKind::Number}, {"موجودی1", "Mogodi", DataKind::Amount}});
  if (settings.SecondUnit && !(ShowsAmounts() && settings.WholeAndPart)) {
    Code_Frame.InsertItem(2, {"موجودي 2", "Mogodi2", DataKind::Amount});
  }
  CostRangeSearch_FRAME.SetItems(
      {{"فی", "gheymat_miangin", DataKind::Amount}, {"مبلغ کل", "Jam_Kol", DataKind::Amount}});
  CostRangeSearch_FRAME.SetVisible(ShowsAmounts());
  Date_Frame.SetItems({{"تاریخ آخرین عملیات", "OperationDate", DataKind::Text}});
  Store_Frame.SetItems({{"انبار", "StoreCode", DataKind::Number}});
  categorySearch_.Title = "دسته";
  categorySearch_.FieldName = "category_code";

  QeratSearchManager1.AddItem(Code_Frame.Search);
  if (ShowsAmounts()) QeratSearchManager1.AddItem(CostRangeSearch_FRAME.Search);
  QeratSearchManager1.AddItem(Date_Frame.Search);
  QeratSearchManager1.AddItem(Store_Frame.Search);
  QeratSearchManager1.AddItem(categorySearch_);
  QeratSearchManager1.AddItem(TTags_search_FRM1.Search);

  boxes_.Keep(Period_PNL.AvalDore_CHK);
  boxes_.Keep(Period_PNL.Date_CHK);
  boxes_.Keep(Store_Frame.SelectEntity_CHK);
  boxes_.Keep(Store_Frame.SelectEntity_CMB);
  boxes_.Keep(Store_Frame.SelectEntity_Reverst_CHK);
  const auto keepRange = [this](TRange_Digit_Search_Frame& frame) {
    ranges_.KeepTogether([&] {
      ranges_.Keep(frame.RangeDigit_CMB);
      ranges_.Keep(frame.RangeDigit_From_EDT);
      ranges_.Keep(frame.RangeDigit_To_EDT);
      ranges_.Keep(frame.RangeDigit_Reverst_CHK);
      ranges_.Keep(frame.RangeDigit_CHK);
    });
  };
  keepRange(Code_Frame);
  if (ShowsAmounts()) keepRange(CostRangeSearch_FRAME);
  ranges_.KeepTogether([this] {
    ranges_.Keep(Date_Frame.RangeDate_From_EDT);
    ranges_.Keep(Date_Frame.RangeDate_To_EDT);
    ranges_.Keep(Date_Frame.RangeDate_Reverst_CHK);
    ranges_.Keep(Date_Frame.RangeDate_CHK);
  });
}

GoodsListDialogCriteria TGoodTransactionSearch_FRM::Criteria() const {
  GoodsListDialogCriteria criteria{
      .ranges = {Code_Frame.Search},
      .categories = categorySearch_,
      .categoryNames = NamesOf(TCategorySearchFrame1.Category_EDT),
      .tags = TTags_search_FRM1.Search,
      .tagNames = NamesOf(TTags_search_FRM1.Tags_EDT),
      .list = SelectedListCode(),
      .listName = SelectedList_CMB.Text(),
      .listInverted = DisplayType_CHK.Checked(),
      .period = Period_PNL.Criteria(),
      .store = Store_Frame.SelectEntity_CHK.Checked() ? Store_Frame.CodeAsInt() : 0,
  };
  if (ShowsAmounts()) criteria.ranges.push_back(CostRangeSearch_FRAME.Search);
  criteria.ranges.push_back(Date_Frame.Search);
  criteria.ranges.push_back(Store_Frame.Search);
  return criteria;
}

bool TGoodTransactionSearch_FRM::HaveAdvFilter() const {
  if (TTags_search_FRM1.HasTags()) return true;
  if (!TCategorySearchFrame1.IsEmpty()) return true;
  if (Code_Frame.InUse()) return true;
  if (Date_Frame.InUse()) return true;
  if (ShowsAmounts() && CostRangeSearch_FRAME.InUse()) return true;
  if (SelectedList_CMB.ItemIndex() > 0) return true;
  if (Store_Frame.SelectEntity_CHK.Checked()) return true;
  return Period_PNL.InUse();
}

void TGoodTransactionSearch_FRM::SelectedListEnable(bool enabled) {
  for (TControl* control : std::initializer_list<TControl*>{
           &SelectedList_LBL, &SelectedList_CMB, &DisplayType_LBL, &DisplayType_CHK, &SelectedList_PNL}) {
    control->SetEnabled(enabled);
  }
}

std::int64_t TGoodTransactionSearch_FRM::SelectedListCode() const {
  return SelectedList_CMB.ItemIndex() >= 1 ? SelectedList_CMB.ItemObject() : 0;
}

void TGoodTransactionSearch_FRM::QeratSearchManager1CustomFilter_Proc(std::string& text) {
  text = ADDParam(ListAndPeriodOf(Criteria()), text);
}

void TGoodTransactionSearch_FRM::SelectedList_CMBChange() {
  const bool chosen = SelectedList_CMB.ItemIndex() > 0;
  DisplayType_CHK.SetVisible(chosen);
  DisplayType_LBL.SetVisible(chosen);
  if (!chosen) return;
  const ProgramChange change(DisplayType_CHK);
  DisplayType_CHK.SetChecked(data_.GoodSelectedIndex_IsChecked(SelectedListCode()) != 0);
}

void TGoodTransactionSearch_FRM::TCategorySearchFrame1Change() {
  categorySearch_.Value = TCategorySearchFrame1.Category_EDT.CodesText();
  categorySearch_.Active = !categorySearch_.Value.empty();
  categorySearch_.NotifyChange();
}

void TGoodTransactionSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  Code_Frame.RangeDigit_From_EDT.SetFocus();
}

void TGoodTransactionSearch_FRM::FormClose() {
  boxes_.Save(Host().Settings());
  ranges_.Save(Host().Settings());
  TBaseSearch_FRM::FormClose();
}

// The plus key of the numeric pad adds what is typed as a category.
void TGoodTransactionSearch_FRM::FormKeyDown(TKey& key) {
  TBaseSearch_FRM::FormKeyDown(key);
  if (key.Is(Key::Plus) && TCategorySearchFrame1.Category_EDT.Focused()) {
    key.Consume();
    TCategorySearchFrame1.AddTyped();
  }
}

void TGoodTransactionSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  for (TSearchFrame* frame :
       std::initializer_list<TSearchFrame*>{&Code_Frame, &CostRangeSearch_FRAME, &Date_Frame, &Store_Frame}) {
    frame->Clear();
  }
  TCategorySearchFrame1.Clear();
  TTags_search_FRM1.Clear();
  if (selectedListPermission_) SelectedList_CMB.SetItemIndex(SelectedList_CMB.Items().empty() ? -1 : 0);
  Period_PNL.Clear();
}

}  // namespace goods
