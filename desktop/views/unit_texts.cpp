#include "desktop/views/unit_texts.h"

#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

struct UnitTotalling {
  std::string unit;
  Decimal sum;
  bool tooLarge = false;

  void Add(Decimal value) {
    if (tooLarge) return;
    try {
      sum += value;
    } catch (const std::overflow_error&) {
      tooLarge = true;
    }
  }
};

std::optional<std::size_t> UnitFieldOf(const TADOQuery& query, const TGridColumn& column) {
  if (column.Name().ends_with('2')) return query.FindField("UnitName2");
  const auto first = query.FindField("UnitName1");
  return first ? first : query.FindField("UnitName");
}

// Kept in one piece inside right-to-left text, its minus behind it.
QString UnitFigure(const UnitSum& sum, const TGridColumn& column) {
  constexpr char16_t kIsolate = 0x2066;
  constexpr char16_t kEndOfIsolate = 0x2069;
  const QString figure =
      sum.sum.IsNull() ? QString(kUnitTooLarge) : ShownCell(column.FooterFormat().Format(sum.sum), true);
  return ShownText(sum.unit) + ": " + QChar(kIsolate) + figure + QChar(kEndOfIsolate);
}

}  // namespace

std::vector<UnitSum> UnitSums(const TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  const TADOQuery* query = grid.DataSet();
  if (column.Footer() != FooterKind::Sum || column.DisplayFormatText() != kQuantityFormat ||
      query == nullptr || column.Withheld()) {
    return {};
  }
  const auto figures = query->FindField(column.FieldName());
  const auto units = UnitFieldOf(*query, column);
  if (!figures || !units) return {};
  std::vector<UnitTotalling> totals;
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t row = 0; row < query->RecordCount(); ++row) {
    const auto [place, added] = places.try_emplace(query->Cell(row, *units).AsText(), totals.size());
    if (added) totals.push_back({place->first.empty() ? kNoUnit : place->first, {}, false});
    const Value figure = query->Cell(row, *figures);
    if (!figure.IsNull()) totals[place->second].Add(figure.AsDecimal());
  }
  if (totals.size() < 2) return {};
  std::vector<UnitSum> sums;
  for (UnitTotalling& total : totals)
    sums.push_back({std::move(total.unit), total.tooLarge ? Value() : Value(total.sum)});
  return sums;
}

QString UnitLines(const TSmartDBGrid_QRT& grid, const TGridColumn& column) {
  QStringList lines;
  for (const UnitSum& each : UnitSums(grid, column)) lines << UnitFigure(each, column);
  if (lines.size() > kMostUnits) {
    const qsizetype more = lines.size() - kMostUnits;
    lines = lines.mid(0, kMostUnits);
    lines << "و " + ShownDigits(QString::number(more)) + " واحد دیگر";
  }
  return lines.join('\n');
}

QStringList UnitTotalLines(const TSmartDBGrid_QRT& grid) {
  QStringList lines;
  for (const TGridColumn* column : grid.VisibleColumns()) {
    QStringList parts;
    for (const UnitSum& each : UnitSums(grid, *column)) parts << UnitFigure(each, *column);
    if (parts.isEmpty()) continue;
    const QString title = ToQt(PlainCaption(column->Caption())).replace('|', " / ");
    lines << "جمع " + ShownText(title.trimmed()) + " به واحد - " + parts.join("، ");
  }
  return lines;
}

}  // namespace goods
