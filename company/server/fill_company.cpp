#include "company/server/fill_company.h"

#include <memory>
#include <optional>
#include <vector>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/sqlite.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

// In the order in which they refer to each other.
constexpr const char* kTables[] = {"Meta",
                                   "Units",
                                   "GoodGrps",
                                   "Stores",
                                   "Persons",
                                   "Categories",
                                   "colors",
                                   "TagS",
                                   "GoodInf",
                                   "MovementTypes",
                                   "Kardex",
                                   "Documents",
                                   "DetailTypes",
                                   "GoodDetails",
                                   "DetailValues",
                                   "DetailKardex",
                                   "DetailTypesItems",
                                   "PlantedMismatches",
                                   "costlevel",
                                   "GoodStock",
                                   "SelectedLists",
                                   "Users",
                                   "SelectedListGoods",
                                   "CostLevelPrices",
                                   "UserRights",
                                   "GoodStoreStock",
                                   "Batches"};

// What is searched by name, with the number of its kind.
struct Searched {
  const char* table;
  int kind;
  const char* abbreviation;  // an expression
};
constexpr Searched kSearched[] = {{"Stores", 1, "AbbName"},  {"Persons", 2, "AbbName"},
                                  {"GoodInf", 6, "AbbName"}, {"GoodGrps", 16, "''"},
                                  {"Categories", 17, "''"},  {"Units", 18, "''"}};

// One statement takes this much at most.
constexpr std::size_t kBlockRows = 5000;
constexpr std::size_t kBlockBytes = 2 << 20;

enum class Kind { Integer, Decimal, Text };

struct CopiedColumn {
  std::string name;
  Kind kind = Kind::Text;
};

const char* ServerType(Kind kind) {
  return kind == Kind::Integer ? "bigint" : kind == Kind::Decimal ? "decimal(38,9)" : "nvarchar(4000)";
}

void AppendJsonText(std::string& json, std::string_view text) {
  constexpr char kHex[] = "0123456789abcdef";
  json += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      json += "\\u00";
      json += kHex[static_cast<unsigned char>(c) >> 4U];
      json += kHex[static_cast<unsigned char>(c) & 0xFU];
    } else {
      json += c;
    }
  }
  json += '"';
}

// Rows of one table on their way, as a JSON text that the server takes apart: one statement a block, whose
// literal costs the server's parser nothing.
class Block {
 public:
  Block(ServerSession& session, const std::string& table, std::vector<CopiedColumn> columns)
      : session_(session), columns_(std::move(columns)) {
    std::string names;
    std::string shape;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string name = ServerName(columns_[i].name);
      names += (i > 0 ? ", " : "") + name;
      shape += std::string(i > 0 ? ", " : "") + "c" + std::to_string(i) + " " + ServerType(columns_[i].kind) +
               " '$[" + std::to_string(i) + "]'";
      cells_ += (i > 0 ? ", c" : "c") + std::to_string(i);
    }
    head_ = "INSERT INTO dbo." + ServerName(table) + "(" + names + ") SELECT " + cells_ + " FROM OPENJSON(";
    tail_ = ") WITH (" + shape + ")";
  }

  void BeginRow() {
    json_ += json_.empty() ? "[[" : ",[";
    first_ = true;
  }
  void Null() { Next() += "null"; }
  void Integer(std::int64_t value) { Next() += std::to_string(value); }
  // As a text: no reader of JSON then takes it for a binary fraction.
  void Number(Decimal value) { AppendJsonText(Next(), value.ToString()); }
  void Text(std::string_view text) { AppendJsonText(Next(), text); }
  void EndRow() {
    json_ += ']';
    if (++rows_ >= kBlockRows || json_.size() >= kBlockBytes) Send();
  }
  void Send() {
    if (rows_ == 0) return;
    json_ += ']';
    session_.Run(head_ + ServerText(json_) + tail_);
    json_.clear();
    rows_ = 0;
  }

 private:
  std::string& Next() {
    if (!first_) json_ += ',';
    first_ = false;
    return json_;
  }
  ServerSession& session_;
  std::vector<CopiedColumn> columns_;
  std::string cells_;
  std::string head_;
  std::string tail_;
  std::string json_;
  std::size_t rows_ = 0;
  bool first_ = true;
};

