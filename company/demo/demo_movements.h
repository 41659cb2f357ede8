// Five years of documents.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "company/demo/demo_goods.h"

namespace goods {

// Plays the company's business day by day. Goods that may not go negative never leave a store that does not
// have them. What it keeps grows with goods and stores, not with movements.
class DemoMovements {
 public:
  DemoMovements(CompanyWriter& writer, const DemoOptions& options, std::span<const DemoGood> goods,
                DemoPeople people, Random& random, std::function<void(std::int64_t)> progress);
  void Run();

 private:
  struct Document {
    std::int64_t code = 0;
    std::int64_t store = 0;
    std::int64_t person = 0;
    std::int64_t rows = 0;
  };
  // One good at one place, in thousandths.
  struct Row {
    std::int64_t good = 0;  // its place
    std::int64_t store = 0;
    int type = 0;
    std::int64_t quantity = 0;  // signed
    std::int64_t price = -1;    // rials; negative: none
  };

  void Opening();
  void OneDocument();
  void Incoming(int type, bool fromSupplier);
  void Outgoing(int type, bool toSupplier);
  void Transfer();
  void Production(int made, int used, int besides);
  void Voucher();
  void Split();

  Document Begin(int kind, std::int64_t person);
  void Write(Document& document, const Row& row);
  void WriteDetails(const Movement& movement, const Row& row, std::int64_t radif);
  std::int64_t PlantMismatch(const Movement& movement, const Row& row, std::int64_t radif);

  std::int64_t AnyGood();
  // A good that the store has, or one that may go negative; negative when none was found.
  std::int64_t GoodInStore(std::int64_t store);
  std::int64_t Customer();
  std::int64_t Supplier();
  std::int64_t Price(std::int64_t good);
  std::int64_t BuyQuantity(std::int64_t good);
  // What an outgoing row takes; 0 when the store has nothing to give.
  std::int64_t TakeQuantity(std::int64_t good, std::int64_t store);
  std::int64_t& Stock(std::int64_t good, std::int64_t store) {
    return stock_[static_cast<std::size_t>(good * options_.stores + store - 1)];
  }
  std::int64_t& DetailStock(std::int64_t value, std::int64_t store) {
    return detailStock_[static_cast<std::size_t>((value - 1) * options_.stores + store - 1)];
  }
  std::int64_t Left() const { return options_.movements - made_; }

  CompanyWriter& writer_;
  const DemoOptions& options_;
  std::span<const DemoGood> goods_;
  DemoPeople people_;
  Random& random_;
  std::function<void(std::int64_t)> progress_;
  Statement planted_;
  std::vector<std::int64_t> stock_;
  std::vector<std::int64_t> detailStock_;
  std::array<std::int64_t, 16> numbers_{};  // the last document number of each kind
  std::string date_;
  std::int64_t day_ = 0;
  std::int64_t made_ = 0;
  std::int64_t busyMade_ = 0;
  std::int64_t detailRows_ = 0;
  std::int64_t plantedCount_ = 0;
};

}  // namespace goods
