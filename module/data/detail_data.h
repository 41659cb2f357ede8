// The details of goods: their kinds and values, and the statements of the good-detail and mismatch reports.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/edit.h"
#include "host/components/form.h"
#include "host/components/standard.h"
#include "module/data/data_module.h"

namespace goods {

// Types of details, by the controls that read them.
enum DetailTypeCode : std::int64_t {
  kPickedValue = 1,
  kTypedValue = 2,
  kNumber = 3,
  kOtherNumber = 4,
  kDate = 5,
  kOneValue = 6,
};

struct TDetailType {
  std::int64_t DetailType = 0;
  std::int64_t DateType = 0;
};

// The controls of a detail row: a value, or two ends.
struct TDetailControls {
  TComboBox& Value;
  TDateEdit& FromDate;
  TDateEdit& ToDate;
  TEdit& From;
  TEdit& To;
  TLabel& FromLabel;
  TLabel& ToLabel;
};

struct TGoodUnitInfo {
  std::int64_t Unit1Code = 0;
  std::string Unit1Name;
  std::int64_t Unit2Code = 0;
  std::string Unit2Name;
};

class DetailData {
 public:
  explicit DetailData(DataModule& module) : module_(module) {}

  // "انتخاب کنید..." and the values that the detail can have.
  std::vector<std::string> GetDetailItems(std::int64_t detail);
  TDetailType GetDetailTypeWithDetailID(std::int64_t detail);
  void ComboBoxFill_WithItems(TComboBox& combo);
  // Shows the controls that read the type of the chosen detail, and fills its values; hides the others. The
  // detail's code is the chosen item's object, 0 for none. Gives back the type, 0 for none.
  std::int64_t GoodDetailChange_ComboBox(const TComboBox& detail, const TDetailControls& controls);
  TGoodUnitInfo GetGoodUnitInfo(std::int64_t good);

  // rows: a code and a text each. The first item of the combo stands for none and has the code 0.
  static void ComboBoxFill_WithObjectID(TComboBox& combo, const std::vector<std::string>& rows);
  static void ComboBoxOperationFill_WithItems(TComboBox& combo);

 private:
  DataModule& module_;
};

// The rows of a report of details, with the head of its statement.
class TDetailReportRows : public TQueryWithSource {
 public:
  TDetailReportRows(DataModule& module, const std::string& stem, std::string_view head)
      : TQueryWithSource(&module, stem, module.Connection()), module_(module), head_(head) {}
  // Nothing runs before the window is shown; mode 1 shows the waiting indicator.
  void Fetch(std::string_view parameters, TForm* window, int mode, bool shown);

 private:
  DataModule& module_;
  std::string_view head_;
};

// The fetch of a report's rows as an operation of the data module.
class TDetailFetch {
 public:
  explicit TDetailFetch(TDetailReportRows& rows) : rows_(rows) {}
  void operator()(std::string_view parameters, TForm* window, int mode, bool shown) const {
    rows_.Fetch(parameters, window, mode, shown);
  }

 private:
  TDetailReportRows& rows_;
};

// The part of each report: its rows, and their fetch under its published name.
struct StockByDetailsData {
  explicit StockByDetailsData(DataModule& module)
      : GoodDetailTransaction(module, "GoodDetailTransaction", " EXEC GoodDetailTransaction ") {}
  TDetailReportRows GoodDetailTransaction;
  TDetailFetch GoodDetailTransaction_GetAll{GoodDetailTransaction};
};

struct SearchInDetailsData {
  explicit SearchInDetailsData(DataModule& module)
      : AllGoodDetailTransaction(module, "AllGoodDetailTransaction", " EXEC AllGoodDetailTransaction ") {}
  TDetailReportRows AllGoodDetailTransaction;
  TDetailFetch AllGoodDetailTransaction_GetAll{AllGoodDetailTransaction};
};

struct OneGoodDetailsData {
  explicit OneGoodDetailsData(DataModule& module)
      : OneGoodDetailTransaction(module, "OneGoodDetailTransaction", " EXEC OneGoodDetailTransaction ") {}
  TDetailReportRows OneGoodDetailTransaction;
  TDetailFetch OneGoodDetailTransaction_GetAll{OneGoodDetailTransaction};
};

struct DetailMismatchData {
  explicit DetailMismatchData(DataModule& module)
      : GoodDetailKardexDismatch(module, "GoodDetailKardexDismatch", " EXEC DetailKardexAsset_Dismatch ") {}
  TDetailReportRows GoodDetailKardexDismatch;
  TDetailFetch GoodDetailKardexDismatch_GetAll{GoodDetailKardexDismatch};
};

struct OperationMismatchData {
  explicit OperationMismatchData(DataModule& module)
      : GoodDetailOperationDismatch(module, "GoodDetailOperationDismatch",
                                    " EXEC DetailOperation_Dismatch ") {}
  TDetailReportRows GoodDetailOperationDismatch;
  TDetailFetch GoodDetailOperationDismatch_GetAll{GoodDetailOperationDismatch};
};

}  // namespace goods
