// How a print job falls into pages. Worked out once for a paper and a font, independent of the device.
#pragma once

#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <string>
#include <vector>

#include "desktop/print/page_options.h"
#include "desktop/print/unit_rows.h"
#include "host/services/printing.h"

namespace goods {

// Fonts are measured and painted this many times their size, because a font's pixel size is a whole number.
inline constexpr int kFontUnits = 8;

inline constexpr double kPointsPerInch = 72;

// Lengths are points (1/72 inch).
struct PrintedColumn {
  int index = -1;  // in the table; -1: row numbers
  QString group;
  QString title;
  TextAlign align = TextAlign::Start;
  bool isNumber = false;
  double left = 0;  // on the paper
  double width = 0;
};

struct PrintedPage {
  std::size_t firstRow = 0;
  std::size_t rows = 0;
  std::size_t band = 0;  // which columns stand on it
  bool head = false;     // the title and the lines stand on it
  bool footer = false;   // the totals stand on it
};

class PageLayout {
 public:
  // job's table must outlive the layout. More columns than suit an upright sheet turn it; more than suit the
  // sheet fall into bands, pages to be laid side by side: the same rows, the key columns on each. Text grows
  // smaller before columns do that, unless its size is chosen. units: what stands under the totals, a line
  // each, as far as a page has the room.
  PageLayout(const PrintJob& job, std::string today, PageOptions options = {},
             std::vector<UnitRow> units = {});

  const PrintJob& Job() const { return job_; }
  const std::string& Today() const { return today_; }
  const PageOptions& Options() const { return options_; }
  double TextSize() const { return fontSize_; }  // points
  bool Landscape() const { return landscape_; }
  QSizeF PaperSize() const;                            // A4
  QRectF Body() const;                                 // within the margins
  std::size_t Bands() const { return bands_.size(); }  // at least 1
  // band is below Bands().
  const std::vector<PrintedColumn>& Columns(std::size_t band = 0) const { return bands_[band]; }
  const std::vector<PrintedPage>& Pages() const { return pages_; }
  double TextHeight() const { return textHeight_; }
  QStringList TitleLines(const PrintedColumn& column) const;
  double RowHeight() const { return rowHeight_; }
  double GroupHeight() const { return groupHeight_; }
  double HeaderHeight() const { return headerHeight_; }
  double HeadHeight() const { return headHeight_; }
  double LineHeight() const { return lineHeight_; }
  double TitleHeight() const { return titleHeight_; }
  double PageFooterHeight() const { return pageFooterHeight_; }
  // What the lines above the table need, wrapped to the body's width.
  const std::vector<QString>& Lines() const { return lines_; }
  // Under the totals.
  const std::vector<UnitRow>& Units() const { return units_; }

  QFont Font() const;
  QFont BoldFont() const;
  QFont TitleFont() const;

 private:
  std::vector<PrintedColumn> NaturalColumns() const;
  void SplitIntoBands(const std::vector<PrintedColumn>& columns, double room);
  void PlaceColumns();
  void Measure();
  void CutUnits(std::size_t lines);
  void BreakPages();

  PrintJob job_;
  std::string today_;
  PageOptions options_;
  bool landscape_ = false;
  double fontSize_ = 8;
  std::vector<std::vector<PrintedColumn>> bands_;
  std::vector<PrintedPage> pages_;
  std::vector<QString> lines_;
  std::vector<UnitRow> units_;
  double rowHeight_ = 0;
  double textHeight_ = 0;
  double groupHeight_ = 0;
  double headerHeight_ = 0;
  double headHeight_ = 0;
  double lineHeight_ = 0;
  double titleHeight_ = 0;
  double pageFooterHeight_ = 0;
};

}  // namespace goods
