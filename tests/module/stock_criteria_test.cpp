// The criteria of the overall turnover and of the stock per store: each random one is put together a second
// way, as lists of pieces, and the two agree.
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "module/reports/asset/store_stock_criteria.h"
#include "module/reports/turnover/overall_criteria.h"

namespace goods {
namespace {

constexpr int kRounds = 10000;

class Dice {
 public:
  bool Coin() { return Below(2) == 1; }
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(engine_); }
  std::string Text() {
    static const std::vector<std::string> kTexts{"",    "پیچ",  "o'ring", "''",     "12",
                                                 "a,b", "@x=1", "--",     " یک دو "};
    return kTexts[static_cast<std::size_t>(Below(static_cast<int>(kTexts.size())))];
  }
  std::optional<std::string> Date() {
    if (Coin()) return std::nullopt;
    return "14" + std::to_string(10 + Below(80)) + "/0" + std::to_string(1 + Below(9)) + "/1" +
           std::to_string(Below(10));
  }
  PeriodCriteria Period() { return {Coin(), Date(), Date(), Coin()}; }
  GeneralSearchCriteria Search(int items) {
    GeneralSearchCriteria search{
        .item = Below(items), .text = Text(), .reverse = Coin(), .reverseEnabled = Coin()};
    if (!search.text.empty()) search.caption = "جستجو: " + search.text;
    return search;
  }

 private:
  std::mt19937 engine_{20240614};  // the same criteria in every run
};

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char each : text) {
    quoted += each;
    if (each == '\'') quoted += each;
  }
  return quoted + "'";
}

std::string Joined(const std::vector<std::string>& pieces) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) text += (i == 0 ? "" : ",") + pieces[i];
  return text;
}

std::string InBrackets(const std::vector<std::string>& phrases) {
  std::string text;
  for (const std::string& phrase : phrases) text += (text.empty() ? "(" : " (") + phrase + ")";
  return text;
}

// "from", "to", both or neither.
std::string PeriodPhrase(const PeriodCriteria& period) {
  std::vector<std::string> words;
  if (period.from) words.push_back("از تاریخ " + *period.from);
  if (period.to) words.push_back("تا تاریخ " + *period.to);
  return words.size() == 2 ? words[0] + " " + words[1] : words.empty() ? "" : words[0];
}

std::vector<std::string> OverallPieces(const OverallCriteria& criteria, const HiddenColumns& hidden) {
  std::vector<std::string> pieces;
  const char* const names[] = {"@KalaCode", "@KalaName", "@AbbName"};
  if (criteria.search.text != "")
    pieces.push_back(names[criteria.search.item] + ("=" + Quoted(criteria.search.text)));
  if (criteria.store != "") pieces.push_back("@anbarcode=" + criteria.store);
  if (criteria.period.inUse) {
    if (criteria.period.from) pieces.push_back("@FromDate='" + *criteria.period.from + "'");
    if (criteria.period.to) pieces.push_back("@ToDate='" + *criteria.period.to + "'");
  } else {
    pieces.insert(pieces.end(), {"@FromDate='0000/00/00'", "@ToDate='9999/99/99'"});
  }
  pieces.push_back(std::string("@Reverst=") +
                   (criteria.search.reverseEnabled && criteria.search.reverse ? "1" : "0"));
  pieces.push_back(std::string("@CalcBeforeDatePeriod=") + (criteria.period.countsBefore ? "1" : "0"));
  pieces.push_back("@script_Sadere_sayer=" + std::to_string(hidden.outgoing));
  pieces.push_back("@script_Varede_sayer=" + std::to_string(hidden.incoming));
  return pieces;
}

TEST(OverallCriteria, TenThousandRandomOnesReadAsTheirPieces) {
  Dice dice;
  for (int round = 0; round < kRounds; ++round) {
    OverallCriteria criteria{.search = dice.Search(3), .period = dice.Period()};
    if (dice.Coin()) {
      criteria.store = std::to_string(1 + dice.Below(60));
      if (dice.Coin()) criteria.storeName = "انبار " + criteria.store;
    }
    criteria.amounts = {static_cast<unsigned>(dice.Below(32)), static_cast<unsigned>(dice.Below(64))};
    criteria.quantities = {static_cast<unsigned>(dice.Below(32)), static_cast<unsigned>(dice.Below(64))};
    ASSERT_EQ(AmountParametersOf(criteria), Joined(OverallPieces(criteria, criteria.amounts)));
    ASSERT_EQ(QuantityParametersOf(criteria), Joined(OverallPieces(criteria, criteria.quantities)));
    std::vector<std::string> phrases;
    if (criteria.search.text.find_first_not_of(' ') != std::string::npos)
      phrases.push_back(criteria.search.caption);
    if (criteria.storeName != "") phrases.push_back("انبار: " + criteria.storeName);
    if (criteria.period.inUse && PeriodPhrase(criteria.period) != "")
      phrases.push_back(PeriodPhrase(criteria.period));
    ASSERT_EQ(TextOf(criteria).caption, InBrackets(phrases));
  }
}

// The newest piece stands in front.
TEST(StoreStockCriteria, TenThousandRandomOnesReadAsTheirPieces) {
  Dice dice;
  for (int round = 0; round < kRounds; ++round) {
    StoreStockCriteria criteria{.search = dice.Search(2), .period = dice.Period()};
    for (int store = dice.Below(8); store > 0; --store)
      criteria.stores.insert(criteria.stores.end(), static_cast<std::size_t>(1 + dice.Below(3)),
                             dice.Below(90));
    if (dice.Coin()) {
      criteria.priceBasis = dice.Below(14);
      criteria.basisName = "آخرین قيمت خريد";
    }
    std::vector<std::string> pieces{std::string("@CalcBefore =") + (criteria.period.countsBefore ? "1" : "0"),
                                    std::string("@Reverse =") + (criteria.search.reverse ? "1" : "0")};
    std::string codes;
    for (const std::int64_t store : criteria.stores) codes += std::to_string(store) + ",";
    pieces.push_back("@StoreCodes ='-1,0," + codes + "'");
    if (!criteria.period.inUse) {
      pieces.insert(pieces.end(), {"@ToDate='9'", "@FromDate=''"});
    } else {
      if (criteria.period.to) pieces.push_back("@ToDate='" + *criteria.period.to + "'");
      if (criteria.period.from) pieces.push_back("@FromDate='" + *criteria.period.from + "'");
    }
    if (criteria.search.text != "")
      pieces.push_back((criteria.search.item == 0 ? "@GoodCode=" : "@GoodName=") +
                       Quoted(criteria.search.text));
    ASSERT_EQ(StockParametersOf(criteria), Joined(pieces));
    std::vector<std::string> phrases;
    if (criteria.search.text != "") phrases.push_back(criteria.search.caption);
    if (criteria.period.inUse && PeriodPhrase(criteria.period) != "")
      phrases.push_back(PeriodPhrase(criteria.period));
    if (criteria.basisName != "") phrases.push_back("مبنای قیمت: " + criteria.basisName);
    ASSERT_EQ(TextOf(criteria).caption, InBrackets(phrases));
  }
}

TEST(StoreStockCriteria, AnotherPriceBasisIsAnotherCriterionThoughTheListIsTheSame) {
  StoreStockCriteria criteria;
  const std::string before = TextOf(criteria).parameters;
  criteria.priceBasis = 3;
  EXPECT_NE(TextOf(criteria).parameters, before);
}

}  // namespace
}  // namespace goods
