// Writing a whole company file: the one way in which a company comes to be.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "company/embedded/sqlite.h"
#include "company/files/whole_file.h"
#include "company/writer/movement.h"
#include "company/writer/movement_intake.h"
#include "company/writer/work_progress.h"

namespace goods {

// Writes into a file beside the target and moves it into place at the end (see WholeFile), so that a company
// is there whole or not at all, readable by its owner alone. A company that is replaced is first brought to
// rest, so that nothing of its journal is played into the new one. Movements come in any order; those of one
// date are ordered as they come. Memory does not grow with their number. Failures throw CompanyError,
// FileError or SqliteError.
class CompanyWriter {
 public:
  // Throws when the file exists and may not be replaced, is in use, or is being written by another program.
  // watcher hears of Finish and may stop it.
  CompanyWriter(const std::string& path, bool replace, WorkWatcher watcher = {});
  CompanyWriter(const CompanyWriter&) = delete;
  CompanyWriter& operator=(const CompanyWriter&) = delete;
  // Leaves nothing behind unless Finish was reached.
  ~CompanyWriter();

  // For the tables that are small: units, goods, stores, persons, and the like. All goods before Finish.
  Database& Tables() { return *db_; }
  void SetTitle(std::string_view title);
  void AddUser(std::int64_t code, std::string_view login, std::string_view name,
               std::string_view passwordHash, bool everyRight, bool seesPrices = true);

  // Returns the row's Radif, which counts from 1 where movements have no order of their own.
  std::int64_t Add(const Movement& movement) { return intake_->Add(movement); }
  void AddDetail(const Movement& movement, const DetailMovement& detail);
  MovementIntake& Intake() { return *intake_; }

  // Works out costs, averages and document headers. unattached hears of detail rows and remarks that belong
  // to nothing; they are left out.
  void WriteMovements(const std::function<void(const Unattached&)>& unattached = {});
  // Writes the movements unless that was done, makes the indexes, and moves the company into place.
  void Finish();

 private:
  void WriteCards(RecordSorter& cards, const std::function<void(const Unattached&)>& unattached);

  std::string path_;
  bool replace_;
  WorkWatcher watcher_;
  WholeFile file_;
  std::optional<Database> db_;
  std::optional<MovementKinds> kinds_;
  std::optional<MovementIntake> intake_;
  bool written_ = false;
};

// Prepares the cost valuation anew; it is that of the last movements.
void RefreshValuation(Database& db);
// The largest Radif of a company, noted for whoever adds to it later.
void NoteLastRadif(Database& db, std::int64_t radif);

}  // namespace goods
