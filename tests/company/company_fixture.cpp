#include "company_fixture.h"

#include <fstream>
#include <sstream>

#include <unistd.h>

namespace goods {

std::string TestFile::Unique(const std::string& name) { return std::to_string(getpid()) + "-" + name; }

const std::string& SmallDemoPath() {
  // CTest runs each test in a process of its own: the company is kept as long as it is newer than the
  // program.
  static const std::string path = [] {
    namespace fs = std::filesystem;
    const fs::path kept = fs::path(GOODS_TEST_FILES) / "small.company";
    std::error_code error;
    const fs::file_time_type made = fs::last_write_time(kept, error);
    if (!error && made > fs::last_write_time("/proc/self/exe")) return kept.string();
    const TestFile fresh("fresh.company");
    DemoOptions options;
    options.goods = 60;
    options.stores = 4;
    options.movements = 4'000;
    MakeDemoCompany(fresh.Path(), options);
    fs::rename(fresh.Path(), kept);
    return kept.string();
  }();
  return path;
}

RowStore AskRows(IConnection& connection, std::string_view statement) {
  RowStore rows;
  connection.Open(statement, rows);
  return rows;
}

std::vector<std::vector<std::string>> Ask(IConnection& connection, std::string_view statement) {
  const RowStore rows = AskRows(connection, statement);
  std::vector<std::vector<std::string>> cells(rows.Count());
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    for (std::size_t column = 0; column < rows.Columns().size(); ++column) {
      cells[row].push_back(rows.Cell(row, column).AsText());
    }
  }
  return cells;
}

std::string Refusal(IConnection& connection, std::string_view statement) {
  try {
    RowStore rows;
    connection.Open(statement, rows);
    return "";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Statement(), statement);
    return error.what();
  }
}

std::size_t NamesBeside(const std::string& path) {
  const std::filesystem::path file(path);
  const std::string name = file.filename().string();
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
    const std::string other = entry.path().filename().string();
    if (other != name && (other.starts_with(name) || other.starts_with("." + name))) ++count;
  }
  return count;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace goods
