// Watchers of rows that change in several steps.
#pragma once

#include <span>

#include "host/data/query.h"
#include "module/framework/endings.h"

namespace goods {

// Does the action; whoever watches the queries is told once, when all is in place, also when it fails.
template <typename Action>
void ToldOnce(std::span<TADOQuery* const> queries, Action&& action) {
  for (TADOQuery* query : queries) query->DisableControls();
  WithEnd(action, [&queries] {
    for (TADOQuery* query : queries) query->EnableControls();
  });
}

template <typename Action>
void ToldOnce(TADOQuery& query, Action&& action) {
  TADOQuery* const one = &query;
  ToldOnce(std::span(&one, 1), action);
}

}  // namespace goods
