#include "company/interchange/export_company.h"

#include <deque>
#include <filesystem>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/files/file_path.h"
#include "company/interchange/company_tables.h"
#include "company/interchange/csv_writer.h"
#include "company/interchange/import_fields.h"
#include "company/writer/movement.h"
#include "company/writer/record_sorter.h"
#include "host/core/text.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

std::string Title(const char* names) { return Split(names, '|')[0]; }

bool IsNumberField(FieldKind kind) { return kind == FieldKind::Number || kind == FieldKind::Ratio; }

// Rows of the stock cards in the order of their Radif, as records.
enum Card : int {
  kRadif,
  kDate,
  kGood,
  kStore,
  kPerson,
  kType,
  kQuantity,
  kPrice,
  kDocument,
  kRow,
  kComment
};

class Export {
 public:
  Export(const std::string& path, std::string folder, const ExportOptions& options)
      : options_(options), folder_(std::move(folder)), db_(path, SQLITE_OPEN_READONLY) {
    db_.Run("PRAGMA cache_size = -32768; BEGIN");
  }

  ExportCounts Run() {
    WriteTitle();
    for (const CompanyTable& table : CompanyTables()) WriteTable(table);
    WriteGoodCodes(kGoodTagsFile, "tag", "Tags");
    WriteGoodCodes(kGoodCategoriesFile, "category", "category_code");
    WriteMovements();
    WriteDetails();
    WriteRemarks();
    for (CsvWriter& file : files_) file.Commit();
    return counts_;
  }

 private:
  // Files stay open until all of them are written.
  CsvWriter& Begin(const char* names, bool ownerOnly = false) {
    return files_.emplace_back((PathOf(folder_) / PathOf(Title(names) + ".csv")).string(), options_.replace,
                               ownerOnly);
  }

  std::int64_t CountRows(const char* table) {
    return db_.AskInteger("SELECT count(*) FROM " + std::string(table));
  }

  void WriteTitle() {
    CsvWriter& csv = Begin(kCompanyFile);
    csv.Row({"title"});
    csv.Row({db_.AskText("SELECT Value FROM Meta WHERE Key = 'Title'")});
  }

  void WriteTable(const CompanyTable& table) {
    const bool users = table.entity == Entity::User;
    CsvWriter& csv = Begin(table.names, users);
    std::vector<const TableField*> fields;
    std::string sql;
    for (const TableField& field : table.fields) {
      if (field.kind == FieldKind::Name) continue;
      const std::string column = Split(field.column, ',')[0];
      fields.push_back(&field);
      std::string cell = "t.\"" + column + "\"";
      if (field.kind == FieldKind::Login) cell = "(SELECT u.Login FROM Users u WHERE u.Code = " + cell + ")";
      if (users && column == "PasswordHash" && !options_.passwordHashes) cell = "''";
      sql += (sql.empty() ? "SELECT " : ", ") + cell;
      csv.Text(Title(field.names));
    }
    csv.EndRow();
    sql += " FROM \"" + std::string(table.table) + "\" t ORDER BY ";
    for (std::size_t i = 1; i <= table.keys; ++i) sql += (i == 1 ? "" : ", ") + std::to_string(i);
    WorkMeter meter(options_.watcher, table.what, CountRows(table.table));
    Statement rows = db_.Prepare(sql);
    for (; rows.Step(); meter.Step()) {
      if (table.entity == Entity::Good) ++counts_.goods;
      for (std::size_t i = 0; i < fields.size(); ++i) {
        const int column = static_cast<int>(i);
        if (IsNumberField(fields[i]->kind) && !rows.IsNull(column)) {
          csv.Number(rows.Number(column));
        } else {
          csv.Text(rows.Text(column));
        }
      }
      csv.EndRow();
    }
  }

  void WriteGoodCodes(const char* file, const char* title, const char* column) {
    CsvWriter& csv = Begin(file);
    csv.Row({"good", title});
    Statement rows = db_.Prepare("SELECT Code, " + std::string(column) + " FROM GoodInf WHERE " + column +
                                 " <> '' ORDER BY Code");
    while (rows.Step()) {
      for (const std::string& code : Split(rows.Text(1), ',')) {
        if (!Trim(code).empty()) csv.Row({rows.Text(0), Trim(code)});
      }
    }
  }

