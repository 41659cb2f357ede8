#include "company/interchange/import_session.h"

#include <algorithm>
#include <limits>

#include "company/interchange/import_fields.h"
#include "company/writer/movement.h"

namespace goods {

namespace {

const CompanyTable& TableOf(Entity entity) {
  const auto tables = CompanyTables();
  return *std::find_if(tables.begin(), tables.end(),
                       [&](const CompanyTable& t) { return t.entity == entity; });
}

void Insert(Database& db, const char* table, std::int64_t code, std::string_view name) {
  Statement insert = db.Prepare("INSERT INTO " + std::string(table) + "(Code, Name) VALUES(?1, ?2)");
  insert.Bind(1, code);
  insert.Bind(2, name);
  insert.Run();
}

// Codes, and the text in the second column, into a book.
void Load(Database& db, CodeBook& book, const char* sql) {
  Statement rows = db.Prepare(sql);
  while (rows.Step()) {
    book.Add(rows.Integer(0));
    for (int column = 1; column < rows.Columns(); ++column) book.AddText(rows.Text(column), rows.Integer(0));
  }
}

}  // namespace

const char* EntityName(Entity entity) { return TableOf(entity).what; }

std::int64_t FindOrMakeNamed(ImportSession& session, Entity entity, std::string_view name) {
  CodeBook& book = session.Book(entity);
  const auto [place, added] = session.Names(entity).try_emplace(std::string(name), book.Largest() + 1);
  if (added) {
    book.Add(place->second);
    Insert(session.db, TableOf(entity).table, place->second, name);
  }
  return place->second;
}

std::int64_t MakeEntity(ImportSession& session, Entity entity, std::string_view field) {
  CodeBook& book = session.Book(entity);
  const CompanyTable& table = TableOf(entity);
  const std::int64_t high = table.fields[0].high;
  std::optional<std::int64_t> code = ReadWhole(field, 1, high);
  const bool text = !code || book.Has(*code);
  if (text) code = book.Largest() + 1;
  if (*code > high) return 0;
  book.Add(*code);
  book.AddText(field, *code);
  const std::string name = text ? std::string(field) : std::string(table.what) + " " + std::to_string(*code);
  Statement insert = session.db.Prepare("INSERT INTO " + std::string(table.table) +
                                        "(Code, Name, AbbName) VALUES(?1, ?2, ?3)");
  insert.Bind(1, *code);
  insert.Bind(2, std::string_view(name));
  insert.Bind(3, text ? field : std::string_view());
  insert.Run();
  ++session.Count(entity);
  return *code;
}

void LoadBooks(ImportSession& session) {
  Database& db = session.db;
  Load(db, session.Book(Entity::Group), "SELECT Code FROM GoodGrps");
  Load(db, session.Book(Entity::Unit), "SELECT Code FROM Units");
  Load(db, session.Book(Entity::Store), "SELECT Code, AbbName FROM Stores");
  Load(db, session.Book(Entity::Person), "SELECT Code, AbbName FROM Persons");
  Load(db, session.Book(Entity::Category), "SELECT Code FROM Categories");
  Load(db, session.Book(Entity::Colour), "SELECT code FROM colors");
  Load(db, session.Book(Entity::Tag), "SELECT Code FROM TagS");
  Load(db, session.Book(Entity::DetailType), "SELECT ID FROM DetailTypes");
  Load(db, session.Book(Entity::Combination), "SELECT ID FROM DetailValues");
  Load(db, session.Book(Entity::PriceLevel), "SELECT Code FROM costlevel");
  Load(db, session.Book(Entity::List), "SELECT Code FROM SelectedLists");
  Load(db, session.Book(Entity::Good), "SELECT Code, AbbName, kala_index FROM GoodInf");
  for (const Entity entity : {Entity::Group, Entity::Unit}) {
    Statement names =
        db.Prepare(std::string("SELECT Name, Code FROM ") + TableOf(entity).table + " ORDER BY Code");
    while (names.Step()) session.Names(entity).try_emplace(std::string(names.Text(0)), names.Integer(1));
  }
  Statement ratios =
      db.Prepare("SELECT Code, Meghdar_Formool FROM GoodInf WHERE Meghdar_Formool IS NOT NULL");
  while (ratios.Step()) session.ratios[ratios.Integer(0)] = ratios.Number(1);
  Statement combinations = db.Prepare("SELECT ID, Kala FROM DetailValues");
  while (combinations.Step()) session.goodOfCombination[combinations.Integer(0)] = combinations.Integer(1);
}

}  // namespace goods
