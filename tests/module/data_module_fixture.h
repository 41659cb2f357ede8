// A data module on the scripted host, and short ways to give rows and to ask what was sent.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/core/text.h"
#include "module/data/good_transactions_dm.h"
#include "tests/scripted/scripted_host.h"

namespace goods {

class DataModuleTest : public testing::Test {
 protected:
  using Texts = std::vector<std::string>;
  using Row = std::vector<std::optional<std::string>>;

  // columns: names joined with blanks; all of them are texts, from which numbers are read.
  void Give(const std::string& pattern, const std::string& columns, std::vector<Row> rows) {
    CannedRows canned;
    for (const std::string& name : Split(columns, ' ')) canned.columns.push_back({name, ColumnType::Text});
    canned.rows = std::move(rows);
    ASSERT_EQ(ProblemOf(canned), "");
    host.Connection().Answer(pattern, std::move(canned));
  }

  // The statements since the last call.
  Texts Sent() { return host.Log.Take(CallKind::Statement); }
  // The same as calls, which tell whether rows were asked for.
  Texts SentCalls() { return host.Log.TakeAll(); }

  ScriptedHost host;
  TGoodTransactions_DM dm{host, nullptr};
};

}  // namespace goods
