#include "company/interchange/table_reader.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kRecordsBetweenLooks = 1024;

bool IsDigits(std::string_view text, std::size_t least, std::size_t most) {
  return text.size() >= least && text.size() <= most &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// A number of three digits behind a short one, as a number with unquoted thousands separators falls apart.
std::string SplitNumber(const std::vector<std::string_view>& fields) {
  for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
    std::string_view first = Trim(fields[i]);
    if (first.starts_with("-")) first.remove_prefix(1);
    const std::string_view second = Trim(fields[i + 1]);
    if (IsDigits(first, 1, 3) && IsDigits(second.substr(0, 3), 3, 3) &&
        (second.size() == 3 || second[3] == '.')) {
      std::string number = std::string(Trim(fields[i])) + "," + std::string(second);
      for (std::size_t k = i + 2; k < fields.size() && IsDigits(Trim(fields[k]), 3, 3); ++k) {
        number += "," + std::string(Trim(fields[k]));
      }
      return number;
    }
  }
  return "";
}

}  // namespace

std::optional<std::size_t> FindColumn(const NameMap& map, std::string_view table,
                                      const std::vector<std::string>& header, std::string_view names) {
  const std::vector<std::string> all = Split(names, '|');
  std::vector<std::string> wanted;
  if (const std::optional<std::string> theirs = map.Header(table, all[0])) {
    if (theirs->empty()) return std::nullopt;
    wanted.push_back(*theirs);
  } else {
    for (const std::string& name : all) wanted.push_back(FoldName(name));
  }
  for (const std::string& name : wanted) {
    const auto found = std::find(header.begin(), header.end(), name);
    if (found != header.end()) return static_cast<std::size_t>(found - header.begin());
  }
  return std::nullopt;
}

TableReader::TableReader(const ImportSource& source, std::string_view table, std::vector<ColumnTitle> columns)
    : source_(source), table_(table), columns_(std::move(columns)) {}

bool TableReader::Open(bool required) {
  places_.assign(columns_.size(), kNowhere);
  std::optional<OpenedTable> opened = source_.folder.Open(table_);
  name_ = opened ? opened->name : source_.folder.ExpectedName(table_);
  if (!opened) {
    if (required) RefuseLine(0, "فایل پیدا نشد یا باز نمی شود");
    return false;
  }
  rows_ = std::move(opened->rows);
  stage_ = "خواندن " + name_;
  meter_.emplace(source_.watcher, stage_, rows_->Size());
  return ReadHeader();
}

bool TableReader::ReadHeader() {
  try {
    if (!rows_->Next(fields_)) {
      RefuseLine(1, "فایل خالی است و سرستون ندارد");
      return false;
    }
  } catch (const RowError& error) {
    RefuseLine(rows_->Line(), error.what());
    return false;
  }
  std::vector<std::string> header;
  for (const std::string_view field : fields_) header.push_back(FoldName(field));
  width_ = header.size();
  const std::string table = Split(table_, '|')[0];
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    places_[i] = FindColumn(source_.names, table, header, columns_[i].names).value_or(kNowhere);
  }
  bool complete = true;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!columns_[i].required || Has(i)) continue;
    bool replaced = false;
    for (std::size_t other = 0; columns_[i].instead != nullptr && other < columns_.size(); ++other) {
      replaced = replaced || (Has(other) && Split(columns_[other].names, '|')[0] == columns_[i].instead);
    }
    if (replaced) continue;
    complete = false;
    RefuseLine(rows_->Line(), "ستون " + Split(columns_[i].names, '|')[0] + " در سرستون نیست");
  }
  return complete;
}

bool TableReader::FitsHeader() {
  if (rows_->IsSheet() && fields_.size() < width_) fields_.resize(width_);
  // A sheet may have notes beside the table, and a file separators behind its last column.
  while (fields_.size() > width_ && fields_.back().empty()) fields_.pop_back();
  if (rows_->IsSheet() || fields_.size() == width_) return true;
  std::string reason =
      "شمار خانه ها " + std::to_string(fields_.size()) + " است و باید " + std::to_string(width_) + " باشد";
  const std::string number = fields_.size() > width_ ? SplitNumber(fields_) : "";
  if (!number.empty()) {
    reason += "؛ گویا عددی جداکننده هزارگان دارد و میان گیومه نیست (" + number +
              "): آن را بی جداکننده یا به شکل \"" + number + "\" بنویسید";
  }
  RefuseLine(rows_->Line(), reason);
  return false;
}

bool TableReader::Next() {
  for (;;) {
    if ((++records_ % kRecordsBetweenLooks) == 0) meter_->Reach(rows_->Done());
    refused_ = false;
    try {
      if (!rows_->Next(fields_)) {
        meter_->End();
        return false;
      }
    } catch (const RowError& error) {
      RefuseLine(rows_->Line(), error.what());
      continue;
    }
    if (FitsHeader()) return true;
  }
}

std::string_view TableReader::Field(std::size_t column) const {
  return Has(column) ? fields_[places_[column]] : std::string_view();
}

void TableReader::Refuse(const std::string& reason) {
  refused_ = true;
  RefuseLine(rows_->Line(), reason);
}

void TableReader::RefuseLine(std::size_t line, const std::string& reason) const {
  source_.problems.Add(name_, line, reason);
}

}  // namespace goods
