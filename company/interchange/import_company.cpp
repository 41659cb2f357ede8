#include "company/interchange/import_company.h"

#include <filesystem>
#include <limits>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "company/embedded/password.h"
#include "company/interchange/csv_table.h"
#include "company/interchange/import_fields.h"
#include "company/writer/company_writer.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::int64_t kLargestCode = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kLargestStore = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kLargestDocument = 999'999'999'999'999;
constexpr std::size_t kLongestName = 100;
constexpr int kOpening = 3;

std::string Message(const std::vector<ImportProblem>& problems, std::size_t total) {
  std::string message = "داده ها پذیرفته نشد و شرکتی ساخته نشد.";
  for (const ImportProblem& problem : problems) {
    message += "\n" + problem.file;
    if (problem.line > 0) message += "، سطر " + std::to_string(problem.line);
    message += ": " + problem.reason;
  }
  if (total > problems.size()) message += "\nو " + std::to_string(total - problems.size()) + " خطای دیگر";
  return message;
}

class Import {
 public:
  Import(const std::string& path, std::string folder, const ImportOptions& options)
      : folder_(std::move(folder)), writer_(path, options.replace) {}

  ImportCounts Run() {
    ReadGoods();
    ReadStores();
    ReadPersons();
    ReadMovements();
    problems_.ThrowIfAny();
    writer_.AddUser(1, "admin", "مدیر", HashPassword("admin"), true);
    writer_.Finish();
    return counts_;
  }

  CompanyWriter& Writer() { return writer_; }

 private:
  std::optional<std::int64_t> Code(CsvRow& row, std::int64_t largest) {
    const std::optional<std::int64_t> code = ReadWhole(row.Field(0), 1, largest);
    if (!code)
      row.Refuse("کد «" + std::string(row.Field(0)) + "» عددی از 1 تا " + std::to_string(largest) + " نیست");
    return code;
  }

  std::string_view Name(CsvRow& row, std::size_t column, const char* what) {
    const std::string_view name = row.Field(column);
    if (name.empty()) row.Refuse(std::string(what) + " خالی است");
    if (CharCount(name) > kLongestName) row.Refuse(std::string(what) + " بلندتر از 100 نویسه است");
    return name;
  }

  // Groups and units are named in the goods' rows; they get codes in the order in which they appear.
  std::int64_t Named(std::map<std::string, std::int64_t>& known, std::string_view name, const char* insert) {
    const auto [place, added] =
        known.try_emplace(std::string(name), static_cast<std::int64_t>(known.size()) + 1);
    if (added) {
      Statement statement = writer_.Tables().Prepare(insert);
      statement.Bind(1, place->second);
      statement.Bind(2, name);
      statement.Run();
    }
    return place->second;
  }

  void ReadGoods() {
    writer_.Tables().Run("INSERT INTO Units VALUES(0, ''); INSERT INTO GoodGrps VALUES(0, 'کلیه گروه ها')");
    Statement insert = writer_.Tables().Prepare(
        "INSERT INTO GoodInf(GrpCode, Code, Name, kala_name, Unit, Unit2, Meghdar2, Meghdar_Formool, MinAva, "
        "Status)"
        " VALUES(?1, ?2, ?3, ?3, ?4, ?5, nullif(?6, 0), nullif(?6, 0), ?7, 1)");
    ReadTable(folder_, "goods.csv",
              {{"code", true},
               {"name", true},
               {"group", true},
               {"unit", true},
               {"minimum stock|minimum", true},
               {"second unit|unit2", false},
               {"second unit ratio|ratio", false}},
              problems_, [&](CsvRow& row) { ReadGood(row, insert); });
  }

