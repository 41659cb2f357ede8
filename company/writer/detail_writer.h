// The detail rows of movements, written beside the stock cards.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "company/embedded/sqlite.h"
#include "company/writer/movement_intake.h"

namespace goods {

// Follows the goods in rising order. Keeps the waiting detail rows of one good in memory.
class DetailWriter {
 public:
  DetailWriter(Database& db, RecordSorter& details, std::function<void(const Unattached&)> unattached);

  void BeginGood(std::int64_t good);
  // Writes the detail rows of a movement of the good.
  void Write(const WaitingMovement& waiting);
  // Once all goods are through.
  void End();

 private:
  struct Waiting {
    DetailMovement detail;
    std::string comment;
    std::size_t tag = 0;
    bool written = false;
  };

  void EndGood();
  void Insert(const WaitingMovement& waiting, const Waiting& part);
  void Report(Unattached::Kind kind, std::size_t tag) const;

  Statement insert_;
  RecordSorter& details_;
  std::function<void(const Unattached&)> unattached_;
  bool more_ = false;
  std::vector<Waiting> ofGood_;  // by Radif and value
};

}  // namespace goods
