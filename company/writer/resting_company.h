// A company at rest: safe to be replaced as a file.
#pragma once

#include <optional>
#include <string>

#include "company/embedded/sqlite.h"

namespace goods {

// While it lives, the company at path has nothing beside it that belongs to it (a journal of a killed
// program, a write-ahead log), and no other program can begin to use it. What a killed program left undone is
// undone first, so that the file that comes to this place is not taken for the one that the journal belongs
// to.
//
// A file that is no database is let be. Throws CompanyError when the company is in use, or when something
// beside it cannot be brought to rest; nothing is changed then. Where no company is, what an earlier one left
// behind is removed when replace says so, else told as an error.
class RestingCompany {
 public:
  RestingCompany(const std::string& path, bool replace);
  RestingCompany(const RestingCompany&) = delete;
  RestingCompany& operator=(const RestingCompany&) = delete;
  ~RestingCompany() = default;

 private:
  // Undone before the handle closes; it wrote nothing.
  std::optional<Database> db_;
  std::optional<Transaction> lock_;
};

}  // namespace goods
