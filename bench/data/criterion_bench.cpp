// Changing the store and date range of a stock card: filter, kept sort and four sums, beside a sort-filter
// proxy of Qt over the same rows, with the same criterion, order and sums.
#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>
#include <array>
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>

#include "figures.h"
#include "host/data/query.h"
#include "stock_card_rows.h"

namespace goods::bench {
namespace {

constexpr std::size_t kStoreColumn = 3;
constexpr std::size_t kDateColumn = kIntegers + kNumbers;
constexpr std::array<std::size_t, 4> kSummed = {0, 1, 2, 3};  // of the number columns

struct Criterion {
  int store;
  const char* from;
  const char* to;
};

// Two narrow ones and one that lets every row through.
constexpr std::array<Criterion, 3> kCriteria = {
    {{3, "1401/01/01", "1402/06/31"}, {5, "1399/01/01", "1400/06/31"}, {0, "0000/00/00", "9999/99/99"}}};

class RowsModel : public QAbstractTableModel {
 public:
  RowsModel() {
    const StockCardRows& source = Source();
    for (std::size_t c = 0; c < kTexts; ++c) {
      for (const std::string_view text : source.texts[c]) {
        texts_[c].push_back(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
      }
    }
  }
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(kRows);
  }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(kIntegers + kNumbers + kTexts);
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (column < kIntegers) return QVariant::fromValue<qlonglong>(Source().integers[column][row]);
    if (column < kDateColumn) return static_cast<double>(Source().numbers[column - kIntegers][row]) / 1000;
    return texts_[column - kDateColumn][row];
  }

 private:
  std::vector<QString> texts_[kTexts];
};

class CriterionProxy : public QSortFilterProxyModel {
 public:
  void SetCriterion(const Criterion& criterion) {
    store_ = criterion.store;
    from_ = QString::fromUtf8(criterion.from);
    to_ = QString::fromUtf8(criterion.to);
    invalidateFilter();
  }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    const QAbstractItemModel& model = *sourceModel();
    if (store_ != 0 && model.index(row, kStoreColumn, parent).data().toLongLong() != store_) return false;
    const QString date = model.index(row, static_cast<int>(kDateColumn), parent).data().toString();
    return date >= from_ && date <= to_;
  }

 private:
  qlonglong store_ = 0;
  QString from_ = QStringLiteral("0000/00/00");
  QString to_ = QStringLiteral("9999/99/99");
};

std::string FilterText(const Criterion& criterion) {
  const std::string dates =
      "(Date >= '" + std::string(criterion.from) + "' AND Date <= '" + std::string(criterion.to) + "')";
  return criterion.store == 0 ? dates : "Anbar = " + std::to_string(criterion.store) + " AND " + dates;
}

struct Outcome {
  std::size_t rows = 0;
  double sum = 0;
};

Outcome Apply(TADOQuery& query, const Criterion& criterion) {
  query.SetFilter(FilterText(criterion));
  Decimal sum;
  for (const char* field : {"Varede", "Sadere", "Mab", "Amount"}) sum += query.Sum(field);
  return {query.RecordCount(), sum.ToDouble()};
}

Outcome Apply(CriterionProxy& proxy, const Criterion& criterion) {
  proxy.SetCriterion(criterion);
  const int rows = proxy.rowCount();
  double sum = 0;
  for (const std::size_t column : kSummed) {
    for (int row = 0; row < rows; ++row) {
      sum += proxy.index(row, static_cast<int>(kIntegers + column)).data().toDouble();
    }
  }
  return {static_cast<std::size_t>(rows), sum};
}

// Both sides go round from one criterion to the other; the answers must agree.
class Sides {
 public:
  Sides() : query_(nullptr, "Kardex_QRY", connection_) {
    query_.Open();
    query_.SetSort("Date DESC");
    proxy_.setSourceModel(&model_);
    proxy_.sort(static_cast<int>(kDateColumn), Qt::DescendingOrder);
  }
  TADOQuery& Query() { return query_; }
  CriterionProxy& Proxy() { return proxy_; }
  bool Agree(const Criterion& criterion) {
    const Outcome ours = Apply(query_, criterion);
    const Outcome theirs = Apply(proxy_, criterion);
    return ours.rows == theirs.rows && ours.rows > 0 &&
           std::abs(ours.sum - theirs.sum) <= std::abs(ours.sum) * 1e-9;
  }

 private:
  GeneratedConnection connection_;
  TADOQuery query_;
  RowsModel model_;
  CriterionProxy proxy_;
};

Sides& Both() {
  static Sides sides;
  return sides;
}

template <typename Side>
void ChangeCriterion(benchmark::State& state, Side& side, std::size_t first, std::size_t second) {
  for (const std::size_t index : {second, first}) {
    if (!Both().Agree(kCriteria[index])) state.SkipWithError("the two sides disagree");
  }
  bool toSecond = true;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Apply(side, kCriteria[toSecond ? second : first]).sum);
    toSecond = !toSecond;
  }
}

void QueryNarrowToNarrow(benchmark::State& state) { ChangeCriterion(state, Both().Query(), 0, 1); }
void ProxyNarrowToNarrow(benchmark::State& state) { ChangeCriterion(state, Both().Proxy(), 0, 1); }
void QueryAllToNarrowAndBack(benchmark::State& state) { ChangeCriterion(state, Both().Query(), 2, 0); }
void ProxyAllToNarrowAndBack(benchmark::State& state) { ChangeCriterion(state, Both().Proxy(), 2, 0); }
BENCHMARK(QueryNarrowToNarrow)->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(ProxyNarrowToNarrow)->Unit(benchmark::kMillisecond)->Iterations(4);
BENCHMARK(QueryAllToNarrowAndBack)->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(ProxyAllToNarrowAndBack)->Unit(benchmark::kMillisecond)->Iterations(4);

void Report() {
  Tell({"a criterion on 1,000,000 rows, from one narrow filter to another",
        ProcessorTime("QueryNarrowToNarrow"), "`QSortFilterProxyModel` over the same rows",
        ProcessorTime("ProxyNarrowToNarrow"), 0.05});
  Tell({"from all rows to a narrow filter and back", ProcessorTime("QueryAllToNarrowAndBack"),
        "the same model", ProcessorTime("ProxyAllToNarrowAndBack"), 0.05});
}

}  // namespace
}  // namespace goods::bench

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, goods::bench::Report); }
