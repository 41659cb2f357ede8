// The T-SQL files of this folder, as the build compiled them in.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

struct ServerScript {
  std::string_view name;  // the file's name without ".sql"
  std::string_view text;  // batches, each ended by a line "GO"
};

// Tables, functions, views and triggers, in the order in which they are made.
std::span<const ServerScript> SchemaScripts();
// One procedure a file.
std::span<const ServerScript> ProcedureScripts();
// What leads a database from one version of its tables to the next, in order; each named by the version that
// it leads to. One is never changed once it has been delivered.
std::span<const ServerScript> UpgradeScripts();
// What a large company may want beside: each is made once, where it is asked for.
std::span<const ServerScript> OptionScripts();

// The batches of a script, without the lines between them.
std::vector<std::string_view> BatchesOf(std::string_view script);

// What a batch makes: "PROCEDURE" and "Kardex_Proc". Both empty where it makes nothing.
struct MadeObject {
  std::string kind;
  std::string name;
};
MadeObject ObjectOf(std::string_view batch);

// The names of the columns of the table that a batch makes.
std::vector<std::string> ColumnsOfTable(std::string_view batch);

}  // namespace goods
