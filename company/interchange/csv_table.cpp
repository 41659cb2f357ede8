#include "company/interchange/csv_table.h"

#include <filesystem>
#include <optional>

#include "company/interchange/csv_reader.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

std::string Folded(std::string_view title) {
  std::string folded;
  for (const char c : LowerAscii(Trim(title))) {
    if (c != ' ' && c != '_' && c != '-') folded += c;
  }
  return folded;
}

std::size_t FindColumn(const std::vector<std::string>& header, const char* names) {
  for (const std::string& name : Split(names, '|')) {
    for (std::size_t i = 0; i < header.size(); ++i) {
      if (Folded(header[i]) == Folded(name)) return i;
    }
  }
  return kNowhere;
}

}  // namespace

void ImportProblems::Add(const std::string& file, std::size_t line, const std::string& reason) {
  ++total_;
  if (listed_.size() < ImportRefused::kListed) listed_.push_back({file, line, reason});
}

void ImportProblems::ThrowIfAny() const {
  if (total_ > 0) throw ImportRefused(listed_, total_);
}

std::string_view CsvRow::Field(std::size_t column) const {
  return places_[column] == kNowhere ? std::string_view() : Trim(fields_[places_[column]]);
}

void CsvRow::Refuse(const std::string& reason) {
  refused_ = true;
  problems_.Add(file_, line_, reason);
}

void ReadTable(const std::string& folder, const std::string& file, const std::vector<CsvColumn>& columns,
               ImportProblems& problems, const std::function<void(CsvRow&)>& row) {
  CsvReader reader((std::filesystem::path(folder) / file).string());
  if (!reader.IsOpen()) {
    problems.Add(file, 0, "فایل پیدا نشد یا باز نمی شود");
    return;
  }
  CsvRow current(file, problems);
  std::optional<std::vector<std::string>> header;
  std::vector<std::string> fields;
  for (;;) {
    try {
      if (!reader.Next(fields)) break;
    } catch (const CsvError& error) {
      problems.Add(file, reader.Line(), error.what());
      if (!header) return;
      continue;
    }
    if (!header) {
      header = fields;
      bool complete = true;
      for (const CsvColumn& column : columns) {
        current.places_.push_back(FindColumn(*header, column.names));
        if (current.places_.back() != kNowhere || !column.required) continue;
        complete = false;
        problems.Add(file, reader.Line(), "ستون " + Split(column.names, '|')[0] + " در سرستون نیست");
      }
      if (!complete) return;
      continue;
    }
    if (fields.size() != header->size()) {
      problems.Add(file, reader.Line(),
                   "شمار خانه ها " + std::to_string(fields.size()) + " است و باید " +
                       std::to_string(header->size()) + " باشد");
      continue;
    }
    current.line_ = reader.Line();
    current.refused_ = false;
    std::swap(current.fields_, fields);
    row(current);
  }
  if (!header) problems.Add(file, 1, "فایل خالی است و سرستون ندارد");
}

}  // namespace goods
