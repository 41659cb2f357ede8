// Reading the plain tables of the interchange folder into a company.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "company/interchange/import_session.h"

namespace goods {

// A table is read into a new company, or changes and adds to the rows that are there; columns that its file
// does not have stay as they are, or get what the company gives by itself.
// The titles of the table's columns.
std::vector<ColumnTitle> TableTitles(const CompanyTable& table);

class TableImport {
 public:
  TableImport(ImportSession& session, const CompanyTable& table);
  void Run();

 private:
  struct Value {
    enum class Type { Null, Whole, Number, Text };
    Type type = Type::Null;
    std::int64_t whole = 0;
    Decimal number;
    std::string text;
  };

  void GiveTextsNumbers();
  void Prepare();
  std::string InsertSql() const;
  void ReadRow();
  bool ReadField(std::size_t field, Value& value);
  bool ReadCode(std::size_t field, std::string_view text, Value& value);
  bool ReadText(std::size_t field, std::string_view text, Value& value);
  bool ReadName(std::size_t field, std::string_view text, Value& value);
  bool ReadColor(std::size_t field, std::string_view text, Value& value);
  bool ReadLink(std::size_t field, std::string_view text, Value& value);
  bool Refuse(const std::string& reason);
  std::string Label(std::size_t field) const;

  bool Repeated();
  void FinishGood();
  void FinishUser();
  void NoteEntity();
  Value* Of(std::string_view column);
  void Bind();

  ImportSession& session_;
  const CompanyTable& table_;
  TableReader reader_;
  std::vector<std::string> columns_;  // of the company's table, in the order of the parameters
  std::vector<std::size_t> fieldOf_;  // for each column
  std::vector<Value> values_;         // by field
  std::string codeText_;              // a code that is a text
  std::map<std::string, std::int64_t> textCodes_;
  std::set<std::vector<std::int64_t>> keys_;
  CodeBook seen_;
  Statement insert_;
  std::map<std::string, std::int64_t> colors_;
};

// The titles of the columns of a file of goods' tags or categories (title names the second column), and of
// company.csv.
std::vector<ColumnTitle> GoodCodesTitles(const char* title);
std::vector<ColumnTitle> CompanyTitles();

// The tags and categories of goods, which a good keeps as a list of codes.
void ReadGoodCodes(ImportSession& session, const char* file, const char* title, Entity entity,
                   const char* column);

}  // namespace goods
