#include "tests/desktop/views/kit.h"

#include <QThread>
#include <stdexcept>

#include "host/core/text.h"
#include "host/data/first_rows.h"

namespace goods::testing {
namespace {

const std::vector<std::string> kPersons{"شرکت بازرگانی نیکان", "فروشگاه مرکزی", "آقای احمدی",
                                        "کارخانه مواد غذایی بهاران و پسران"};
const std::vector<std::string> kComments{"خرید شماره 1204", "فروش نقدی", "انتقال بین انبارها",
                                         "برگشت از فروش به علت مغایرت در تعداد کالای تحویلی"};

constexpr std::size_t kBlock = 4096;
constexpr unsigned long kSlowBlockMs = 4;

void AddRow(RowStore& into, std::size_t row) {
  const auto number = static_cast<std::int64_t>(row);
  std::size_t column = 0;
  const auto next = [&]() -> Column& { return into.ColumnAt(column++); };
  next().AppendInteger(number + 1);
  next().AppendText("1403/" + std::string(number % 12 < 9 ? "0" : "") + std::to_string(number % 12 + 1) +
                    "/0" + std::to_string(number % 9 + 1));
  next().AppendText(kPersons[row % kPersons.size()]);
  next().AppendText(kComments[row % kComments.size()]);
  next().AppendInteger(number % 6 + 1);
  if (row % 2 == 0) {
    next().AppendDecimal(Decimal(number % 90 + 10));
    next().AppendNull();
  } else {
    next().AppendNull();
    next().AppendDecimal(Decimal::FromUnits(Int128(number % 70 + 1) * Decimal::kOne + Decimal::kOne / 4));
  }
  next().AppendDecimal(Decimal(number % 5 == 3 ? -1250 - number % 100 : number % 400));
  next().AppendDecimal(Decimal((number % 97) * 12500));
  next().AppendDecimal(Decimal(number % 5 == 3 ? -15625000 : (number % 97) * 1250000));
  into.EndRow();
}

}  // namespace

void MadeUpConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  const std::vector<std::string> words = Split(statement, ' ');
  if (words.size() != 2) throw DatabaseError("Incorrect syntax near 'x'.", std::string(statement));
  const auto count = static_cast<std::size_t>(ParseInteger(words[1]).value_or(0));
  into.Define({{"Radif", ColumnType::Integer},
               {"Date", ColumnType::Text},
               {"PerName", ColumnType::Text},
               {"Comment", ColumnType::Text},
               {"Anbar", ColumnType::Integer},
               {"Tedad_Varde", ColumnType::Decimal},
               {"Tedad_Sadere", ColumnType::Decimal},
               {"Bagh", ColumnType::Decimal},
               {"Miangin", ColumnType::Decimal},
               {"Mab_Bagh", ColumnType::Decimal}});
  for (std::size_t row = 0; row < count; ++row) {
    if (row % kBlock == kBlock - 1) {
      if (words[0] == "slow") QThread::msleep(kSlowBlockMs);
      if (progress != nullptr) TellFirstRows(*progress, into);
      if (progress != nullptr && !progress->Progress(row))
        throw StatementCancelled("cancelled", std::string(statement));
    }
    AddRow(into, row);
  }
  if (words[0] == "stopped") throw StatementCancelled("cancelled", std::string(statement));
  into.Finish();
}

void MadeUpConnection::Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) {}

TestHost::TestHost() { windows.SetGridCommands(printing.GridCommands(messages)); }

IDocuments& TestHost::Documents() { throw std::logic_error("the tests open no documents"); }

TCard_FRM::TCard_FRM(THost& host)
    : TBaseDock_FRM(host, "Card_FRM", 1, ""), Kardex_QRY(this, "Kardex_QRY", host.Connection()) {
  SetCaption("کاردکس کالا");
  PreferredWidth = 1060;
  PreferredHeight = 680;
  LayOut();
  AddColumns();
  SetCommonControls(Kardex_GRD, PrintList_BTN, Exit_BTN);
  SetPopMenu(Kardex_GRD);
  Kardex_GRD.SetDataSource(&Kardex_DS);
  Kardex_GRD.OnSortChanged = [this] { Kardex_QRY.SetSort(Kardex_GRD.GetSort()); };
  Kardex_GRD.OnDblClick = [this] { ++documents; };
  OpenInfo_BTN.OnClick = [this] { ++documents; };
  Initialise();
}

