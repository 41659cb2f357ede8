#include "company/interchange/import_preview.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

#include "company/embedded/company_file.h"
#include "company/interchange/company_tables.h"
#include "company/interchange/data_folder.h"
#include "company/interchange/import_fields.h"
#include "company/interchange/movement_import.h"
#include "company/interchange/table_import.h"
#include "company/interchange/text_file.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kMostUnknownTypes = 200;
constexpr std::size_t kLongestCell = 200;  // characters shown of it

struct TypeOfMovement {
  std::string title;
  bool takesOut = false;
};

// By code, as every company has them.
const std::vector<TypeOfMovement>& TypesOfMovements() {
  static const std::vector<TypeOfMovement> kTypes = [] {
    Database db(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    CreateCompanySchema(db);
    std::vector<TypeOfMovement> types;
    Statement rows = db.Prepare("SELECT Name, Sign FROM MovementTypes ORDER BY Type");
    while (rows.Step()) types.push_back({std::string(rows.Text(0)), rows.Integer(1) < 0});
    return types;
  }();
  return kTypes;
}

// One file that an import looks for.
struct KnownTable {
  const char* names;
  std::vector<ColumnTitle> columns;
  bool required = false;
};

std::vector<KnownTable> KnownTables() {
  std::vector<KnownTable> tables;
  for (const CompanyTable& table : CompanyTables()) {
    tables.push_back({table.names, TableTitles(table), table.entity == Entity::Good});
  }
  tables.push_back({kMovementsFile, MovementTitles(), true});
  tables.push_back({kGoodTagsFile, GoodCodesTitles(kGoodTagColumn)});
  tables.push_back({kGoodCategoriesFile, GoodCodesTitles(kGoodCategoryColumn)});
  tables.push_back({kDetailMovementsFile, DetailMovementTitles()});
  tables.push_back({kDocumentsFile, RemarkTitles()});
  tables.push_back({kCompanyFile, CompanyTitles()});
  const auto rank = [](const KnownTable& table) { return table.required ? 0 : 1; };
  std::stable_sort(tables.begin(), tables.end(),
                   [&](const KnownTable& a, const KnownTable& b) { return rank(a) < rank(b); });
  return tables;
}

// The first name that is not Latin, or the first one.
std::string PersianOf(const char* names) {
  const std::vector<std::string> all = Split(names, '|');
  const auto persian = std::find_if(all.begin(), all.end(), [](const std::string& name) {
    return !name.empty() && static_cast<unsigned char>(name[0]) >= 0x80;
  });
  return persian == all.end() ? all[0] : *persian;
}

std::string Shown(std::string_view field) {
  if (!IsUtf8(field)) return "";
  if (CharCount(field) <= kLongestCell) return std::string(field);
  return std::string(FirstChars(field, kLongestCell - 1)) + "…";
}

std::vector<std::string> Texts(const std::vector<std::string_view>& fields) {
  std::vector<std::string> texts;
  for (const std::string_view field : fields) texts.push_back(Shown(Trim(field)));
  return texts;
}

// Looks at movements to their end: what their types are called, and whether a quantity has a sign.
class MovementLook {
 public:
  MovementLook(const TablePreview& table, const NameMap& names, ImportPreview& preview)
      : type_(Place(table, "movement type")),
        quantity_(Place(table, "quantity")),
        direction_(Place(table, "direction")),
        names_(names),
        preview_(preview) {}

  void Look(const std::vector<std::string_view>& fields) {
    if (!type_ || *type_ >= fields.size()) return;
    if (!preview_.moreUnknownTypes) LookAtType(std::string(fields[*type_]));
    if (!quantity_ || *quantity_ >= fields.size()) return;
    anySign_ = anySign_ || Trim(fields[*quantity_]).starts_with("-");
  }

  void End() { preview_.unsignedQuantities = quantity_ && !direction_ && takesOut_ && !anySign_; }

 private:
  static std::optional<std::size_t> Place(const TablePreview& table, std::string_view name) {
    for (const ColumnPreview& column : table.columns) {
      if (column.name == name) return column.place;
    }
    return std::nullopt;
  }

  void LookAtType(const std::string& text) {
    if (!seen_.insert(text).second) return;
    const std::optional<std::string> ours = names_.MovementType(text);
    const std::optional<int> type = ReadMovementType(ours ? *ours : text);
    // Of a type that nobody knows, anything may go out.
    takesOut_ = takesOut_ || !type || TypesOfMovements()[static_cast<std::size_t>(*type)].takesOut;
    if (type || !folded_.insert(FoldName(text)).second) return;
    if (preview_.unknownTypes.size() < kMostUnknownTypes) {
      preview_.unknownTypes.push_back(text);
    } else {
      preview_.moreUnknownTypes = true;
    }
  }

  std::optional<std::size_t> type_;
  std::optional<std::size_t> quantity_;
  std::optional<std::size_t> direction_;
  const NameMap& names_;
  ImportPreview& preview_;
  std::unordered_set<std::string> seen_;
  std::set<std::string> folded_;
  bool takesOut_ = false;
  bool anySign_ = false;
};

// Hands the file's records to each, which says whether it wants another one; what cannot be read is left out.
template <typename Each>
void ReadAll(OpenedTable& opened, const WorkWatcher& watcher, Each each) {
  const std::string stage = "خواندن " + opened.name;
  WorkMeter meter(watcher, stage, opened.rows->Size());
  std::vector<std::string_view> fields;
  for (bool more = true; more;) {
    meter.Reach(opened.rows->Done());
    fields.clear();
    try {
      if (!opened.rows->Next(fields)) break;
    } catch (const RowError&) {
      fields.clear();
    }
    more = each(fields);
  }
  meter.End();
}

void ReadBeginning(const KnownTable& known, TablePreview& table, OpenedTable& opened, const NameMap& names) {
  std::vector<std::string_view> fields;
  try {
    if (!opened.rows->Next(fields)) {
      table.problem = "فایل خالی است و سرستون ندارد";
      return;
    }
    table.header = Texts(fields);
    std::vector<std::string> folded;
    for (const std::string_view field : fields) folded.push_back(FoldName(field));
    for (std::size_t i = 0; i < known.columns.size(); ++i) {
      table.columns[i].place = FindColumn(names, table.name, folded, known.columns[i].names);
    }
    while (table.rows.size() < TablePreview::kRows && opened.rows->Next(fields)) {
      table.rows.push_back(Texts(fields));
    }
  } catch (const RowError& error) {
    table.problem = "سطر " + std::to_string(opened.rows->Line()) + ": " + error.what();
  }
}

TablePreview Empty(const KnownTable& known) {
  TablePreview table;
  table.name = Split(known.names, '|')[0];
  table.title = PersianOf(known.names);
  table.required = known.required;
  for (const ColumnTitle& column : known.columns) {
    table.columns.push_back({Split(column.names, '|')[0], PersianOf(column.names), column.required,
                             column.instead == nullptr ? "" : column.instead, std::nullopt});
  }
  return table;
}

bool Has(const TablePreview& table, std::string_view name) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [&](const ColumnPreview& column) { return column.name == name && column.place; });
}

}  // namespace

