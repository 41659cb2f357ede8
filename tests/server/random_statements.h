// Statements that reports could send, by chance.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace goods {

// Calls of every procedure with random criteria of the company that DemoOptions{.goods, .stores} makes: codes
// around those that exist, texts out of its names, dates of its years, every flag.
class RandomStatements {
 public:
  RandomStatements(std::uint32_t seed, int goods, int stores)
      : random_(seed), goods_(goods), stores_(stores) {}
  std::string Next();

 private:
  int Below(int end) { return static_cast<int>(random_() % static_cast<std::uint32_t>(end)); }
  bool Maybe(int outOf = 2) { return Below(outOf) == 0; }
  std::string Number(int low, int high) { return std::to_string(low + Below(high - low + 1)); }
  std::string Text();
  std::string Date();
  std::string Codes(int most);
  std::string Quantity();
  std::string Search(const std::string& head, bool named);
  std::string Goods();
  std::string Overall();
  std::string StoreAsset();
  std::string Details(const std::string& procedure, int titles);
  std::string OneGood();
  std::string CardMismatch();
  std::string OperationMismatch();

  std::mt19937 random_;
  int goods_;
  int stores_;
};

}  // namespace goods
