#include "host/data/row_store.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "host/core/text.h"
#include "host/data/chunk_packing.h"
#include "host/data/column_chunk.h"
#include "host/data/text_pool.h"
#include "host/data/wide_integer.h"

namespace goods {
namespace {

constexpr std::size_t kFirstRoom = 64;

constexpr std::size_t WordsFor(std::size_t cells) { return (cells + 63) / 64; }

// A buffer of the given capacity that begins with what the old one held.
template <typename Cell>
std::unique_ptr<Cell[]> Resized(const std::unique_ptr<Cell[]>& old, std::size_t used, std::size_t capacity) {
  auto resized = std::make_unique_for_overwrite<Cell[]>(capacity);
  std::copy_n(old.get(), used, resized.get());
  return resized;
}

// Ids that follow each other need not be kept.
void DropSequentialIds(ColumnChunk& chunk) {
  chunk.firstId = chunk.ids[0];
  for (std::size_t i = 1; i < chunk.size; ++i) {
    if (chunk.ids[i] != chunk.firstId + i) return;
  }
  chunk.ids.reset();
}

}  // namespace

// The chunk being written is open; its decimals lie in staged until they are packed.
struct Column::Impl {
  ColumnType type = ColumnType::Text;
  std::vector<ColumnChunk> chunks;
  ColumnChunk open;
  std::unique_ptr<Int128[]> staged;
  std::size_t room = 0;     // cells that the open chunk's buffer holds
  std::size_t idsUsed = 0;  // of a text column
  bool finished = false;
  TextPool texts;

