#include "company/interchange/name_map.h"

#include "company/company.h"
#include "company/interchange/csv_reader.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

std::string FoldName(std::string_view name) {
  std::string folded;
  int depth = 0;
  for (const char c : FoldPersian(Trim(name))) {
    if (c == '(') ++depth;
    if (depth == 0 && c != ' ' && c != '_' && c != '-' && c != ':') folded += c;
    if (c == ')' && depth > 0) --depth;
  }
  return folded;
}

void NameMap::ReadFile(const std::string& path) {
  CsvReader reader(path);
  if (!reader.IsOpen()) throw CompanyError("فایل نام ها پیدا نشد یا باز نمی شود: " + path);
  std::vector<std::string_view> fields;
  bool header = true;
  try {
    for (; reader.Next(fields); header = false) {
      if (header && FoldName(fields[0]) == "what") continue;
      const std::string where = path + "، سطر " + std::to_string(reader.Line());
      if (fields.size() != 3 || Trim(fields[1]).empty() || Trim(fields[2]).empty()) {
        throw CompanyError(where + ": هر سطر سه خانه دارد: what,theirs,ours");
      }
      const std::string what = FoldName(fields[0]);
      if (what == "file") {
        SetFile(fields[2], fields[1]);
      } else if (what == "movementtype") {
        SetMovementType(fields[1], fields[2]);
      } else {
        SetColumn(fields[0], fields[2], fields[1]);
      }
    }
  } catch (const RowError& error) {
    throw CompanyError(path + "، سطر " + std::to_string(reader.Line()) + ": " + error.what());
  }
}

void NameMap::AddColumn(std::string_view assignment) {
  const std::size_t equals = assignment.find('=');
  if (equals == std::string_view::npos || Trim(assignment.substr(equals + 1)).empty()) {
    throw CompanyError("نام ستون «" + std::string(assignment) +
                       "» به شکل «ستون=سرستون» یا «فایل.ستون=سرستون» نیست.");
  }
  const std::string_view name = assignment.substr(0, equals);
  const std::size_t point = name.find('.');
  const bool ofTable = point != std::string_view::npos;
  SetColumn(ofTable ? name.substr(0, point) : "", ofTable ? name.substr(point + 1) : name,
            assignment.substr(equals + 1));
}

void NameMap::SetColumn(std::string_view table, std::string_view ours, std::string_view theirs) {
  headers_[FoldName(table)][FoldName(ours)] = FoldName(theirs);
}

void NameMap::SetFile(std::string_view table, std::string_view theirs) {
  files_[FoldName(table)] = FoldName(theirs);
}

void NameMap::SetMovementType(std::string_view theirs, std::string_view ours) {
  movementTypes_[FoldName(theirs)] = Trim(ours);
}

std::optional<std::string> NameMap::Header(std::string_view table, std::string_view column) const {
  for (const std::string& place : {FoldName(table), std::string()}) {
    const auto columns = headers_.find(place);
    if (columns == headers_.end()) continue;
    const auto found = columns->second.find(FoldName(column));
    if (found != columns->second.end()) return found->second;
  }
  return std::nullopt;
}

std::optional<std::string> NameMap::File(std::string_view table) const {
  const auto found = files_.find(FoldName(table));
  return found == files_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> NameMap::MovementType(std::string_view theirs) const {
  if (movementTypes_.empty()) return std::nullopt;
  const auto found = movementTypes_.find(FoldName(theirs));
  return found == movementTypes_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace goods
