#include "host/services/public_methods.h"

#include <vector>

#include "host/core/text.h"
#include "host/data/display_format.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::string_view kCurrencyFormat = "#,0.####;#,0.####-;0";

std::string Join(std::string_view a, std::string_view separator, std::string_view b) {
  if (a.empty()) return std::string(b);
  if (b.empty()) return std::string(a);
  return std::string(a).append(separator).append(b);
}

// The pieces between those commas that stand outside quotes.
std::vector<std::string_view> Pieces(std::string_view list) {
  std::vector<std::string_view> pieces;
  bool quoted = false;
  std::size_t from = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] == '\'') quoted = !quoted;
    if (list[i] == ',' && !quoted) {
      pieces.push_back(list.substr(from, i - from));
      from = i + 1;
    }
  }
  pieces.push_back(list.substr(from));
  return pieces;
}

}  // namespace

std::string ADDParam(std::string_view first, std::string_view second) { return Join(second, ",", first); }

std::string DeleteParam(std::string_view list, std::string_view name) {
  std::string rest;
  for (const std::string_view piece : Pieces(list)) {
    const std::string_view pieceName = Trim(piece.substr(0, piece.find('=')));
    if (!SameText(pieceName, name)) rest = Join(rest, ",", piece);
  }
  return rest;
}

std::string AddFilter(std::string_view filter, std::string_view condition) {
  return Join(filter, " And ", condition);
}

void ResetDataset(TADOQuery& query) {
  query.Close();
  query.Open();
}

std::string NumberToText(Decimal number) { return number.ToString(); }

std::string SetCurrencyFormat(std::string_view number) {
  const auto value = Decimal::Parse(number);
  return value ? DisplayFormat(kCurrencyFormat).Format(*value) : std::string(number);
}

}  // namespace goods
