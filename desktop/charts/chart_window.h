// ChartWindow: the charts of a report's table.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "desktop/charts/chart_files.h"
#include "desktop/charts/report_charts.h"
#include "host/core/signal.h"

class QComboBox;
class QPrinter;

namespace goods {

class ChartView;
class FormView;
class IMessages;

// What the window needs of the host beside the table.
struct ChartServices {
  std::string title;                    // of the report
  std::vector<std::string> lines;       // the criteria of its rows
  std::string today;                    // Jalali text, for the names of files
  std::vector<std::string> forbidden;   // files that nothing is written over
  IMessages* messages = nullptr;        // hears of files that cannot be written; outlives the window
  std::function<bool()> mayTakeAway{};  // asked before saving and printing; true where it is empty
};

// The mark stands at the report's current row. A click goes to the row of a point; Enter and a double click
// do so and close the window. Other rows in the report are drawn anew, and a row that becomes current there
// is marked. Ctrl+C copies a picture, Ctrl+S saves one, F9 prints; Ctrl+Tab goes to the next chart. The
// picture is of what is seen, on paper's colours.
class ChartWindow : public QDialog {
 public:
  // form shows the grid, and ends the window with it; offers has at least one chart.
  ChartWindow(FormView& form, TSmartDBGrid_QRT& grid, std::vector<ChartOffer> offers, ChartServices services);
  ~ChartWindow() override;

  void Choose(int chart);
  void Copy();
  // Tells the user and gives false where the file cannot be written; the ending decides on the format.
  bool SaveTo(const QString& path);
  void PrintOn(QPrinter& printer);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();
  void Read();
  void FollowRow();
  std::optional<std::size_t> PointOfCurrentRow() const;
  // The same view of the same chart, without a mark.
  std::unique_ptr<ChartScene> OnPaper() const;
  bool MayTakeAway() const;
  void GoTo(std::size_t point);
  void Open();
  void Save();
  void Print();
  bool TakeKey(const QKeyEvent& event);

  FormView& form_;
  TSmartDBGrid_QRT& grid_;
  std::vector<ChartOffer> offers_;
  ChartServices services_;
  Chart chart_;
  QComboBox* charts_;
  ChartView* view_;
  Subscription rows_;
  Subscription row_;
  bool readPosted_ = false;
};

}  // namespace goods
