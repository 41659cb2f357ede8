#include "company/kit/look_ups.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "host/core/text.h"
#include "host/data/connection.h"
#include "host/data/persian.h"

namespace goods {

namespace {

struct EntityView {
  EntityType type;
  const char* view;
};

constexpr EntityView kViews[] = {
    {EntityType::Store, "StoreLookUp_VW"},       {EntityType::Person, "PersonLookUp_VW"},
    {EntityType::Good, "GoodLookUp_VW"},         {EntityType::GoodGroup, "GroupLookUp_VW"},
    {EntityType::Category, "CategoryLookUp_VW"}, {EntityType::Unit, "UnitLookUp_VW"},
};

// "columns FROM view e" of one kind of entity.
std::string EntitySelect(EntityType type) {
  for (const EntityView& entity : kViews) {
    if (entity.type != type) continue;
    const char* columns = type == EntityType::Good ? "e.Code, e.Name, e.Unit, e.Unit2" : "e.Code, e.Name";
    return std::string(columns) + " FROM " + entity.view + " e";
  }
  throw CompanyError("این نوع موجودیت شناخته نیست.");
}

EntityRecord ReadEntity(const LookUpRows& rows, std::size_t row, EntityType type) {
  EntityRecord record{rows.Integer(row, 0), rows.Text(row, 1), {}, {}};
  if (type == EntityType::Good) {
    record.unit = rows.Text(row, 2);
    record.unit2 = rows.Text(row, 3);
  }
  return record;
}

// As far as a statement can say: SIZE_MAX asks for all.
std::string Top(std::size_t limit) {
  constexpr std::size_t kMost = std::numeric_limits<std::int64_t>::max();
  return "SELECT TOP " + std::to_string(std::min(limit, kMost)) + " ";
}

}  // namespace

std::string TextLiteral(std::string_view text) {
  return "N'" + ReplaceAll(std::string(text), "'", "''") + "'";
}

LookUpRows LookUps::Ask(const std::string& statement) {
  RowStore rows;
  connection_.Open(statement, rows);
  return LookUpRows(std::move(rows));
}

std::optional<EntityRecord> LookUps::FindEntity(EntityType type, std::int64_t code) {
  const LookUpRows rows = Ask(Top(1) + EntitySelect(type) + " WHERE e.Code = " + std::to_string(code));
  if (rows.Count() == 0) return std::nullopt;
  return ReadEntity(rows, 0, type);
}

std::vector<EntityRecord> LookUps::SearchEntities(EntityType type, std::string_view text, std::size_t limit) {
  const std::string sought(Trim(text));
  std::string statement = Top(limit) + EntitySelect(type);
  if (!sought.empty()) {
    const char* joint = " WHERE ";
    for (const std::string& word : Split(sought, ' ')) {
      if (word.empty()) continue;
      statement += joint + ("CHARINDEX(" + TextLiteral(FoldPersian(word)) + ", e.SearchName) > 0");
      joint = " AND ";
    }
    statement += " OR CHARINDEX(" + TextLiteral(AsciiDigits(sought)) + ", e.CodeText) = 1";
  }
  const LookUpRows rows = Ask(statement + " ORDER BY e.Code");
  std::vector<EntityRecord> found;
  for (std::size_t row = 0; row < rows.Count(); ++row) found.push_back(ReadEntity(rows, row, type));
  return found;
}

std::optional<GoodRecord> LookUps::FindGood(std::int64_t code) {
  const LookUpRows rows = Ask(
      "SELECT TOP 1 e.Code, e.Name, e.Unit, e.Unit2, e.AbbName, e.UnitKind, e.D1Title, e.D2Title, e.D3Title, "
      "e.D4Title, e.D5Title FROM GoodLookUp_VW e WHERE e.Code = " +
      std::to_string(code));
  if (rows.Count() == 0) return std::nullopt;
  GoodRecord good;
  good.code = rows.Integer(0, 0);
  good.name = rows.Text(0, 1);
  good.unit = rows.Text(0, 2);
  good.unit2 = rows.Text(0, 3);
  good.abbreviation = rows.Text(0, 4);
  good.unitKind = static_cast<int>(rows.Integer(0, 5));
  for (std::size_t i = 0; i < good.detailTitles.size(); ++i) good.detailTitles[i] = rows.Text(0, 6 + i);
  return good;
}

std::vector<TagRecord> LookUps::Tags() {
  const LookUpRows rows = Ask("SELECT e.Code, e.Name, e.Background FROM TagLookUp_VW e ORDER BY e.Code");
  std::vector<TagRecord> tags;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    tags.push_back({rows.Integer(row, 0), rows.Text(row, 1), rows.Text(row, 2)});
  }
  return tags;
}

std::vector<CategoryRecord> LookUps::Categories() {
  const LookUpRows rows = Ask("SELECT e.Code, e.Name, e.ParentCode FROM CategoryLookUp_VW e ORDER BY e.Code");
  std::vector<CategoryRecord> categories;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    categories.push_back({rows.Integer(row, 0), rows.Text(row, 1), rows.Integer(row, 2)});
  }
  return categories;
}

std::vector<BusyGood> LookUps::ListBusyGoods(std::size_t limit) {
  const LookUpRows rows = Ask(
      Top(limit) + "e.Code, e.Name, e.Movements FROM BusyGoodLookUp_VW e ORDER BY e.Movements DESC, e.Code");
  std::vector<BusyGood> goods;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    goods.push_back({rows.Integer(row, 0), rows.Text(row, 1), rows.Integer(row, 2)});
  }
  return goods;
}

}  // namespace goods
