// The page of the procedures says what the procedures declare, of a company file and on a server: parameters,
// their defaults, columns.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "company/embedded/procedures.h"
#include "company/server/server_scripts.h"
#include "host/core/text.h"

namespace goods {
namespace {

using Lines = std::vector<std::string>;

std::string TypeName(ColumnType type) {
  if (type == ColumnType::Integer) return "integer";
  return type == ColumnType::Decimal ? "decimal" : "text";
}

std::string DefaultText(const ProcedureParameter& parameter) {
  if (parameter.required) return "required";
  if (std::holds_alternative<NullValue>(parameter.value)) return "null";
  if (const auto* text = std::get_if<std::string>(&parameter.value)) return QuotedStr(*text);
  return std::get<NumberValue>(parameter.value).text;
}

// "name | type | default" and "name | type" of each row of the page's tables, under the procedure's heading.
struct Described {
  Lines parameters;
  Lines columns;
};

// The cell without the marks of code.
std::string Cell(const Lines& cells, std::size_t index) {
  return ReplaceAll(std::string(Trim(cells.at(index))), "`", "");
}

std::map<std::string, Described> ReadPage() {
  std::ifstream file(GOODS_PROCEDURES_PAGE);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  std::map<std::string, Described> described;
  Described* current = nullptr;
  for (const std::string& line : Split(page, '\n')) {
    if (line.starts_with("## ")) {
      current = line.starts_with("## `") ? &described[ReplaceAll(line.substr(3), "`", "")] : nullptr;
    }
    if (current == nullptr || !line.starts_with("| `")) continue;
    const Lines cells = Split(line, '|');
    const std::string head = Cell(cells, 1) + " | " + Cell(cells, 2);
    if (head.starts_with("@")) {
      current->parameters.push_back(head + " | " + Cell(cells, 3));
    } else {
      current->columns.push_back(head);
    }
  }
  return described;
}

Described Declared(const Procedure& procedure) {
  Described declared;
  for (const ProcedureParameter& each : procedure.parameters) {
    declared.parameters.push_back(each.name + " | " + TypeName(each.type) + " | " + DefaultText(each));
  }
  for (const ColumnInfo& each : procedure.columns)
    declared.columns.push_back(each.name + " | " + TypeName(each.type));
  return declared;
}

std::string ServerTypeName(std::string_view type) {
  if (type == "bigint") return "integer";
  if (type == "decimal(38,9)") return "decimal";
  return type == "nvarchar(4000)" ? "text" : "unknown: " + std::string(type);
}

// The parameters in the head of a T-SQL procedure: "@Name type" or "@Name type = default", between commas.
Lines DeclaredOnServer(const ServerScript& procedure) {
  const std::size_t create = procedure.text.find("CREATE PROCEDURE dbo.");
  std::string_view head = procedure.text.substr(create, procedure.text.find(" AS\nBEGIN", create) - create);
  Lines parameters;
  for (std::size_t at = head.find('@'); at != std::string_view::npos; at = head.find('@')) {
    head.remove_prefix(at);
    std::size_t end = 0;
    int depth = 0;
    for (bool quoted = false; end < head.size(); ++end) {
      if (head[end] == '\'') quoted = !quoted;
      if (quoted) continue;
      depth += head[end] == '(' ? 1 : head[end] == ')' ? -1 : 0;
      if (head[end] == ',' && depth == 0) break;
    }
    const std::string_view declared = Trim(head.substr(0, end));
    const std::size_t blank = declared.find(' ');
    const std::size_t equals = std::min(declared.find(" = "), declared.size());
    std::string given(equals == declared.size() ? "required" : declared.substr(equals + 3));
    if (given == "NULL") given = "null";
    if (given.starts_with("N'")) given.erase(0, 1);
    parameters.push_back(std::string(declared.substr(0, blank)) + " | " +
                         ServerTypeName(declared.substr(blank + 1, equals - blank - 1)) + " | " + given);
    head.remove_prefix(end);
  }
  return parameters;
}

TEST(ProceduresPage, NamesEveryParameterOfTheServersProceduresWithItsTypeAndDefaultInOrder) {
  auto page = ReadPage();
  EXPECT_EQ(ProcedureScripts().size(), page.size());
  for (const ServerScript& procedure : ProcedureScripts()) {
    EXPECT_EQ(page[std::string(procedure.name)].parameters, DeclaredOnServer(procedure)) << procedure.name;
  }
}

TEST(ProceduresPage, DescribesEveryProcedureAndNoOther) {
  Lines described;
  for (const auto& [name, what] : ReadPage()) described.push_back(name);
  Lines declared;
  for (const Procedure& procedure : Procedures()) declared.push_back(procedure.name);
  std::sort(described.begin(), described.end());
  std::sort(declared.begin(), declared.end());
  EXPECT_EQ(described, declared);
}

TEST(ProceduresPage, NamesEveryParameterWithItsTypeAndDefaultInOrder) {
  auto page = ReadPage();
  for (const Procedure& procedure : Procedures())
    EXPECT_EQ(page[procedure.name].parameters, Declared(procedure).parameters) << procedure.name;
}

TEST(ProceduresPage, NamesEveryColumnWithItsTypeInOrder) {
  auto page = ReadPage();
  for (const Procedure& procedure : Procedures())
    EXPECT_EQ(page[procedure.name].columns, Declared(procedure).columns) << procedure.name;
}

}  // namespace
}  // namespace goods
