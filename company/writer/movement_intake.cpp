#include "company/writer/movement_intake.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "company/company.h"

namespace goods {

namespace {

constexpr int kKindShift = 56;
constexpr std::uint64_t kNumberMask = (std::uint64_t{1} << kKindShift) - 1;

struct PackedMovement {
  std::int64_t radif;
  std::int64_t good;
  std::int64_t person;
  std::int64_t document;
  std::int64_t row;
  std::int64_t quantity;
  std::uint64_t priceLow;
  std::int64_t priceHigh;
  std::int32_t store;
  std::int16_t type;
  bool priced;
  std::array<char, 10> date;
};

struct PackedDetail {
  std::int64_t valueId;
  std::int64_t amount;
  std::int64_t amount2;
  std::int64_t count;
  std::int64_t length;
  std::int64_t width;
  std::uint64_t tag;
};

struct PackedRemark {
  std::uint64_t tag;
};

bool IsDateText(std::string_view date) {
  if (date.size() != 10) return false;
  for (std::size_t i = 0; i < date.size(); ++i) {
    const bool slash = i == 4 || i == 7;
    if (slash ? date[i] != '/' : date[i] < '0' || date[i] > '9') return false;
  }
  return true;
}

std::uint64_t DateNumber(std::string_view date) {
  std::uint64_t number = 0;
  for (const char c : date) {
    if (c != '/') number = number * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return number;
}

std::int64_t QuantityUnits(Decimal value) {
  if (value.Abs() > Decimal(kLargestQuantity)) throw CompanyError("مقدار گردش از اندازه بزرگتر است.");
  return static_cast<std::int64_t>(value.Units());
}

template <typename Fixed>
void Pack(const Fixed& fixed, std::string_view text, std::string& bytes) {
  bytes.resize(sizeof(Fixed) + text.size());
  std::memcpy(bytes.data(), &fixed, sizeof(Fixed));
  if (!text.empty()) std::memcpy(bytes.data() + sizeof(Fixed), text.data(), text.size());
}

template <typename Fixed>
std::string_view Unpack(std::string_view bytes, Fixed& fixed) {
  std::memcpy(&fixed, bytes.data(), sizeof(Fixed));
  return bytes.substr(sizeof(Fixed));
}

}  // namespace

MovementKinds::MovementKinds(Database& db) {
  Statement rows =
      db.Prepare("SELECT Type, Kind, PriceIsCost FROM MovementTypes WHERE Type BETWEEN 0 AND 254");
  while (rows.Step()) {
    const std::size_t place = Place(rows.Integer(0));
    kind[place] = rows.Integer(1);
    priceIsCost[place] = rows.Integer(2) != 0;
  }
}

MovementIntake::MovementIntake(std::string path, const MovementKinds& kinds, std::int64_t lastRadif)
    : kinds_(kinds),
      firstRadif_(lastRadif),
      lastRadif_(lastRadif),
      movements_(path),
      details_(path),
      remarks_(std::move(path)) {}

RecordSorter::Key MovementIntake::DocumentKey(std::int64_t kind, std::int64_t number, std::uint64_t low) {
  return {static_cast<std::uint64_t>(kind) << kKindShift | (static_cast<std::uint64_t>(number) & kNumberMask),
          low};
}

std::int64_t MovementIntake::KindOf(const RecordSorter::Key& key) {
  return static_cast<std::int64_t>(key.high >> kKindShift);
}

std::int64_t MovementIntake::Add(const Movement& movement) {
  if (!IsDateText(movement.date)) throw CompanyError("تاریخ «" + std::string(movement.date) + "» درست نیست.");
  const std::int64_t radif = movement.order > 0 ? firstRadif_ + movement.order : lastRadif_ + 1;
  lastRadif_ = std::max(lastRadif_, radif);
  PackMovement(movement, radif, packed_);
  const std::int64_t kind = kinds_.kind[MovementKinds::Place(movement.type)];
  movements_.Add(DocumentKey(kind, movement.document, static_cast<std::uint64_t>(radif)), packed_);
  return radif;
}

void MovementIntake::AddDetail(std::int64_t good, const DetailMovement& detail, std::string_view comment,
                               std::size_t tag) {
  const PackedDetail fixed{detail.valueId,
                           QuantityUnits(detail.amount),
                           QuantityUnits(detail.amount2),
                           QuantityUnits(detail.count),
                           QuantityUnits(detail.length),
                           QuantityUnits(detail.width),
                           tag};
  Pack(fixed, comment, packed_);
  details_.Add({static_cast<std::uint64_t>(good), static_cast<std::uint64_t>(detail.radif)}, packed_);
}

void MovementIntake::AddRemark(std::int64_t kind, std::int64_t number, std::string_view remark,
                               std::size_t tag) {
  Pack(PackedRemark{tag}, remark, packed_);
  remarks_.Add(DocumentKey(kind, number, 0), packed_);
}

void PackMovement(const Movement& movement, std::int64_t radif, std::string& bytes) {
  PackedMovement fixed{};
  fixed.radif = radif;
  fixed.good = movement.good;
  fixed.person = movement.person;
  fixed.document = movement.document;
  fixed.row = movement.row;
  fixed.quantity = QuantityUnits(movement.quantity);
  fixed.priced = movement.price.has_value();
  const Int128 price = movement.price.value_or(Decimal()).Units();
  fixed.priceLow = static_cast<std::uint64_t>(price);
  fixed.priceHigh = static_cast<std::int64_t>(price >> 64);
  fixed.store = static_cast<std::int32_t>(movement.store);
  fixed.type = static_cast<std::int16_t>(movement.type);
  std::copy(movement.date.begin(), movement.date.end(), fixed.date.begin());
  Pack(fixed, movement.comment, bytes);
}

void UnpackMovement(std::string_view bytes, WaitingMovement& waiting) {
  PackedMovement fixed{};
  Movement& movement = waiting.movement;
  movement.comment = Unpack(bytes, fixed);
  waiting.radif = fixed.radif;
  waiting.date = fixed.date;
  movement.date = std::string_view(waiting.date.data(), waiting.date.size());
  movement.good = fixed.good;
  movement.store = fixed.store;
  movement.person = fixed.person;
  movement.type = fixed.type;
  movement.quantity = Decimal::FromUnits(fixed.quantity);
  movement.price.reset();
  if (fixed.priced) {
    movement.price = Decimal::FromUnits(static_cast<Int128>(fixed.priceHigh) << 64 | fixed.priceLow);
  }
  movement.document = fixed.document;
  movement.row = fixed.row;
}

WaitingDetail UnpackDetail(std::string_view bytes, std::int64_t radif) {
  PackedDetail fixed{};
  WaitingDetail waiting;
  waiting.comment = Unpack(bytes, fixed);
  waiting.tag = fixed.tag;
  DetailMovement& detail = waiting.detail;
  detail.radif = radif;
  detail.valueId = fixed.valueId;
  detail.amount = Decimal::FromUnits(fixed.amount);
  detail.amount2 = Decimal::FromUnits(fixed.amount2);
  detail.count = Decimal::FromUnits(fixed.count);
  detail.length = Decimal::FromUnits(fixed.length);
  detail.width = Decimal::FromUnits(fixed.width);
  return waiting;
}

RecordSorter::Key CardKey(const WaitingMovement& waiting) {
  return {static_cast<std::uint64_t>(waiting.movement.good) << 32 | DateNumber(waiting.movement.date),
          static_cast<std::uint64_t>(waiting.radif)};
}

}  // namespace goods
