// Rows of texts, from whatever file they come.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A record that cannot be read. The message is Persian. Reading may go on after it unless the file is at its
// end.
class RowError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~RowError() override;
};

class RowSource {
 public:
  virtual ~RowSource();
  // The fields of the next record; they live until the next call. False at the end. Throws RowError.
  virtual bool Next(std::vector<std::string_view>& fields) = 0;
  // The line, or row of the sheet, from 1, on which the record that was read last began.
  virtual std::size_t Line() const = 0;
  // How far the reading is, of Size, in any unit.
  virtual std::int64_t Done() const = 0;
  virtual std::int64_t Size() const = 0;
  // Cells of a sheet: a date may be a number of days, and short records are filled up with empty cells.
  virtual bool IsSheet() const { return false; }
};

}  // namespace goods
