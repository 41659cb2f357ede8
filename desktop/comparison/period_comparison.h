// TPeriodComparison_FRM: the rows of a report beside those of another period, with difference and per cent.
#pragma once

#include <string>
#include <vector>

#include "desktop/comparison/compared_rows.h"
#include "host/base/base_dock.h"
#include "host/base/period_report.h"

namespace goods {

struct ComparedPeriods {
  ReportPeriod own;
  ReportPeriod other;
};

// What of a report's grid is compared: its visible columns of figures, by the columns that say what a row is
// about.
Comparison ComparisonOf(const TSmartDBGrid_QRT& grid, std::string_view key);

// A table of the host's own: for each figure four columns under its title, headed with the two periods,
// "difference" and "per cent"; with the sums of all but the per cents below. It begins filtered, sorted and
// grouped as the report's table is; its own columns, widths and order come back the next time. Printed and
// exported under the report's right, money is withheld as in the report. F2 and a double click do what they
// do on the same row of the report, which stays as it is behind. Esc ends the comparison.
class TPeriodComparison_FRM : public TBaseDock_FRM {
 public:
  // report and grid, which is the report's, must outlive the window.
  TPeriodComparison_FRM(TBaseDock_FRM& report, TSmartDBGrid_QRT& grid, ComparedPeriods periods,
                        const Comparison& comparison, RowStore rows);
  ~TPeriodComparison_FRM() override;

  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void PrintDBGridEhBeforePrint(std::vector<std::string>& lines) override;
  void btnShow_BTNClick();

  TLabel Periods_LBL{this, "Periods_LBL"};
  TSmartDBGrid_QRT Comparison_GRD{this, "Comparison_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton btnShow_BTN{this, "btnShow_BTN", "نمایش گردش F2"};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton Exit_BTN{this, "Exit_BTN", "پایان مقایسه Esc"};

 private:
  void DeclareColumns(const Comparison& comparison);
  void DeclareFigure(const TGridColumn& figure);
  void TakeOverView();
  std::string PeriodsLine() const;
  std::string LayoutName() const;

  TBaseDock_FRM& report_;
  TSmartDBGrid_QRT& grid_;
  ComparedPeriods periods_;
  std::string key_;
  JoinedRows joined_;
  TADOQuery Comparison_QRY{this, "Comparison_QRY", joined_};
  TDataSource Comparison_DS{this, "Comparison_DS", &Comparison_QRY};
};

// Asks for the other period, reads it under the waiting indicator and shows both. Nothing happens where the
// user gives up or stops the reading.
void ComparePeriods(TBaseDock_FRM& report, IPeriodReport& periods, TSmartDBGrid_QRT& grid);

}  // namespace goods
