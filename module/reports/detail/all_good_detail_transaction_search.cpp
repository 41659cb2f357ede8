#include "module/reports/detail/all_good_detail_transaction_search.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "module/framework/program_change.h"
#include "module/framework/report_window.h"

namespace goods {

TAllGoodDetailTransactionSearch_FRM::TAllGoodDetailTransactionSearch_FRM(THost& host)
    : TBaseSearch_FRM(host, "AllGoodDetailTransactionSearch_FRM"), data_(host, this) {
  DeclareForm();
  FormCreate();
}

TAllGoodDetailTransactionSearch_FRM::~TAllGoodDetailTransactionSearch_FRM() = default;

void TAllGoodDetailTransactionSearch_FRM::FormCreate() {
  TBaseSearch_FRM::FormCreate();
  TTags_search_FRM1.OpenTags(Host().Lookups());
  TCategorySearchFrame1.Open(Host().Lookups());
  SelectedList_CMB.OnChange = [this] { SelectedList_CMBEditValueChange(); };
  FillSelectedList();
  for (TDetailRow* row : DetailRows()) {
    row->Fill(data_);
    row->GoodDetailSelectSearch_CMB.OnChange = [this, row] {
      if (!ByProgram(row->GoodDetailSelectSearch_CMB)) row->ApplySelection(data_);
    };
  }
  KeepProperties();
}

void TAllGoodDetailTransactionSearch_FRM::KeepProperties() {
  stored_.Keep(Good_SESF.SelectEntity_CHK);
  stored_.Keep(Good_SESF.SelectEntity_CMB);
  stored_.Keep(Good_SESF.SelectEntity_Reverst_CHK);
  for (TDetailRow* row : DetailRows()) stored_.Keep(row->GoodDetail_CMB);
  stored_.Keep(SearchGoodCode_FRAME.RangeDigit_CHK);
  stored_.Keep(SearchGoodCode_FRAME.RangeDigit_CMB);
  stored_.Keep(SearchGoodCode_FRAME.RangeDigit_Reverst_CHK);
  stored_.Keep(SelectedList_CMB);
  stored_.Keep(DisplayType_CHK);
  stored_.Keep(Store_SESF.SelectEntity_CHK);
  stored_.Keep(Store_SESF.SelectEntity_CMB);
}

void TAllGoodDetailTransactionSearch_FRM::LoadStoredProperties() {
  keepsSettings_ = true;
  stored_.Load(Host().Settings());
  if (SelectedList_CMB.Enabled()) return;
  // A list from the time when the user had the right to it.
  SelectedList_CMB.SetItemIndex(0);
  DisplayType_CHK.SetChecked(false);
}

bool TAllGoodDetailTransactionSearch_FRM::HaveSelectedListPermission() const {
  const int part = SoftwarePart == kPartCashAsset ? kPartCashAsset : kPartAmountAsset;
  return IsAllowed(Host().Rights(), part, kPermissionSelectedLists);
}

bool TAllGoodDetailTransactionSearch_FRM::HaveAdvFilter() const {
  return TTags_search_FRM1.HasTags() || !TCategorySearchFrame1.IsEmpty();
}

DetailDialogCriteria TAllGoodDetailTransactionSearch_FRM::Criteria() const {
  DetailDialogCriteria criteria{
      .tags = TTags_search_FRM1.Tags(),
      .tagNames = {},
      .category = TCategorySearchFrame1.IsEmpty() ? std::string() : TCategorySearchFrame1.Values().back(),
      .categoryName = {},
      .details = {},
      .list = SelectedList_CMB.ItemObject(),
      .listName = SelectedList_CMB.Text(),
      .listInverted = DisplayType_CHK.Checked(),
      .good = CodeOf(Good_SESF),
      .goodIsGroup = Good_SESF.SelectEntity_CMB.ItemIndex() == 1,
      .codes = RangeOf(SearchGoodCode_FRAME),
      .codesItem = std::max(SearchGoodCode_FRAME.RangeDigit_CMB.ItemIndex(), 0),
      .store = Store_SESF.Visible() ? CodeOf(Store_SESF) : CriteriaCode{},
      .dates = RangeOf(DateRangeSearch_Frame),
  };
  if (DateRangeSearch_Frame.RangeDate_CMB.ItemIndex() != 0) criteria.dates.inUse = false;
  const auto rows = DetailRows();
  for (std::size_t i = 0; i < rows.size(); ++i) criteria.details[i] = rows[i]->Criterion();
  return criteria;
}

void TAllGoodDetailTransactionSearch_FRM::FillSelectedList() {
  SelectedList_CMB.ClearItems();
  data_.FillSelectedList(SelectedList_CMB);
  SelectedList_CMB.SetItemIndex(0);
  const bool permitted = HaveSelectedListPermission();
  for (TControl* control : std::initializer_list<TControl*>{
           &SelectedList_PNL, &SelectedList_CMB, &SelectedList_LBL, &DisplayType_LBL, &DisplayType_CHK}) {
    control->SetEnabled(permitted);
  }
  SelectedList_CMBEditValueChange();
}

void TAllGoodDetailTransactionSearch_FRM::SelectedList_CMBEditValueChange() {
  const bool chosen = SelectedList_CMB.ItemIndex() > 0;
  DisplayType_CHK.SetEnabled(chosen && SelectedList_CMB.Enabled());
  DisplayType_CHK.SetVisible(chosen);
  DisplayType_LBL.SetVisible(chosen);
}

void TAllGoodDetailTransactionSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  TTags_search_FRM1.Tags_EDT.SetFocus();
}

void TAllGoodDetailTransactionSearch_FRM::FormClose() {
  if (keepsSettings_) stored_.Save(Host().Settings());
  TBaseSearch_FRM::FormClose();
}

// The plus key of the numeric pad adds what is typed as a category.
void TAllGoodDetailTransactionSearch_FRM::FormKeyDown(TKey& key) {
  TBaseSearch_FRM::FormKeyDown(key);
  if (key.Is(Key::Plus) && TCategorySearchFrame1.Category_EDT.Focused()) {
    key.Consume();
    TCategorySearchFrame1.AddTyped();
  }
}

void TAllGoodDetailTransactionSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  for (TSearchFrame* frame : std::initializer_list<TSearchFrame*>{&Good_SESF, &SearchGoodCode_FRAME,
                                                                  &Store_SESF, &DateRangeSearch_Frame}) {
    frame->Clear();
  }
  TTags_search_FRM1.Clear();
  TCategorySearchFrame1.Clear();
  TCategorySearchFrame1.Open(Host().Lookups());
  DisplayType_CHK.SetChecked(false);
  for (TDetailRow* row : DetailRows()) row->Clear(data_);
  FillSelectedList();  // last, because it alone asks the database
}

}  // namespace goods
