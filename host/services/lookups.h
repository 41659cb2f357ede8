// Entities of the company: found by code, or chosen by the user.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/color.h"

namespace goods {

class TForm;

// The kinds of entities; the first five have published numbers.
enum class EntityType : int {
  None = 0,
  Store = 1,
  Person = 2,
  Good = 6,
  GoodGroup = 16,
  Category = 17,
  Unit = 18
};

// A tag that goods can carry, with its colour as 0xRRGGBB.
struct TTag {
  std::string Code;
  std::string Name;
  Color Background = kWhite;
};

// A category; ParentCode is empty at the top of the tree.
struct TCategory {
  std::string Code;
  std::string Name;
  std::string ParentCode;
};

class ILookups {
 public:
  virtual ~ILookups();
  // The named fields (";" between names) of the entity with that code, as texts in that order; none when
  // there is no such entity. Every entity has "Name"; a good also "Unit" and "Unit2", the names of its two
  // units, "UnitKind" (1 to 5: which measures its details use), and "D1Title" to "D5Title", the titles of its
  // details, empty where it keeps none. Throws DatabaseError.
  virtual std::optional<std::vector<std::string>> LookupDBs(EntityType type, std::int64_t code,
                                                            std::string_view fields) = 0;
  // Lets the user choose one; none when the user gave up. current is shown as chosen, 0 for none. filter is
  // what was typed.
  virtual std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                                   std::string_view filter) = 0;
  virtual std::string ReturnCategoryName(std::string_view categoryCode) = 0;
  // All of the company, in the order of their codes. Both throw DatabaseError. The base has none.
  virtual std::vector<TTag> Tags();
  virtual std::vector<TCategory> Categories();
  // Lets the user choose categories in their tree; the chosen codes, none when the user gave up, as with the
  // base.
  virtual std::optional<std::vector<std::string>> SelectCategories(TForm* owner,
                                                                   const std::vector<std::string>& chosen);
};

}  // namespace goods
