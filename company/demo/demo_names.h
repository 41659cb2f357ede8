// What the demo company's goods, people and documents are called.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace goods {

enum DemoUnit : int {
  kUnitNone = 0,
  kUnitPiece = 1,
  kUnitKilogram = 2,
  kUnitMetre = 3,
  kUnitLitre = 4,
  kUnitSheet = 5,
  kUnitCarton = 6,
  kUnitSack = 7,
  kUnitRoll = 8,
  kUnitGallon = 9,
  kUnitPack = 10
};

// One line of goods: a noun and what it comes in. ratio: first units in a second unit, 0 for none.
struct DemoLine {
  const char* noun;
  int unit;
  int unit2;
  int ratio;
  std::int64_t price;  // rials a unit in the first year
  std::array<const char*, 6> variants;
};

struct DemoTrade {
  const char* name;
  std::span<const DemoLine> lines;
};

std::span<const DemoTrade> DemoTrades();
std::span<const char* const> DemoUnitNames();  // from code 0
std::span<const char* const> DemoStoreNames();
// A person's name by number; numbers below suppliers are firms that sell to the company.
std::string DemoPersonName(std::int64_t number, std::int64_t suppliers);
std::span<const char* const> DemoCities();
// A note on a movement of the type, 0 to 25; some are empty.
const char* DemoComment(int type, std::int64_t choice);

}  // namespace goods
