// How a connection hands the first rows of a running statement to a listener that wants them.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>

#include "host/data/row_store.h"

namespace goods {

class IStatementProgress;

// For a connection that reads on the calling thread: before it asks progress. rows is what it fills.
void TellFirstRows(IStatementProgress& progress, const RowStore& rows);

// For a connection that reads on a thread of its own. The first rows are laid ready without being asked for,
// so that they are there though the driver blocks from then on. The reading thread pays for a look at one
// number.
class FirstRowsRelay {
 public:
  // On the reading thread, whenever rows have been added.
  void Offer(const RowStore& rows);
  // On the calling thread, before it asks progress. rows: read so far.
  void Pass(IStatementProgress& progress, std::size_t rows);

 private:
  static constexpr std::size_t kUnasked = 128;
  std::atomic<std::size_t> wanted_{kUnasked};
  std::mutex mutex_;
  std::optional<RowStore> ready_;
};

}  // namespace goods
