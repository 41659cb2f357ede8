// The pages of one print job, or of several one behind the other.
#pragma once

#include <QSizeF>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/print/page_layout.h"

class QPainter;

namespace goods {

// A job, and what stands under its totals: these by unit of measure.
struct PrintedJob {
  PrintedJob(PrintJob given);
  PrintJob job;
  std::vector<UnitRow> units;
};

class PrintedDocument {
 public:
  // jobs must not be empty, and their tables must outlive the document. All pages have the direction of the
  // first job's.
  PrintedDocument(std::vector<PrintedJob> jobs, std::string today, PageOptions options = {});
  ~PrintedDocument();

  // That of the job; of several, with their number behind it.
  const std::string& Title() const { return title_; }
  const std::string& Today() const { return today_; }
  const PageOptions& Options() const { return options_; }
  // Lays the pages out anew.
  void SetOptions(PageOptions options);

  const std::vector<PrintedJob>& Jobs() const { return jobs_; }
  bool Landscape() const;
  QSizeF PaperSize() const;
  std::size_t PageCount() const { return pages_.size(); }  // at least 1
  // page below PageCount(). The first row of the page, in its job's table.
  std::size_t FirstRow(std::size_t page) const;
  // One unit of the painter is a point.
  void Paint(QPainter& painter, std::size_t page) const;
  // How the pages of one job fall.
  const PageLayout& Layout(std::size_t job) const { return *layouts_[job]; }

 private:
  struct Place {
    std::size_t job;
    std::size_t page;  // within the job
  };
  void LayOut();

  std::vector<PrintedJob> jobs_;
  std::string today_;
  std::string title_;
  PageOptions options_;
  std::vector<std::unique_ptr<PageLayout>> layouts_;
  std::vector<Place> pages_;
};

}  // namespace goods