  void ReadGood(CsvRow& row, Statement& insert) {
    const std::optional<std::int64_t> code = Code(row, kLargestCode);
    const std::string_view name = Name(row, 1, "نام کالا");
    const std::string_view group = Name(row, 2, "گروه");
    const std::string_view unit = Name(row, 3, "واحد");
    const std::optional<Decimal> minimum =
        ReadNumber(row.Field(4).empty() ? "0" : row.Field(4), kLargestQuantity);
    if (!minimum) row.Refuse("حداقل موجودی «" + std::string(row.Field(4)) + "» عددی پذیرفتنی نیست");
    const std::optional<Decimal> ratio = Ratio(row);
    if (code && !goods_.try_emplace(*code, ratio.value_or(Decimal())).second) {
      row.Refuse("کد کالا " + std::to_string(*code) + " تکراری است");
    }
    if (row.Refused()) return;
    insert.Bind(1, Named(groups_, group, "INSERT INTO GoodGrps(Code, Name) VALUES(?1, ?2)"));
    insert.Bind(2, *code);
    insert.Bind(3, name);
    insert.Bind(4, Named(units_, unit, "INSERT INTO Units(Code, Name) VALUES(?1, ?2)"));
    insert.Bind(5, row.Field(5).empty()
                       ? 0
                       : Named(units_, row.Field(5), "INSERT INTO Units(Code, Name) VALUES(?1, ?2)"));
    insert.Bind(6, *ratio);
    insert.Bind(7, *minimum);
    insert.Run();
    ++counts_.goods;
  }

  // First units in a second unit; 0 for a good without one.
  static std::optional<Decimal> Ratio(CsvRow& row) {
    if (row.Field(5).empty() && row.Field(6).empty()) return Decimal();
    if (row.Field(5).empty() || row.Field(6).empty()) {
      row.Refuse("واحد دوم و نسبت آن باید با هم بیایند");
      return std::nullopt;
    }
    const std::optional<Decimal> ratio = ReadNumber(row.Field(6), kLargestQuantity);
    if (!ratio || *ratio <= Decimal()) {
      row.Refuse("نسبت واحد دوم «" + std::string(row.Field(6)) + "» عددی بزرگتر از صفر نیست");
      return std::nullopt;
    }
    return ratio;
  }

  void ReadCodesAndNames(const char* file, const char* what, std::int64_t largest, const char* insertSql,
                         std::unordered_set<std::int64_t>& codes, std::size_t& count) {
    Statement insert = writer_.Tables().Prepare(insertSql);
    ReadTable(folder_, file, {{"code", true}, {"name", true}}, problems_, [&](CsvRow& row) {
      const std::optional<std::int64_t> code = Code(row, largest);
      const std::string_view name = Name(row, 1, what);
      if (code && !codes.insert(*code).second) row.Refuse("کد " + std::to_string(*code) + " تکراری است");
      if (row.Refused()) return;
      insert.Bind(1, *code);
      insert.Bind(2, name);
      insert.Run();
      ++count;
    });
  }

  void ReadStores() {
    ReadCodesAndNames("stores.csv", "نام انبار", kLargestStore,
                      "INSERT INTO Stores(Code, Name) VALUES(?1, ?2)", stores_, counts_.stores);
  }

  void ReadPersons() {
    ReadCodesAndNames("persons.csv", "نام شخص", kLargestCode,
                      "INSERT INTO Persons(Code, Name) VALUES(?1, ?2)", persons_, counts_.persons);
  }

  void ReadMovements() {
    ReadTable(folder_, "movements.csv",
              {{"date", true},
               {"good", true},
               {"store", true},
               {"person", true},
               {"movement type|type", true},
               {"quantity|signed quantity", true},
               {"unit price|price", true},
               {"document number|document", true},
               {"comment", false}},
              problems_, [&](CsvRow& row) { ReadMovement(row); });
  }

  // A code that must be one of those read before.
  template <typename Known>
  static std::int64_t Reference(CsvRow& row, std::size_t column, const Known& known, const char* what) {
    const std::optional<std::int64_t> code = ReadWhole(row.Field(column), 1, kLargestCode);
    if (!code || !known.contains(*code)) {
      row.Refuse(std::string(what) + " «" + std::string(row.Field(column)) + "» تعریف نشده است");
      return 0;
    }
    return *code;
  }

