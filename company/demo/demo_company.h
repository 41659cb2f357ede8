// The demo company: made up, but such as a trading company with some production would keep.
#pragma once

#include <cstdint>
#include <string>

#include "company/writer/work_progress.h"

namespace goods {

struct DemoOptions {
  std::int64_t goods = 300;         // 1 to 1,000,000
  std::int64_t stores = 6;          // 1 to 1,000
  std::int64_t movements = 40'000;  // 0 to 100,000,000
  std::uint64_t seed = 1;
  bool replace = false;  // an existing file
};

// One good has a third of all movements: this one, or the first when there are fewer goods.
inline constexpr std::int64_t kBusyGood = 12;

// Writes a demo company over the years 1400 to 1404. The same options give the same bytes. The last good has
// no movements (when there are two or more); every good whose code leaves 5 on division by 60 may go
// negative. watcher hears the movements made so far, and may stop the work. Users: admin (every right), anbar
// (a storekeeper, who sees no prices) and guest (may open nothing), each with the login as password. Throws
// CompanyError.
void MakeDemoCompany(const std::string& path, const DemoOptions& options, const WorkWatcher& watcher = {});

}  // namespace goods
