// The statements of the stock card and of the row search.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "module/data/data_module.h"

namespace goods {

// The state of a good before a date, as the stock card shows it.
struct TPreTimeData {
  std::string Incoming = "0";
  std::string Outgoing = "0";
  std::string Remainder = "0";
  std::string LastAverage = "0";
  std::string RemainderAmount = "0";
};

class StockCardData {
 public:
  explicit StockCardData(DataModule& module) : module_(module) {}

  void FillDataKardexTransact(std::int64_t good);
  // The empty text for a store or person is every one.
  TPreTimeData GetPreTimeData(std::string_view good, std::string_view date, std::string_view store,
                              std::string_view person);

 private:
  DataModule& module_;

 public:
  TQueryWithSource Kardex{&module_, "Kardex", module_.Connection()};
};

class RowSearchData {
 public:
  explicit RowSearchData(DataModule& module);

  void KardexSearch_Fill_1();
  // first, second: "0" is not given. A first value without a second is left out.
  void KardexSearch_Fill_2(std::string_view first, std::string_view second);

  // Radif numbers the rows as they were read, also where the procedure has a column of that name.
  TQueryWithSource KardexSearch;
};

}  // namespace goods