  void ReadMovement(CsvRow& row) {
    Movement movement;
    const std::optional<std::string> date = ReadDate(row.Field(0));
    if (!date) row.Refuse("تاریخ «" + std::string(row.Field(0)) + "» درست نیست");
    movement.good = Reference(row, 1, goods_, "کالا");
    movement.store = Reference(row, 2, stores_, "انبار");
    if (!row.Field(3).empty()) movement.person = Reference(row, 3, persons_, "شخص");
    const std::optional<int> type = ReadMovementType(row.Field(4));
    if (!type) row.Refuse("نوع گردش «" + std::string(row.Field(4)) + "» شناخته نیست");
    movement.type = type.value_or(0);
    ReadQuantityAndPrice(row, movement);
    ReadDocumentNumber(row, movement);
    movement.comment = row.Field(8);
    if (row.Refused() || problems_.Total() > 0) return;
    movement.date = *date;
    writer_.Add(movement);
    ++counts_.movements;
  }

  void ReadQuantityAndPrice(CsvRow& row, Movement& movement) {
    const std::optional<Decimal> quantity = ReadNumber(row.Field(5), kLargestQuantity);
    if (!quantity) {
      row.Refuse("مقدار «" + std::string(row.Field(5)) + "» عددی تا 4600000000 با حداکثر 9 رقم اعشار نیست");
    } else if (quantity->IsZero()) {
      row.Refuse("مقدار صفر است");
    } else {
      movement.quantity = *quantity;
      const auto good = goods_.find(movement.good);
      if (good != goods_.end() && !SecondQuantity(*quantity, good->second)) {
        row.Refuse("مقدار در واحد دوم از اندازه بزرگتر است");
      }
    }
    if (row.Field(6).empty()) return;
    movement.price = ReadNumber(row.Field(6), kLargestPrice);
    if (!movement.price || movement.price->IsNegative()) {
      row.Refuse("قیمت «" + std::string(row.Field(6)) +
                 "» عددی از 0 تا 1000000000000000 با حداکثر 9 رقم اعشار نیست");
    }
  }

  // An opening stock belongs to the good's own record, whatever number the file gives.
  static void ReadDocumentNumber(CsvRow& row, Movement& movement) {
    if (movement.type == kOpening) {
      movement.document = movement.good;
      return;
    }
    const std::optional<std::int64_t> number = ReadWhole(row.Field(7), 1, kLargestDocument);
    if (!number) row.Refuse("شماره سند «" + std::string(row.Field(7)) + "» عددی بزرگتر از صفر نیست");
    movement.document = number.value_or(0);
  }

  std::string folder_;
  ImportProblems problems_;
  CompanyWriter writer_;
  ImportCounts counts_;
  std::map<std::string, std::int64_t> groups_;
  std::map<std::string, std::int64_t> units_;
  std::unordered_map<std::int64_t, Decimal> goods_;  // code to ratio
  std::unordered_set<std::int64_t> stores_;
  std::unordered_set<std::int64_t> persons_;
};

}  // namespace

ImportRefused::ImportRefused(std::vector<ImportProblem> problems, std::size_t total)
    : CompanyError(Message(problems, total)), problems_(std::move(problems)), total_(total) {}

ImportRefused::~ImportRefused() = default;

ImportCounts ImportCompany(const std::string& path, const std::string& folder, const ImportOptions& options) {
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) throw CompanyError("پوشه داده ها پیدا نشد: " + folder);
  try {
    Import import(path, folder, options);
    const std::filesystem::path named = std::filesystem::absolute(folder).lexically_normal();
    const std::string name =
        named.has_filename() ? named.filename().string() : named.parent_path().filename().string();
    import.Writer().SetTitle(options.title.empty() ? name : options.title);
    return import.Run();
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

}  // namespace goods
