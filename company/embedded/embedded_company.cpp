#include <utility>

#include "company/company.h"
#include "company/embedded/catalog.h"
#include "company/embedded/company_file.h"
#include "company/embedded/documents.h"
#include "company/embedded/embedded_connection.h"
#include "company/embedded/password.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "host/core/text.h"

namespace goods {

namespace {

struct EntityTable {
  EntityKind kind;
  const char* table;
};

constexpr EntityTable kEntityTables[] = {
    {EntityKind::Store, "Stores"},       {EntityKind::Person, "Persons"},      {EntityKind::Good, "GoodInf"},
    {EntityKind::GoodGroup, "GoodGrps"}, {EntityKind::Category, "Categories"}, {EntityKind::Unit, "Units"},
};

// "SELECT code, name, unit, unit2" of one kind of entity, its table under the name e.
std::string EntitySelect(EntityKind kind) {
  if (kind == EntityKind::Good) {
    return "SELECT e.Code, e.Name, u.Name, u2.Name FROM GoodInf e JOIN Units u ON u.Code = e.Unit "
           "JOIN Units u2 ON u2.Code = e.Unit2";
  }
  for (const EntityTable& entity : kEntityTables) {
    if (entity.kind == kind) return std::string("SELECT e.Code, e.Name, '', '' FROM ") + entity.table + " e";
  }
  throw CompanyError("این نوع موجودیت شناخته نیست.");
}

constexpr std::size_t kLongestTitle = 200;

// Look-ups have no listener that could stop them. Those of ten million movements need a tenth of it.
constexpr std::uint64_t kMostInstructions = 500'000'000;

std::string Shortened(std::string text) {
  if (CharCount(text) > kLongestTitle) text = std::string(FirstChars(text, kLongestTitle - 1)) + "…";
  return text;
}

EntityRecord ReadEntity(const Statement& row) {
  return {row.Integer(0), std::string(row.Text(1)), std::string(row.Text(2)), std::string(row.Text(3))};
}

class EmbeddedCompany : public ICompany {
 public:
  EmbeddedCompany(std::string path, bool writable)
      : path_(std::move(path)),
        writable_(writable),
        db_(OpenCompanyDatabase(path_, SQLITE_OPEN_READONLY, Access::Read)),
        catalog_(db_) {
    title_ = Shortened(db_.AskText("SELECT Value FROM Meta WHERE Key = 'Title'"));
  }

  std::string Title() const override { return title_; }

  std::unique_ptr<IConnection> OpenConnection() override {
    return Guarded([&] {
      auto connection = std::make_unique<EmbeddedConnection>(path_, writable_);
      CheckInPlace();  // so that it reached this company's file
      return connection;
    });
  }

  std::optional<UserRecord> SignIn(std::string_view login, std::string_view password) override {
    return Guarded([&]() -> std::optional<UserRecord> {
      Statement user =
          db_.Prepare("SELECT Code, Login, Name, EveryRight, PasswordHash FROM Users WHERE Login = ?1");
      user.Bind(1, login);
      if (!user.Step() || !VerifyPassword(password, std::string(user.Text(4)))) return std::nullopt;
      return UserRecord{user.Integer(0), std::string(user.Text(1)), Shortened(std::string(user.Text(2))),
                        user.Integer(3) != 0};
    });
  }

  bool HasRight(const UserRecord& user, int softwarePart, int permission) override {
    return Guarded([&] {
      Statement right = db_.Prepare(
          "SELECT 1 FROM Users u WHERE u.Code = ?1 AND (u.EveryRight <> 0 OR EXISTS("
          "SELECT 1 FROM UserRights r WHERE r.UserCode = u.Code AND r.Part = ?2 AND r.Permission = ?3))");
      right.Bind(1, user.code);
      right.Bind(2, std::int64_t{softwarePart});
      right.Bind(3, std::int64_t{permission});
      return right.Step();
    });
  }

  std::optional<EntityRecord> FindEntity(EntityKind kind, std::int64_t code) override {
    return Guarded([&]() -> std::optional<EntityRecord> {
      Statement entity = db_.Prepare(EntitySelect(kind) + " WHERE e.Code = ?1");
      entity.Bind(1, code);
      if (!entity.Step()) return std::nullopt;
      return ReadEntity(entity);
    });
  }

  std::vector<EntityRecord> SearchEntities(EntityKind kind, std::string_view text,
                                           std::size_t limit) override {
    return Guarded([&] {
      const std::string sought(Trim(text));
      const bool shortNames =
          kind == EntityKind::Good || kind == EntityKind::Store || kind == EntityKind::Person;
      const std::string byShortName =
          shortNames ? " OR instr(fold_persian(e.AbbName), fold_persian(?1)) > 0" : "";
      Statement entities = db_.Prepare(
          EntitySelect(kind) + " WHERE ?1 = '' OR instr(fold_persian(e.Name), fold_persian(?1)) > 0" +
          byShortName + " OR substr(CAST(e.Code AS TEXT), 1, length(?2)) = ?2 ORDER BY e.Code LIMIT ?3");
      entities.Bind(1, std::string_view(sought));
      entities.Bind(2, std::string_view(AsciiDigits(sought)));
      entities.Bind(3, static_cast<std::int64_t>(limit));
      std::vector<EntityRecord> found;
      while (entities.Step()) found.push_back(ReadEntity(entities));
      return found;
    });
  }

  std::optional<std::vector<std::string>> Lookup(std::string_view table, std::string_view keyField,
                                                 std::string_view key, std::string_view fields) override {
    return Guarded([&] { return LookupRow(table, keyField, key, fields); });
  }

