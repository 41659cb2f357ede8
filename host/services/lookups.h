// Entities of the company: found by code, or chosen by the user.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

class TForm;

enum class EntityType : int { None = 0, Store = 1, Person = 2, Good = 6, GoodGroup = 16 };

class ILookups {
 public:
  virtual ~ILookups();
  // The named fields (";" between names) of the entity with that code, as texts in that order; none when
  // there is no such entity. Every entity has "Name"; a good also "Unit" and "Unit2", the names of its two
  // units. Throws DatabaseError.
  virtual std::optional<std::vector<std::string>> LookupDBs(EntityType type, std::int64_t code,
                                                            std::string_view fields) = 0;
  // Lets the user choose one; none when the user gave up. current is shown as chosen, 0 for none. filter is
  // what was typed.
  virtual std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                                   std::string_view filter) = 0;
  virtual std::string ReturnCategoryName(std::string_view categoryCode) = 0;
};

}  // namespace goods
