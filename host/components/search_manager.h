// The search manager: turns a window's criteria into a filter over the rows, or into parameters of a
// procedure.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/search_criterion.h"
#include "host/core/component.h"
#include "host/data/query.h"

namespace goods {

// A criterion that a frame keeps up to date, and a manager reads.
class TQeratSearch : public TComponent, public SearchCriterion {
 public:
  TQeratSearch(TComponent* owner, std::string name);

  // A frame calls it after changing any of its fields; fires OnChange.
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
