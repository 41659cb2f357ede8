// Watchers of rows that change in several steps.
#pragma once

#include <span>

#include "host/data/query.h"

namespace goods {

// Does the action; whoever watches the queries is told once, when all is in place, also when it fails. No
// scope guard, because the watchers may throw.
template <typename Action>
void ToldOnce(std::span<TADOQuery* const> queries, Action&& action) {
  for (TADOQuery* query : queries) query->DisableControls();
  const auto tell = [&queries] {
    for (TADOQuery* query : queries) query->EnableControls();
  };
  try {
    action();
  } catch (...) {
    tell();
    throw;
  }
  tell();
}

template <typename Action>
void ToldOnce(TADOQuery& query, Action&& action) {
  TADOQuery* const one = &query;
  ToldOnce(std::span(&one, 1), action);
}

}  // namespace goods
