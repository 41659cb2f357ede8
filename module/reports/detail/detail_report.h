// TDetailReport_FRM: what the two good-detail lists share.
#pragma once

#include <memory>
#include <string>

#include "host/base/base_dock.h"
#include "host/components/search_manager.h"
#include "host/frames/adv_search_frame.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/delayed_search.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/detail/all_good_detail_transaction_search.h"
#include "module/reports/detail/detail_criteria.h"
#include "module/reports/detail/detail_row.h"

namespace goods {

// Every change of a criterion builds the parameters anew and runs the procedure; typing does so once it has
// paused. Nothing runs before the window is shown.
class TDetailReport_FRM : public TBaseDock_FRM {
 public:
  ~TDetailReport_FRM() override;

  // The criteria as parameters; empty, like the filter caption, until the window is shown.
  void SetProcParams(std::string& parameters);
  const std::string& FilterCaption() const { return filterCaption_; }

  void FormCreate() override;
  void FormShow() override;
  void FormClose() override;
  void FormKeyDown(TKey& key) override;
  void WindowMessage(int code) override;
  void PrintDBGridEhBeforePrint(std::vector<std::string>& lines) override;

  void GoodDetailSelectSearch1_CMBChange();
  void ADVSearch_Fram1ADVSearch_BTNClick();
  void ADVSearch_Fram1ADVSearch_CHKClick();
  void QeratSearchManager1CustomFilter_DataSet(std::string& filter) const;
  void QeratSearchManager1AfterExecute();

 protected:
  TDetailReport_FRM(THost& host, std::string name, std::string gridName, int formMode,
                    Variant customParameter, std::string settingsName);

  // What the report itself adds, in its place.
  virtual const DetailCriteriaStyle& Style() const = 0;
  virtual void AddCriteria(DetailCriteria& criteria) = 0;
  // Runs the report's own statement.
  virtual void Fetch(const std::string& parameters, int mode) = 0;
  virtual TQueryWithSource& Rows() = 0;
  // A condition on the rows that were read, beside those of the callers.
  virtual std::string RowCondition() const { return {}; }

  bool Shown() const { return shown_; }
  // mode 1 shows the waiting indicator.
  void Rerun(int mode);
  // The rows of one good alone, as long as the advanced search asks for it, and a condition of the caller's;
  // 0 and the empty text for none.
  void LimitRows(std::int64_t good, std::string condition);
  // The row conditions on the rows at hand, then their order.
  void FilterRows() { QeratSearchManager1.ExecuteFilter_DataSet(); }

  TGoodTransactions_DM dataModule_;
  DelayedSearch delayedSearch_;

 public:
  TSmartDBGrid_QRT List_GRD;
  TTitleSearchPanel Search_PNL;
  TDetailRow DetailRow1{this, 1, "&جزئیات از نوع :"};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};
  TAllGoodDetailTransactionSearch_FRM Search_FRM;

 private:
  bool AsksForGood(std::int64_t good) const;

  bool shown_ = false;
  bool busy_ = false;  // the window itself is changing a control
  std::string filterCaption_;
  std::int64_t rowGood_ = 0;
  std::string rowCondition_;
};

}  // namespace goods
