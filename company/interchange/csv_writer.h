// CSV files as CsvReader reads them: UTF-8 with a byte order mark, ",", LF.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "company/files/whole_file.h"
#include "host/data/decimal.h"

namespace goods {

// One cell as it stands in a file, without a separator.
void AppendCsvText(std::string& line, std::string_view text);
void AppendDecimal(std::string& line, Decimal number);

// The file is there whole after Commit, and not at all before. Throws FileError.
class CsvWriter {
 public:
  CsvWriter(const std::string& path, bool replace, bool ownerOnly = false);

  // Cells of one record, in order, then EndRow.
  void Text(std::string_view text);
  void Whole(std::int64_t number);
  void Number(Decimal number);
  // Cells that were put together before.
  void Ready(std::string_view cells);
  void EndRow();

  void Row(std::initializer_list<std::string_view> cells);
  void Commit();

 private:
  void Separate();
  void FlushIfLong();

  WholeFile file_;
  std::string buffer_;
  bool first_ = true;
};

}  // namespace goods
