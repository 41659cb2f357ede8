// Adding movements to a company that is there already.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "company/embedded/sqlite.h"
#include "company/writer/movement.h"
#include "company/writer/movement_intake.h"
#include "company/writer/work_progress.h"

namespace goods {

// Everything happens in one transaction: until Finish has returned the company is as it was, also when the
// program is killed. Added rows stand behind the rows of the same good and date. From the first touched date
// on, costs and averages are worked out anew, and so are the stored figures of the touched goods. A row of a
// type that has no price of its own (issues, transfers, what a production uses, splits) and whose price was
// its cost keeps that as its price. Failures throw CompanyError, FileError or SqliteError.
class CompanyAdder {
 public:
  // Brings an older file up to date first. Throws CompanyError when the file is no company or may not be
  // written.
  CompanyAdder(const std::string& path, WorkWatcher watcher = {});
  CompanyAdder(const CompanyAdder&) = delete;
  CompanyAdder& operator=(const CompanyAdder&) = delete;
  // Undoes everything unless Finish was reached.
  ~CompanyAdder();

  Database& Tables() { return db_; }
  MovementIntake& Intake() { return *intake_; }
  bool HasDocument(std::int64_t kind, std::int64_t number);
  // The good's ratio of units is another one: its whole card is worked out anew.
  void TouchGood(std::int64_t good) { touched_.insert(good); }

  // Writes the movements; unattached as CompanyWriter has it. May be left out.
  void WriteMovements(const std::function<void(const Unattached&)>& unattached);
  // Makes it stay.
  void Finish();

 private:
  std::string path_;
  WorkWatcher watcher_;
  Database db_;
  std::optional<Transaction> transaction_;
  std::optional<MovementKinds> kinds_;
  std::optional<MovementIntake> intake_;
  Statement document_;
  std::set<std::int64_t> touched_;
};

}  // namespace goods