  void Seal(std::size_t used);
};

void Column::Impl::Seal(std::size_t used) {
  open.size = used;
  const bool partial = used < room;
  if (type == ColumnType::Decimal) PackDecimals(staged.get(), used, open);
  if (type == ColumnType::Integer && partial) open.narrow = Resized(open.narrow, used, used);
  if (type == ColumnType::Text) {
    DropSequentialIds(open);
    if (open.ids != nullptr && partial) open.ids = Resized(open.ids, used, used);
    idsUsed = 0;
  }
  if (open.nulls != nullptr && used < kChunkCells) {
    open.nulls = Resized(open.nulls, WordsFor(used), WordsFor(used));
  }
  chunks.push_back(std::exchange(open, ColumnChunk()));
}

Column::Column(ColumnType type) : impl_(std::make_unique<Impl>()) { impl_->type = type; }
Column::Column(Column&&) noexcept = default;
Column& Column::operator=(Column&&) noexcept = default;
Column::~Column() = default;

ColumnType Column::Type() const { return impl_->type; }
const std::vector<ColumnChunk>& Column::Chunks() const { return impl_->chunks; }

std::size_t Column::OpenCells() const {
  switch (impl_->type) {
    case ColumnType::Integer:
      return static_cast<std::size_t>(nextInteger_ - impl_->open.narrow.get());
    case ColumnType::Decimal:
      return static_cast<std::size_t>(nextDecimal_ - impl_->staged.get());
    case ColumnType::Text:
      break;
  }
  return impl_->idsUsed;
}

std::size_t Column::Cells() const {
  std::size_t cells = impl_->finished ? 0 : OpenCells();
  for (const ColumnChunk& chunk : impl_->chunks) cells += chunk.size;
  return cells;
}

void Column::MakeRoom(ColumnType type) {
  Impl& impl = *impl_;
  if (impl.type != type) throw std::logic_error("a cell of another kind than its column's");
  if (impl.finished) throw std::logic_error("a cell for a finished row store");
  std::size_t used = OpenCells();
  if (used == kChunkCells) {
    impl.Seal(used);
    used = 0;
  }
  impl.room = impl.chunks.empty() ? std::clamp(used * 4, kFirstRoom, kChunkCells) : kChunkCells;
  switch (type) {
    case ColumnType::Integer:
      impl.open.narrow = Resized(impl.open.narrow, used, impl.room);
      nextInteger_ = impl.open.narrow.get() + used;
      endInteger_ = impl.open.narrow.get() + impl.room;
      break;
    case ColumnType::Decimal:
      if (used > 0 || impl.chunks.empty()) impl.staged = Resized(impl.staged, used, impl.room);
      nextDecimal_ = impl.staged.get() + used;
      endDecimal_ = impl.staged.get() + impl.room;
      break;
    case ColumnType::Text:
      impl.open.ids = Resized(impl.open.ids, used, impl.room);
      break;
  }
}

void Column::AppendText(std::string_view text) {
  if (impl_->finished || impl_->type != ColumnType::Text) MakeRoom(ColumnType::Text);  // throws
  AppendTextId(impl_->texts.Add(text));
}

void Column::AppendTextId(std::uint32_t id) {
  Impl& impl = *impl_;
  if (impl.idsUsed == impl.room || impl.open.ids == nullptr) MakeRoom(ColumnType::Text);
  impl.open.ids[impl.idsUsed] = id;
  ++impl.idsUsed;
}

void Column::AppendNull() {
  switch (impl_->type) {
    case ColumnType::Integer:
      AppendInteger(0);
      break;
    case ColumnType::Decimal:
      AppendDecimal(Decimal());
      break;
    case ColumnType::Text:
      AppendText({});
      break;
  }
  if (impl_->open.nulls == nullptr) {
    impl_->open.nulls = std::make_unique<std::uint64_t[]>(WordsFor(kChunkCells));
  }
  const std::size_t cell = OpenCells() - 1;
  impl_->open.nulls[cell / 64] |= std::uint64_t{1} << (cell % 64);
}

void Column::Finish() {
  Impl& impl = *impl_;
  if (impl.finished) return;
  if (const std::size_t used = OpenCells(); used > 0) impl.Seal(used);
  impl.chunks.shrink_to_fit();
  impl.staged.reset();
  impl.texts.Finish();
  impl.open = ColumnChunk();
  impl.finished = true;
  nextInteger_ = endInteger_ = nullptr;
  nextDecimal_ = endDecimal_ = nullptr;
}

// What is still open has no chunk of its own yet, and its decimals are not packed.
void Column::AppendRowsOf(const Column& from, std::size_t rows) {
  const Impl& source = *from.impl_;
  // Where many rows come a text is looked for once: its id here, from 1, by its id there.
  const bool many = source.type == ColumnType::Text && rows >= source.texts.Count();
  std::vector<std::uint32_t> ids(many ? source.texts.Count() : 0);
  for (std::size_t row = 0; row < rows; ++row) {
    const bool sealed = (row >> kChunkShift) < source.chunks.size();
    const ColumnChunk& chunk = sealed ? source.chunks[row >> kChunkShift] : source.open;
    const std::size_t cell = row % kChunkCells;
    if (chunk.IsNull(cell)) {
      AppendNull();
      continue;
    }
    switch (source.type) {
      case ColumnType::Integer:
        AppendInteger(chunk.narrow[cell]);
        break;
      case ColumnType::Decimal:
        AppendDecimal(Decimal::FromUnits(sealed ? chunk.Units(cell) : source.staged[cell]));
        break;
      case ColumnType::Text:
        if (!many) {
          AppendText(source.texts.View(chunk.TextId(cell)));
        } else if (std::uint32_t& id = ids[chunk.TextId(cell)]; id == 0) {
          AppendText(source.texts.View(chunk.TextId(cell)));
          id = impl_->open.ids[impl_->idsUsed - 1] + 1;
        } else {
          impl_->texts.AddAgain();
          AppendTextId(id - 1);
        }
        break;
    }
  }
}

const ColumnChunk& Column::ChunkOf(std::size_t row) const {
  const std::size_t index = row >> kChunkShift;
  if (index >= impl_->chunks.size() || row % kChunkCells >= impl_->chunks[index].size) {
    throw std::out_of_range("row beyond its store");
  }
  return impl_->chunks[index];
}

bool Column::IsNull(std::size_t row) const { return ChunkOf(row).IsNull(row % kChunkCells); }

std::int64_t Column::Integer(std::size_t row) const {
  const ColumnChunk& chunk = ChunkOf(row);
  return impl_->type == ColumnType::Integer ? chunk.narrow[row % kChunkCells] : 0;
}

Decimal Column::Number(std::size_t row) const {
  const ColumnChunk& chunk = ChunkOf(row);
  if (impl_->type == ColumnType::Text) return Decimal();
  return Decimal::FromUnits(chunk.Units(row % kChunkCells));
}

std::string_view Column::Text(std::size_t row) const {
  const ColumnChunk& chunk = ChunkOf(row);
  if (impl_->type != ColumnType::Text) return {};
  return impl_->texts.View(chunk.TextId(row % kChunkCells));
}

Value Column::Cell(std::size_t row) const {
  const ColumnChunk& chunk = ChunkOf(row);
  const std::size_t cell = row % kChunkCells;
  if (chunk.IsNull(cell)) return {};
  switch (impl_->type) {
    case ColumnType::Integer:
      return chunk.narrow[cell];
    case ColumnType::Decimal:
      return Decimal::FromUnits(chunk.Units(cell));
    case ColumnType::Text:
      break;
  }
  return impl_->texts.View(chunk.TextId(cell));
}

std::uint32_t Column::TextId(std::size_t row) const { return ChunkOf(row).TextId(row % kChunkCells); }
std::size_t Column::DistinctTexts() const { return impl_->texts.Count(); }
std::string_view Column::TextOfId(std::uint32_t id) const { return impl_->texts.View(id); }

std::size_t Column::MemoryBytes() const {
  const Impl& impl = *impl_;
  std::size_t bytes = sizeof(Impl) + impl.texts.MemoryBytes() + impl.chunks.capacity() * sizeof(ColumnChunk);
  const auto add = [&bytes](const ColumnChunk& chunk, std::size_t cells, std::size_t nullCells) {
    if (chunk.narrow != nullptr) bytes += cells * sizeof(std::int64_t);
    if (chunk.wide) bytes += cells * chunk.wide.BytesPerCell();
    if (chunk.ids != nullptr) bytes += cells * sizeof(std::uint32_t);
    if (chunk.nulls != nullptr) bytes += WordsFor(nullCells) * sizeof(std::uint64_t);
  };
  for (const ColumnChunk& chunk : impl.chunks) add(chunk, chunk.size, chunk.size);
  add(impl.open, impl.room, kChunkCells);
  if (impl.staged != nullptr) bytes += impl.room * sizeof(Int128);
  return bytes;
}

RowStore::RowStore() = default;
RowStore::RowStore(RowStore&&) noexcept = default;
RowStore& RowStore::operator=(RowStore&&) noexcept = default;
RowStore::~RowStore() = default;

void RowStore::Define(std::vector<ColumnInfo> columns) {
  infos_ = std::move(columns);
  columns_.clear();
  columns_.reserve(infos_.size());
  for (const ColumnInfo& info : infos_) columns_.emplace_back(info.type);
  count_ = 0;
}

void RowStore::Finish() {
  if (count_ > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("too many rows");
  for (Column& column : columns_) {
    column.Finish();
    if (column.Cells() != count_) throw std::logic_error("a column without one cell for each row");
  }
}

void RowStore::Append(const RowStore& rows) {
  if (rows.columns_.size() != columns_.size()) throw std::logic_error("rows of other columns");
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].AppendRowsOf(rows.columns_[i], rows.count_);
  count_ += rows.count_;
}

RowStore RowStore::Head(std::size_t rows) const {
  RowStore head;
  head.Define(infos_);
  head.count_ = std::min(rows, count_);
  for (std::size_t i = 0; i < columns_.size(); ++i) head.columns_[i].AppendRowsOf(columns_[i], head.count_);
  head.Finish();
  return head;
}

std::optional<std::size_t> RowStore::FindColumn(std::string_view name) const {
  for (std::size_t i = 0; i < infos_.size(); ++i) {
    if (SameText(infos_[i].name, name)) return i;
  }
  return std::nullopt;
}

Value RowStore::Cell(std::size_t row, std::size_t column) const { return columns_.at(column).Cell(row); }

std::size_t RowStore::MemoryBytes() const {
  std::size_t bytes = infos_.capacity() * sizeof(ColumnInfo) + columns_.capacity() * sizeof(Column);
  for (const Column& column : columns_) bytes += column.MemoryBytes();
  return bytes;
}

}  // namespace goods
