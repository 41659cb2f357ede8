// The kinds of operation that move a good, as stock-card rows carry them in Type.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "host/data/value.h"

namespace goods {

// Their codes have no gap. Types that differ only in what made them share a label and a document.
enum class MovementType : std::uint8_t {
  FixedProductionOut = 0,
  Sale = 1,
  Purchase = 2,
  OpeningStock = 3,
  SaleReturn = 4,
  PurchaseReturn = 5,
  TransferOut = 6,
  TransferIn = 7,
  VariableProductionIn = 8,
  VariableProductionOut = 9,
  FixedProductionIn = 10,
  Expense = 11,
  SaleOfOneKind = 12,
  SaleOfAnotherKind = 13,
  VoucherFirst = 14,
  VoucherSecond = 15,
  VoucherThird = 16,
  VoucherFourth = 17,
  AdvancedProductionFirst = 18,
  AdvancedProductionSecond = 19,
  AdvancedProductionThird = 20,
  IssueNote = 21,
  ReceiptNote = 22,
  Revenue = 23,
  DetailSplitOut = 24,
  DetailSplitIn = 25,
};

// The document that made a movement.
enum class DocumentKind : std::uint8_t {
  FixedProduction,
  SaleInvoice,
  PurchaseInvoice,
  GoodRecord,
  SaleReturn,
  PurchaseReturn,
  Transfer,
  VariableProduction,
  AdvancedProduction,
  IssueNote,
  ExpenseNote,
  ReceiptNote,
  RevenueNote,
  Voucher,
  None,  // a detail split has no document of its own
};
inline constexpr std::size_t kDocumentKinds = static_cast<std::size_t>(DocumentKind::None) + 1;

struct MovementTypeRow {
  MovementType type{};
  DocumentKind document{};
  // In the choice lists, without the two blanks that they put before it; empty for a type that they do not
  // offer.
  std::string_view label{};
};

inline constexpr std::array<MovementTypeRow, 26> kMovementTypes = [] {
  using M = MovementType;
  using D = DocumentKind;
  return std::array<MovementTypeRow, 26>{{
      {M::FixedProductionOut, D::FixedProduction},
      {M::Sale, D::SaleInvoice, "فروش"},
      {M::Purchase, D::PurchaseInvoice, "خرید"},
      {M::OpeningStock, D::GoodRecord, "موجودی اول دوره"},
      {M::SaleReturn, D::SaleReturn, "برگشت از فروش"},
      {M::PurchaseReturn, D::PurchaseReturn, "برگشت از خرید"},
      {M::TransferOut, D::Transfer, "حواله از انبار"},
      {M::TransferIn, D::Transfer, "حواله به انبار"},
      {M::VariableProductionIn, D::VariableProduction, "کالای تولیدی در تولید آنالیز متغیر"},
      {M::VariableProductionOut, D::VariableProduction, "کالای مصرفی در تولید آنالیز متغیر"},
      {M::FixedProductionIn, D::FixedProduction},
      {M::Expense, D::ExpenseNote, "کالای هزینه شده"},
      {M::SaleOfOneKind, D::SaleInvoice},
      {M::SaleOfAnotherKind, D::SaleInvoice},
      {M::VoucherFirst, D::Voucher},
      {M::VoucherSecond, D::Voucher},
      {M::VoucherThird, D::Voucher},
      {M::VoucherFourth, D::Voucher},
      {M::AdvancedProductionFirst, D::AdvancedProduction},
      {M::AdvancedProductionSecond, D::AdvancedProduction},
      {M::AdvancedProductionThird, D::AdvancedProduction},
      {M::IssueNote, D::IssueNote, "حواله خروج کالا"},
      {M::ReceiptNote, D::ReceiptNote, "رسید ورود کالا"},
      {M::Revenue, D::RevenueNote, "کالای درآمد شده"},
      {M::DetailSplitOut, D::None, "تقسیم خروج جزییات"},
      {M::DetailSplitIn, D::None, "تقسیم ورود جزییات"},
  }};
}();

static_assert(
    [] {
      for (std::size_t code = 0; code < kMovementTypes.size(); ++code)
        if (kMovementTypes[code].type != static_cast<MovementType>(code)) return false;
      return kMovementTypes.back().type == MovementType::DetailSplitIn;
    }(),
    "each type has its row, in the place of its code");

// The type of a row: none where the cell is null or holds another code.
std::optional<MovementType> MovementTypeOf(const Value& code);

constexpr DocumentKind DocumentOf(MovementType type) {
  return kMovementTypes[static_cast<std::size_t>(type)].document;
}

}  // namespace goods
