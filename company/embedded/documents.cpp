#include "company/embedded/documents.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "host/data/display_format.h"

namespace goods {

namespace {

// What each kind of document is called, whom it names, and whether its rows are of several kinds.
struct KindText {
  DocumentKind kind;
  const char* title;
  const char* person;  // null: none is shown
  bool rowKinds;
};

constexpr KindText kKinds[] = {
    {DocumentKind::FixProduction, "تولید آنالیز ثابت", nullptr, true},
    {DocumentKind::SaleInvoice, "فاکتور فروش", "خریدار :", true},
    {DocumentKind::PurchaseInvoice, "فاکتور خرید", "فروشنده :", false},
    {DocumentKind::GoodRecord, "شناسنامه کالا", nullptr, false},
    {DocumentKind::SaleReturn, "برگشت از فروش", "خریدار :", false},
    {DocumentKind::PurchaseReturn, "برگشت از خرید", "فروشنده :", false},
    {DocumentKind::Transfer, "حواله بین انبار", nullptr, false},
    {DocumentKind::VarProduction, "تولید آنالیز متغیر", nullptr, true},
    {DocumentKind::ExpenseNote, "حواله کالای هزینه شده", "تحویل گیرنده :", false},
    {DocumentKind::Voucher, "سند حسابداری", "طرف حساب :", true},
    {DocumentKind::AdvancedProduction, "تولید آنالیز ثابت پیشرفته", nullptr, true},
    {DocumentKind::IssueNote, "حواله خروج کالا", "تحویل گیرنده :", false},
    {DocumentKind::ReceiptNote, "رسید ورود کالا", "تحویل دهنده :", false},
    {DocumentKind::RevenueNote, "رسید کالای درآمد شده", "تحویل دهنده :", false},
    {DocumentKind::DetailSplit, "تقسیم جزییات", nullptr, true},
};

// The kind of document by movement type, 0 to 25.
constexpr std::array<DocumentKind, 26> kKindOfType = {DocumentKind::FixProduction,
                                                      DocumentKind::SaleInvoice,
                                                      DocumentKind::PurchaseInvoice,
                                                      DocumentKind::GoodRecord,
                                                      DocumentKind::SaleReturn,
                                                      DocumentKind::PurchaseReturn,
                                                      DocumentKind::Transfer,
                                                      DocumentKind::Transfer,
                                                      DocumentKind::VarProduction,
                                                      DocumentKind::VarProduction,
                                                      DocumentKind::FixProduction,
                                                      DocumentKind::ExpenseNote,
                                                      DocumentKind::SaleInvoice,
                                                      DocumentKind::SaleInvoice,
                                                      DocumentKind::Voucher,
                                                      DocumentKind::Voucher,
                                                      DocumentKind::Voucher,
                                                      DocumentKind::Voucher,
                                                      DocumentKind::AdvancedProduction,
                                                      DocumentKind::AdvancedProduction,
                                                      DocumentKind::AdvancedProduction,
                                                      DocumentKind::IssueNote,
                                                      DocumentKind::ReceiptNote,
                                                      DocumentKind::RevenueNote,
                                                      DocumentKind::DetailSplit,
                                                      DocumentKind::DetailSplit};

std::string Quantity(Decimal value) { return DisplayFormat(kQuantityFormat).Format(value); }
std::string Amount(Decimal value) { return DisplayFormat(kAmountFormat).Format(value); }

void AddLine(DocumentView& view, const char* caption, std::string_view text) {
  if (!text.empty()) view.header.emplace_back(caption, std::string(text));
}

bool ReadGoodHeader(Database& db, std::int64_t code, DocumentView& view) {
  Statement good = db.Prepare(
      "SELECT g.Name, gg.Name, u.Name, u2.Name, g.AbbName, g.Meghdar_Formool, g.MinAva, g.ConsumerPrice, "
      "g.Position,"
      " s.Mogodi, s.gheymat_miangin FROM GoodInf g JOIN GoodGrps gg ON gg.Code = g.GrpCode"
      " JOIN Units u ON u.Code = g.Unit JOIN Units u2 ON u2.Code = g.Unit2 JOIN GoodStock s ON s.Kala = "
      "g.Code"
      " WHERE g.Code = ?1");
  good.Bind(1, code);
  if (!good.Step()) return false;
  AddLine(view, "کد کالا :", std::to_string(code));
  AddLine(view, "نام کالا :", good.Text(0));
  AddLine(view, "گروه کالا :", good.Text(1));
  AddLine(view, "واحد :", good.Text(2));
  AddLine(view, "واحد 2 :", good.Text(3));
  if (!good.IsNull(5)) AddLine(view, "نسبت دو واحد :", Quantity(good.Number(5)));
  AddLine(view, "بارکد :", good.Text(4));
  AddLine(view, "جای کالا :", good.Text(8));
  AddLine(view, "حداقل موجودی :", Quantity(good.Number(6)));
  AddLine(view, "فی مصرف کننده :", Amount(good.Number(7)));
  AddLine(view, "موجودی :", Quantity(good.Number(9)));
  AddLine(view, "قیمت میانگین :", Amount(good.Number(10)));
  return true;
}

bool ReadHeader(Database& db, const KindText& kind, std::int64_t code, DocumentView& view) {
  Statement header = db.Prepare(
      "SELECT d.Date, d.Percode, p.Name, s.Name, t.Name, d.Comment FROM Documents d"
      " LEFT JOIN Persons p ON p.Code = d.Percode LEFT JOIN Stores s ON s.Code = d.Anbar"
      " LEFT JOIN Stores t ON t.Code = d.ToAnbar WHERE d.Kind = ?1 AND d.Code = ?2");
  header.Bind(1, static_cast<std::int64_t>(kind.kind));
  header.Bind(2, code);
  if (!header.Step()) return false;
  AddLine(view, "شماره :", std::to_string(code));
  AddLine(view, "تاریخ :", header.Text(0));
  if (kind.person != nullptr && header.Integer(1) != 0) AddLine(view, kind.person, header.Text(2));
  const bool transfer = kind.kind == DocumentKind::Transfer;
  AddLine(view, transfer ? "از انبار :" : "انبار :", header.Text(3));
  if (transfer) AddLine(view, "به انبار :", header.Text(4));
  AddLine(view, "شرح :", header.Text(5));
  return true;
}

// A transfer moves each good twice; its document shows the outgoing half.
std::string TypeList(DocumentKind kind) {
  if (kind == DocumentKind::Transfer) return "6";
  std::string types;
  for (std::size_t type = 0; type < kKindOfType.size(); ++type) {
    if (kKindOfType[type] == kind) types += (types.empty() ? "" : ",") + std::to_string(type);
  }
  return types;
}

void ReadRows(Database& db, const KindText& kind, std::int64_t code, DocumentView& view) {
  view.columns = {{"ردیف", true}, {"کد کالا", true}, {"نام کالا", false}, {"انبار", false}};
  if (kind.rowKinds) view.columns.push_back({"نوع", false});
  for (const char* caption : {"مقدار", "فی", "مبلغ"}) view.columns.push_back({caption, true});
  view.columns.insert(view.columns.end() - 2, DocumentColumn{"واحد", false});

  Statement rows = db.Prepare(
      "SELECT k.OperationRow, k.Kala, g.Name, s.Name, m.Name, dec_abs(k.Tedad), u.Name, k.Fi,"
      " dec_mul(dec_abs(k.Tedad), k.Fi), k.Date FROM Kardex k JOIN GoodInf g ON g.Code = k.Kala"
      " JOIN Units u ON u.Code = g.Unit LEFT JOIN Stores s ON s.Code = k.Anbar"
      " JOIN MovementTypes m ON m.Type = k.Type WHERE k.Type IN (" +
      TypeList(kind.kind) + ") AND k.OperationCode = ?1 ORDER BY k.OperationRow, k.Radif");
  rows.Bind(1, code);
  Decimal quantities;
  Decimal amounts;
  while (rows.Step()) {
    quantities += rows.Number(5);
    amounts += rows.Number(8);
    std::vector<std::string> cells = {std::string(rows.Text(0)), std::string(rows.Text(1)),
                                      std::string(rows.Text(2)), std::string(rows.Text(3))};
    if (kind.rowKinds) cells.emplace_back(rows.Text(4));
    cells.push_back(Quantity(rows.Number(5)));
    cells.emplace_back(rows.Text(6));
    cells.push_back(Amount(rows.Number(7)));
    cells.push_back(Amount(rows.Number(8)));
    view.rows.push_back(std::move(cells));
  }
  view.totals = {{"تعداد ردیف :", std::to_string(view.rows.size())},
                 {"جمع مقدار :", Quantity(quantities)},
                 {"جمع مبلغ :", Amount(amounts)}};
}

}  // namespace

std::optional<DocumentKind> DocumentKindOfMovement(int type) {
  if (type < 0 || type >= static_cast<int>(kKindOfType.size())) return std::nullopt;
  return kKindOfType[static_cast<std::size_t>(type)];
}

std::optional<DocumentView> ReadDocument(Database& db, DocumentKind kind, std::int64_t code) {
  for (const KindText& text : kKinds) {
    if (text.kind != kind) continue;
    DocumentView view;
    view.title = text.title;
    const bool found =
        kind == DocumentKind::GoodRecord ? ReadGoodHeader(db, code, view) : ReadHeader(db, text, code, view);
    if (!found) return std::nullopt;
    ReadRows(db, text, code, view);
    return view;
  }
  return std::nullopt;
}

}  // namespace goods