void TCard_FRM::LayOut() {
  Criteria_PNL.Foldable = true;
  Good_LBL.FocusControl = &Good_SEF.Code_EDT;
  Good_SEF.SetEntityType(EntityType::Good);
  Store_SESF.SetEntityType(EntityType::Store);
  Good_PNL.Place(Good_LBL);
  Good_PNL.Place(Good_SEF, 1);
  for (TControl* each : {static_cast<TControl*>(&Kind_LBL), static_cast<TControl*>(&Kind_CMB),
                         static_cast<TControl*>(&Typing_CMB)}) {
    More_PNL.Place(*each);
  }
  More_PNL.Place(Search_EDT, 1);
  More_PNL.Place(Amount_EDT);
  More_PNL.Place(Stock_CHK);
  Kind_CMB.SetItems({{"همه", 0, ""}, {"خرید", 1, ""}, {"فروش", 2, ""}});
  Typing_CMB.SetStyle(ComboStyle::Typing);
  Typing_CMB.SetItems({{"قرمز", 0, ""}, {"آبی", 1, ""}});
  Search_EDT.SetPlaceholder("جستجو در شرح");
  Search_EDT.SetAccessibleName("جستجو");
  InValue_LBL.Emphasis = true;
  RemainValue_LBL.Emphasis = true;
  for (TLabel* each : {&In_LBL, &InValue_LBL, &Remain_LBL, &RemainValue_LBL}) Figures_PNL.Place(*each);
  for (TPanel* each :
       {&Good_PNL, static_cast<TPanel*>(&Store_SESF), static_cast<TPanel*>(&Date_RDSF), &More_PNL})
    Criteria_PNL.Place(*each);
  for (TButton* each : {&PrintList_BTN, &OpenInfo_BTN, &Exit_BTN}) Buttons_PNL.Place(*each);
  Place(Criteria_PNL);
  Place(Figures_PNL);
  Place(Kardex_GRD, 1);
  Place(Buttons_PNL);
}

void TCard_FRM::AddColumns() {
  Kardex_GRD.ShowRowNumbers = true;
  Kardex_GRD.AddColumn("Date", "تاریخ").SetWidth(88);
  Kardex_GRD.AddColumn("PerName", "نام شخص").SetWidth(150);
  Kardex_GRD.AddColumn("Comment", "شرح").SetWidth(140).SetAutoFit(true);
  Kardex_GRD.AddColumn("Anbar", "انبار").SetWidth(50);
  const auto number = [this](const char* field, const char* caption, std::string_view format, bool sum) {
    TGridColumn& column = Kardex_GRD.AddColumn(field, caption).SetDisplayFormat(format).SetWidth(92);
    if (sum) column.SetFooter(FooterKind::Sum);
  };
  number("Tedad_Varde", "مقدار وارده", kQuantityFormat, true);
  number("Tedad_Sadere", "مقدار صادره", kQuantityFormat, true);
  number("Bagh", "مقدار باقیمانده", kQuantityFormat, false);
  number("Miangin", "مبلغ|قیمت میانگین", kAmountFormat, false);
  number("Mab_Bagh", "مبلغ|مبلغ باقیمانده", kAmountFormat, true);
  Kardex_GRD.FindColumn("Date")->SetCustomizable(false);
}

void TCard_FRM::FormKeyDown(TKey& key) {
  TBaseDock_FRM::FormKeyDown(key);
  if (key.IsAlt(Key::Digit2)) {
    key.Consume();
    ++folds;
    Criteria_PNL.SetFolded(!Criteria_PNL.Folded());
  } else if (key.Is(Key::F2)) {
    key.Consume();
    OpenInfo_BTN.Click();
  }
}

void TCard_FRM::Fill(std::size_t rows, const std::string& kind) {
  Kardex_QRY.SetSQL(kind + " " + std::to_string(rows));
  Kardex_QRY.Open();
}

}  // namespace goods::testing
