// A reader of CSV files (RFC 4180) and of what else calls itself so.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "company/interchange/row_source.h"
#include "company/interchange/text_file.h"

namespace goods {

// Lines end in CR LF or LF, the last one also without; empty lines are skipped. Fields are separated by ",",
// ";" or a tab: the one of them that stands most often in the first line. A field stands plain or in double
// quotes, a quote inside doubled; a quoted field may hold line ends, and blanks at its ends, which a plain
// one loses. A record that is no UTF-8 is refused, and so is one with a zero byte. Memory is that of a
// record.
class CsvReader : public RowSource {
 public:
  // Check IsOpen before reading.
  explicit CsvReader(const std::string& path);
  bool IsOpen() const { return file_.IsOpen(); }
  char Separator() const { return separator_; }

  bool Next(std::vector<std::string_view>& fields) override;
  std::size_t Line() const override { return recordLine_; }
  std::int64_t Done() const override { return file_.Done(); }
  std::int64_t Size() const override { return file_.Size(); }

 private:
  // A field before the buffer stops moving.
  struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool quoted = false;
    bool doubled = false;  // quotes inside
  };

  bool More();
  void FindSeparator();
  bool SkipEmptyLines();
  // Reads the record at at_. False when it goes on beyond the buffer and there is more in the file.
  bool Scan();
  bool ScanQuoted(std::size_t& at, Span& span);
  [[noreturn]] void Fail(std::size_t at, const char* reason);

  TextFile file_;
  std::string buffer_;
  std::size_t at_ = 0;
  bool ended_ = false;
  char separator_ = 0;
  std::array<bool, 256> stops_{};  // bytes at which a plain field may end
  std::size_t line_ = 1;
  std::size_t recordLine_ = 1;
  std::vector<Span> spans_;
  std::size_t recordEnd_ = 0;
  std::size_t recordLines_ = 0;
  unsigned char bits_ = 0;  // of all plain bytes: whether any is beyond ASCII
  std::vector<std::string> unquoted_;
};

}  // namespace goods
