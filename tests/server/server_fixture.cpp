#include "server_fixture.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <stdexcept>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "company/server/fill_company.h"
#include "company/server/server_company.h"
#include "company/server/server_scripts.h"
#include "company/server/server_session.h"
#include "host/core/text.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

std::string UniqueName() {
  static std::atomic<int> count{0};
  return "goods_test_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

// Processes of tests make their databases one after the other: a small server's catalogue does not take
// several at once. The walk on a server waits for the same file.
class Turn {
 public:
  Turn() : file_(open(Path().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (file_ < 0 || flock(file_, LOCK_EX) != 0) throw std::runtime_error("no turn: " + Path());
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn() { close(file_); }

 private:
  static std::string Path() { return fs::read_symlink("/proc/self/exe").replace_filename("deploying.lock"); }
  int file_;
};

bool IsStatement(std::string_view text) {
  const std::string begin = LowerAscii(Trim(text).substr(0, 7));
  return begin.starts_with("exec ") || begin.starts_with("select ");
}

// The text between a line's quotes, with what is escaped in it; none for another line.
std::optional<std::string> QuotedLine(std::string_view line) {
  line = Trim(line);
  if (line.size() < 2 || line.front() != '"' || line.back() != '"') return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i + 1 < line.size(); ++i) {
    if (line[i] != '\\') {
      text += line[i];
      continue;
    }
    const char c = line[++i];
    text += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
  }
  return text;
}

struct Answer {
  std::optional<std::string> refusal;
  RowStore rows;
};

Answer Ask(IConnection& connection, const std::string& statement) {
  Answer answer;
  try {
    connection.Open(statement, answer.rows);
  } catch (const DatabaseError& error) {
    answer.refusal = error.what();
  }
  return answer;
}

std::string Compared(const RowStore& file, const RowStore& server) {
  if (file.Columns().size() != server.Columns().size()) {
    return "columns: " + std::to_string(file.Columns().size()) + " and " +
           std::to_string(server.Columns().size());
  }
  for (std::size_t i = 0; i < file.Columns().size(); ++i) {
    const ColumnInfo& a = file.Columns()[i];
    const ColumnInfo& b = server.Columns()[i];
    const bool unnamed = a.name.starts_with("Column");
    if (!unnamed && !SameText(a.name, b.name)) return "column " + a.name + " is " + b.name;
    // An empty result or a column of nulls tells nothing of its type.
    if (a.type != b.type && file.Count() != 0) {
      const bool numbers = a.type != ColumnType::Text && b.type != ColumnType::Text;
      bool allNull = true;
      for (std::size_t row = 0; row < file.Count(); ++row) allNull = allNull && file.ColumnAt(i).IsNull(row);
      if (!numbers && !allNull) return "type of column " + a.name;
    }
  }
  if (file.Count() != server.Count()) {
    return "rows: " + std::to_string(file.Count()) + " and " + std::to_string(server.Count());
  }
  for (std::size_t row = 0; row < file.Count(); ++row) {
    for (std::size_t i = 0; i < file.Columns().size(); ++i) {
      const Value a = file.Cell(row, i);
      const Value b = server.Cell(row, i);
      if (a == b) continue;
      return "row " + std::to_string(row) + ", " + file.Columns()[i].name + ": " +
             (a.IsNull() ? "null" : a.AsText()) + " and " + (b.IsNull() ? "null" : b.AsText());
    }
  }
  return {};
}

}  // namespace

bool HasServer() {
  const char* server = std::getenv("GOODS_SERVER");
  return server != nullptr && *server != '\0';
}

ServerAddress TheServer() {
  if (!HasServer()) throw std::runtime_error("GOODS_SERVER is not set");
  return ServerAddress(std::getenv("GOODS_SERVER"));
}

TestDatabase::TestDatabase() : name_(UniqueName()) {}

TestDatabase::~TestDatabase() {
  try {
    ServerAddress server = TheServer();
    server.Set("DATABASE", "master");
    ServerSession session(server.ConnectionString());
    if (session.AskInteger("SELECT CASE WHEN DB_ID(" + ServerText(name_) + ") IS NULL THEN 0 ELSE 1 END") !=
        0) {
      session.Run("DROP DATABASE " + ServerName(name_));
    }
  } catch (const CompanyError& error) {
    std::fprintf(stderr, "%s stays: %s\n", name_.c_str(), error.what());
  }
}

ServerAddress TestDatabase::Address() const {
  ServerAddress address = TheServer();
  address.Set("DATABASE", name_);
  return address;
}

void TestDatabase::Deploy(const std::string& from, const std::vector<std::string>& with) const {
  const Turn turn;
  DeployCompany({TheServer(), name_, from, with, {}});
}

namespace {

// The database of TwoEngines.
struct SharedCompany {
  TestDatabase database;
  std::unique_ptr<ServerSession> session;
  std::unique_ptr<ICompany> company;
  std::unique_ptr<IConnection> connection;
};
std::unique_ptr<SharedCompany> shared;

class DropShared : public testing::Environment {
 public:
  void TearDown() override { shared = nullptr; }
};
[[maybe_unused]] testing::Environment* const kDropShared = testing::AddGlobalTestEnvironment(new DropShared);

std::vector<std::string> MadeOf(std::string_view kind) {
  std::vector<std::string> names;
  for (const ServerScript& script : SchemaScripts()) {
    for (const std::string_view batch : BatchesOf(script.text)) {
      MadeObject object = ObjectOf(batch);
      if (object.kind == kind) names.push_back(std::move(object.name));
    }
  }
  return names;
}

SharedCompany& FilledFrom(const std::string& path) {
  if (shared == nullptr) {
    shared = std::make_unique<SharedCompany>();
    shared->database.Deploy();
    shared->session = std::make_unique<ServerSession>(shared->database.Address().ConnectionString());
    // Filling brings what they keep.
    for (const std::string& trigger : MadeOf("TRIGGER")) shared->session->Run("DROP TRIGGER dbo." + trigger);
    shared->company = OpenServerCompany(shared->database.Address().ConnectionString(), "");
    shared->connection = shared->company->OpenConnection();
  }
  const std::vector<std::string> tables = MadeOf("TABLE");
  for (auto table = tables.rbegin(); table != tables.rend(); ++table) {
    shared->session->Run("DELETE FROM dbo." + *table +
                         (*table == "Meta" ? " WHERE [Key] <> N'SchemaVersion'" : ""));
  }
  FillFromFile(*shared->session, path, {});
  return *shared;
}

}  // namespace

TwoEngines::TwoEngines(const DemoOptions& options)
    : path_((fs::path(GOODS_TEST_FILES) / (UniqueName() + ".company")).string()) {
  fs::create_directories(GOODS_TEST_FILES);
  MakeDemoCompany(path_, options);
  FilledFrom(path_);
  file_ = OpenCompany(path_);
  fileConnection_ = file_->OpenConnection();
}

TwoEngines::~TwoEngines() {
  fileConnection_ = nullptr;
  file_ = nullptr;
  std::error_code error;
  fs::remove(path_, error);
}

ICompany& TwoEngines::Server() { return *shared->company; }

std::unique_ptr<ICompany> TwoEngines::OpenServerAnew() const {
  return OpenServerCompany(shared->database.Address().ConnectionString(), "");
}

std::string TwoEngines::Difference(const std::string& statement) {
  const Answer file = Ask(*fileConnection_, statement);
  const Answer server = Ask(*shared->connection, statement);
  if (file.refusal && server.refusal) return {};
  ++answered_;
  rows_ += file.rows.Count();
  if (file.refusal) return "only the file refuses: " + *file.refusal;
  if (server.refusal) return "only the server refuses: " + *server.refusal;
  return Compared(file.rows, server.rows);
}

std::vector<std::string> StatementsOfTheWalk() {
  std::ifstream walk(fs::path(GOODS_TEST_SOURCES) / "end_to_end" / "walk_through.txt");
  std::set<std::string> statements;
  for (std::string line; std::getline(walk, line);) {
    if (line.starts_with("    ") && IsStatement(line)) statements.insert(line.substr(4));
  }
  return {statements.begin(), statements.end()};
}

std::vector<std::string> StatementsOfTheCaseFiles() {
  std::set<std::string> statements;
  for (const fs::directory_entry& entry :
       fs::recursive_directory_iterator(fs::path(GOODS_TEST_SOURCES) / "reports")) {
    if (entry.path().extension() != ".case" && entry.path().extension() != ".inc") continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      const std::optional<std::string> text = QuotedLine(line);
      if (text && IsStatement(*text) && text->find('{') == std::string::npos) statements.insert(*text);
    }
  }
  return {statements.begin(), statements.end()};
}

RowStore AskServer(IConnection& connection, std::string_view statement) {
  RowStore rows;
  connection.Open(statement, rows);
  return rows;
}

}  // namespace goods
