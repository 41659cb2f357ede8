// Count, sum, average, smallest and largest of the selected rows, of each column of figures.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/components/grid.h"

namespace goods {

// Of one column; null cells do not count. The sums are exact.
struct ColumnFigures {
  const TGridColumn* column = nullptr;
  std::size_t field = 0;
  std::size_t count = 0;
  Decimal sum;
  Decimal least;
  Decimal most;
  bool tooLarge = false;  // the sum has more digits than a figure may have

  void Add(Decimal value);
  // The average, rounded as the column shows its cells; nothing without a cell.
  std::optional<Decimal> Average() const;
};

// Works in slices between the events of the window, so that a million rows hold nobody up.
class SelectionFigures : public QObject {
 public:
  explicit SelectionFigures(QObject* parent);

  std::function<void()> OnDone;
  // Begins anew with what is selected now; with fewer than two rows there are no figures.
  void Begin(const TSmartDBGrid_QRT& grid);
  void Clear();
  bool Working() const { return timer_.isActive(); }
  std::size_t RowCount() const { return rows_.size(); }
  // Those of the visible columns of figures; complete when it is not working any more.
  const std::vector<ColumnFigures>& Columns() const { return columns_; }

 private:
  void Slice();

  QTimer timer_;
  const TADOQuery* query_ = nullptr;
  std::vector<std::size_t> rows_;
  std::size_t next_ = 0;
  std::vector<ColumnFigures> columns_;
};

}  // namespace goods
