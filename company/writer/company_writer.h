// Writing a whole company file: the one way in which movements get into a company.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "company/embedded/sqlite.h"
#include "company/files/whole_file.h"
#include "host/data/decimal.h"

namespace goods {

// Largest quantity of a row and largest unit price that a company holds. With both, an amount always fits.
inline constexpr std::int64_t kLargestQuantity = 4'600'000'000;
inline constexpr std::int64_t kLargestPrice = 1'000'000'000'000'000;

// The quantity in second units: quantity / ratio, rounded to nine decimals; none when it is beyond
// kLargestQuantity. A ratio of 0 stands for no second unit and gives 0.
std::optional<Decimal> SecondQuantity(Decimal quantity, Decimal ratio);

struct Movement {
  std::string_view date;
  std::int64_t good = 0;
  std::int64_t store = 0;
  std::int64_t person = 0;  // 0: none
  int type = 0;
  Decimal quantity;  // positive incoming, negative outgoing, never 0
  // Unit price on the document. On an incoming row of a type whose price is the cost it moves the average.
  std::optional<Decimal> price;
  std::int64_t document = 0;
  std::int64_t row = 0;  // within the document, from 1; 0: numbered by the writer, in the order added
  std::string_view comment;
};

struct DetailMovement {
  std::int64_t radif = 0;  // of the movement that it splits
  std::int64_t valueId = 0;
  Decimal amount;  // signed as the movement
  Decimal amount2;
  Decimal count;
  Decimal length;
  Decimal width;
};

// Writes into a file beside the target and moves it into place at the end (see WholeFile), so that a company
// is there whole or not at all, whatever happens on the way. A company that is replaced is first brought to
// rest, so that nothing of its journal is played into the new one. Movements come in any order; those of one
// date are ordered as they come. Memory does not grow with their number. Failures throw CompanyError or
// SqliteError.
class CompanyWriter {
 public:
  // Throws CompanyError when the file exists and may not be replaced, is in use, or being written by another
  // program.
  CompanyWriter(std::string path, bool replace);
  CompanyWriter(const CompanyWriter&) = delete;
  CompanyWriter& operator=(const CompanyWriter&) = delete;
  // Leaves nothing behind unless Finish was reached.
  ~CompanyWriter();

  // For the tables that are small: units, goods, stores, persons, and the like. All goods before Finish.
  Database& Tables() { return *db_; }
  void SetTitle(std::string_view title);
  void AddUser(std::int64_t code, std::string_view login, std::string_view name,
               std::string_view passwordHash, bool everyRight);

  // Returns the row's Radif, which counts from 1.
  std::int64_t Add(const Movement& movement);
  // movement must be the one that has just been added.
  void AddDetail(const Movement& movement, const DetailMovement& detail);

  // Works out costs, averages, document headers and derived figures, makes the indexes, and moves the company
  // into place.
  void Finish();

 private:
  void NumberRows();
  void WriteDocuments();
  void WriteStockCards();
  void WriteDetails();
  void WriteDerivedFigures();

  std::string path_;
  bool replace_;
  std::optional<WholeFile> file_;
  std::optional<Database> db_;
  Statement add_;
  Statement addDetail_;
  std::int64_t radif_ = 0;
  bool rowsToNumber_ = false;
};

}  // namespace goods
