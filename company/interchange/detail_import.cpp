// Reading detail rows of movements and documents' remarks.
#include "company/interchange/import_fields.h"
#include "company/interchange/movement_import.h"

namespace goods {

namespace {

enum DetailColumn : std::size_t {
  kMovement,
  kCombination,
  kAmount,
  kAmount2,
  kCount,
  kLength,
  kWidth,
  kComment
};
enum RemarkColumn : std::size_t { kKind, kNumber, kRemark };

Decimal Measure(TableReader& reader, DetailColumn column) {
  const std::string_view text = reader.Field(column);
  if (text.empty()) return {};
  const std::optional<Decimal> number = ReadNumber(text, kLargestQuantity);
  if (!number) reader.Refuse("مقدار " + Quoted(text) + " عددی تا 4600000000 با حداکثر 9 رقم اعشار نیست");
  return number.value_or(Decimal());
}

}  // namespace

const std::vector<ColumnTitle>& DetailMovementTitles() {
  static const std::vector<ColumnTitle> kTitles = {{"movement|گردش", true}, {"combination|ترکیب", true},
                                                   {"amount|مقدار", true},  {"amount 2|مقدار 2"},
                                                   {"count|تعداد"},         {"length|طول"},
                                                   {"width|عرض"},           {"comment|شرح"}};
  return kTitles;
}

const std::vector<ColumnTitle>& RemarkTitles() {
  static const std::vector<ColumnTitle> kTitles = {
      {"kind|نوع", true}, {"number|شماره", true}, {"remark|شرح", true}};
  return kTitles;
}

TableReader DetailMovementsReader(ImportSession& session) {
  return {session.source, kDetailMovementsFile, DetailMovementTitles()};
}

void ReadDetailMovements(ImportSession& session, TableReader& reader) {
  if (!reader.Open(false)) return;
  while (reader.Next()) {
    const std::optional<std::int64_t> movement = ReadWhole(reader.Field(kMovement), 1, kLargestDocument);
    if (!movement) reader.Refuse("گردش " + Quoted(reader.Field(kMovement)) + " عددی بزرگتر از صفر نیست");
    const std::optional<std::int64_t> combination =
        ReadWhole(reader.Field(kCombination), 1, kLargestDocument);
    const auto good = session.goodOfCombination.find(combination.value_or(0));
    if (good == session.goodOfCombination.end()) {
      reader.Refuse("ترکیب جزییات " + Quoted(reader.Field(kCombination)) + " تعریف نشده است");
    }
    DetailMovement detail;
    detail.amount = Measure(reader, kAmount);
    detail.amount2 = Measure(reader, kAmount2);
    detail.count = Measure(reader, kCount);
    detail.length = Measure(reader, kLength);
    detail.width = Measure(reader, kWidth);
    if (reader.Refused() || session.source.problems.Total() > 0) continue;
    detail.radif = session.intake.FirstRadif() + *movement;
    detail.valueId = *combination;
    session.intake.AddDetail(good->second, detail, reader.Field(kComment), reader.Line());
  }
}

TableReader RemarksReader(ImportSession& session) { return {session.source, kDocumentsFile, RemarkTitles()}; }

void ReadRemarks(ImportSession& session, TableReader& reader) {
  if (!reader.Open(false)) return;
  while (reader.Next()) {
    const std::optional<std::int64_t> kind = ReadDocumentKind(reader.Field(kKind));
    if (!kind) reader.Refuse("نوع سند " + Quoted(reader.Field(kKind)) + " شناخته نیست");
    const std::optional<std::int64_t> number = ReadWhole(reader.Field(kNumber), 1, kLargestDocument);
    if (!number) reader.Refuse("شماره سند " + Quoted(reader.Field(kNumber)) + " عددی بزرگتر از صفر نیست");
    if (reader.Refused()) continue;
    session.intake.AddRemark(*kind, *number, reader.Field(kRemark), reader.Line());
  }
}

}  // namespace goods
