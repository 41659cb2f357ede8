// The search manager: turns a window's criteria into a filter over the rows, or into parameters of a
// procedure.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/component.h"
#include "host/data/query.h"

namespace goods {

enum class DataKind { Text, Number, Amount };
enum class SearchOperator { Equals, Contains, Range };

// One criterion: a field, how it is compared, and with what. A frame keeps it up to date; a manager reads it.
//
// As a filter over rows: (F = 3), (F LIKE '%text%'), (F >= 'a' AND F <= 'b'), each behind NOT when excluding.
// As procedure parameters, the one rule for every report: @F=value for Equals and Contains, then @NotF=1 when
// excluding; @FromF=value and @ToF=value for Range, then @NotRangeF=1, so that a field may stand in a
// statement by value and by range at once. Values are written by the data kind: numbers bare, texts quoted; a
// value that is not of its kind, and an open bound, is left out. A criterion without any value is as good as
// unticked.
class TQeratSearch : public TComponent {
 public:
  TQeratSearch(TComponent* owner, std::string name);

  std::string Title;  // of the field, for the reader
  std::string FieldName;
  DataKind Kind = DataKind::Text;
  SearchOperator Operator = SearchOperator::Equals;
  bool Active = false;
  bool Exclude = false;
  std::string Value;  // Equals and Contains
  std::string From;   // Range; empty: open
  std::string To;

  // Empty when the criterion says nothing.
  std::string DataSetCondition() const;
  std::string ProcParams() const;
  // The criterion in Persian, as it stands above a printed list: "نام کالا: پیچ", "کد کالا به جز از: 3 تا:
  // 7".
  std::string FarsiText() const;

  // A frame calls it after changing any of the above; fires OnChange.
  void NotifyChange();
  std::function<void()> OnChange;
};

// Holds the criteria of one window.
//
// Over the data set: ExecuteFilter_DataSet joins the conditions of the active items, lets the window add to
// them (OnCustomFilter_DataSet), puts the text on the query, then OnAfterExecute and OnAfterExecute_DataSet.
// Over a procedure: ExecuteFilter_PROC joins the parameters of the active items behind the extra advanced
// filter, lets the window add to them (OnCustomFilter_Proc), runs the script with them on the query, behind a
// blank, or behind a comma where the script has arguments of its own, then OnAfterExecute and
// OnAfterExecute_PROC.
class TQeratSearchManager : public TComponent {
 public:
  using TComponent::TComponent;

  TDataSource* DataSource() const { return source_; }
  void SetDataSource(TDataSource* source) { source_ = source; }
  TADOQuery* DataSet() const { return source_ == nullptr ? nullptr : source_->DataSet(); }

  std::string Script;  // procedure mode: the statement head, such as "Exec srKardex"

  // item must outlive the manager. Its changes fire OnSearchItems_Changed.
  void AddItem(TQeratSearch& item);
  const std::vector<TQeratSearch*>& Items() const { return items_; }

  // Both need a query; without an open one the data set mode does nothing.
  void ExecuteFilter_DataSet();
  void ExecuteFilter_PROC();

  // The condition or parameters of the active items alone.
  std::string DataSetFilter() const;
  std::string ProcFilter() const;
  // The Persian phrases of the active items that say something.
  std::vector<std::string> FarsiTexts() const;

  // Parameters of an advanced criteria dialog, kept until set again.
  void SetEXtraAdvFilter(std::string parameters) { extraAdvFilter_ = std::move(parameters); }
  const std::string& EXtraAdvFilter() const { return extraAdvFilter_; }

  std::function<void(std::string& filter)> OnCustomFilter_DataSet;
  std::function<void(std::string& parameters)> OnCustomFilter_Proc;
  std::function<void()> OnAfterExecute;
  std::function<void()> OnAfterExecute_DataSet;
  std::function<void()> OnAfterExecute_PROC;
  std::function<void()> OnSearchItems_Changed;

 private:
  TDataSource* source_ = nullptr;
  std::vector<TQeratSearch*> items_;
  std::string extraAdvFilter_;
};

}  // namespace goods
