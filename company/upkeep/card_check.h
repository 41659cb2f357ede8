// The stock cards and the stored figures against a recomputation.
#pragma once

#include <functional>
#include <string>

#include "company/embedded/sqlite.h"
#include "company/writer/work_progress.h"

namespace goods {

// tell hears each difference. The database is only read; what is worked out lies in temporary tables.
void CheckCards(Database& db, const WorkWatcher& watcher,
                const std::function<void(const std::string&)>& tell);

}  // namespace goods
