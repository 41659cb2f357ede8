// Reading movements, their detail rows and documents' remarks.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "company/interchange/batch_hash.h"
#include "company/interchange/import_session.h"

namespace goods {

// The titles of the columns of movements.csv, detail_movements.csv and documents.csv.
const std::vector<ColumnTitle>& MovementTitles();
const std::vector<ColumnTitle>& DetailMovementTitles();
const std::vector<ColumnTitle>& RemarkTitles();

class MovementImport {
 public:
  MovementImport(ImportSession& session, const MovementKinds& kinds, BatchHash& hash);
  void Run();
  // Notes the rows of documents that are in the company already. They count for the batch, so that one that
  // was added before is recognised as that.
  void RefuseKnownDocuments() const;

 private:
  // Rows that follow each other with the same date, person and store are one document where documents have no
  // numbers; a transfer's may have several stores.
  struct Numbering {
    std::int64_t number = 0;
    std::string date;
    std::int64_t person = 0;
    std::int64_t store = 0;
  };

  void ReadRow();
  void ReadDate(Movement& movement);
  std::int64_t Reference(std::size_t column, Entity entity);
  void ReadType(Movement& movement);
  void ReadQuantity(Movement& movement);
  std::optional<Decimal> Amount(std::size_t column);
  std::optional<Decimal> SignedAmount(int type);
  void ReadPrice(Movement& movement);
  void ReadDocument(Movement& movement);
  void NumberDocument(Movement& movement, std::int64_t kind);
  void ReadOrder(Movement& movement);
  void CheckOrders();
  void CheckSigns();

  ImportSession& session_;
  const MovementKinds& kinds_;
  BatchHash& hash_;
  TableReader reader_;
  std::array<int, 256> sign_{};  // of each movement type
  std::string dateText_;
  std::optional<std::string> date_;
  std::unordered_map<std::string, std::optional<int>> types_;
  std::array<Numbering, 16> numbering_;
  std::vector<std::int64_t> orders_;
  std::vector<std::pair<std::size_t, std::int64_t>> known_;  // line and number
  bool rising_ = true;
  bool anyOutgoing_ = false;        // a negative quantity
  bool incomingOfOutType_ = false;  // a positive one of a type that takes out
};

// detail_movements.csv.
void ReadDetailMovements(ImportSession& session, TableReader& reader);
TableReader DetailMovementsReader(ImportSession& session);
// documents.csv.
void ReadRemarks(ImportSession& session, TableReader& reader);
TableReader RemarksReader(ImportSession& session);

}  // namespace goods
