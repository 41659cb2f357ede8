#include "tests/scripted/program/module_environment.h"

#include <limits>
#include <stdexcept>
#include <utility>

#include "company/system/library.h"
#include "goods_reports.h"
#include "goods_transaction_qrt.h"
#include "host/core/text.h"
#include "module/reports/asset/goods_asset_store.h"
#include "module/reports/detail/all_good_detail_transaction.h"
#include "module/reports/detail/good_detail_transaction.h"
#include "module/reports/detail/one_good_detail_transaction.h"
#include "module/reports/mismatch/good_detail_kardex_dismatch.h"
#include "module/reports/mismatch/good_detail_operation_dismatch.h"
#include "module/reports/stockcard/kardex.h"
#include "module/reports/stockcard/kardex_search.h"
#include "module/reports/turnover/good_trans_overall.h"
#include "module/reports/turnover/good_transaction.h"

namespace goods {
namespace {

// Reads the arguments of an export one after the other; each has to be there and of its kind.
class ArgumentReader {
 public:
  explicit ArgumentReader(const std::vector<Word>& words) : words_(words) {}

  std::int32_t Integer() {
    const Word& word = Next("a whole number");
    const auto number = word.quoted ? std::nullopt : ParseInteger(word.text);
    if (!number || *number < std::numeric_limits<std::int32_t>::min() ||
        *number > std::numeric_limits<std::int32_t>::max()) {
      throw std::invalid_argument("a whole number is expected, not " + word.text);
    }
    return static_cast<std::int32_t>(*number);
  }
  std::u16string Text() {
    const Word& word = Next("a text");
    if (!word.quoted) throw std::invalid_argument("a text in quotes is expected, not " + word.text);
    return ToUtf16(word.text);
  }
  void End() const {
    if (at_ != words_.size()) throw std::invalid_argument("too many arguments");
  }

 private:
  const Word& Next(const std::string& what) {
    if (at_ == words_.size()) throw std::invalid_argument(what + " is missing");
    return words_[at_++];
  }

  const std::vector<Word>& words_;
  std::size_t at_ = 0;
};

void CallKardex(const std::vector<Word>& words) {
  ArgumentReader arguments(words);
  const std::int32_t good = arguments.Integer();
  const std::int32_t store = arguments.Integer();
  const std::u16string from = arguments.Text();
  const std::u16string to = arguments.Text();
  arguments.End();
  Open_Kardex(good, store, from.c_str(), to.c_str());
}

void CallKardexNegativ(const std::vector<Word>& words) {
  ArgumentReader arguments(words);
  const std::u16string mode = arguments.Text();
  const std::u16string first = arguments.Text();
  const std::u16string second = arguments.Text();
  arguments.End();
  Open_KardexNegativ(mode.c_str(), first.c_str(), second.c_str());
}

// Flags are bytes: any other than 0 is true.
void CallGoodDetailTransactions(const std::vector<Word>& words) {
  ArgumentReader arguments(words);
  const auto flag = [&arguments] { return static_cast<std::uint8_t>(arguments.Integer()); };
  const std::int32_t good = arguments.Integer();
  const std::uint8_t storeGiven = flag();
  const std::int32_t store = arguments.Integer();
  const std::uint8_t datesGiven = flag();
  const std::u16string from = arguments.Text();
  const std::u16string to = arguments.Text();
  const std::uint8_t tagsGiven = flag();
  const std::u16string tags = arguments.Text();
  const std::uint8_t categoryGiven = flag();
  const std::u16string category = arguments.Text();
  arguments.End();
  Open_GoodDetailTransactions(good, storeGiven, store, datesGiven, from.c_str(), to.c_str(), tagsGiven,
                              tags.c_str(), categoryGiven, category.c_str());
}

void CallGarKala(const std::vector<Word>& words) {
  ArgumentReader arguments(words);
  const std::int32_t softwarePart = arguments.Integer();
  arguments.End();
  Open_GarKala(softwarePart);
}

// The exports that users open reports with take nothing; they are those of the table of the reports.
void AddUsersExports(CaseEnvironment& environment) {
  for (const ReportDescription& report : MenuReports()) {
    auto* open = reinterpret_cast<void (*)()>(FindInProgram(report.exportName));
    if (open == nullptr) throw std::logic_error(std::string("no export ") + report.exportName);
    environment.exports[report.exportName] = [open](const std::vector<Word>& words) {
      ArgumentReader(words).End();
      open();
    };
  }
}

// By its class, whose name is that of the report's form behind a T.
template <typename Window>
void AddWindow(CaseEnvironment& environment, ReportId report) {
  environment.windows["T" + std::string(Describe(report).form)] = [](THost& host, int formMode,
                                                                     Variant parameter) {
    return std::make_unique<Window>(host, formMode, std::move(parameter), "");
  };
}

}  // namespace

CaseEnvironment ModuleEnvironment() {
  CaseEnvironment environment;
  environment.attach = [](THost& host) {
    return Goods_AttachHost(GOODS_HOST_VERSION, reinterpret_cast<goods_host*>(&host)) == 1;
  };
  environment.detach = [] { return Goods_DetachHost() == 1; };
  AddUsersExports(environment);
  environment.exports["Open_KardexNegativ"] = CallKardexNegativ;
  environment.exports["Open_Kardex"] = CallKardex;
  environment.exports["Open_GoodDetailTransactions"] = CallGoodDetailTransactions;
  environment.exports["Open_GarKala"] = CallGarKala;
  environment.exports["Open_StoreExistance"] = [](const std::vector<Word>& words) {
    ArgumentReader(words).End();
    Open_StoreExistance();
  };
  AddWindow<TKardex_FRM>(environment, ReportId::StockCard);
  AddWindow<TKardexSearch_FRM>(environment, ReportId::RowSearch);
  AddWindow<TGoodDetailTransaction_FRM>(environment, ReportId::StockByDetails);
  AddWindow<TAllGoodDetailTransaction_FRM>(environment, ReportId::SearchInDetails);
  AddWindow<TOneGoodDetailTransaction_FRM>(environment, ReportId::OneGoodDetails);
  AddWindow<TGoodDetailKardexDismatch_FRM>(environment, ReportId::DetailMismatch);
  AddWindow<TGoodDetailOperationDismatch_FRM>(environment, ReportId::OperationMismatch);
  AddWindow<TGoodTransaction_FRM>(environment, ReportId::GoodsInQuantity);
  AddWindow<TGoodTrans_Overall_FRM>(environment, ReportId::OverallTurnover);
  AddWindow<TGoodsAsset_Store_FRM>(environment, ReportId::StockPerStore);
  return environment;
}

}  // namespace goods
