#include "company/embedded/packed_movements.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "company/embedded/decimal_cell.h"
#include "host/core/text.h"

namespace goods {

static_assert(std::endian::native == std::endian::little, "packed cells are read as they stand");

namespace {

constexpr unsigned char kPackedFormat = 1;
constexpr std::size_t kPackedHeads = 6;
constexpr std::size_t kHeadBytes = 2 + sizeof(std::uint64_t);
constexpr std::size_t kHeaderBytes = 1 + 3 * sizeof(std::uint32_t) + kPackedHeads * kHeadBytes;
constexpr std::size_t kPadding = sizeof(std::uint64_t);
constexpr std::array<std::uint64_t, 10> kPowers = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
constexpr std::size_t kDateLength = 10;

template <typename Number>
void AppendNumber(std::string& to, Number number, std::size_t width = sizeof(Number)) {
  char bytes[sizeof number];
  std::memcpy(bytes, &number, sizeof number);
  to.append(bytes, width);
}

template <typename Number>
Number NumberAt(const unsigned char* bytes) {
  Number number = 0;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

// How the numbers of a column are written: the largest power of ten that all are multiples of, from the
// smallest on.
class ColumnWriter {
 public:
  explicit ColumnWriter(const std::vector<std::int64_t>& numbers) : numbers_(numbers) {
    if (numbers.empty()) return;
    for (const std::int64_t number : numbers) {
      while (power_ > 0 && number % static_cast<std::int64_t>(kPowers[power_]) != 0) --power_;
      if (power_ == 0) break;
    }
    const auto [least, most] = std::minmax_element(numbers.begin(), numbers.end());
    base_ = Scaled(*least);
    const std::uint64_t span = Scaled(*most) - base_;
    width_ = (static_cast<std::size_t>(std::bit_width(span)) + 7) / 8;
  }

  void AppendHead(std::string& to) const {
    to += static_cast<char>(width_);
    to += static_cast<char>(power_);
    AppendNumber(to, base_);
  }

  void AppendNumbers(std::string& to) const {
    for (const std::int64_t number : numbers_) AppendNumber(to, Scaled(number) - base_, width_);
  }

 private:
  std::uint64_t Scaled(std::int64_t number) const {
    return static_cast<std::uint64_t>(number / static_cast<std::int64_t>(kPowers[power_]));
  }

  const std::vector<std::int64_t>& numbers_;
  std::size_t power_ = kPowers.size() - 1;
  std::uint64_t base_ = 0;
  std::size_t width_ = 0;
};

std::size_t BytesOfBits(std::size_t rows) { return (rows + 7) / 8; }

void AppendBits(std::string& to, const std::vector<bool>& bits) {
  const std::size_t first = to.size();
  to.append(BytesOfBits(bits.size()), '\0');
  for (std::size_t i = 0; i < bits.size(); ++i) {
    if (bits[i])
      to[first + i / 8] = static_cast<char>(static_cast<unsigned char>(to[first + i / 8]) | 1u << i % 8);
  }
}

}  // namespace

std::optional<std::int64_t> PackedDate(std::string_view date) {
  if (date.size() != kDateLength || date[4] != '/' || date[7] != '/') return std::nullopt;
  std::int64_t number = 0;
  for (std::size_t i = 0; i < kDateLength; ++i) {
    if (i == 4 || i == 7) continue;
    if (!IsDigit(date[i])) return std::nullopt;
    number = number * 10 + (date[i] - '0');
  }
  return number;
}

std::string DateOfPacked(std::int64_t date) {
  std::string text = "0000/00/00";
  for (std::size_t i = kDateLength; i-- > 0;) {
    if (i == 4 || i == 7) continue;
    text[i] = static_cast<char>('0' + date % 10);
    date /= 10;
  }
  return text;
}

void MovementPacker::Add(std::string_view date, std::int64_t store, std::int64_t type, Decimal quantity,
                         Decimal cost, Decimal averageAfter) {
  if (!possible_) return;
  const std::optional<std::int64_t> day = PackedDate(date);
  if (!day || !FitsCell64(quantity.Units()) || !FitsCell64(cost.Units()) ||
      !FitsCell64(averageAfter.Units())) {
    return GiveUp();
  }
  if (rows_.dates.size() == kMostRows) EndCell();
  if (cells_.size() == static_cast<std::size_t>(kMostCells)) return GiveUp();
  rows_.dates.push_back(*day);
  rows_.stores.push_back(store);
  rows_.types.push_back(type);
  rows_.quantities.push_back(static_cast<std::int64_t>(quantity.Units()));
  const auto costUnits = static_cast<std::int64_t>(cost.Units());
  rows_.costDiffers.push_back(costUnits != average_);
  if (costUnits != average_) rows_.costs.push_back(costUnits);
  const auto after = static_cast<std::int64_t>(averageAfter.Units());
  rows_.averageMoves.push_back(after != average_);
  if (after != average_) rows_.averages.push_back(after);
  average_ = after;
}

void MovementPacker::EndCell() {
  if (!rows_.dates.empty()) cells_.push_back(CellOf(rows_));
  rows_ = Rows();
  average_ = 0;
}

void MovementPacker::GiveUp() {
  *this = MovementPacker();
  possible_ = false;
}

std::vector<std::string> MovementPacker::TakeCells() {
  EndCell();
  return std::exchange(cells_, {});
}

std::string MovementPacker::CellOf(const Rows& rows) {
  const ColumnWriter writers[] = {ColumnWriter(rows.dates),    ColumnWriter(rows.stores),
                                  ColumnWriter(rows.types),    ColumnWriter(rows.quantities),
                                  ColumnWriter(rows.averages), ColumnWriter(rows.costs)};
  std::string cell;
  cell += static_cast<char>(kPackedFormat);
  for (const std::size_t count : {rows.dates.size(), rows.averages.size(), rows.costs.size()}) {
    AppendNumber(cell, static_cast<std::uint32_t>(count));
  }
  for (const ColumnWriter& writer : writers) writer.AppendHead(cell);
  for (std::size_t i = 0; i < 4; ++i) writers[i].AppendNumbers(cell);
  AppendBits(cell, rows.averageMoves);
  writers[4].AppendNumbers(cell);
  AppendBits(cell, rows.costDiffers);
  writers[5].AppendNumbers(cell);
  cell.append(kPadding, '\0');
  return cell;
}

bool PackedMovements::Open(const void* bytes, std::size_t size) {
  static_assert(kColumns == kPackedHeads);
  const auto* cell = static_cast<const unsigned char*>(bytes);
  if (size < kHeaderBytes + kPadding || cell[0] != kPackedFormat) return false;
  rows_ = NumberAt<std::uint32_t>(cell + 1);
  const std::size_t averages = NumberAt<std::uint32_t>(cell + 5);
  const std::size_t costs = NumberAt<std::uint32_t>(cell + 9);
  if (rows_ == 0 || rows_ > MovementPacker::kMostRows || averages > rows_ || costs > rows_) return false;
  const unsigned char* head = cell + 1 + 3 * sizeof(std::uint32_t);
  for (PackedColumn& column : columns_) {
    if (head[0] > 8 || head[1] >= kPowers.size()) return false;
    column.width = head[0];
    column.mask = column.width == 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << 8 * column.width) - 1;
    column.power = kPowers[head[1]];
    column.base = NumberAt<std::uint64_t>(head + 2);
    head += kHeadBytes;
  }
  const unsigned char* next = head;
  const auto place = [&](ColumnIndex index, std::size_t count) {
    columns_[index].bytes = next;
    next += columns_[index].width * count;
  };
  // At most 65,536 rows of 48 bytes and two bits: no sum of these can overflow.
  const std::size_t bits = BytesOfBits(rows_);
  std::size_t needed = kHeaderBytes + 2 * bits + kPadding;
  for (std::size_t i = 0; i < kColumns; ++i) {
    needed += columns_[i].width * (i == kAverages ? averages : i == kCosts ? costs : rows_);
  }
  if (needed != size) return false;
  for (const ColumnIndex index : {kDates, kStores, kTypes, kQuantities}) place(index, rows_);
  averageMoves_ = next;
  next += bits;
  place(kAverages, averages);
  costDiffers_ = next;
  next += bits;
  place(kCosts, costs);
  return BitsBefore(averageMoves_, rows_) == averages && BitsBefore(costDiffers_, rows_) == costs;
}

std::size_t PackedMovements::BitsBefore(const unsigned char* bits, std::size_t row) {
  std::size_t count = 0;
  std::size_t i = 0;
  for (; i + 64 <= row; i += 64) {
    count += static_cast<std::size_t>(std::popcount(NumberAt<std::uint64_t>(bits + i / 8)));
  }
  for (; i < row; ++i) count += Bit(bits, i) ? 1 : 0;
  return count;
}

std::size_t PackedMovements::LowerBound(std::int64_t date) const {
  std::size_t first = 0;
  std::size_t count = rows_;
  while (count > 0) {
    const std::size_t half = count / 2;
    if (DateAt(first + half) < date) {
      first += half + 1;
      count -= half + 1;
    } else {
      count = half;
    }
  }
  return first;
}

std::int64_t PackedMovements::AverageAfter(std::size_t row) const {
  const std::size_t moves = BitsBefore(averageMoves_, row + 1);
  return moves == 0 ? 0 : columns_[kAverages].At(moves - 1);
}

std::optional<std::int64_t> PlaceOfPacked(std::int64_t good) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / MovementPacker::kMostCells - 1;
  if (good < -kMost || good > kMost) return std::nullopt;
  return good * MovementPacker::kMostCells;
}

