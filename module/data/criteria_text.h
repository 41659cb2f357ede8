// CriteriaText: the criteria of a report as they are put together, as parameters and in Persian.
#pragma once

#include <string>
#include <string_view>

#include "host/services/public_methods.h"
#include "module/data/good_transactions_dm.h"

namespace goods {

// Parameters and phrases read in the order in which they are added.
struct CriteriaText {
  std::string parameters;
  std::string caption;

  // name as the procedure knows it; value as it goes out, quoted where it is a text.
  void Add(std::string_view name, std::string_view value) {
    AddPiece(std::string(name) + " = " + std::string(value));
  }
  // A piece with a spacing of its own.
  void AddPiece(const std::string& piece) { parameters = ADDParam(piece, parameters); }
  void Say(std::string_view phrase) { caption = TGoodTransactions_DM::ADDFarsiFilter(phrase, caption); }
};

}  // namespace goods
