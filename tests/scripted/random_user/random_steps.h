// What a user could do next, chosen at random among all that can be reached.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/scripted/engine/case_run.h"

namespace goods {

class RandomSteps {
 public:
  explicit RandomSteps(std::uint64_t seed) : random_(seed) {}

  // A step of the case language that fits the window in front: an entry point when none is open; else a key,
  // a click, typing, a choice, a row, a fault of the host, waiting. Nearly always one that can be taken.
  std::string Next(CaseRun& run);

 private:
  std::uint64_t Below(std::uint64_t count) { return random_() % count; }
  bool Chance(int percent) { return Below(100) < static_cast<std::uint64_t>(percent); }
  template <typename List>
  auto Any(const List& list) {
    return *(std::begin(list) + static_cast<std::ptrdiff_t>(Below(std::size(list))));
  }

  std::string Code();
  std::string Date();
  std::string SomeText();
  std::string OpenSomething(CaseRun& run);
  std::string HostFault();
  std::string WindowAction();
  std::string OnControl(TControl& control, const std::string& path);
  std::string OnGrid(class TSmartDBGrid_QRT& grid, const std::string& path);

  std::mt19937_64 random_;
};

}  // namespace goods
