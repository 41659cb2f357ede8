// Goods, stores and persons that the user chose lately.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/services/lookups.h"
#include "host/services/settings.h"

namespace goods {

// Kept in a section of the user's settings, apart for each company, which its title names.
class RecentEntities {
 public:
  static constexpr std::size_t kMost = 5;

  // settings must outlive it.
  RecentEntities(ISettings& settings, std::string_view company) : settings_(settings), company_(company) {}

  // Codes, the last one first; at most kMost. Of a section that is no list of codes nothing.
  std::vector<std::int64_t> Codes(EntityType kind) const;
  // Other kinds than goods, stores and persons are not kept.
  void Add(EntityType kind, std::int64_t code);

 private:
  std::string Section(EntityType kind) const;

  ISettings& settings_;
  std::string company_;
};

}  // namespace goods
