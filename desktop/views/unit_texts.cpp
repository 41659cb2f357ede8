#include "desktop/views/unit_texts.h"

#include <QStringList>

#include "desktop/views/shown_text.h"
#include "host/components/grid_groups.h"

namespace goods {
namespace {

// Kept in one piece inside right-to-left text, its minus behind it.
QString UnitFigure(const UnitSum& sum) {
  constexpr char16_t kIsolate = 0x2066;
  constexpr char16_t kEndOfIsolate = 0x2069;
  return ShownText(sum.unit) + ": " + QChar(kIsolate) + ShownCell(sum.text, true) + QChar(kEndOfIsolate);
}

}  // namespace

QString UnitLines(const TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  QStringList lines;
  for (const UnitSum& each : grid.Groups().AllUnits().Sums(column)) lines << UnitFigure(each);
  if (lines.size() > kMostUnits) {
    const qsizetype more = lines.size() - kMostUnits;
    lines = lines.mid(0, kMostUnits);
    lines << "و " + ShownDigits(QString::number(more)) + " واحد دیگر";
  }
  return lines.join('\n');
}

}  // namespace goods
