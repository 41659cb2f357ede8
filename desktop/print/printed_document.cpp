#include "desktop/print/printed_document.h"

#include <utility>

#include "desktop/print/page_painter.h"
#include "host/core/text.h"

namespace goods {

PrintedJob::PrintedJob(PrintJob given) : job(std::move(given)) {
  if (job.table != nullptr) units = UnitRowsOf(*job.table);
}

PrintedDocument::PrintedDocument(std::vector<PrintedJob> jobs, std::string today, PageOptions options)
    : jobs_(std::move(jobs)), today_(std::move(today)), options_(std::move(options)) {
  title_ = jobs_.front().job.title;
  if (jobs_.size() > 1) title_ = std::string(Trim(title_)) + " (" + std::to_string(jobs_.size()) + ")";
  LayOut();
}

PrintedDocument::~PrintedDocument() = default;

void PrintedDocument::SetOptions(PageOptions options) {
  options_ = std::move(options);
  LayOut();
}

void PrintedDocument::LayOut() {
  layouts_.clear();
  pages_.clear();
  PageOptions options = options_;
  for (std::size_t job = 0; job < jobs_.size(); ++job) {
    layouts_.push_back(std::make_unique<PageLayout>(jobs_[job].job, today_, options, jobs_[job].units));
    if (job == 0) options.sheet = layouts_[0]->Landscape() ? SheetDirection::Lying : SheetDirection::Upright;
    for (std::size_t page = 0; page < layouts_[job]->Pages().size(); ++page) pages_.push_back({job, page});
  }
}

bool PrintedDocument::Landscape() const { return layouts_.front()->Landscape(); }

QSizeF PrintedDocument::PaperSize() const { return layouts_.front()->PaperSize(); }

std::size_t PrintedDocument::FirstRow(std::size_t page) const {
  const Place& place = pages_[page];
  return layouts_[place.job]->Pages()[place.page].firstRow;
}

void PrintedDocument::Paint(QPainter& painter, std::size_t page) const {
  const Place& place = pages_[page];
  PaintPage(painter, *layouts_[place.job], place.page);
}

}  // namespace goods
