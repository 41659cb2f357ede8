// KeptAnswers: small answers of SELECT statements, for a window that asks the same several times.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "host/data/row_store.h"

namespace goods {

// Whoever keeps them forgets them when the data are others.
class KeptAnswers {
 public:
  static constexpr std::size_t kMostRows = 200;
  static constexpr std::size_t kMostAnswers = 64;

  // Null: not kept. Valid until the next Keep or Forget.
  const RowStore* Find(std::string_view statement) const;
  // rows is finished. What has too many rows is not kept; what is kept gives way when there are too many.
  void Keep(std::string_view statement, const RowStore& rows);
  void Forget() { answers_.clear(); }

 private:
  std::map<std::string, RowStore, std::less<>> answers_;
};

}  // namespace goods
