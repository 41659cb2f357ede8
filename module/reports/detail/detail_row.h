// TDetailRow: the criterion "this detail of the good has that value".
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "module/data/good_transactions_dm.h"
#include "module/reports/detail/detail_value.h"

namespace goods {

// number is 1 to 5. The controls belong to the window, under the names that carry the number.
class TDetailRow : public TPanel {
 public:
  TDetailRow(TComponent* window, int number, std::string caption);

  int Number() const { return number_; }
  // The titles of all details; none is chosen.
  void Fill(TGoodTransactions_DM& data);
  // Another detail was chosen: the controls of its type are shown, empty. Where its type cannot be read they
  // are hidden, and the error passes on.
  void ApplySelection(TGoodTransactions_DM& data);
  // Back to no detail.
  void Clear(TGoodTransactions_DM& data);

  DetailValue Criterion() const;
  // The value is chosen from the detail's list alone.
  bool IsPickList() const { return GoodDetail_CMB.Style() == ComboStyle::PickList; }

  TLabel Detail_LBL;
  TComboBox GoodDetailSelectSearch_CMB;
  TComboBox GoodDetail_CMB;
  TLabel FromGoodDetail_LBL;
  TEdit FromGoodDetail_EDT;
  TDateEdit FromGoodDetailDate_EDT;
  TLabel ToGoodDetail_LBL;
  TEdit ToGoodDetail_EDT;
  TDateEdit ToGoodDetailDate_EDT;

 private:
  int number_;
  std::int64_t type_ = 0;
};

}  // namespace goods
