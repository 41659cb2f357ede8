// The SQL files of this folder, as the build compiled them in.
#pragma once

#include <span>
#include <string_view>

namespace goods {

struct ProcedureFile {
  std::string_view name;  // the file's name without ".sql"
  std::string_view text;
};

std::string_view SchemaSql();
// The indexes, made once the tables are filled.
std::string_view IndexesSql();
std::span<const ProcedureFile> ProcedureFiles();
// What procedure files include.
std::span<const ProcedureFile> ProcedureParts();

}  // namespace goods
