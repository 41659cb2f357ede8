// Expectations about what a grid shows. Rows are numbered from 1.
#include <functional>

#include "host/core/text.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"
#include "tests/scripted/engine/table_text.h"

namespace goods {
namespace {

constexpr std::string_view kField = "field:";

using GridCheck =
    std::function<void(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&)>;

void AddGridCheck(StepTable& table, const std::string& pattern, std::size_t count, GridCheck check) {
  table.Add(pattern + " [in {grid}]", [count, check = std::move(check)](CaseRun& run, const Step& step,
                                                                        const Arguments& given) {
    check(run, FindGrid(run.WindowToLookAt(step.place), given.TextOrNone(count), step.place), step, given);
  });
}

// What a heading asks of each row: a visible column's shown text, or the value of any field.
using CellReader = std::function<std::string(std::size_t position)>;

CellReader ReaderOf(const TSmartDBGrid_QRT& grid, const TADOQuery& query, const std::string& heading,
                    const Place& place) {
  if (!heading.starts_with(kField)) {
    const TGridColumn& column = FindColumn(grid, heading, false, place);
    return [&grid, &column](std::size_t position) { return grid.CellText(position, column); };
  }
  const auto field = query.FindField(heading.substr(kField.size()));
  if (!field && query.Active()) throw CaseError(place.Text() + ": the query has no field " + heading);
  return [&query, at = field.value_or(0)](std::size_t position) { return query.Cell(position, at).AsText(); };
}

void ExpectRows(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
  const Table table = ReadTable(step.block, step.place);
  const TADOQuery& query = QueryOf(grid, step.place);
  std::vector<CellReader> readers;
  for (const std::string& heading : table.heading) {
    readers.push_back(ReaderOf(grid, query, heading, step.place));
  }
  std::vector<std::vector<std::string>> got;
  for (std::size_t position = 0; position < query.RecordCount(); ++position) {
    std::vector<std::string>& row = got.emplace_back();
    for (const CellReader& read : readers) row.push_back(read(position));
  }
  run.CompareTable(step.place, "other rows", table, got);
}

std::string AlignName(TextAlign align) {
  return align == TextAlign::Start ? "start" : align == TextAlign::End ? "end" : "center";
}

std::string FooterName(FooterKind kind) {
  return kind == FooterKind::None ? "" : kind == FooterKind::Sum ? "sum" : "count";
}

std::string ColumnPart(const TGridColumn& column, const std::string& part, const Place& place) {
  if (part == "Caption") return column.Caption();
  if (part == "Field") return column.FieldName();
  if (part == "Format") return column.DisplayFormatText();
  if (part == "Footer") return FooterName(column.Footer());
  if (part == "Align") return AlignName(column.Align());
  if (part == "Width") return std::to_string(column.Width());
  if (part == "Visible") return column.Visible() ? "yes" : "no";
  if (part == "Tag") return std::to_string(column.Tag);
  if (part == "Customizable") return column.Customizable() ? "yes" : "no";
  throw CaseError(place.Text() + ": a column has no " + part +
                  "; it has Caption Field Format Footer Align Width Visible Tag Customizable");
}

// Compares those of the grid's columns that are asked for, in display order.
void ExpectColumns(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const std::string& which,
                   bool (*isAsked)(const TGridColumn& column)) {
  const Table table = ReadTable(step.block, step.place);
  std::vector<std::vector<std::string>> got;
  for (const auto& column : grid.Columns()) {
    if (!isAsked(*column)) continue;
    std::vector<std::string>& row = got.emplace_back();
    for (const std::string& part : table.heading) row.push_back(ColumnPart(*column, part, step.place));
  }
  run.CompareTable(step.place, "other " + which + " columns", table, got);
}

// One part of one column, also of a hidden one.
void ExpectColumn(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
  const TGridColumn& column = FindColumn(grid, given.Text(0), true, step.place);
  run.Compare(step.place, given.Text(0) + ": " + given.Text(1) + " is another", {InQuotes(given.Text(2))},
              {InQuotes(ColumnPart(column, given.Text(1), step.place))});
}

void ExpectFooters(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
  const Table table = ReadTable(step.block, step.place);
  std::vector<std::string> got;
  for (const std::string& heading : table.heading) {
    got.push_back(grid.FooterText(FindColumn(grid, heading, false, step.place)));
  }
  run.CompareTable(step.place, "other footers", table, {got});
}

std::string StyleText(const TCellStyle& style, const std::string& aspect) {
  if (aspect == "brushes") return ColorText(style.Brush);
  if (aspect == "fonts") return ColorText(style.Font);
  if (aspect == "bold") return style.Bold ? "bold" : "";
  const bool none = style.InsetTop == 0 && style.InsetBottom == 0;
  return none ? "" : std::to_string(style.InsetTop) + " " + std::to_string(style.InsetBottom);
}

void ExpectStyles(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const std::string& aspect) {
  const Table table = ReadTable(step.block, step.place);
  std::vector<std::vector<std::string>> got;
  for (std::size_t position = 0; position < QueryOf(grid, step.place).RecordCount(); ++position) {
    std::vector<std::string>& row = got.emplace_back();
    for (const std::string& heading : table.heading) {
      row.push_back(
          StyleText(grid.CellStyle(position, FindColumn(grid, heading, false, step.place)), aspect));
    }
  }
  run.CompareTable(step.place, "other " + aspect, table, got);
}

void CompareNumber(CaseRun& run, const Step& step, const std::string& what, std::int64_t expected,
                   std::size_t got) {
  run.Compare(step.place, what, {std::to_string(expected)}, {std::to_string(got)});
}

void ExpectCurrentRow(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
  const auto current = QueryOf(grid, step.place).RecNo();
  if (!current) {
    run.Fail(step.place, "no row is current");
  } else {
    CompareNumber(run, step, "another row is current", given.Number(0), *current + 1);
  }
}

void ExpectSelection(CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
  std::string got;
  for (const std::size_t position : grid.Selection()) {
    got += (got.empty() ? "" : " ") + std::to_string(position + 1);
  }
  run.Compare(step.place, "other rows are selected", {given.Text(0)}, {got});
}

void AddQueryChecks(StepTable& table) {
  AddGridCheck(table, "expect row count {n}", 1,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                 CompareNumber(run, step, "another number of rows", given.Number(0),
                               QueryOf(grid, step.place).RecordCount());
               });
  AddGridCheck(table, "expect current row {n}", 1, ExpectCurrentRow);
  AddGridCheck(table, "expect no current row", 0,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
                 const auto current = QueryOf(grid, step.place).RecNo();
                 if (current) run.Fail(step.place, "row " + std::to_string(*current + 1) + " is current");
               });
  AddGridCheck(table, "expect filter {text}", 1,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                 run.Compare(step.place, "another filter", {InQuotes(given.Text(0))},
                             {InQuotes(QueryOf(grid, step.place).Filter())});
               });
  AddGridCheck(table, "expect sort {text}", 1,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                 run.Compare(step.place, "another sort", {InQuotes(given.Text(0))},
                             {InQuotes(QueryOf(grid, step.place).Sort())});
               });
  AddGridCheck(table, "expect data set {state}", 1,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                 if (given.Text(0) != "open" && given.Text(0) != "closed") {
                   throw CaseError(step.place.Text() + ": a data set is open or closed");
                 }
                 const bool open = QueryOf(grid, step.place).Active();
                 run.Compare(step.place, "the data set", {given.Text(0)}, {open ? "open" : "closed"});
               });
}

}  // namespace

void AddGridExpectations(StepTable& table) {
  AddGridCheck(table, "expect columns", 0,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
                 ExpectColumns(run, grid, step, "visible",
                               [](const TGridColumn& column) { return column.Visible(); });
               });
  AddGridCheck(table, "expect customizable columns", 0,
               [](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
                 ExpectColumns(run, grid, step, "customizable",
                               [](const TGridColumn& column) { return column.Customizable(); });
               });
  AddGridCheck(table, "expect column {text} {part} {text}", 3, ExpectColumn);
  AddGridCheck(table, "expect rows", 0, ExpectRows);
  AddGridCheck(table, "expect footers", 0, ExpectFooters);
  AddGridCheck(table, "expect selection {text}", 1, ExpectSelection);
  for (const char* aspect : {"brushes", "fonts", "bold", "insets"}) {
    AddGridCheck(table, "expect " + std::string(aspect), 0,
                 [aspect](CaseRun& run, const TSmartDBGrid_QRT& grid, const Step& step, const Arguments&) {
                   ExpectStyles(run, grid, step, aspect);
                 });
  }
  AddQueryChecks(table);
}

}  // namespace goods
