// A random company whose goods list is asked for and worked out.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "company_fixture.h"
#include "turnover_company.h"

namespace goods {

using Rows = std::vector<std::vector<std::string>>;
using Holds = std::function<bool(const TurnoverRow&)>;

class TurnoverTest : public ::testing::Test {
 protected:
  void Open(unsigned seed, bool large = false) {
    connection_.reset();
    file_.emplace("turnover-" + std::to_string(seed) + ".company");
    WriteTurnoverCompany(file_->Path(), seed, large);
    connection_ = OpenCompany(file_->Path())->OpenConnection();
    tables_.emplace(*connection_);
  }
  Rows List(const std::string& parameters) { return Ask(*connection_, "exec GoodInf_sp " + parameters); }
  Rows Expected(const TurnoverFigures& figures, const Holds& holds = {}) const {
    Rows expected;
    for (const TurnoverRow& row : tables_->Rows(figures)) {
      if (!holds || holds(row)) expected.push_back(row.Cells());
    }
    return expected;
  }
  // All; a store's; the others'; and each of them in periods of every form.
  std::vector<TurnoverFigures> EveryKindOfFigures(std::mt19937& random) const {
    std::vector<TurnoverFigures> all;
    for (int store = 0; store < 3; ++store) {
      for (int period = 0; period < 7; ++period) {
        TurnoverFigures figures;
        figures.store = store == 0 ? 0 : 1 + static_cast<std::int64_t>(random() % 4);
        figures.otherStores = store == 2;
        if (period == 1 || period == 4) figures.from = tables_->AnyDate(random);
        if (period == 2 || period == 3 || period == 6) figures.from = "";
        if (period == 1 || period == 2 || period == 5) figures.to = tables_->AnyDate(random);
        if (period == 3) figures.to = "";
        all.push_back(figures);
      }
    }
    return all;
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::optional<TurnoverTables> tables_;
};

}  // namespace goods