  std::string CategoryName(std::int64_t code) override {
    const std::optional<EntityRecord> category = FindEntity(EntityKind::Category, code);
    return category ? category->name : std::string();
  }

  std::vector<TagRecord> Tags() override {
    return Guarded([&] {
      Statement tags = db_.Prepare(
          "SELECT t.Code, t.Name, coalesce(c.ColorText, '') FROM TagS t "
          "LEFT JOIN colors c ON c.code = t.color_code ORDER BY t.Code");
      std::vector<TagRecord> found;
      while (tags.Step()) {
        found.push_back({tags.Integer(0), std::string(tags.Text(1)), std::string(tags.Text(2))});
      }
      return found;
    });
  }

  std::vector<CategoryRecord> Categories() override {
    return Guarded([&] {
      Statement categories = db_.Prepare("SELECT Code, Name, ParentCode FROM Categories ORDER BY Code");
      std::vector<CategoryRecord> found;
      while (categories.Step()) {
        found.push_back({categories.Integer(0), std::string(categories.Text(1)), categories.Integer(2)});
      }
      return found;
    });
  }

  std::optional<DocumentView> Document(DocumentKind kind, std::int64_t code) override {
    return Guarded([&] { return ReadDocument(db_, kind, code); });
  }

  std::vector<BusyGood> ListBusyGoods(std::size_t limit) override {
    return Guarded([&] {
      Statement goods = db_.Prepare(
          "SELECT g.Code, g.Name, (SELECT count(*) FROM Kardex k WHERE k.Kala = g.Code) AS Moves "
          "FROM GoodInf g ORDER BY Moves DESC, g.Code LIMIT ?1");
      goods.Bind(1, static_cast<std::int64_t>(limit));
      std::vector<BusyGood> found;
      while (goods.Step()) found.push_back({goods.Integer(0), std::string(goods.Text(1)), goods.Integer(2)});
      return found;
    });
  }

 private:
  // What stands under the file's name now may be another company with other users.
  void CheckInPlace() const {
    if (db_.WasMoved()) throw CompanyError(std::string(kMovedMessage));
  }

  template <typename Body>
  auto Guarded(Body body) const -> decltype(body()) {
    CheckInPlace();
    const ProgressWatch watch(db_.Handle(), nullptr, kMostInstructions);
    try {
      return body();
    } catch (const SqliteError& error) {
      throw CompanyError(PersianMessage(error));
    }
  }

  // 1 to 5 for the titles of a good's details (D1Title to D5Title), else 0.
  static int DetailTitlePosition(std::string_view table, std::string_view field) {
    const bool title = table == "GoodInf" && field.size() == 7 && SameText(field.substr(0, 1), "D") &&
                       SameText(field.substr(2), "Title") && field[1] >= '1' && field[1] <= '5';
    return title ? field[1] - '0' : 0;
  }

  static std::string DetailTitleCell(int position) {
    return "ifnull((SELECT d.Title FROM GoodDetails gd JOIN DetailTypes d ON d.ID = gd.DetailID "
           "WHERE gd.Kala = t.Code AND gd.Position = " +
           std::to_string(position) + "), '')";
  }

  std::optional<std::vector<std::string>> LookupRow(std::string_view table, std::string_view keyField,
                                                    std::string_view key, std::string_view fields) {
    const CatalogTable* found = catalog_.Find(table);
    if (found == nullptr) throw CompanyError("جدول «" + std::string(table) + "» شناخته نیست.");
    const auto column = [&](std::string_view name) {
      const CatalogColumn* known = found->Find(name);
      if (known == nullptr) throw CompanyError("ستون «" + std::string(name) + "» شناخته نیست.");
      return known;
    };
    std::string sql;
    for (const std::string& field : Split(fields, ';')) {
      if (field.empty()) continue;
      if (const int position = DetailTitlePosition(found->name, field); position != 0) {
        sql += (sql.empty() ? "SELECT " : ", ") + DetailTitleCell(position);
        continue;
      }
      const CatalogColumn* known = column(field);
      std::string cell = "t.\"" + known->name + "\"";
      const bool unit = found->name == "GoodInf" && (known->name == "Unit" || known->name == "Unit2");
      if (unit) cell = "(SELECT u.Name FROM Units u WHERE u.Code = " + cell + ")";
      if (known->type == ColumnType::Decimal) cell = "dec_text(" + cell + ")";
      sql += (sql.empty() ? "SELECT " : ", ") + cell;
    }
    if (sql.empty()) throw CompanyError("نام ستونی داده نشده است.");
    sql += " FROM \"" + found->name + "\" t WHERE t.\"" + column(keyField)->name + "\" = ?1 LIMIT 1";
    Statement row = db_.Prepare(sql);
    row.Bind(1, key);
    if (!row.Step()) return std::nullopt;
    std::vector<std::string> values;
    for (int i = 0; i < row.Columns(); ++i) values.emplace_back(row.Text(i));
    return values;
  }

  std::string path_;
  bool writable_;
  Database db_;
  Catalog catalog_;
  std::string title_;
};

}  // namespace

ICompany::~ICompany() = default;

std::unique_ptr<ICompany> OpenCompany(const std::string& path, IStatementProgress* progress) {
  const bool writable = PrepareCompanyFile(path, progress);
  try {
    return std::make_unique<EmbeddedCompany>(path, writable);
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error) + " (" + path + ")");
  }
}

}  // namespace goods
