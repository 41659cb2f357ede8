// What a host asks of a company beside statements.
#include "company/company.h"

#include <map>

#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

class CompanyTest : public ::testing::Test {
 protected:
  std::string Line(const DocumentView& view, const std::string& caption) {
    for (const auto& [name, text, money] : view.header) {
      if (name == caption) return text;
    }
    return "";
  }
  std::unique_ptr<ICompany> company_ = OpenCompany(SmallDemoPath());
};

TEST_F(CompanyTest, AUserSignsInWithTheOwnPasswordOnly) {
  // Failures are counted in the file.
  const TestFile copy("sign_in.goods");
  std::filesystem::copy_file(SmallDemoPath(), copy.Path());
  company_ = OpenCompany(copy.Path());
  const std::optional<UserRecord> manager = company_->SignIn("admin", "admin");
  ASSERT_TRUE(manager.has_value());
  EXPECT_EQ(manager->name, "مدیر");
  EXPECT_EQ(company_->SignIn("anbar", "anbar")->name, "انباردار");
  EXPECT_EQ(company_->SignIn("guest", "guest")->name, "مهمان");
  EXPECT_FALSE(company_->SignIn("admin", "anbar").has_value());
  EXPECT_FALSE(company_->SignIn("admin", "").has_value());
  EXPECT_FALSE(company_->SignIn("nobody", "nobody").has_value());
  EXPECT_FALSE(company_->SignIn("' or 1=1 --", "x").has_value());
}

// What a hash costs as shipped: tests/end_to_end/check_password_cost.sh.
TEST_F(CompanyTest, PasswordsAreKeptAsHashes) {
  Database db(SmallDemoPath(), SQLITE_OPEN_READONLY);
  EXPECT_EQ(
      db.AskInteger("SELECT count(*) FROM Users WHERE PasswordHash LIKE '$argon2id$v=19$m=%,t=%,p=1$%'"), 3);
}

TEST_F(CompanyTest, RightsFollowTheUser) {
  const UserRecord manager = *company_->SignIn("admin", "admin");
  const UserRecord storekeeper = *company_->SignIn("anbar", "anbar");
  const UserRecord guest = *company_->SignIn("guest", "guest");
  EXPECT_TRUE(company_->HasRight(manager, 502, 5021));
  EXPECT_TRUE(company_->HasRight(storekeeper, 509, 6));
  EXPECT_TRUE(company_->HasRight(storekeeper, 501, 34));
  EXPECT_FALSE(company_->HasRight(storekeeper, 501, 24));
  EXPECT_FALSE(company_->HasRight(storekeeper, 502, 6));
  EXPECT_FALSE(company_->HasRight(storekeeper, 502, 5021));
  EXPECT_FALSE(company_->HasRight(storekeeper, 201, 2));
  for (const int part : {501, 502, 509, 510, 513, 528, 531})
    EXPECT_FALSE(company_->HasRight(guest, part, 6)) << part;
}

TEST_F(CompanyTest, AGoodIsFoundWithTheNamesOfItsUnits) {
  const std::optional<EntityRecord> good = company_->FindEntity(EntityKind::Good, 12);
  ASSERT_TRUE(good.has_value());
  EXPECT_EQ(good->unit, "لیتر");
  EXPECT_EQ(good->unit2, "کارتن");
  EXPECT_FALSE(company_->FindEntity(EntityKind::Good, 61).has_value());
  EXPECT_EQ(company_->FindEntity(EntityKind::Store, 1)->name, "انبار مرکزی");
  EXPECT_EQ(company_->FindEntity(EntityKind::GoodGroup, 4)->name, "مواد غذایی");
  EXPECT_TRUE(company_->FindEntity(EntityKind::Person, 1).has_value());
}

TEST_F(CompanyTest, EntitiesAreSearchedByTheBeginningOfTheCodeOrAnyPartOfTheName) {
  const auto codes = [&](std::string_view text, std::size_t limit, EntityKind kind = EntityKind::Good) {
    std::vector<std::int64_t> found;
    for (const EntityRecord& entity : company_->SearchEntities(kind, text, limit))
      found.push_back(entity.code);
    return found;
  };
  EXPECT_EQ(codes("1", 4, EntityKind::Person), (std::vector<std::int64_t>{1, 10, 11, 12}));
  EXPECT_EQ(codes("۱۲", 10).front(), 12);
  EXPECT_EQ(codes("", 3).size(), 3U);
  EXPECT_FALSE(codes("آفتابگردان", 10).empty());
  EXPECT_EQ(codes("مايع", 10), codes("مایع", 10));
  EXPECT_FALSE(codes("مايع", 10).empty());
  EXPECT_TRUE(codes("%", 10).empty());
}

TEST_F(CompanyTest, AGoodIsKnownWithItsUnitsAndTheTitlesOfItsDetails) {
  const std::optional<GoodRecord> good = company_->FindGood(12);
  ASSERT_TRUE(good.has_value());
  EXPECT_EQ(good->name, "روغن آفتابگردان سرخ کردنی");
  EXPECT_EQ(good->unit, "لیتر");
  EXPECT_EQ(good->unit2, "کارتن");
  Database db(SmallDemoPath(), SQLITE_OPEN_READONLY);
  EXPECT_EQ(good->unitKind, db.AskInteger("SELECT UnitKind FROM GoodInf WHERE Code = 12"));
  Statement details = db.Prepare(
      "SELECT gd.Kala, gd.Position, d.Title FROM GoodDetails gd JOIN DetailTypes d ON d.ID = gd.DetailID");
  int titles = 0;
  while (details.Step()) {
    const auto position = static_cast<std::size_t>(details.Integer(1)) - 1;
    EXPECT_EQ(company_->FindGood(details.Integer(0))->detailTitles.at(position), details.Text(2));
    ++titles;
  }
  EXPECT_GT(titles, 0);
  EXPECT_EQ(company_->FindGood(999), std::nullopt);
}

