#include "company/interchange/problems.h"

#include <utility>

#include "company/interchange/csv_writer.h"

namespace goods {

namespace {

std::string MoreProblems(std::size_t count) { return "و " + std::to_string(count) + " خطای دیگر"; }

std::string Message(const std::vector<ImportProblem>& problems, std::size_t total) {
  std::string message = "داده ها پذیرفته نشد و چیزی نوشته نشد.";
  for (const ImportProblem& problem : problems) {
    message += "\n" + problem.file;
    if (problem.line > 0) message += "، سطر " + std::to_string(problem.line);
    message += ": " + problem.reason;
  }
  if (total > problems.size()) message += "\n" + MoreProblems(total - problems.size());
  return message;
}

}  // namespace

ImportRefused::ImportRefused(std::vector<ImportProblem> problems, std::size_t total)
    : CompanyError(Message(problems, total)), problems_(std::move(problems)), total_(total) {}

ImportRefused::~ImportRefused() = default;

void ImportProblems::Add(const std::string& file, std::size_t line, const std::string& reason) {
  ++total_;
  if (listed_.size() < ImportRefused::kListed) listed_.push_back({file, line, reason});
}

void ImportProblems::ThrowIfAny() const {
  if (total_ > 0) throw ImportRefused(listed_, total_);
}

void WriteProblems(const std::string& path, const ImportRefused& refused) {
  CsvWriter csv(path, true);
  csv.Row({"file", "line", "reason"});
  for (const ImportProblem& problem : refused.Problems()) {
    csv.Row({problem.file, problem.line > 0 ? std::to_string(problem.line) : "", problem.reason});
  }
  const std::size_t more = refused.Total() - refused.Problems().size();
  if (more > 0) csv.Row({"", "", MoreProblems(more)});
  csv.Commit();
}

}  // namespace goods
