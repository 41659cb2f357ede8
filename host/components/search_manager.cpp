#include "host/components/search_manager.h"

#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

// Whether a statement head such as "Exec srKardex_Negative '','','7'" has arguments already.
bool HasArguments(std::string_view script) {
  script = Trim(script);
  for (int word = 0; word < 2; ++word) {  // EXEC, and the procedure's name
    const std::size_t blank = script.find(' ');
    script = blank == std::string_view::npos ? std::string_view() : Trim(script.substr(blank));
  }
  return !script.empty();
}

std::string WithParameters(const std::string& script, const std::string& parameters) {
  if (parameters.empty()) return script;
  if (HasArguments(script)) return script + "," + parameters;
  return script + (script.ends_with(' ') ? "" : " ") + parameters;
}

}  // namespace

TQeratSearch::TQeratSearch(TComponent* owner, std::string name) : TComponent(owner, std::move(name)) {}

void TQeratSearch::NotifyChange() {
  Changed();
  if (OnChange) OnChange();
}

void TQeratSearchManager::AddItem(TQeratSearch& item) {
  items_.push_back(&item);
  item.OnChange = [this] {
    if (OnSearchItems_Changed) OnSearchItems_Changed();
  };
}

std::string TQeratSearchManager::DataSetFilter() const {
  std::string filter;
  for (const TQeratSearch* item : items_) filter = AddFilter(filter, item->DataSetCondition());
  return filter;
}

std::string TQeratSearchManager::ProcFilter() const {
  std::string parameters;
  for (const TQeratSearch* item : items_) parameters = ADDParam(item->ProcParams(), parameters);
  return parameters;
}

std::vector<std::string> TQeratSearchManager::FarsiTexts() const {
  std::vector<std::string> texts;
  for (const TQeratSearch* item : items_) {
    if (std::string text = item->FarsiText(); !text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

void TQeratSearchManager::ExecuteFilter_DataSet() {
  TADOQuery* query = DataSet();
  if (query == nullptr || !query->Active()) return;
  std::string filter = DataSetFilter();
  if (OnCustomFilter_DataSet) OnCustomFilter_DataSet(filter);
  query->SetFilter(filter);
  if (OnAfterExecute) OnAfterExecute();
  if (OnAfterExecute_DataSet) OnAfterExecute_DataSet();
}

void TQeratSearchManager::ExecuteFilter_PROC() {
  TADOQuery* query = DataSet();
  if (query == nullptr) return;
  std::string parameters = ADDParam(ProcFilter(), extraAdvFilter_);
  if (OnCustomFilter_Proc) OnCustomFilter_Proc(parameters);
  query->SetSQL(WithParameters(Script, parameters));
  query->Open();
  if (OnAfterExecute) OnAfterExecute();
  if (OnAfterExecute_PROC) OnAfterExecute_PROC();
}

}  // namespace goods
