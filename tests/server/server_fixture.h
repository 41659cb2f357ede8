// What the server's tests share: the server that GOODS_SERVER names, databases that vanish, and two engines
// side by side.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/server/deploy.h"
#include "company/server/server_address.h"
#include "company/server/server_connection.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods {

// Whether GOODS_SERVER is set, to an ODBC connection string of a login that may make databases and logins.
bool HasServer();
// Throws where it is not set.
ServerAddress TheServer();

// Skips the test without a server.
#define GOODS_NEEDS_SERVER()                                                                     \
  if (!HasServer()) {                                                                            \
    GTEST_SKIP() << "GOODS_SERVER is not set: the ODBC connection string of a server for tests"; \
  }

// A database of a name of its own, dropped at the end.
class TestDatabase {
 public:
  TestDatabase();
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  ~TestDatabase();
  const std::string& Name() const { return name_; }
  // The server's address with this database.
  ServerAddress Address() const;
  // Deploys and fills it from a company file.
  void Deploy(const std::string& from = {}, const std::vector<std::string>& with = {}) const;

 private:
  std::string name_;
};

// A demo company as a file and in a database, both alike. The database and the connections to it are made
// once for all tests of a process, and filled anew for each.
class TwoEngines {
 public:
  explicit TwoEngines(const DemoOptions& options);
  TwoEngines(const TwoEngines&) = delete;
  TwoEngines& operator=(const TwoEngines&) = delete;
  ~TwoEngines();
  ICompany& File() { return *file_; }
  ICompany& Server();
  // The same database as a company of its own, as another program would open it.
  std::unique_ptr<ICompany> OpenServerAnew() const;
  // Empty when both engines answer the statement alike: names, types, rows in order and cells, or both refuse
  // it. Else where they differ.
  std::string Difference(const std::string& statement);
  // How many statements both answered, and the rows of them all.
  std::size_t Answered() const { return answered_; }
  std::size_t Rows() const { return rows_; }

 private:
  std::size_t answered_ = 0;
  std::size_t rows_ = 0;
  std::string path_;
  std::unique_ptr<ICompany> file_;
  std::unique_ptr<IConnection> fileConnection_;
};

// The statements that the walk through all exports sends, and those that the case files expect; without the
// lines that a case fills from a table.
std::vector<std::string> StatementsOfTheWalk();
std::vector<std::string> StatementsOfTheCaseFiles();

// Reads all rows of a statement.
RowStore AskServer(IConnection& connection, std::string_view statement);

}  // namespace goods
