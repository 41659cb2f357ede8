#include "company/kit/documents.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "company/kit/look_ups.h"
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

void AddLine(DocumentView& view, const char* caption, std::string_view text, bool money = false) {
  if (!text.empty()) view.header.push_back({caption, std::string(text), money});
}

bool ReadGoodHeader(LookUps& lookUps, std::int64_t code, DocumentView& view) {
  const LookUpRows good = lookUps.Ask(
      "SELECT e.Name, e.GroupName, e.UnitName, e.Unit2Name, e.AbbName, e.Meghdar_Formool, e.MinAva, "
      "e.ConsumerPrice, e.Position, e.Mogodi, e.gheymat_miangin FROM GoodRecordLookUp_VW e WHERE e.Code = " +
      std::to_string(code));
  if (good.Count() == 0) return false;
  AddLine(view, "کد کالا :", std::to_string(code));
  AddLine(view, "نام کالا :", good.Text(0, 0));
  AddLine(view, "گروه کالا :", good.Text(0, 1));
  AddLine(view, "واحد :", good.Text(0, 2));
  AddLine(view, "واحد 2 :", good.Text(0, 3));
  if (!good.IsNull(0, 5)) AddLine(view, "نسبت دو واحد :", Quantity(good.Number(0, 5)));
  AddLine(view, "بارکد :", good.Text(0, 4));
  AddLine(view, "جای کالا :", good.Text(0, 8));
  AddLine(view, "حداقل موجودی :", Quantity(good.Number(0, 6)));
  AddLine(view, "فی مصرف کننده :", Amount(good.Number(0, 7)), true);
  AddLine(view, "موجودی :", Quantity(good.Number(0, 9)));
  AddLine(view, "قیمت میانگین :", Amount(good.Number(0, 10)), true);
  return true;
}

bool ReadHeader(LookUps& lookUps, const KindText& kind, std::int64_t code, DocumentView& view) {
  const LookUpRows header = lookUps.Ask(
      "SELECT e.Date, e.Percode, e.PersonName, e.StoreName, e.ToStoreName, e.Comment FROM DocumentLookUp_VW "
      "e "
      "WHERE e.Kind = " +
      std::to_string(static_cast<int>(kind.kind)) + " AND e.Code = " + std::to_string(code));
  if (header.Count() == 0) return false;
  AddLine(view, "شماره :", std::to_string(code));
  AddLine(view, "تاریخ :", header.Text(0, 0));
  if (kind.person != nullptr && header.Integer(0, 1) != 0) AddLine(view, kind.person, header.Text(0, 2));
  const bool transfer = kind.kind == DocumentKind::Transfer;
  AddLine(view, transfer ? "از انبار :" : "انبار :", header.Text(0, 3));
  if (transfer) AddLine(view, "به انبار :", header.Text(0, 4));
  AddLine(view, "شرح :", header.Text(0, 5));
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

void ReadRows(LookUps& lookUps, const KindText& kind, std::int64_t code, DocumentView& view) {
  view.columns = {{"ردیف", true}, {"کد کالا", true}, {"نام کالا", false}, {"انبار", false}};
  if (kind.rowKinds) view.columns.push_back({"نوع", false});
  view.columns.insert(view.columns.end(),
                      {{"مقدار", true}, {"واحد", false}, {"فی", true, true}, {"مبلغ", true, true}});

  const LookUpRows rows = lookUps.Ask(
      "SELECT e.OperationRow, e.Kala, e.KalaName, e.StoreName, e.MovementName, e.Tedad, e.UnitName, e.Fi, "
      "e.Radif "
      "FROM DocumentRowLookUp_VW e WHERE e.Type IN (" +
      TypeList(kind.kind) + ") AND e.OperationCode = " + std::to_string(code) +
      " ORDER BY e.OperationRow, e.Radif");
  Decimal quantities;
  Decimal amounts;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    const Decimal quantity = rows.Number(row, 5).Abs();
    const Decimal price = rows.Number(row, 7);
    const Decimal amount = quantity * price;
    quantities += quantity;
    amounts += amount;
    std::vector<std::string> cells = {rows.Text(row, 0), rows.Text(row, 1), rows.Text(row, 2),
                                      rows.Text(row, 3)};
    if (kind.rowKinds) cells.push_back(rows.Text(row, 4));
    cells.push_back(Quantity(quantity));
    cells.push_back(rows.Text(row, 6));
    cells.push_back(Amount(price));
    cells.push_back(Amount(amount));
    view.rows.push_back(std::move(cells));
  }
  view.totals = {{"تعداد ردیف :", std::to_string(view.rows.size())},
                 {"جمع مقدار :", Quantity(quantities)},
                 {"جمع مبلغ :", Amount(amounts), true}};
}

}  // namespace

std::optional<DocumentKind> DocumentKindOfMovement(int type) {
  if (type < 0 || type >= static_cast<int>(kKindOfType.size())) return std::nullopt;
  return kKindOfType[static_cast<std::size_t>(type)];
}

DocumentView WithoutPrices(DocumentView view) {
  for (std::size_t i = view.columns.size(); i-- > 0;) {
    if (!view.columns[i].money) continue;
    const auto at = static_cast<std::ptrdiff_t>(i);
    for (auto& row : view.rows) {
      if (i < row.size()) row.erase(row.begin() + at);
    }
    view.columns.erase(view.columns.begin() + at);
  }
  const auto money = [](const DocumentLine& line) { return line.money; };
  std::erase_if(view.header, money);
  std::erase_if(view.totals, money);
  return view;
}

std::optional<DocumentView> ReadDocument(LookUps& lookUps, DocumentKind kind, std::int64_t code) {
  for (const KindText& text : kKinds) {
    if (text.kind != kind) continue;
    DocumentView view;
    view.title = text.title;
    const bool found = kind == DocumentKind::GoodRecord ? ReadGoodHeader(lookUps, code, view)
                                                        : ReadHeader(lookUps, text, code, view);
    if (!found) return std::nullopt;
    ReadRows(lookUps, text, code, view);
    return view;
  }
  return std::nullopt;
}

}  // namespace goods
