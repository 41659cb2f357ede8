// Work that is done good by good, divided over the cores of the machine.
//
// A procedure whose file has the line "-- divided by" (procedures.h) reads of a good nothing that depends on
// the others, and gives its rows in the order of the goods' codes. The goods are cut into ranges of equal
// number; threads take one range after another, each through a handle of its own, and the calling thread,
// which works too, puts their rows together in the order of the ranges: the answer does not depend on how
// many threads there are. The calling thread keeps a lock while they read, so that all of them see one
// committed state of the file. It alone asks for progress, and what it throws is what a single thread would
// have thrown.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "host/data/row_store.h"

namespace goods {

// The goods whose codes lie between two ends, both included.
struct GoodRange {
  std::int64_t first = std::numeric_limits<std::int64_t>::min();
  std::int64_t last = std::numeric_limits<std::int64_t>::max();
};

// A company with fewer goods than fewestGoods is divided only if its file is as large as largeFile: a few
// goods with many movements. Each range costs a fraction of a millisecond, which a small company would
// notice.
struct Division {
  static constexpr unsigned kMostThreads = 8;

  unsigned threads = 0;  // the calling one counts; 0: one for each core, up to kMostThreads
  std::size_t fewestGoods = 2'000;
  std::int64_t largeFile = 32'000'000;    // bytes
  std::chrono::milliseconds patience{4};  // for so long the calling thread works alone
};

class DividedReading {
 public:
  // Reads those goods: defines the store if it is new, and writes the rows behind those that it holds, not
  // finishing it; watch hears of each row.
  using RangeReader = std::function<void(const GoodRange& goods, RowStore& into, ProgressWatch& watch)>;
  // Makes what reads through a handle, on the thread that uses it: a statement is prepared once for all its
  // ranges. Called by several threads at once.
  using Work = std::function<RangeReader(Database& db)>;

  // own: the calling thread's handle on the company at path. It must outlive this.
  DividedReading(Database& own, std::string path, Division division);

  // Into a new store, finished. watch is the own handle's. Throws what work throws, and Cancelled.
  void Read(const Work& work, RowStore& into, ProgressWatch& watch);

 private:
  // Ranges for the goods of the state that is being read; one, of all goods, where dividing does not pay.
  const std::vector<GoodRange>& Ranges();
  // Handles on the same file for the other threads; fewer where they cannot be had.
  void OpenHandles();

  Database& own_;
  std::string path_;
  unsigned threads_;
  Division division_;
  std::vector<Database> handles_;
  bool opened_ = false;
  std::vector<GoodRange> ranges_;
  std::uint32_t rangesState_ = 0;
};

}  // namespace goods
