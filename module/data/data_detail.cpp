// The fetches of the good-detail reports.
#include <optional>

#include "module/data/good_transactions_dm.h"
#include "module/framework/texts.h"

namespace goods {

void TGoodTransactions_DM::FetchDetails(TQueryWithSource& report, std::string_view head,
                                        std::string_view parameters, TForm* window, int mode, bool shown) {
  if (!shown) return;
  std::optional<WaitingScope> waiting;
  if (mode == 1) waiting.emplace(host_.Waiting(), window, kFetchingData);
  report.Query.SetSQL(std::string(head) + std::string(parameters));
  report.Query.Open();
}

void TGoodTransactions_DM::AllGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(AllGoodDetailTransaction, " EXEC AllGoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::OneGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(OneGoodDetailTransaction, " EXEC OneGoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::GoodDetailTransaction_GetAll(std::string_view parameters, TForm* window, int mode,
                                                        bool shown) {
  FetchDetails(GoodDetailTransaction, " EXEC GoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::GoodDetailKardexDismatch_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(GoodDetailKardexDismatch, " EXEC DetailKardexAsset_Dismatch ", parameters, window, mode,
               shown);
}

void TGoodTransactions_DM::GoodDetailOperationDismatch_GetAll(std::string_view parameters, TForm* window,
                                                              int mode, bool shown) {
  FetchDetails(GoodDetailOperationDismatch, " EXEC DetailOperation_Dismatch ", parameters, window, mode,
               shown);
}

}  // namespace goods
