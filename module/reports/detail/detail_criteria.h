// DetailCriteria: the criteria of a good-detail report, as the parameters of its procedure and in Persian.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/services/host.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/criteria_text.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/detail/all_good_detail_transaction_search.h"
#include "module/reports/detail/detail_row.h"

namespace goods {

// A kind of codes that the dialog's range can hold, in the order of its list.
struct CodeRangeKind {
  std::string_view from;     // "@FromGoodCode"
  std::string_view to;       // "@ToGoodCode"
  std::string_view caption;  // "کالاها از: "
};

// What differs between the reports.
struct DetailCriteriaStyle {
  std::vector<std::string_view> titleCaptions;  // by the item of the column search
  std::vector<int> amountItems;                 // items whose text goes out without thousands separators
  std::vector<CodeRangeKind> ranges;
  bool goodGroups = false;        // the entity frame's second kind is a group
  bool storeBeforeRange = false;  // the one store goes out before the range of codes
};

// Pieces read in the order in which they are added; texts and dates are quoted, codes bare.
class DetailCriteria {
 public:
  // All three must outlive it.
  DetailCriteria(THost& host, TGoodTransactions_DM& data, const DetailCriteriaStyle& style)
      : host_(host), data_(data), style_(style) {}

  const std::string& Parameters() const { return text_.parameters; }
  const std::string& Caption() const { return text_.caption; }

  void Add(std::string_view name, std::string_view value) { text_.Add(name, value); }
  void Say(std::string_view phrase) { text_.Say(phrase); }

  void AddTitle(const TTitleSearchPanel& search);
  void AddDetailRow(const TDetailRow& row);
  // What counts while the advanced search is on.
  void AddDialog(const TAllGoodDetailTransactionSearch_FRM& dialog);

 private:
  void AddTags(const TTags_search_FRM& tags);
  void AddCategory(const TCategorysearchframe& category);
  void AddSelectedList(const TAllGoodDetailTransactionSearch_FRM& dialog);
  void AddGood(const TSelectEntity_Search_Frame& good);
  void AddCodeRange(const TRange_Digit_Search_Frame& range);
  void AddStore(const TSelectEntity_Search_Frame& store);
  void AddDates(const TRange_Date_Search_Frame& dates);

  THost& host_;
  TGoodTransactions_DM& data_;
  const DetailCriteriaStyle& style_;
  CriteriaText text_;
};

}  // namespace goods
