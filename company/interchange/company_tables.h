// The tables of the interchange folder that are plain: a column of the file is a column of the company.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

namespace goods {

// Whose codes a field may name.
enum class Entity {
  None,
  Group,
  Unit,
  Good,
  Store,
  Person,
  Category,
  Colour,
  Tag,
  DetailType,
  Combination,
  PriceLevel,
  List,
  User,
  Count
};

enum class FieldKind {
  Code,    // whole number, unique in the file; of goods, stores and persons also a text
  Whole,   // whole number
  Number,  // decimal; empty is 0
  Ratio,   // decimal above 0; empty is none
  Text,
  Flag,
  Link,    // code of an entity; empty is 0 where low is 0
  Name,    // name of a group or a unit, made where it is not known; read, not written
  Colour,  // code of a colour, or a colour as "#RRGGBB"
  Login    // login of a user
};

// names: titles of the column joined with "|", the first one that of docs/import.md and of an export. column:
// where it goes in the company's table; two joined with "," get the same value. low, high: range of a number,
// least and greatest length of a text.
struct TableField {
  const char* names;
  const char* column;
  FieldKind kind;
  bool required = false;
  std::int64_t low = 0;
  std::int64_t high = 0;
  Entity link = Entity::None;
  const char* instead = nullptr;
};

struct CompanyTable {
  const char* names;  // of the file
  const char* table;
  Entity entity;     // whose codes the first field gives
  std::size_t keys;  // so many leading fields are the key
  std::span<const TableField> fields;
  const char* what;  // one of its rows, in Persian
};

// In an order in which what a field links to comes first.
std::span<const CompanyTable> CompanyTables();
const CompanyTable& GoodsTable();

// The files that hold more than a plain table.
inline constexpr const char* kCompanyFile = "company|شرکت";
inline constexpr const char* kGoodTagsFile = "good_tags|برچسب کالاها";
inline constexpr const char* kGoodTagColumn = "tag|برچسب";
inline constexpr const char* kGoodCategoryColumn = "category|دسته";
inline constexpr const char* kGoodCategoriesFile = "good_categories|دسته کالاها";
inline constexpr const char* kMovementsFile = "movements|گردش|گردش ها|گردش کالا|کاردکس";
inline constexpr const char* kDetailMovementsFile = "detail_movements|گردش جزییات";
inline constexpr const char* kDocumentsFile = "documents|سندها";

}  // namespace goods
