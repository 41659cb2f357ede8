#include "desktop/views/read_times.h"

#include <QHash>

namespace goods {
namespace {

QHash<const RowStore*, ReadTime>& ReadTimes() {
  static QHash<const RowStore*, ReadTime> times;
  return times;
}

}  // namespace

void KeepReadTime(const RowStore& rows, qint64 milliseconds) {
  ReadTimes().insert(&rows, {QDateTime::currentDateTime(), milliseconds});
}

std::optional<ReadTime> ReadTimeOf(const RowStore& rows) {
  const auto found = ReadTimes().constFind(&rows);
  return found == ReadTimes().constEnd() ? std::nullopt : std::optional(*found);
}

}  // namespace goods
