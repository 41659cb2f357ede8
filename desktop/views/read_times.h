// When rows were read, and how long that took.
#pragma once

#include <QDateTime>
#include <QtGlobal>
#include <optional>

namespace goods {

class RowStore;

struct ReadTime {
  QDateTime ended;
  qint64 milliseconds = 0;
};

// The rows of that store have just been read. The last reading into a store counts; a store that is gone is
// forgotten when its place in memory is read into again.
void KeepReadTime(const RowStore& rows, qint64 milliseconds);
// Nothing for rows that no connection of this host read.
std::optional<ReadTime> ReadTimeOf(const RowStore& rows);

}  // namespace goods
