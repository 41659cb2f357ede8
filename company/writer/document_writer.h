// The headers of documents, and the numbers of their rows.
#pragma once

#include <functional>

#include "company/embedded/sqlite.h"
#include "company/writer/movement_intake.h"
#include "company/writer/work_progress.h"

namespace goods {

// Goes through what the intake holds document by document: writes a header for each and hands over its rows,
// numbered, in the order of their Radif. A header has date, person, store and remark of the document's first
// row; a transfer's takes the store that the goods left from its outgoing rows, and where they went from its
// incoming ones. An opening stock has no header. A remark of its own stands in place of the row's.
void WriteDocuments(Database& db, MovementIntake& intake, WorkMeter& meter,
                    const std::function<void(const WaitingMovement&)>& row,
                    const std::function<void(const Unattached&)>& unattached);

}  // namespace goods