  void WriteMovements() {
    CsvWriter& csv = Begin(kMovementsFile);
    csv.Row({"order", "date", "good", "store", "person", "movement type", "signed quantity", "unit price",
             "document number", "document row", "comment"});
    const std::int64_t total = CountRows("Kardex");
    counts_.movements = total;
    RecordSorter sorter((PathOf(folder_) / "movements").string());
    Statement rows = db_.Prepare(
        "SELECT Radif, Date, Kala, Anbar, Percode, Type, Tedad, Fi, OperationCode, OperationRow, Comment "
        "FROM Kardex");
    WorkMeter reading(options_.watcher, "خواندن گردش ها", total);
    std::string line;
    for (; rows.Step(); reading.Step()) {
      line.clear();
      for (const int column : {kDate, kGood, kStore, kPerson}) AppendCell(line, rows.Text(column));
      AppendCell(line, MovementTypeName(static_cast<int>(rows.Integer(kType))));
      AppendNumber(line, rows.Number(kQuantity));
      AppendNumber(line, rows.Number(kPrice));
      // An opening stock has no document.
      AppendCell(line, rows.Integer(kType) == kOpeningType ? std::string_view() : rows.Text(kDocument));
      AppendCell(line, rows.Text(kRow));
      AppendText(line, rows.Text(kComment));
      sorter.Add({0, static_cast<std::uint64_t>(rows.Integer(kRadif))}, line);
    }
    reading.End();
    WorkMeter writing(options_.watcher, "نوشتن گردش ها", total);
    for (sorter.Sort(); sorter.Next(); writing.Step()) {
      csv.Whole(static_cast<std::int64_t>(sorter.CurrentKey().low));
      csv.Ready(sorter.Bytes());
      csv.EndRow();
    }
    writing.End();
  }

  static void AppendCell(std::string& line, std::string_view plain) {
    line += plain;
    line += ',';
  }
  static void AppendNumber(std::string& line, Decimal number) {
    AppendDecimal(line, number);
    line += ',';
  }
  static void AppendText(std::string& line, std::string_view text) { AppendCsvText(line, text); }

  void WriteDetails() {
    CsvWriter& csv = Begin(kDetailMovementsFile);
    csv.Row({"movement", "combination", "amount", "amount 2", "count", "length", "width", "comment"});
    counts_.unattachedDetails = db_.AskInteger(
        "SELECT count(*) FROM DetailKardex d WHERE NOT EXISTS(SELECT 1 FROM Kardex k WHERE k.Kala = d.Kala "
        "AND"
        " k.Date = d.Date AND k.Radif = d.Radif)");
    Statement rows = db_.Prepare(
        "SELECT d.Radif, d.DetailValueID, d.Amount1, d.Amount2, d.Amount3, d.Length, d.Width, d.Comment"
        " FROM DetailKardex d WHERE EXISTS(SELECT 1 FROM Kardex k WHERE k.Kala = d.Kala AND k.Date = d.Date "
        "AND"
        " k.Radif = d.Radif)");
    WorkMeter meter(options_.watcher, "نوشتن جزییات", CountRows("DetailKardex"));
    for (; rows.Step(); meter.Step()) {
      csv.Whole(rows.Integer(0));
      csv.Whole(rows.Integer(1));
      for (int column = 2; column < 7; ++column) csv.Number(rows.Number(column));
      csv.Text(rows.Text(7));
      csv.EndRow();
    }
  }

  void WriteRemarks() {
    CsvWriter& csv = Begin(kDocumentsFile);
    csv.Row({"kind", "number", "remark"});
    Statement rows = db_.Prepare("SELECT Kind, Code, Comment FROM Documents ORDER BY Kind, Code");
    WorkMeter meter(options_.watcher, "نوشتن سندها", CountRows("Documents"));
    for (; rows.Step(); meter.Step()) {
      csv.Text(DocumentKindName(rows.Integer(0)));
      csv.Whole(rows.Integer(1));
      csv.Text(rows.Text(2));
      csv.EndRow();
    }
  }

  const ExportOptions& options_;
  std::string folder_;
  Database db_;
  std::deque<CsvWriter> files_;
  ExportCounts counts_;
};

}  // namespace

ExportCounts ExportCompany(const std::string& path, const std::string& folder, const ExportOptions& options) {
  PrepareCompanyFile(path);
  std::error_code error;
  const bool made = fs::create_directories(PathOf(folder), error);
  if (error || !fs::is_directory(PathOf(folder), error)) throw CompanyError("پوشه ساخته نشد: " + folder);
  try {
    return Export(path, folder, options).Run();
  } catch (const SqliteError& failure) {
    if (made) fs::remove(PathOf(folder), error);
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  } catch (...) {
    if (made) fs::remove(PathOf(folder), error);
    throw;
  }
}

}  // namespace goods