TablePreview* ImportPreview::Find(std::string_view name) {
  for (TablePreview& table : tables) {
    if (table.name == name) return &table;
  }
  return nullptr;
}

const TablePreview* ImportPreview::Find(std::string_view name) const {
  return const_cast<ImportPreview*>(this)->Find(name);
}

ImportPreview PreviewImport(const std::string& from, const NameMap& names, const WorkWatcher& watcher) {
  const DataFolder folder(from, names);
  ImportPreview preview;
  preview.title = folder.Title();
  preview.files = folder.Names();
  for (const KnownTable& known : KnownTables()) {
    TablePreview table = Empty(known);
    std::optional<OpenedTable> opened = folder.Open(known.names);
    if (opened) {
      table.file = opened->name;
      ReadBeginning(known, table, *opened, names);
      if (table.name == "company" && !table.rows.empty() && table.columns[0].place &&
          *table.columns[0].place < table.rows[0].size()) {
        preview.title = table.rows[0][*table.columns[0].place];
      }
      if (known.names == kMovementsFile) {
        OpenedTable again = *folder.Open(known.names);
        MovementLook look(table, names, preview);
        bool header = true;
        ReadAll(again, watcher, [&](const std::vector<std::string_view>& fields) {
          if (!header) look.Look(fields);
          header = false;
          return true;
        });
        look.End();
      }
    }
    preview.tables.push_back(std::move(table));
  }
  return preview;
}

std::vector<std::string> MissingForImport(const ImportPreview& preview) {
  std::vector<std::string> missing;
  for (const TablePreview& table : preview.tables) {
    if (table.file.empty()) {
      if (table.required) missing.push_back("فایل «" + table.title + "» لازم است و جفت نشده است.");
      continue;
    }
    for (const ColumnPreview& column : table.columns) {
      if (!column.required || column.place || Has(table, column.instead)) continue;
      missing.push_back("در «" + table.title + "» ستون «" + column.title + "» لازم است و جفت نشده است.");
    }
    const bool movements = table.name == "movements";
    if (movements && !Has(table, "quantity") && !Has(table, "signed quantity") && !Has(table, "incoming") &&
        !Has(table, "outgoing")) {
      missing.push_back("در «" + table.title + "» ستون مقدار (یا وارده و صادره) لازم است و جفت نشده است.");
    }
  }
  return missing;
}

std::vector<std::string> ReadProblemRows(const std::string& from, const NameMap& names,
                                         const std::vector<ImportProblem>& problems,
                                         const WorkWatcher& watcher) {
  std::map<std::string, std::map<std::size_t, std::string>> rows;  // by file and line
  for (const ImportProblem& problem : problems) {
    if (problem.line > 0) rows[problem.file][problem.line];
  }
  const DataFolder folder(from, names);
  for (const KnownTable& known : KnownTables()) {
    std::optional<OpenedTable> opened = folder.Open(known.names);
    const auto wanted = opened ? rows.find(opened->name) : rows.end();
    if (wanted == rows.end()) continue;
    const std::size_t last = wanted->second.rbegin()->first;
    ReadAll(*opened, watcher, [&](const std::vector<std::string_view>& fields) {
      const auto row = wanted->second.find(opened->rows->Line());
      if (row != wanted->second.end() && row->second.empty()) {
        for (const std::string& text : Texts(fields))
          row->second += (row->second.empty() ? "" : " | ") + text;
      }
      return opened->rows->Line() < last;
    });
  }
  std::vector<std::string> texts;
  for (const ImportProblem& problem : problems) {
    texts.push_back(problem.line > 0 ? rows[problem.file][problem.line] : "");
  }
  return texts;
}

const std::vector<std::string>& MovementTypeTitles() {
  static const std::vector<std::string> kTitles = [] {
    std::vector<std::string> titles;
    for (const TypeOfMovement& type : TypesOfMovements()) titles.push_back(type.title);
    return titles;
  }();
  return kTitles;
}

}  // namespace goods
