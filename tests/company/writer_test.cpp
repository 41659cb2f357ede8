// What the writer of companies works out beside what it is given.
#include "company/writer/company_writer.h"
#include "company_fixture.h"

namespace goods {
namespace {

TEST(CompanyWriter, DetailsHaveTheRowNumberThatTheWriterGaveTheirMovement) {
  const TestFile file("numbered.goods");
  CompanyWriter writer(file.Path(), false);
  writer.Tables().Run(
      "INSERT INTO Units(Code, Name) VALUES(1, 'عدد');"
      "INSERT INTO Stores(Code, Name) VALUES(1, 'انبار');"
      "INSERT INTO GoodGrps(Code, Name) VALUES(1, 'گروه');"
      "INSERT INTO GoodInf(Code, Name, GrpCode, Unit) VALUES(1, 'یک', 1, 1), (2, 'دو', 1, 1);"
      "INSERT INTO DetailTypes(ID, Title, DetailType) VALUES(1, 'رنگ', 1);"
      "INSERT INTO GoodDetails(Kala, Position, DetailID) VALUES(1, 1, 1), (2, 1, 1);"
      "INSERT INTO DetailValues(ID, Kala, D1Value) VALUES(10, 1, 'سبز'), (20, 2, 'سبز'), (21, 2, 'زرد')");
  const auto add = [&](std::int64_t good, std::int64_t row, std::initializer_list<std::int64_t> values) {
    Movement movement;
    movement.date = "1402/01/01";
    movement.good = good;
    movement.store = 1;
    movement.type = 2;
    movement.quantity = Decimal(static_cast<std::int64_t>(values.size()));
    movement.price = Decimal(100);
    movement.document = 7;
    movement.row = row;
    DetailMovement detail;
    detail.radif = writer.Add(movement);
    detail.amount = Decimal(1);
    for (const std::int64_t value : values) {
      detail.valueId = value;
      writer.AddDetail(movement, detail);
    }
  };
  add(1, 0, {10});
  add(2, 0, {20, 21});
  add(1, 8, {10});
  writer.Finish();

  Database db(file.Path(), SQLITE_OPEN_READONLY);
  EXPECT_EQ(db.AskText("SELECT group_concat(OperationRow) FROM (SELECT * FROM Kardex ORDER BY Radif)"),
            "1,2,8");
  EXPECT_EQ(db.AskText("SELECT group_concat(OperationRow) FROM (SELECT * FROM DetailKardex ORDER BY Radif)"),
            "1,2,2,8");
}

}  // namespace
}  // namespace goods
