#include "desktop/views/selection_figures.h"

#include <QElapsedTimer>
#include <algorithm>
#include <exception>

namespace goods {
namespace {

constexpr int kSliceMs = 15;
constexpr std::size_t kRowsBetweenLooks = 256;

}  // namespace

void ColumnFigures::Add(Decimal value) {
  least = count == 0 ? value : std::min(least, value);
  most = count == 0 ? value : std::max(most, value);
  ++count;
  if (tooLarge) return;
  try {
    sum += value;
  } catch (const std::exception&) {
    tooLarge = true;
  }
}

std::optional<Decimal> ColumnFigures::Average() const {
  if (count == 0 || tooLarge) return std::nullopt;
  return sum / Decimal(static_cast<std::int64_t>(count));
}

SelectionFigures::SelectionFigures(QObject* parent) : QObject(parent), timer_(this) {
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, [this] { Slice(); });
}

void SelectionFigures::Clear() {
  timer_.stop();
  rows_.clear();
  columns_.clear();
  next_ = 0;
}

void SelectionFigures::Begin(const TSmartDBGrid_QRT& grid) {
  Clear();
  query_ = grid.DataSet();
  constexpr std::size_t kFewest = 2;
  if (query_ == nullptr || grid.Selection().size() < kFewest) return;
  rows_.assign(grid.Selection().begin(), grid.Selection().end());
  const std::vector<ColumnInfo> fields = query_->Fields();
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const auto field = column->IsNumber() ? query_->FindField(column->FieldName()) : std::nullopt;
    if (!field || fields[*field].type == ColumnType::Text) continue;
    columns_.push_back({});
    columns_.back().column = column;
    columns_.back().field = *field;
  }
  timer_.start();
}

void SelectionFigures::Slice() {
  QElapsedTimer clock;
  clock.start();
  while (next_ < rows_.size() && clock.elapsed() < kSliceMs) {
    const std::size_t end = std::min(rows_.size(), next_ + kRowsBetweenLooks);
    for (; next_ < end; ++next_) {
      for (ColumnFigures& each : columns_) {
        const Value value = query_->Cell(rows_[next_], each.field);
        if (!value.IsNull()) each.Add(value.AsDecimal());
      }
    }
  }
  if (next_ < rows_.size()) return;
  timer_.stop();
  if (OnDone) OnDone();
}

}  // namespace goods
