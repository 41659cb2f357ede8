// A strict reader of CSV files (RFC 4180), UTF-8.
#pragma once

#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace goods {

// A record that is no CSV. The message is Persian. Reading may go on after it unless the file is at its end.
class CsvError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~CsvError() override;
};

// Lines end in CR LF or LF, the last one also without; a byte order mark is skipped, and so are empty lines.
// A field stands plain or in double quotes, a quote inside doubled; a quoted field may hold line ends.
// Memory is that of one record.
class CsvReader {
 public:
  // Check IsOpen before reading.
  explicit CsvReader(const std::string& path);
  bool IsOpen() const { return file_.is_open(); }
  // The fields of the next record; false at the end of the file. Throws CsvError; the rest of the line is
  // then skipped.
  bool Next(std::vector<std::string>& fields);
  // The line, from 1, on which the record that was read last began.
  std::size_t Line() const { return recordLine_; }

 private:
  static constexpr int kEnd = -1;
  int Get();
  int Peek();
  bool Fill();
  void SkipLine();
  [[noreturn]] void Fail(const char* reason);
  void ReadQuoted(std::string& field);
  void ReadPlain(std::string& field);
  void ReadRecord(std::vector<std::string>& fields);

  std::ifstream file_;
  std::string buffer_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t recordLine_ = 1;
};

}  // namespace goods
