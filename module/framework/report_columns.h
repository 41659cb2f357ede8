// The columns of a report's grid, as its form declares them.
#pragma once

#include <string>
#include <string_view>

#include "host/components/grid.h"
#include "host/data/display_format.h"

namespace goods {

// Adds to the end of the grid, which must outlive it. Widths are in pixels.
class ReportColumns {
 public:
  explicit ReportColumns(TSmartDBGrid_QRT& grid) : grid_(grid) {}

  TGridColumn& Text(const std::string& field, const std::string& caption, int width) const {
    return grid_.AddColumn(field, caption).SetWidth(width);
  }
  TGridColumn& Date(const std::string& field, const std::string& caption, int width) const {
    return Text(field, caption, width).SetKind(CellKind::Date);
  }
  // What has the format of amounts is a price or an amount, withheld from users without prices.
  TGridColumn& Number(const std::string& field, const std::string& caption, std::string_view format,
                      int width) const {
    return Text(field, caption, width).SetDisplayFormat(format).SetMoney(format == kAmountFormat);
  }
  // The same with its sum below.
  TGridColumn& Summed(const std::string& field, const std::string& caption, std::string_view format,
                      int width) const {
    return Number(field, caption, format, width).SetFooter(FooterKind::Sum);
  }

 private:
  TSmartDBGrid_QRT& grid_;
};

}  // namespace goods
