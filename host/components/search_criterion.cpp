#include "host/components/search_criterion.h"

#include <optional>
#include <string_view>

#include "host/core/text.h"
#include "host/data/decimal.h"
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

}  // namespace

std::string SearchCriterion::DataSetCondition() const {
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

std::string SearchCriterion::ProcParams() const {
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

std::string SearchCriterion::FarsiText() const {
  if (ProcParams().empty()) return {};
  const std::string subject = Title + (Exclude ? " به جز" : "");
  if (Operator != SearchOperator::Range) return subject + ": " + Value;
  std::string range;
  if (Literal(Kind, From)) range += " از: " + From;
  if (Literal(Kind, To)) range += " تا: " + To;
  return subject + range;
}

}  // namespace goods
