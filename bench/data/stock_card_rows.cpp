#include "stock_card_rows.h"

#include <cstdio>
#include <random>

namespace goods::bench {
namespace {

constexpr int kStores = 6;
constexpr int kPersons = 800;
constexpr std::size_t kDays = 1825;
constexpr std::int64_t kThousandth = Decimal::kOne / 1000;

std::string DateOf(std::size_t row) {
  const std::size_t day = row * kDays / kRows;
  char text[64];
  std::snprintf(text, sizeof text, "%04zu/%02zu/%02zu", 1398 + day / 365, day % 365 / 31 + 1,
                day % 365 % 31 + 1);
  return text;
}

StockCardRows Generate() {
  StockCardRows rows;
  std::mt19937_64 random(1403);
  std::vector<std::string> stores;
  std::vector<std::string> persons;
  for (int i = 0; i < kStores; ++i) stores.push_back("انبار شماره " + std::to_string(i + 1));
  for (int i = 0; i < kPersons; ++i) persons.push_back("شرکت بازرگانی طرف حساب " + std::to_string(i + 1));
  const std::vector<std::string> documents = {"فاکتور خرید", "فاکتور فروش", "حواله انبار", "رسید انبار",
                                              "انتقال"};

  rows.pool.reserve(kRows * kTexts);
  const auto text = [&rows](std::size_t column, std::string value) {
    rows.texts[column].emplace_back(rows.pool.emplace_back(std::move(value)));
  };
  std::int64_t remain = 0;
  std::int64_t remainInStore[kStores] = {};
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto store = static_cast<std::size_t>(random() % kStores);
    const auto person = static_cast<std::size_t>(random() % kPersons);
    const auto quantity = static_cast<std::int64_t>(random() % 200'000);
    const bool in = random() % 2 == 0;
    const auto price = static_cast<std::int64_t>(1'000'000 + random() % 500'000) * 1000 + 250;
    remain += in ? quantity : -quantity;
    remainInStore[store] += in ? quantity : -quantity;
    const std::int64_t integers[kIntegers] = {
        static_cast<std::int64_t>(i + 1),           static_cast<std::int64_t>(random() % 26),
        static_cast<std::int64_t>(100'000 + i / 3), static_cast<std::int64_t>(store + 1),
        static_cast<std::int64_t>(person + 1),      17};
    const std::int64_t numbers[kNumbers] = {
        in ? quantity : 0, in ? 0 : quantity,    price,      quantity / 1000 * price, remain,
        price + 125,       remainInStore[store], price - 375};
    for (std::size_t c = 0; c < kIntegers; ++c) rows.integers[c].push_back(integers[c]);
    for (std::size_t c = 0; c < kNumbers; ++c) rows.numbers[c].push_back(numbers[c]);
    text(0, DateOf(i));
    text(1, stores[store]);
    text(2, persons[person]);
    text(3, documents[random() % documents.size()]);
    text(4, "سند شماره " + std::to_string(100'000 + i / 3) + " ردیف " + std::to_string(i % 3 + 1));
  }
  return rows;
}

}  // namespace

std::size_t StockCardRows::ValueBytes() const {
  std::size_t bytes = kRows * (kIntegers + kNumbers) * sizeof(std::int64_t);
  for (const std::string& each : pool) bytes += each.size();
  return bytes;
}

const StockCardRows& Source() {
  static const StockCardRows rows = Generate();
  return rows;
}

std::vector<ColumnInfo> StockCardColumns() {
  std::vector<ColumnInfo> columns;
  for (const char* name : {"Id", "Type", "OperationCode", "Anbar", "Person", "Kala"}) {
    columns.push_back({name, ColumnType::Integer});
  }
  for (const char* name :
       {"Varede", "Sadere", "Mab", "Amount", "Bagh", "Mab_Bagh", "RemainInAnbar", "Mab_RemainInAnbar"}) {
    columns.push_back({name, ColumnType::Decimal});
  }
  for (const char* name : {"Date", "AnbarName", "PersonName", "Document", "Comment"}) {
    columns.push_back({name, ColumnType::Text});
  }
  return columns;
}

void FillStore(const StockCardRows& source, RowStore& store) {
  store.Define(StockCardColumns());
  for (std::size_t row = 0; row < kRows; ++row) {
    std::size_t column = 0;
    for (const auto& cells : source.integers) store.ColumnAt(column++).AppendInteger(cells[row]);
    for (const auto& cells : source.numbers) {
      store.ColumnAt(column++).AppendDecimal(Decimal::FromUnits(Int128{cells[row]} * kThousandth));
    }
    for (const auto& cells : source.texts) store.ColumnAt(column++).AppendText(cells[row]);
    store.EndRow();
  }
  store.Finish();
}

}  // namespace goods::bench
