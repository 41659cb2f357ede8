#include "host/components/search_manager.h"

#include <optional>
#include <utility>

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

// An amount as an edit takes it, ".5" and "5." too; none when it is no number.
std::optional<Decimal> AmountAsTyped(std::string text) {
  const std::size_t digits = text.starts_with('-') ? 1 : 0;
  if (text.substr(digits) == ".") return std::nullopt;
  if (text.substr(digits).starts_with('.')) text.insert(digits, "0");
  if (text.ends_with('.')) text.pop_back();
  return Decimal::Parse(text);
}

// The value as it stands in a statement or filter; none when it is empty or not of its kind.
std::optional<std::string> Literal(DataKind kind, std::string_view value) {
  if (kind == DataKind::Text) {
    if (value.empty()) return std::nullopt;
    return QuotedStr(value);
  }
  const std::string plain = ReplaceAll(Trim(value), ",", "");
  if (kind == DataKind::Number) {
    const auto number = ParseInteger(plain);
    if (!number) return std::nullopt;
    return std::to_string(*number);
  }
  const auto amount = AmountAsTyped(plain);
  if (!amount) return std::nullopt;
  return amount->ToString();
}

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

std::string TQeratSearch::DataSetCondition() const {
  if (!Active) return {};
  std::string condition;
  if (Operator == SearchOperator::Range) {
    const auto from = Literal(Kind, From);
    const auto to = Literal(Kind, To);
    if (from) condition = FieldName + " >= " + *from;
    if (to) condition += (from ? " AND " : "") + FieldName + " <= " + *to;
  } else if (const auto value = Literal(Kind, Value)) {
    condition = Operator == SearchOperator::Contains ? FieldName + " LIKE " + QuotedStr("%" + Value + "%")
                                                     : FieldName + " = " + *value;
  }
  if (condition.empty()) return {};
  return (Exclude ? "NOT (" : "(") + condition + ")";
}

std::string TQeratSearch::ProcParams() const {
  if (!Active) return {};
  std::string parameters;
  const auto add = [&](std::string_view prefix, std::string_view value) {
    if (const auto literal = Literal(Kind, value)) {
      parameters = ADDParam("@" + std::string(prefix) + FieldName + "=" + *literal, parameters);
    }
  };
  const bool range = Operator == SearchOperator::Range;
  if (range) {
    add("From", From);
    add("To", To);
  } else {
    add("", Value);
  }
  if (!parameters.empty() && Exclude) {
    parameters = ADDParam((range ? "@NotRange" : "@Not") + FieldName + "=1", parameters);
  }
  return parameters;
}

std::string TQeratSearch::FarsiText() const {
  if (ProcParams().empty()) return {};
  const std::string subject = Title + (Exclude ? " به جز" : "");
  if (Operator != SearchOperator::Range) return subject + ": " + Value;
  std::string range;
  if (Literal(Kind, From)) range += " از: " + From;
  if (Literal(Kind, To)) range += " تا: " + To;
  return subject + range;
}

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
