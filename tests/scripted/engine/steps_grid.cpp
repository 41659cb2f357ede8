// Steps on the rows and columns of a grid. Rows are numbered from 1.
#include <functional>
#include <set>
#include <utility>

#include "host/core/text.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

using GridAction = std::function<void(TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given)>;

// Adds a step on a grid; the grid's name, where it is given, is the argument behind count others.
void AddGridStep(StepTable& table, const std::string& pattern, std::size_t count, GridAction action) {
  table.Add(pattern + " [in {grid}]",
            [count, action = std::move(action)](CaseRun& run, const Step& step, const Arguments& given) {
              TSmartDBGrid_QRT& grid = FindGrid(run.Window(step.place), given.TextOrNone(count), step.place);
              CheckReachable(grid, step.place);
              run.UserAction([&] { action(grid, step, given); });
            });
}

void GoTo(TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
  grid.MoveTo(RowPosition(QueryOf(grid, step.place), given.Number(0), step.place));
}

}  // namespace

void AddGridSteps(StepTable& table) {
  AddGridStep(table, "go to row {n}", 1, GoTo);
  AddGridStep(table, "double-click row {n}", 1,
              [](TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                GoTo(grid, step, given);
                grid.DoubleClick();
              });
  AddGridStep(table, "double-click", 0,
              [](TSmartDBGrid_QRT& grid, const Step&, const Arguments&) { grid.DoubleClick(); });
  AddGridStep(table, "sort by {text}", 1,
              [](TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                grid.TitleClick(FindColumn(grid, given.Text(0), false, step.place));
              });
  AddGridStep(table, "sort also by {text}", 1,
              [](TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                grid.TitleClick(FindColumn(grid, given.Text(0), false, step.place), true);
              });
  AddGridStep(table, "select rows {text}", 1,
              [](TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                std::set<std::size_t> positions;
                for (const std::string& number : Split(given.Text(0), ' ')) {
                  positions.insert(
                      RowPosition(QueryOf(grid, step.place), ParseInteger(number).value_or(0), step.place));
                }
                grid.SetSelection(std::move(positions));
              });
  for (const bool visible : {false, true}) {
    AddGridStep(table, visible ? "show column {text}" : "hide column {text}", 1,
                [visible](TSmartDBGrid_QRT& grid, const Step& step, const Arguments& given) {
                  TGridColumn& column = FindColumn(grid, given.Text(0), true, step.place);
                  if (!column.Customizable()) {
                    throw CaseError(step.place.Text() + ": the column chooser does not offer " +
                                    InQuotes(column.Caption()));
                  }
                  column.SetVisible(visible);
                });
  }
}

}  // namespace goods
