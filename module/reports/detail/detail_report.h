// TDetailReport_FRM: what the two good-detail lists share.
#pragma once

#include <cstdint>
#include <string>

#include "host/components/search_manager.h"
#include "module/data/good_transactions_dm.h"
#include "module/framework/report_engine.h"
#include "module/framework/title_search_panel.h"
#include "module/reports/detail/all_good_detail_transaction_search.h"
#include "module/reports/detail/detail_criteria.h"
#include "module/reports/detail/detail_row.h"

namespace goods {

// Every change of a criterion runs the report. Each showing begins without a search text and without a
// detail; the column that is searched and the dialog's criteria are kept.
class TDetailReport_FRM : public TReportOf<DetailListCriteria> {
 public:
  ~TDetailReport_FRM() override;

  void FormCreate() override;
  void FormShow() override;
  void FormKeyDown(TKey& key) override;

  void GoodDetailSelectSearch1_CMBChange();
  void QeratSearchManager1CustomFilter_DataSet(std::string& filter) const;
  void QeratSearchManager1AfterExecute() { ApplySort(); }

 protected:
  TDetailReport_FRM(THost& host, std::string name, std::string gridName, int formMode,
                    Variant customParameter, std::string settingsName);

  virtual TQueryWithSource& Rows() = 0;
  // What the report itself asks for beside the column search, the detail and the dialog.
  virtual void ReadOwnCriteria(DetailListCriteria& criteria) const = 0;
  // A condition on the rows that were read.
  virtual std::string RowCondition() const { return {}; }
  // Back to what a showing begins with.
  virtual void ResetCriteria();

  // The rows of one good alone, as long as the run asked for it; 0 for none.
  void LimitRows(std::int64_t good) { rowGood_ = good; }

  DetailListCriteria ReadCriteria() const override;
  void LookUpNames(DetailListCriteria& criteria) override;
  void NarrowRows() override { QeratSearchManager1.ExecuteFilter_DataSet(); }

  TGoodTransactions_DM dataModule_;

 public:
  TSmartDBGrid_QRT List_GRD;
  TTitleSearchPanel Search_PNL;
  TDetailRow DetailRow1{this, 1, "&جزئیات از نوع :"};
  TADVSearch_Fram ADVSearch_Fram1{this, "ADVSearch_Fram1"};
  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};
  TAllGoodDetailTransactionSearch_FRM Search_FRM;

 private:
  std::int64_t rowGood_ = 0;
};

}  // namespace goods
