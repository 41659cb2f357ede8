// StatusLine: below a report, what its rows are, and what the selected ones come to.
#pragma once

#include <QDateTime>
#include <QWidget>
#include <vector>

#include "desktop/views/selection_figures.h"
#include "host/core/signal.h"

class QHBoxLayout;
class QKeyEvent;
class QTableWidget;
class QToolButton;

namespace goods {

class FormView;
class TBaseDock_FRM;
class TextLabel;

// Rows shown and read, the time of the reading; with two selected rows or more their number and the sum of
// each column of figures. Ctrl+T opens a table with count, sum, average, smallest and largest of each. Reads
// the window's grid, and changes nothing.
class StatusLine : public QWidget {
 public:
  StatusLine(FormView& form, TBaseDock_FRM& window);

  // Brings it up to date; cheap when nothing has changed.
  void Follow();
  // A button for each of the form's window commands.
  void AddCommands();
  // Ctrl+T; true when it was that.
  bool HandleKey(const QKeyEvent& event);
  void ShowFigures(bool shown);
  bool FiguresShown() const;

 private:
  // The grid that would be printed, or the first that is seen; null without one.
  TSmartDBGrid_QRT* ShownGrid() const;
  void FollowCommands();
  void TellRows(const TSmartDBGrid_QRT& grid);
  void TellSelection();
  void FillTable();
  QString SumsText() const;
  QString AllFiguresText() const;

  FormView& form_;
  TBaseDock_FRM& window_;
  TextLabel* rows_;
  TextLabel* read_;
  TextLabel* selection_;
  QToolButton* toggle_;
  QHBoxLayout* line_;
  std::vector<QToolButton*> commands_;  // in the order of the form's window commands
  QTableWidget* table_;
  SelectionFigures figures_;
  const TSmartDBGrid_QRT* grid_ = nullptr;
  Subscription changed_;
  bool dirty_ = true;
};

}  // namespace goods
