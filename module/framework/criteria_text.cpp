#include "module/framework/criteria_text.h"

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

bool IsNothing(std::string_view end) { return end.empty() || end == "0"; }

}  // namespace

std::string AddFarsiFilter(std::string_view condition, std::string_view filter) {
  if (Trim(condition).empty()) return std::string(filter);
  const std::string inParentheses = "(" + std::string(condition) + ")";
  return Trim(filter).empty() ? inParentheses : std::string(filter) + " " + inParentheses;
}

std::string FarsiFilterOf(const std::vector<std::string>& conditions) {
  std::string filter;
  for (const std::string& condition : conditions) filter = AddFarsiFilter(condition, filter);
  return filter;
}

bool CriteriaRange::AsksNothing() const { return !inUse || (IsNothing(from) && IsNothing(to)); }

void CriteriaText::Add(std::string_view name, std::string_view value) {
  AddPiece(std::string(name) + " = " + std::string(value));
}

void CriteriaText::AddPiece(std::string_view piece) { parameters = ADDParam(piece, parameters); }

void CriteriaText::AddNumbers(std::string_view fromName, std::string_view toName,
                              const CriteriaRange& range) {
  if (!range.from.empty()) Add(fromName, ReplaceAll(range.from, ",", ""));
  if (!range.to.empty()) Add(toName, ReplaceAll(range.to, ",", ""));
}

void CriteriaText::AddDates(const CriteriaRange& range) {
  Add("@FromDate", QuotedStr(range.from));
  Add("@ToDate", QuotedStr(range.to));
}

void CriteriaText::AddOne(std::string_view name, std::string_view label, const CriteriaCode& one) {
  if (one.code == 0) return;
  Add(name, std::to_string(one.code));
  Say(std::string(label) + one.CodeAndName());
}

void CriteriaText::Say(std::string_view phrase) { caption = AddFarsiFilter(phrase, caption); }

}  // namespace goods
