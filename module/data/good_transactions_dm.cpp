#include "module/data/good_transactions_dm.h"

namespace goods {

TGoodTransactions_DM::TGoodTransactions_DM(THost& host, TComponent* owner)
    : TComponent(owner, "GoodTransactions_DM"), host_(host), connection_(host.Connection()) {
  // KardexSearch_QRYCalcFields: the rows are numbered as they were read.
  KardexSearch.Query.AddComputed({"Radif", ColumnType::Integer}, [](std::size_t row, const RowStore&) {
    return Value(static_cast<std::int64_t>(row) + 1);
  });
}

TGoodTransactions_DM::~TGoodTransactions_DM() = default;

}  // namespace goods
