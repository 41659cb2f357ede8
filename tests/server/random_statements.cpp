#include "random_statements.h"

#include <array>
#include <vector>

namespace goods {

namespace {

// Parameters of one call, each with a chance.
class Call {
 public:
  explicit Call(std::string head) : text_(std::move(head)) {}
  Call& Add(bool asked, const std::string& name, const std::string& value) {
    if (!asked) return *this;
    text_ += (first_ ? " @" : ", @") + name + " = " + value;
    first_ = false;
    return *this;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
  bool first_ = true;
};

std::string Quoted(const std::string& text) { return "N'" + text + "'"; }

}  // namespace

std::string RandomStatements::Text() {
  static constexpr std::array kTexts = {"پیچ", "ا",    "روغن", "کتاب", "علي", "خريد",  "1",    "۱۲",
                                        "رنگ", "فروش", " ",    "سفید", "M",   "انبار", "شرکت", "zz"};
  return Quoted(kTexts[static_cast<std::size_t>(Below(static_cast<int>(kTexts.size())))]);
}

std::string RandomStatements::Date() {
  const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
  if (Maybe(8)) return Maybe() ? "''" : "N' '";
  return Quoted(std::to_string(1400 + Below(6)) + "/" + two(1 + Below(12)) + "/" + two(1 + Below(29)));
}

std::string RandomStatements::Codes(int most) {
  std::string codes = Maybe(3) ? "," : "";
  for (int left = Below(4); left > 0; --left) codes += Number(1, most) + ",";
  return Quoted(codes);
}

std::string RandomStatements::Quantity() { return Number(0, 400) + (Maybe(3) ? ".5" : ""); }

std::string RandomStatements::Search(const std::string& head, bool named) {
  Call call(head);
  call.Add(named && Maybe(), "First", Date()).Add(named && Maybe(), "Second", Date());
  for (const char* field : {"Comment", "KalaName", "PerName", "AnbarName"}) {
    const bool asked = Maybe(4);
    call.Add(asked, field, Text()).Add(asked && Maybe(3), std::string("Not") + field, "1");
  }
  const auto range = [&](const std::string& field, auto value) {
    if (!Maybe(5)) return;
    call.Add(Maybe() || true, "From" + field, value()).Add(Maybe(), "To" + field, value());
    call.Add(Maybe(3), "NotRange" + field, "1");
  };
  range("Code", [&] { return Number(0, goods_ + 5); });
  range("Date", [&] { return Date(); });
  range("Varede", [&] { return Quantity(); });
  range("Sadere", [&] { return Quantity(); });
  range("Mab_Varede", [&] { return Number(1000, 900000); });
  range("Gheymat_Sadere", [&] { return Number(1000, 90000000); });
  return call.Text();
}

std::string RandomStatements::Goods() {
  Call call("exec GoodInf_sp");
  call.Add(Maybe(4), "GrpCode", Number(0, 9)).Add(Maybe(3), "GoodExistType", Number(0, 5));
  if (Maybe(4))
    call.Add(true, "Inlist", "1").Add(true, "SelectedCode", Number(0, 4)).Add(Maybe(), "invertList", "1");
  if (Maybe(3)) call.Add(Maybe(), "EffectiveDate1", Date()).Add(true, "EffectiveDate2", Date());
  if (Maybe(4)) call.Add(true, "StoreCode", Number(0, stores_ + 1)).Add(Maybe(3), "NotStoreCode", "1");
  const bool tags = Maybe(5);
  call.Add(tags, "tags", Codes(7)).Add(tags && Maybe(3), "Nottags", "1");
  call.Add(Maybe(6), "category_code", Codes(9))
      .Add(Maybe(6), "Name", Text())
      .Add(Maybe(8), "UnitName1", Text());
  call.Add(Maybe(8), "AbbName", Text())
      .Add(Maybe(8), "FromMogodi", Quantity())
      .Add(Maybe(8), "ToMogodi2", Quantity());
  call.Add(Maybe(8), "FromOperationDate", Date()).Add(Maybe(8), "FromJam_Kol", Number(0, 900000000));
  return call.Text();
}

std::string RandomStatements::Overall() {
  Call call(Maybe() ? "Exec GoodKardex_Overall_Money" : "Exec GoodKardex_Overall_Tedad");
  call.Add(Maybe(5), "KalaCode", Quoted(Number(1, goods_ + 3))).Add(Maybe(4), "KalaName", Text());
  call.Add(Maybe(8), "AbbName", Text()).Add(Maybe(4), "anbarcode", Number(0, stores_ + 1));
  call.Add(Maybe(), "FromDate", Date()).Add(Maybe(), "ToDate", Date()).Add(Maybe(4), "Reverst", "1");
  call.Add(Maybe(), "CalcBeforeDatePeriod", "1").Add(Maybe(3), "script_Sadere_sayer", Number(0, 63));
  call.Add(Maybe(3), "script_Varede_sayer", Number(0, 127));
  return call.Text();
}

std::string RandomStatements::StoreAsset() {
  Call call("Exec GoodsAsset_Store_SP");
  std::string codes = Maybe() ? "-1," : "";
  codes += Maybe() ? "0," : "";
  for (int left = Below(6); left > 0; --left) codes += Number(0, stores_ + 1) + ",";
  call.Add(Maybe(), "CalcBefore", "1")
      .Add(Maybe(5), "Reverse", "1")
      .Add(Maybe(4) || codes.size() > 4, "StoreCodes", Quoted(codes));
  call.Add(Maybe(), "FromDate", Date()).Add(Maybe(), "ToDate", Date());
  call.Add(Maybe(6), "GoodCode", Quoted(Number(1, goods_ + 2))).Add(Maybe(5), "GoodName", Text());
  return call.Text();
}

std::string RandomStatements::Details(const std::string& procedure, int titles) {
  Call call("EXEC " + procedure);
  const bool stock = procedure == "GoodDetailTransaction";
  call.Add(stock && Maybe(), "StoreSeparation", "1").Add(stock && Maybe(4), "HaveAmount", "0");
  if (Maybe(3))
    call.Add(true, "TitleID", Number(1, titles))
        .Add(true, "Title", Maybe(3) ? Quoted(Number(1, 60)) : Text());
  for (int detail = 1; detail <= 2; ++detail) {
    if (!Maybe(4)) continue;
    static constexpr std::array kValues = {"قرمز", "S", "XL", "10", "25.5", "1402/01/01", "آبی", "سبز"};
    const auto value = [&] { return Quoted(kValues[static_cast<std::size_t>(Below(8))]); };
    const std::string place = std::to_string(detail);
    call.Add(true, "DetailID" + place, Number(1, 6))
        .Add(Maybe(4) || true, "Detail" + place + "Value1", value());
    call.Add(Maybe(), "Detail" + place + "Value2", value());
  }
  call.Add(Maybe(5), "GoodTags", Codes(6)).Add(Maybe(6), "GoodCategoryCode", Number(1, 12));
  if (Maybe(5))
    call.Add(true, "GoodSelectedListCode", Number(1, 4)).Add(Maybe(), "GoodSelectedListNot", "-1");
  call.Add(Maybe(6), "GoodCode", Number(1, goods_)).Add(Maybe(6), "GoodGroupCode", Number(1, 9));
  call.Add(Maybe(6), "FromGoodCode", Number(1, goods_)).Add(Maybe(6), "ToGoodCode", Number(1, goods_));
  call.Add(Maybe(5), "FromAnbar", Number(1, stores_)).Add(Maybe(5), "ToAnbar", Number(1, stores_));
  call.Add(Maybe(4), "FromDate", Date()).Add(Maybe(4), "ToDate", Date());
  call.Add(!stock && Maybe(5), "OperationType", Number(0, 25));
  return call.Text();
}

std::string RandomStatements::OneGood() {
  Call call("EXEC OneGoodDetailTransaction");
  call.Add(Maybe(), "GoodCode", Number(1, goods_)).Add(Maybe(), "DetailValueID", Number(1, goods_));
  if (Maybe(3))
    call.Add(true, "TitleID", Number(1, 9)).Add(true, "Title", Maybe() ? Quoted(Number(1, 60)) : Text());
  call.Add(Maybe(5), "PerCode", Number(0, 20)).Add(Maybe(4), "Anbar", Number(1, stores_));
  call.Add(Maybe(4), "FromDate", Date()).Add(Maybe(4), "ToDate", Date());
  return call.Text();
}

std::string RandomStatements::CardMismatch() {
  Call call("EXEC DetailKardexAsset_Dismatch");
  call.Add(Maybe(5), "GoodGroupCode", Number(1, 9)).Add(Maybe(), "StoreSeparation", "1");
  call.Add(Maybe(6), "GoodCode", Number(1, goods_))
      .Add(Maybe(6), "GoodName", Text())
      .Add(Maybe(6), "Store", Number(1, stores_));
  call.Add(Maybe(6), "StoreName", Text())
      .Add(Maybe(5), "FromDiffAsset", "-" + Quantity())
      .Add(Maybe(5), "ToDiffAsset", Quantity());
  return call.Text();
}

std::string RandomStatements::OperationMismatch() {
  Call call("EXEC DetailOperation_Dismatch");
  call.Add(Maybe(6), "GoodCode", Number(1, goods_))
      .Add(Maybe(6), "Store", Number(1, stores_))
      .Add(Maybe(6), "StoreName", Text());
  call.Add(Maybe(8), "OperationType", Number(0, 25))
      .Add(Maybe(5), "FromDate", Date())
      .Add(Maybe(5), "ToDate", Date());
  call.Add(Maybe(6), "FromOperationAmount", Quantity()).Add(Maybe(6), "ToDetailAmount", Quantity());
  call.Add(Maybe(8), "FromOperationCode", Number(1, 200)).Add(Maybe(8), "ToOperationRow", Number(1, 5));
  return call.Text();
}

std::string RandomStatements::Next() {
  switch (Below(12)) {
    case 0:
      return "Exec Kardex_Proc " + Number(0, goods_ + 2);
    case 1:
    case 2:
      return Search("Exec srKardex", false);
    case 3:
      return Search("Exec srKardex_Negative", true);
    case 4:
    case 5:
      return Goods();
    case 6:
      return Overall();
    case 7:
      return StoreAsset();
    case 8:
      return Details("GoodDetailTransaction", 5);
    case 9:
      return Details("AllGoodDetailTransaction", 10);
    case 10:
      return OneGood();
    default:
      return Maybe() ? CardMismatch() : OperationMismatch();
  }
}

}  // namespace goods
