#include "company/server/server_scripts.h"

#include <algorithm>

#include "host/core/text.h"

namespace goods {

std::vector<std::string_view> BatchesOf(std::string_view script) {
  constexpr std::string_view kEnd = "\nGO\n";
  std::vector<std::string_view> batches;
  for (std::size_t end = script.find(kEnd); end != std::string_view::npos; end = script.find(kEnd)) {
    const std::string_view batch = Trim(script.substr(0, end));
    if (!batch.empty()) batches.push_back(batch);
    script.remove_prefix(end + kEnd.size());
  }
  return batches;
}

MadeObject ObjectOf(std::string_view batch) {
  constexpr std::string_view kCreate = "CREATE ";
  std::size_t at = batch.starts_with(kCreate) ? 0 : batch.find("\nCREATE ");
  if (at == std::string_view::npos) return {};
  if (at != 0) ++at;
  std::string_view rest = batch.substr(at + kCreate.size());
  const std::size_t blank = std::min(rest.find(' '), rest.size());
  MadeObject object{std::string(rest.substr(0, blank)), {}};
  rest = Trim(rest.substr(blank));
  if (rest.starts_with("dbo.")) rest.remove_prefix(4);
  object.name = rest.substr(0, rest.find_first_of(" (\n"));
  return object;
}

std::vector<std::string> ColumnsOfTable(std::string_view batch) {
  const std::size_t create = batch.find("CREATE TABLE");
  const std::size_t open = create == std::string_view::npos ? create : batch.find('(', create);
  if (open == std::string_view::npos) return {};
  std::vector<std::string> columns;
  int depth = 0;
  bool atName = false;
  for (std::size_t at = open; at < batch.size(); ++at) {
    const char c = batch[at];
    if (c == '(') atName = ++depth == 1;
    if (c == ')') --depth;
    if (c == ',' && depth == 1) atName = true;
    if (!atName || c == '(' || c == ',' || static_cast<unsigned char>(c) <= ' ') continue;
    std::string name(batch.substr(at, batch.find_first_of(" (", at) - at));
    if (name.front() == '[') name = name.substr(1, name.find(']') - 1);
    const bool rule = name == "CONSTRAINT" || name == "PRIMARY" || name == "FOREIGN" || name == "CHECK";
    if (!rule) columns.push_back(std::move(name));
    atName = false;
  }
  return columns;
}

}  // namespace goods
