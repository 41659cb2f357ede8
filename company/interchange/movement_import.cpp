#include "company/interchange/movement_import.h"

#include <algorithm>

#include "company/interchange/import_fields.h"

namespace goods {

namespace {

enum Column : std::size_t {
  kDate,
  kGood,
  kStore,
  kPerson,
  kType,
  kQuantity,
  kIncoming,
  kOutgoing,
  kDirection,
  kPrice,
  kDocument,
  kDocumentRow,
  kComment,
  kOrder,
  kSignedQuantity
};

}  // namespace

const std::vector<ColumnTitle>& MovementTitles() {
  static const std::vector<ColumnTitle> kTitles = {
      {"date|تاریخ|تاریخ سند", true},
      {"good|good code|کالا|کد کالا", true},
      {"store|store code|انبار|کد انبار", true},
      {"person|person code|شخص|کد شخص|طرف حساب|کد طرف حساب"},
      {"movement type|type|نوع گردش|نوع|نوع سند|شرح عملیات|عملیات", true},
      {"quantity|مقدار|تعداد"},
      {"incoming|وارده|ورودی|مقدار وارده|تعداد وارده"},
      {"outgoing|صادره|خروجی|مقدار صادره|تعداد صادره"},
      {"direction|جهت|ورود خروج"},
      {"unit price|price|قیمت|فی|قیمت واحد|مبلغ واحد|نرخ"},
      {"document number|document|شماره سند|شماره|سند"},
      {"document row|ردیف سند"},
      {"comment|شرح|توضیحات|ملاحظات"},
      {"order|ترتیب"},
      {"signed quantity|مقدار با علامت"}};
  return kTitles;
}

MovementImport::MovementImport(ImportSession& session, const MovementKinds& kinds, BatchHash& hash)
    : session_(session),
      kinds_(kinds),
      hash_(hash),
      reader_(session.source, kMovementsFile, MovementTitles()) {
  Statement types = session_.db.Prepare("SELECT Type, Sign FROM MovementTypes");
  while (types.Step()) sign_[MovementKinds::Place(types.Integer(0))] = static_cast<int>(types.Integer(1));
}

void MovementImport::Run() {
  if (!reader_.Open(!session_.adding)) return;
  if (!reader_.Has(kQuantity) && !reader_.Has(kSignedQuantity) && !reader_.Has(kIncoming) &&
      !reader_.Has(kOutgoing)) {
    reader_.RefuseLine(reader_.Line(), "ستون quantity در سرستون نیست");
    return;
  }
  if (session_.adding && !reader_.Has(kDocument)) {
    Statement numbers = session_.db.Prepare("SELECT Kind, max(Code) FROM Documents GROUP BY Kind");
    while (numbers.Step()) {
      const std::int64_t kind = numbers.Integer(0);
      if (kind > 0 && kind < 16) numbering_[static_cast<std::size_t>(kind)].number = numbers.Integer(1);
    }
  }
  while (reader_.Next()) ReadRow();
  CheckOrders();
  CheckSigns();
}

void MovementImport::ReadRow() {
  Movement movement;
  ReadDate(movement);
  movement.good = Reference(kGood, Entity::Good);
  movement.store = Reference(kStore, Entity::Store);
  if (!reader_.Field(kPerson).empty() && reader_.Field(kPerson) != "0") {
    movement.person = Reference(kPerson, Entity::Person);
  }
  ReadType(movement);
  ReadQuantity(movement);
  ReadPrice(movement);
  movement.comment = reader_.Field(kComment);
  ReadDocument(movement);
  ReadOrder(movement);
  if (reader_.Refused() || session_.source.problems.Total() > 0) return;
  hash_.Add(movement, !reader_.Has(kDocument));
  if (!known_.empty()) return;
  session_.intake.Add(movement);
  ++session_.movements;
}

void MovementImport::ReadDate(Movement& movement) {
  const std::string_view text = reader_.Field(kDate);
  if (text != dateText_ || dateText_.empty()) {
    dateText_ = text;
    date_ = goods::ReadDate(text, reader_.IsSheet());
  }
  if (date_) {
    movement.date = *date_;
  } else {
    reader_.Refuse("تاریخ " + Quoted(text) + " درست نیست");
  }
}

std::int64_t MovementImport::Reference(std::size_t column, Entity entity) {
  const std::string_view text = reader_.Field(column);
  std::optional<std::int64_t> code = session_.Book(entity).Find(text);
  if ((!code || *code == 0) && entity != Entity::Good && session_.Made(entity) && !session_.adding &&
      !text.empty()) {
    code = MakeEntity(session_, entity, text);
  }
  if (!code || *code == 0) {
    reader_.Refuse(std::string(EntityName(entity)) + " " + Quoted(text) + " تعریف نشده است");
    return 0;
  }
  return *code;
}

void MovementImport::ReadType(Movement& movement) {
  const std::string text(reader_.Field(kType));
  const auto [place, added] = types_.try_emplace(text);
  if (added) {
    const std::optional<std::string> ours = session_.source.names.MovementType(text);
    place->second = ReadMovementType(ours ? *ours : text);
  }
  if (!place->second) {
    reader_.Refuse("نوع گردش " + Quoted(text) + " شناخته نیست");
    return;
  }
  movement.type = *place->second;
}

// None when the field is no number; that is told.
std::optional<Decimal> MovementImport::Amount(std::size_t column) {
  const std::string_view text = reader_.Field(column);
  const std::optional<Decimal> amount = ReadNumber(text.empty() ? "0" : text, kLargestQuantity);
  if (!amount) {
    reader_.Refuse("مقدار " + Quoted(text) + " عددی تا 4600000000 با حداکثر 9 رقم اعشار نیست");
  }
  return amount;
}

std::optional<Decimal> MovementImport::SignedAmount(int type) {
  if (reader_.Has(kSignedQuantity)) return Amount(kSignedQuantity);
  if (!reader_.Has(kQuantity)) {
    const std::optional<Decimal> in = Amount(kIncoming);
    const std::optional<Decimal> out = Amount(kOutgoing);
    if (!in || !out) return std::nullopt;
    if (!in->IsZero() && !out->IsZero()) {
      reader_.Refuse("یک سطر هم وارده دارد و هم صادره");
      return std::nullopt;
    }
    anyOutgoing_ = true;
    return *in - *out;
  }
  const std::optional<Decimal> amount = Amount(kQuantity);
  if (!amount) return std::nullopt;
  int sign = 0;
  if (reader_.Has(kDirection)) {
    const std::optional<int> direction = ReadDirection(reader_.Field(kDirection));
    if (!direction) reader_.Refuse("جهت " + Quoted(reader_.Field(kDirection)) + " ورود یا خروج نیست");
    sign = direction.value_or(1);
  } else if (session_.unsignedQuantities) {
    sign = sign_[MovementKinds::Place(type)];
  }
  if (sign == 0) {
    anyOutgoing_ = anyOutgoing_ || amount->IsNegative();
    const bool takesOut = sign_[MovementKinds::Place(type)] < 0;
    incomingOfOutType_ = incomingOfOutType_ || (takesOut && *amount > Decimal());
    return amount;
  }
  anyOutgoing_ = true;
  if (amount->IsNegative()) {
    reader_.Refuse("مقدار " + Quoted(reader_.Field(kQuantity)) + " علامت دارد، با آنکه جهت جدا آمده است");
  }
  return sign < 0 ? -*amount : *amount;
}

void MovementImport::ReadQuantity(Movement& movement) {
  const std::optional<Decimal> quantity = SignedAmount(movement.type);
  if (!quantity) return;
  if (quantity->IsZero()) {
    reader_.Refuse("مقدار صفر است");
    return;
  }
  movement.quantity = *quantity;
  if (session_.ratios.empty()) return;
  const auto ratio = session_.ratios.find(movement.good);
  if (ratio != session_.ratios.end() && !SecondQuantity(*quantity, ratio->second)) {
    reader_.Refuse("مقدار در واحد دوم از اندازه بزرگتر است");
  }
}

void MovementImport::ReadPrice(Movement& movement) {
  const std::string_view text = reader_.Field(kPrice);
  if (text.empty()) return;
  movement.price = ReadNumber(text, kLargestPrice);
  if (!movement.price || movement.price->IsNegative()) {
    reader_.Refuse("قیمت " + Quoted(text) + " عددی از 0 تا 1000000000000000 با حداکثر 9 رقم اعشار نیست");
  }
}

// An opening stock belongs to the good's own record, whatever number the file gives.
void MovementImport::ReadDocument(Movement& movement) {
  if (const std::string_view row = reader_.Field(kDocumentRow); !row.empty()) {
    const std::optional<std::int64_t> number = ReadWhole(row, 0, kLargestCode);
    if (!number) reader_.Refuse("ردیف سند " + Quoted(row) + " عدد نیست");
    movement.row = number.value_or(0);
  }
  if (movement.type == kOpeningType) {
    movement.document = movement.good;
    return;
  }
  const std::int64_t kind = kinds_.kind[MovementKinds::Place(movement.type)];
  if (!reader_.Has(kDocument)) {
    NumberDocument(movement, kind);
    return;
  }
  const std::string_view text = reader_.Field(kDocument);
  const std::optional<std::int64_t> number = ReadWhole(text, 1, kLargestDocument);
  if (!number) {
    reader_.Refuse("شماره سند " + Quoted(text) + " عددی بزرگتر از صفر نیست");
    return;
  }
  movement.document = *number;
  if (session_.hasDocument && session_.hasDocument(kind, *number)) {
    known_.emplace_back(reader_.Line(), *number);
  }
}

void MovementImport::RefuseKnownDocuments() const {
  for (const auto& [line, number] : known_) {
    reader_.RefuseLine(line, "سند " + std::to_string(number) + " از این نوع از پیش در شرکت هست");
  }
}

void MovementImport::NumberDocument(Movement& movement, std::int64_t kind) {
  Numbering& numbering = numbering_[static_cast<std::size_t>(kind) % numbering_.size()];
  constexpr std::int64_t kTransfer = 7;
  const std::int64_t store = kind == kTransfer ? 0 : movement.store;
  if (numbering.date != movement.date || numbering.person != movement.person || numbering.store != store) {
    numbering = {numbering.number + 1, std::string(movement.date), movement.person, store};
  }
  movement.document = numbering.number;
}

void MovementImport::ReadOrder(Movement& movement) {
  if (!reader_.Has(kOrder)) return;
  const std::optional<std::int64_t> order = ReadWhole(reader_.Field(kOrder), 1, kLargestDocument);
  if (!order) {
    reader_.Refuse("ترتیب " + Quoted(reader_.Field(kOrder)) + " عددی بزرگتر از صفر نیست");
    return;
  }
  movement.order = *order;
  rising_ = rising_ && (orders_.empty() || *order > orders_.back());
  orders_.push_back(*order);
}

void MovementImport::CheckOrders() {
  if (rising_) return;
  std::sort(orders_.begin(), orders_.end());
  const auto repeated = std::adjacent_find(orders_.begin(), orders_.end());
  if (repeated != orders_.end()) {
    reader_.RefuseLine(0, "ترتیب " + std::to_string(*repeated) + " بیش از یک بار آمده است");
  }
}

// A file in which nothing ever goes out has quantities without a sign.
void MovementImport::CheckSigns() {
  if (anyOutgoing_ || !incomingOfOutType_ || reader_.Has(kSignedQuantity)) return;
  reader_.RefuseLine(
      0,
      "هیچ مقداری منفی نیست، با آنکه گردش های خروج هم هست؛ اگر مقدارها بی علامت اند --unsigned بدهید"
      " یا ستون direction را، و اگر درست اند ستون را signed quantity بنامید");
}

}  // namespace goods
