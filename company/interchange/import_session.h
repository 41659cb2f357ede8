// What the parts of one import share.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>

#include "company/embedded/sqlite.h"
#include "company/interchange/code_book.h"
#include "company/interchange/company_tables.h"
#include "company/interchange/table_reader.h"
#include "company/writer/movement_intake.h"

namespace goods {

struct ImportSession {
  ImportSession(const ImportSource& from, Database& to, MovementIntake& movementIntake)
      : source(from), db(to), intake(movementIntake) {}

  ImportSource source;
  Database& db;
  MovementIntake& intake;
  bool adding = false;  // to a company that is there
  bool unsignedQuantities = false;
  // Of a company that is added to.
  std::function<bool(std::int64_t kind, std::int64_t number)> hasDocument;
  std::function<void(std::int64_t good)> touchGood;

  std::array<CodeBook, static_cast<std::size_t>(Entity::Count)> books;
  std::array<bool, static_cast<std::size_t>(Entity::Count)> made{};  // whose file is missing
  std::unordered_map<std::string, std::int64_t> groupNames;
  std::unordered_map<std::string, std::int64_t> unitNames;
  std::unordered_map<std::int64_t, Decimal> ratios;  // of goods with a second unit
  std::unordered_map<std::int64_t, std::int64_t> goodOfCombination;
  std::array<std::int64_t, static_cast<std::size_t>(Entity::Count)> counts{};  // rows read
  std::int64_t movements = 0;

  CodeBook& Book(Entity entity) { return books[static_cast<std::size_t>(entity)]; }
  std::unordered_map<std::string, std::int64_t>& Names(Entity entity) {
    return entity == Entity::Unit ? unitNames : groupNames;
  }
  bool Made(Entity entity) const { return made[static_cast<std::size_t>(entity)]; }
  std::int64_t& Count(Entity entity) { return counts[static_cast<std::size_t>(entity)]; }
};

// What an entity is called in messages.
const char* EntityName(Entity entity);

// The code of a group or a unit, which is made where no one is called so.
std::int64_t FindOrMakeNamed(ImportSession& session, Entity entity, std::string_view name);
// The code of a store or a person that no file tells of; it is made where there is none. 0 when no number is
// left.
std::int64_t MakeEntity(ImportSession& session, Entity entity, std::string_view field);
// Fills the books from the company that is added to.
void LoadBooks(ImportSession& session);

}  // namespace goods
