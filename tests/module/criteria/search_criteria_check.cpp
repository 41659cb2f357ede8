#include "tests/module/criteria/search_criteria_check.h"

namespace goods {
namespace {

std::string Typed(Dice& dice, DataKind kind) {
  if (kind == DataKind::Text) return dice.MaybeText();
  if (dice.Chance(10)) return dice.One<const char*>({"-", ".", "-.", ",", "7.", ".5", "-.25", "0.10"});
  return kind == DataKind::Number ? dice.MaybeDigits() : dice.MaybeAmount();
}

// Without the zeros that say nothing.
std::string Plain(std::string whole, std::string fraction, bool negative) {
  while (whole.size() > 1 && whole.front() == '0') whole.erase(0, 1);
  if (whole.empty()) whole = "0";
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  if (whole == "0" && fraction.empty()) return "0";
  return (negative ? "-" : "") + whole + (fraction.empty() ? "" : "." + fraction);
}

}  // namespace

SearchCriterion RandomCriterion(Dice& dice, SearchOperator how, DataKind kind, const std::string& field) {
  SearchCriterion criterion{.Title = "عنوان " + field,
                            .FieldName = field,
                            .Kind = kind,
                            .Operator = how,
                            .Active = dice.Chance(75),
                            .Exclude = dice.Chance(30)};
  if (how == SearchOperator::Range) {
    criterion.From = Typed(dice, kind);
    criterion.To = Typed(dice, kind);
  } else {
    criterion.Value = Typed(dice, kind);
  }
  return criterion;
}

std::optional<std::string> ExpectedLiteral(DataKind kind, const std::string& typed) {
  if (kind == DataKind::Text) {
    if (typed == "") return std::nullopt;
    return ExpectedText::Quoted(typed);
  }
  std::string digits = ExpectedText::WithoutCommas(typed);
  if (digits.find_first_of("0123456789") == std::string::npos) return std::nullopt;
  const bool negative = digits.front() == '-';
  if (negative) digits.erase(0, 1);
  const std::size_t point = digits.find('.');
  if (point == std::string::npos) return Plain(digits, "", negative);
  if (kind == DataKind::Number) return std::nullopt;  // a point makes it no whole number
  return Plain(digits.substr(0, point), digits.substr(point + 1), negative);
}

bool ExpectCriterion(ExpectedText& text, const SearchCriterion& criterion, bool told) {
  if (!criterion.Active) return false;
  const std::string turned = criterion.Exclude ? " به جز" : "";
  if (criterion.Operator != SearchOperator::Range) {
    const auto value = ExpectedLiteral(criterion.Kind, criterion.Value);
    if (!value) return false;
    text.Verbatim("@" + criterion.FieldName + "=" + *value);
    if (criterion.Exclude) text.Verbatim("@Not" + criterion.FieldName + "=1");
    if (told) text.Phrase(criterion.Title + turned + ": " + criterion.Value);
    return true;
  }
  const auto from = ExpectedLiteral(criterion.Kind, criterion.From);
  const auto to = ExpectedLiteral(criterion.Kind, criterion.To);
  if (!from && !to) return false;
  std::string phrase = criterion.Title + turned;
  if (from) {
    text.Verbatim("@From" + criterion.FieldName + "=" + *from);
    phrase += " از: " + criterion.From;
  }
  if (to) {
    text.Verbatim("@To" + criterion.FieldName + "=" + *to);
    phrase += " تا: " + criterion.To;
  }
  if (criterion.Exclude) text.Verbatim("@NotRange" + criterion.FieldName + "=1");
  if (told) text.Phrase(phrase);
  return true;
}

}  // namespace goods
