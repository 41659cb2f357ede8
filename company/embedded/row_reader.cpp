#include "company/embedded/row_reader.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/keyed_entries.h"
#include "host/data/first_rows.h"

namespace goods {

namespace {

constexpr int kInstructionsBetweenChecks = 5000;
constexpr std::chrono::milliseconds kLongestSilence{40};

[[noreturn]] void BadCell(const ColumnInfo& column) {
  throw SqliteError(SQLITE_MISMATCH, "خانه ای از ستون " + column.name + " عددی بیرون از اندازه دارد");
}

void AppendCell(sqlite3_stmt* statement, int index, const ColumnInfo& info, Column& column) {
  // Asked once for the cell: the functions of columns look for it anew each time.
  sqlite3_value* cell = sqlite3_column_value(statement, index);
  const int stored = sqlite3_value_type(cell);
  if (stored == SQLITE_NULL) {
    column.AppendNull();
    return;
  }
  switch (info.type) {
    case ColumnType::Integer:
      if (stored != SQLITE_INTEGER) BadCell(info);
      column.AppendInteger(sqlite3_value_int64(cell));
      return;
    case ColumnType::Decimal:
      if (stored == SQLITE_INTEGER) {
        column.AppendDecimal(Decimal::FromUnits(sqlite3_value_int64(cell)));
      } else if (stored == SQLITE_BLOB && sqlite3_value_bytes(cell) == 16) {
        column.AppendDecimal(Decimal::FromUnits(FromWideCell(sqlite3_value_blob(cell))));
      } else {
        BadCell(info);
      }
      return;
    case ColumnType::Text: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(cell));
      column.AppendText({text, static_cast<std::size_t>(sqlite3_value_bytes(cell))});
      return;
    }
  }
}

// What a statement finds for keys, each asked for once.
class NamesOfKeys {
 public:
  NamesOfKeys(sqlite3* db, const std::string& statement) : statement_(db, statement) {}

  // Null where nothing is found; valid until the next key that is new.
  const std::string* Of(std::int64_t key) {
    if (last_ == nullptr || last_->first != key) {
      const auto known = names_.find(key);
      last_ = &*(known != names_.end() ? known : names_.emplace(key, Find(key)).first);
    }
    return last_->second ? &*last_->second : nullptr;
  }

 private:
  using Name = std::optional<std::string>;
  Name Find(std::int64_t key) {
    statement_.Reset();
    statement_.Bind(1, key);
    if (!statement_.Step() || statement_.IsNull(0)) return std::nullopt;
    return std::string(statement_.Text(0));
  }

  Statement statement_;
  std::unordered_map<std::int64_t, Name> names_;
  const std::pair<const std::int64_t, Name>* last_ = nullptr;
};

// The derived cells of a row, asked for from left to right.
class Deriver {
 public:
  Deriver(sqlite3_stmt* statement, std::span<const DerivedColumn> columns)
      : statement_(statement), columns_(columns), values_(columns.size()), within_(columns.size()) {
    names_.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (IsNamed(i)) names_[i].emplace(sqlite3_db_handle(statement), columns[i].names);
    }
  }

  bool Derives(std::size_t column) const {
    return column < columns_.size() && columns_[column].kind != Derivation::None;
  }
  bool IsNamed(std::size_t column) const { return columns_[column].kind == Derivation::Named; }

  void AppendName(std::size_t column, Column& to) {
    sqlite3_value* key = sqlite3_column_value(statement_, static_cast<int>(column));
    const std::string* name =
        sqlite3_value_type(key) == SQLITE_NULL ? nullptr : names_[column]->Of(sqlite3_value_int64(key));
    if (name == nullptr) return to.AppendNull();
    to.AppendText(*name);
  }

  Decimal Next(std::size_t column) {
    const DerivedColumn& derived = columns_[column];
    Decimal& value = values_[column];
    if (derived.kind == Derivation::Product) {
      value = Source(derived.first) * Source(derived.second);
    } else if (derived.kind == Derivation::RunningWithin) {
      const auto key = sqlite3_column_int64(statement_, static_cast<int>(derived.first));
      value = within_[column].Of(key) += Cell(column);
    } else {
      value += Cell(column);
    }
    return value;
  }

 private:
  Decimal Cell(std::size_t column) const {
    return Decimal::FromUnits(ColumnUnits(statement_, static_cast<int>(column)));
  }
  Decimal Source(std::size_t column) const { return Derives(column) ? values_[column] : Cell(column); }

  sqlite3_stmt* statement_;
  std::span<const DerivedColumn> columns_;
  std::vector<Decimal> values_;
  std::vector<KeyedSums> within_;
  std::vector<std::optional<NamesOfKeys>> names_;
};

}  // namespace

ProgressWatch::ProgressWatch(sqlite3* db, IStatementProgress* progress, std::uint64_t mostInstructions)
    : db_(db), progress_(progress), mostInstructions_(mostInstructions) {
  if (progress_ != nullptr || mostInstructions_ != 0)
    sqlite3_progress_handler(db_, kInstructionsBetweenChecks, Called, this);
}

ProgressWatch::~ProgressWatch() { sqlite3_progress_handler(db_, 0, nullptr, nullptr); }

int ProgressWatch::Called(void* self) {
  auto& watch = *static_cast<ProgressWatch*>(self);
  watch.instructions_ += kInstructionsBetweenChecks;
  if (watch.mostInstructions_ != 0 && watch.instructions_ > watch.mostInstructions_) return 1;
  if (watch.progress_ == nullptr) return 0;
  const auto now = std::chrono::steady_clock::now();
  if (now - watch.told_ < kLongestSilence) return 0;
  try {
    watch.told_ = now;
    watch.cancelled_ = !watch.Ask();
  } catch (...) {
    watch.thrown_ = std::current_exception();
  }
  return watch.cancelled_ || watch.thrown_ != nullptr ? 1 : 0;
}

bool ProgressWatch::Ask() {
  if (filled_ != nullptr) TellFirstRows(*progress_, *filled_);
  return progress_->Progress(rows_);
}

void ProgressWatch::TellNow() {
  told_ = std::chrono::steady_clock::now();
  if (!Ask()) throw Cancelled();
}

void ProgressWatch::Rethrow() const {
  if (thrown_ != nullptr) std::rethrow_exception(thrown_);
  if (cancelled_) throw Cancelled();
}

void ReadRows(Statement& statement, std::span<const DerivedColumn> derived, RowStore& into,
              ProgressWatch& watch) {
  struct Target {
    const ColumnInfo* info;
    Column* column;
  };
  std::vector<Target> targets;
  for (std::size_t i = 0; i < into.Columns().size(); ++i) {
    targets.push_back({&into.Columns()[i], &into.ColumnAt(i)});
  }
  sqlite3_stmt* handle = statement.Handle();
  Deriver deriver(handle, derived);
  while (statement.Step()) {
    for (std::size_t i = 0; i < targets.size(); ++i) {
      if (deriver.Derives(i) && deriver.IsNamed(i)) {
        deriver.AppendName(i, *targets[i].column);
      } else if (deriver.Derives(i)) {
        targets[i].column->AppendDecimal(deriver.Next(i));
      } else {
        AppendCell(handle, static_cast<int>(i), *targets[i].info, *targets[i].column);
      }
    }
    into.EndRow();
    watch.Row();
  }
}

}  // namespace goods
