#include "company/interchange/data_folder.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "company/company.h"
#include "company/files/file_path.h"
#include "company/interchange/csv_reader.h"
#include "host/core/text.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 5> kEndings = {".csv", ".txt", ".tsv", ".xlsx", ".ods"};

}  // namespace

DataFolder::DataFolder(const std::string& path, const NameMap& names) : path_(path), names_(names) {
  std::error_code error;
  if (Workbook::IsWorkbookName(path) && fs::is_regular_file(PathOf(path), error)) {
    workbook_.emplace(path);
    return;
  }
  if (!fs::is_directory(PathOf(path), error)) throw CompanyError("پوشه داده ها پیدا نشد: " + path);
  for (fs::directory_iterator entry(PathOf(path), error), end; !error && entry != end;
       entry.increment(error)) {
    files_.push_back(entry->path().filename().string());
  }
  if (error) throw CompanyError("پوشه داده ها خوانده نشد: " + path);
  std::sort(files_.begin(), files_.end());
}

bool DataFolder::IsCalled(std::string_view name, std::string_view names) const {
  const std::vector<std::string> known = Split(names, '|');
  const std::string folded = FoldName(name);
  if (const std::optional<std::string> theirs = names_.File(known[0])) return folded == FoldName(*theirs);
  return std::any_of(known.begin(), known.end(),
                     [&](const std::string& candidate) { return FoldName(candidate) == folded; });
}

std::optional<OpenedTable> DataFolder::Open(std::string_view names) const {
  if (workbook_) {
    for (std::size_t i = 0; i < workbook_->Sheets().size(); ++i) {
      const std::string& sheet = workbook_->Sheets()[i];
      if (!IsCalled(sheet, names)) continue;
      return OpenedTable{workbook_->Open(i), PathOf(path_).filename().string() + " [" + sheet + "]"};
    }
    return std::nullopt;
  }
  for (const std::string_view ending : kEndings) {
    for (const std::string& file : files_) {
      const fs::path name = PathOf(file);
      if (!SameText(name.extension().string(), ending)) continue;
      if (!IsCalled(name.stem().string(), names) && !IsCalled(file, names)) continue;
      const std::string whole = (PathOf(path_) / name).string();
      if (Workbook::IsWorkbookName(file)) return OpenedTable{Workbook(whole).Open(0), file};
      auto reader = std::make_unique<CsvReader>(whole);
      if (!reader->IsOpen()) throw CompanyError("فایل باز نمی شود: " + whole);
      return OpenedTable{std::move(reader), file};
    }
  }
  return std::nullopt;
}

std::string DataFolder::ExpectedName(std::string_view names) const {
  const std::string first = Split(names, '|')[0];
  return workbook_ ? PathOf(path_).filename().string() + " [" + first + "]" : first + ".csv";
}

std::vector<std::string> DataFolder::Names() const {
  if (workbook_) return workbook_->Sheets();
  std::vector<std::string> names;
  for (const std::string& file : files_) {
    const std::string ending = PathOf(file).extension().string();
    const bool table = std::any_of(kEndings.begin(), kEndings.end(),
                                   [&](std::string_view known) { return SameText(ending, known); });
    if (table) names.push_back(file);
  }
  return names;
}

std::string DataFolder::Title() const {
  const fs::path named = fs::absolute(PathOf(path_)).lexically_normal();
  if (workbook_) return named.stem().string();
  return named.has_filename() ? named.filename().string() : named.parent_path().filename().string();
}

}  // namespace goods