PackedGoods::PackedGoods(sqlite3* db)
    : cells_(db, "SELECT Data FROM PackedMovements WHERE Place BETWEEN ?1 AND ?2 ORDER BY Place") {}

bool PackedGoods::Select(std::int64_t good) {
  const std::optional<std::int64_t> place = PlaceOfPacked(good);
  if (!place) return false;
  cells_.Reset();
  cells_.Bind(1, *place);
  cells_.Bind(2, *place + MovementPacker::kMostCells - 1);
  return Next();
}

bool PackedGoods::Next() {
  if (!cells_.Step()) return false;
  const void* bytes = sqlite3_column_blob(cells_.Handle(), 0);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(cells_.Handle(), 0));
  if (bytes == nullptr || !cell_.Open(bytes, size))
    throw SqliteError(SQLITE_CORRUPT, "گردش های فشرده یک کالا خوانا نیست");
  return true;
}

PackedWriter::PackedWriter(Database& db)
    : clear_(db.Prepare("DELETE FROM PackedMovements WHERE Place BETWEEN ?1 AND ?2")),
      insert_(db.Prepare("INSERT INTO PackedMovements(Place, Data) VALUES(?1, ?2)")) {}

void PackedWriter::Write(std::int64_t good, MovementPacker& packer) {
  std::optional<std::int64_t> place = PlaceOfPacked(good);
  if (!place) return;
  clear_.Bind(1, *place);
  clear_.Bind(2, *place + MovementPacker::kMostCells - 1);
  clear_.Run();
  for (const std::string& cell : packer.TakeCells()) {
    insert_.Bind(1, (*place)++);
    insert_.BindBytes(2, cell);
    insert_.Run();
  }
}

void PackEveryGood(Database& db) {
  db.Run("DELETE FROM PackedMovements");
  PackedWriter writer(db);
  Statement rows = db.Prepare(
      "SELECT Kala, Date, Anbar, Type, Tedad, Gheymat, Miangin FROM Kardex ORDER BY Kala, Date, Radif");
  MovementPacker packer;
  std::optional<std::int64_t> good;
  while (rows.Step()) {
    if (good != rows.Integer(0)) {
      if (good) writer.Write(*good, packer);
      packer = MovementPacker();
      good = rows.Integer(0);
    }
    packer.Add(rows.Text(1), rows.Integer(2), rows.Integer(3), rows.Number(4), rows.Number(5),
               rows.Number(6));
  }
  if (good) writer.Write(*good, packer);
}

}  // namespace goods