std::vector<CopiedColumn> ColumnsOf(Database& db, const std::string& table) {
  Statement info = db.Prepare("SELECT name, type, hidden FROM pragma_table_xinfo(?1) ORDER BY cid");
  info.Bind(1, std::string_view(table));
  std::vector<CopiedColumn> columns;
  while (info.Step()) {
    if (info.Integer(2) != 0) continue;
    const std::string_view type = info.Text(1);
    const Kind kind = type == "QUANTITY" || type == "DECIMAL" ? Kind::Decimal
                      : type.starts_with("INTEGER")           ? Kind::Integer
                                                              : Kind::Text;
    columns.push_back({std::string(info.Text(0)), kind});
  }
  return columns;
}

void AppendCell(Block& block, const Statement& row, int at, Kind kind) {
  if (row.IsNull(at)) {
    block.Null();
  } else if (kind == Kind::Integer) {
    block.Integer(row.Integer(at));
  } else if (kind == Kind::Decimal) {
    block.Number(row.Number(at));
  } else {
    block.Text(row.Text(at));
  }
}

void Tell(const FillWatcher& told, const FillProgress& progress) {
  if (told && !told(progress)) throw CompanyError("پر کردن شرکت متوقف شد و چیزی از آن نماند.");
}

void CopyTable(Database& db, ServerSession& session, const std::string& table, const FillWatcher& told) {
  std::vector<CopiedColumn> columns = ColumnsOf(db, table);
  std::string names;
  std::optional<int> comment;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    names += (i > 0 ? ", \"" : "\"") + columns[i].name + "\"";
    if (columns[i].name == "Comment") comment = static_cast<int>(i);
  }
  const std::size_t copied = columns.size();
  const bool folded = comment && (table == "Kardex" || table == "DetailKardex");
  if (folded) columns.push_back({"CommentSearch", Kind::Text});
  const char* where = table == "Meta" ? " WHERE Key = 'Title'" : "";
  Statement rows = db.Prepare("SELECT " + names + " FROM \"" + table + "\"" + where);
  Block block(session, table, columns);
  FillProgress progress{table, 0, db.AskInteger("SELECT count(*) FROM \"" + table + "\"")};
  while (rows.Step()) {
    block.BeginRow();
    for (std::size_t i = 0; i < copied; ++i) AppendCell(block, rows, static_cast<int>(i), columns[i].kind);
    if (folded) {
      const std::string_view text = rows.Text(*comment);
      if (text.empty()) {
        block.Null();
      } else {
        block.Text(FoldPersian(text));
      }
    }
    block.EndRow();
    if (++progress.rows % static_cast<std::int64_t>(kBlockRows) == 0) Tell(told, progress);
  }
  block.Send();
  Tell(told, progress);
}

void FillSearchNames(Database& db, ServerSession& session) {
  Block block(session, "SearchNames",
              {{"Kind", Kind::Integer}, {"Code", Kind::Integer}, {"Name", Kind::Text}, {"Abb", Kind::Text}});
  for (const Searched& searched : kSearched) {
    Statement rows =
        db.Prepare(std::string("SELECT Code, Name, ") + searched.abbreviation + " FROM " + searched.table);
    while (rows.Step()) {
      block.BeginRow();
      block.Integer(searched.kind);
      block.Integer(rows.Integer(0));
      block.Text(FoldPersian(rows.Text(1)));
      block.Text(FoldPersian(rows.Text(2)));
      block.EndRow();
    }
  }
  block.Send();
}

}  // namespace

void FillFromFile(ServerSession& session, const std::string& path, const FillWatcher& told) {
  PrepareCompanyFile(path);
  try {
    Database db(path, SQLITE_OPEN_READONLY);
    for (const char* table : kTables) CopyTable(db, session, table, told);
    FillSearchNames(db, session);
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error) + " (" + path + ")");
  }
}

}  // namespace goods