TEST_F(CompanyTest, ASearchedTextIsNothingButText) {
  for (const char* text : {"'", "' OR 1 = 1 --", "''", "[", "_", "%", "\\", "N'x'"}) {
    EXPECT_TRUE(company_->SearchEntities(EntityType::Good, text, 5).empty()) << text;
  }
}

TEST_F(CompanyTest, ADescriptionWithItsKindOpensTheSameFile) {
  EXPECT_EQ(OpenCompany("file:" + SmallDemoPath())->Title(), company_->Title());
}

TEST_F(CompanyTest, UsersAreNotAmongWhatStatementsRead) {
  EXPECT_NE(Refusal(*company_->OpenConnection(), "SELECT PasswordHash FROM Users"), "");
}

TEST_F(CompanyTest, CategoriesHaveNames) {
  EXPECT_EQ(company_->CategoryName(4), "مواد غذایی");
  EXPECT_EQ(company_->CategoryName(12345), "");
}

TEST_F(CompanyTest, EveryRowOfEveryCardHasItsDocumentAndStandsInIt) {
  Database db(SmallDemoPath(), SQLITE_OPEN_READONLY);
  Statement rows = db.Prepare("SELECT Type, OperationCode, Kala, dec_text(dec_abs(Tedad)), Date FROM Kardex");
  std::map<std::pair<DocumentKind, std::int64_t>, DocumentView> documents;
  int compared = 0;
  while (rows.Step()) {
    if (rows.Integer(0) == 7) continue;  // shown by its outgoing half
    const std::optional<DocumentKind> kind = DocumentKindOfMovement(static_cast<int>(rows.Integer(0)));
    ASSERT_TRUE(kind.has_value());
    const auto key = std::pair(*kind, rows.Integer(1));
    if (!documents.contains(key)) {
      std::optional<DocumentView> view = company_->Document(*kind, rows.Integer(1));
      ASSERT_TRUE(view.has_value()) << rows.Text(0) << " " << rows.Text(1);
      documents.emplace(key, *std::move(view));
    }
    const DocumentView& document = documents.at(key);
    bool found = false;
    for (const std::vector<std::string>& cells : document.rows) {
      ASSERT_EQ(cells.size(), document.columns.size());
      found = found || cells[1] == rows.Text(2);
    }
    EXPECT_TRUE(found);
    const bool dated = *kind != DocumentKind::GoodRecord;
    EXPECT_EQ(Line(document, "تاریخ :"), dated ? rows.Text(4) : "");
    ++compared;
  }
  EXPECT_GT(compared, 3000);
}

TEST_F(CompanyTest, KindsOfDocumentsAreThoseOfTheMovementTypes) {
  Database db(SmallDemoPath(), SQLITE_OPEN_READONLY);
  Statement types = db.Prepare("SELECT Type, Kind FROM MovementTypes ORDER BY Type");
  int count = 0;
  while (types.Step()) {
    EXPECT_EQ(static_cast<std::int64_t>(*DocumentKindOfMovement(static_cast<int>(types.Integer(0)))),
              types.Integer(1));
    ++count;
  }
  EXPECT_EQ(count, 26);
  EXPECT_FALSE(DocumentKindOfMovement(26).has_value());
  EXPECT_FALSE(DocumentKindOfMovement(-1).has_value());
}

TEST_F(CompanyTest, ASaleInvoiceTotalsItsRows) {
  const std::optional<DocumentView> invoice = company_->Document(DocumentKind::SaleInvoice, 1);
  ASSERT_TRUE(invoice.has_value());
  EXPECT_EQ(invoice->title, "فاکتور فروش");
  EXPECT_NE(Line(*invoice, "خریدار :"), "");
  EXPECT_EQ(invoice->totals[0].text, std::to_string(invoice->rows.size()));
  EXPECT_FALSE(company_->Document(DocumentKind::SaleInvoice, 9'999'999).has_value());
}

TEST_F(CompanyTest, AGoodsOwnRecordShowsItsOpeningStock) {
  const std::optional<DocumentView> record = company_->Document(DocumentKind::GoodRecord, 12);
  ASSERT_TRUE(record.has_value());
  EXPECT_EQ(Line(*record, "واحد 2 :"), "کارتن");
  EXPECT_EQ(record->rows.size(), 2U);
}

TEST_F(CompanyTest, TheBusiestGoodComesFirst) {
  const std::vector<BusyGood> goods = company_->ListBusyGoods(3);
  ASSERT_EQ(goods.size(), 3U);
  EXPECT_EQ(goods[0].code, kBusyGood);
  EXPECT_NEAR(static_cast<double>(goods[0].movements), 4000.0 / 3, 40);
  EXPECT_GE(goods[1].movements, goods[2].movements);
}

TEST_F(CompanyTest, AConnectionOutlivesItsCompany) {
  const std::unique_ptr<IConnection> connection = company_->OpenConnection();
  company_.reset();
  EXPECT_EQ(AskRows(*connection, "SELECT * FROM Stores ORDER BY Code").Count(), 4U);
}

}  // namespace
}  // namespace goods
