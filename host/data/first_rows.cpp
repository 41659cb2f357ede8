#include "host/data/first_rows.h"

#include <utility>

#include "host/data/connection.h"

namespace goods {

void TellFirstRows(IStatementProgress& progress, const RowStore& rows) {
  if (rows.Count() == 0) return;
  const std::size_t wanted = progress.FirstRowsWanted(rows.Count());
  if (wanted > 0) progress.FirstRows(rows.Head(wanted));
}

void FirstRowsRelay::Offer(const RowStore& rows) {
  const std::size_t wanted = wanted_.load(std::memory_order_relaxed);
  if (wanted == 0 || rows.Count() == 0) return;
  wanted_.store(0, std::memory_order_relaxed);
  RowStore head = rows.Head(wanted);
  const std::lock_guard lock(mutex_);
  ready_ = std::move(head);
}

void FirstRowsRelay::Pass(IStatementProgress& progress, std::size_t rows) {
  const std::size_t wanted = progress.FirstRowsWanted(rows);
  if (wanted == 0) return;
  std::optional<RowStore> head;
  {
    const std::lock_guard lock(mutex_);
    head = std::exchange(ready_, std::nullopt);
  }
  if (head) {
    progress.FirstRows(std::move(*head));
  } else {
    wanted_.store(wanted, std::memory_order_relaxed);
  }
}

}  // namespace goods
