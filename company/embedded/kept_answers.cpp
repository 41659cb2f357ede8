#include "company/embedded/kept_answers.h"

namespace goods {

const RowStore* KeptAnswers::Find(std::string_view statement) const {
  const auto found = answers_.find(statement);
  return found == answers_.end() ? nullptr : &found->second;
}

void KeptAnswers::Keep(std::string_view statement, const RowStore& rows) {
  if (rows.Count() > kMostRows) return;
  if (answers_.size() >= kMostAnswers) Forget();
  answers_.insert_or_assign(std::string(statement), rows.Head(kMostRows));
}

}  // namespace goods
