// Every window of a report with rows in it, for tests of what all of their tables must do.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "goods_reports.h"
#include "tests/desktop/app/kit.h"

namespace goods {

class FilledWindows : public DesktopTest {
 public:
  using Steps = std::function<void(QWidget& window)>;
  struct Opener {
    std::string name;
    std::function<void(const Steps& steps)> open;  // the window with its rows; closed again after the steps
  };

 protected:
  // The comparisons of two periods, the windows that other reports open, those that a menu opens, and the
  // second tab of the overall turnover. A host must be there.
  std::vector<Opener> EveryFilledWindow();
  void InReport(ReportId id, const Steps& steps);

  // The table that the window prints.
  static TSmartDBGrid_QRT& PrintedTable(QWidget& window);

 private:
  void InOneGoodsDetails(const Steps& steps);
  void InOperationMismatch(const Steps& steps);
  void InComparison(ReportId id, const Steps& steps);
};

}  // namespace goods
