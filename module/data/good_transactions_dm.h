// TGoodTransactions_DM: the queries behind the report windows, and the statements that fill them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/edit.h"
#include "host/components/form.h"
#include "host/components/standard.h"
#include "host/data/query.h"
#include "host/services/lookups.h"

namespace goods {

// A query with a data source of the same stem.
struct TQueryWithSource {
  TQueryWithSource(TComponent* owner, const std::string& stem, IConnection& connection)
      : Query(owner, stem + "_QRY", connection), Source(owner, stem + "_DS", &Query) {}
  TADOQuery Query;
  TDataSource Source;
};

// The state of a good before a date, as the stock card shows it.
struct TPreTimeData {
  std::string Incoming = "0";
  std::string Outgoing = "0";
  std::string Remainder = "0";
  std::string LastAverage = "0";
  std::string RemainderAmount = "0";
};

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

// How many rows a selected-list control has ("هيچکدام" included), and which to select; -1 none.
struct TSelectedListFill {
  int RowCount = 0;
  int SelectedIndex = -1;
};

enum class CostLevelList { Plain, WithConsumerPrice };

// Errors of the database pass to the caller unchanged. Codes are those of the company; dates are Jalali text.
class TGoodTransactions_DM : public TComponent {
 public:
  // owner may be null; host must outlive the module.
  TGoodTransactions_DM(THost& host, TComponent* owner);
  ~TGoodTransactions_DM() override;

  // Stock card and row search (data_stockcard.cpp)
  void FillDataKardexTransact(std::int64_t good);
  // The empty text for a store or person is every one.
  TPreTimeData GetPreTimeData(std::string_view good, std::string_view date, std::string_view store,
                              std::string_view person);
  void KardexSearch_Fill_1();
  // first, second: "0" is not given. A first value without a second is left out.
  void KardexSearch_Fill_2(std::string_view first, std::string_view second);

  // Turnover, stock and prices (data_stock.cpp)
  void GoodStockAllProc(std::string_view amountParameters, std::string_view quantityParameters);
  void GoodStockProc(std::string_view parameters);
  bool Good_HasGardesh(std::int64_t good);
  bool ExistGoodTransaction(std::string_view good);
  bool ExistGood();
  void GoodAsset_GetGroup();
  void GoodAsset_Store_Fill(std::string_view parameters);
  // Sets the text only; the window opens the query.
  void GoodAsset_GetAll(bool useSelectedList, bool invert, std::int64_t selectedListCode);
  void FillStock(int priceBasis, int buyOrSell, int priceLevelCode);
  void CallDefineRemainInStore(std::int64_t first, std::int64_t second);
  // Opens CostLevel and returns it.
  TADOQuery& CostLevelGet(CostLevelList list);
  // Opens RialHistory; the second form fills the combo from it.
  void RialHistory_Fill();
  void RialHistory_Fill(TComboBox& combo);

  // Lookups (data_lookups.cpp)
  std::vector<std::string> GetDetailItems(std::int64_t detail);
  TDetailType GetDetailTypeWithDetailID(std::int64_t detail);
  void ComboBoxFill_WithItems(TComboBox& combo);
  // Shows the controls that read the type of the chosen detail, and fills its values; hides the others. The
  // detail's code is the chosen item's object, 0 for none. Gives back the type, 0 for none.
  std::int64_t GoodDetailChange_ComboBox(const TComboBox& detail, const TDetailControls& controls);
  // rows: "code;text;" each. The first item of the combo stands for none and has the code 0.
  static void ComboBoxFill_WithObjectID(TComboBox& combo, const std::vector<std::string>& rows);
  static void ComboBoxOperationFill_WithItems(TComboBox& combo);
  TGoodUnitInfo GetGoodUnitInfo(std::int64_t good);
  // Each item's text is the store's name, its object the store's code.
  std::vector<TComboItem> Get_StoresTitles_SortedByCode();
  // A tag's name and colour; the code alone where there is no such tag.
  TTag GetTag(std::int64_t code);
  // codes: comma separated, outer commas allowed; none of them, or anything but numbers: the empty text.
  std::string ReturnTagName(std::string_view codes);
  std::int64_t GoodSelectedIndex_IsChecked(std::int64_t listCode);
  TSelectedListFill FillSelectedList(TComboBox& combo);
  // An edit for serial numbers and bar codes is typed in English.
  void SerialBarcode_EDTOnEnter(TEdit& edit);
  void SerialBarcode_EDTOnExit(TEdit& edit);
  // Puts a condition in parentheses behind the filter caption. Nothing joins the two: the condition brings
  // its own word.
  static std::string ADDFarsiFilter(std::string_view condition, std::string_view filter);
  // The conditions added one after the other.
  static std::string FarsiFilterOf(const std::vector<std::string>& conditions);

  // The good-detail reports (data_detail.cpp). Nothing runs before the window is shown; mode 1 shows the
  // waiting indicator.
  void AllGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window, int mode, bool shown);
  void OneGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window, int mode, bool shown);
  void GoodDetailTransaction_GetAll(std::string_view parameters, TForm* window, int mode, bool shown);
  void GoodDetailKardexDismatch_GetAll(std::string_view parameters, TForm* window, int mode, bool shown);
  void GoodDetailOperationDismatch_GetAll(std::string_view parameters, TForm* window, int mode, bool shown);

 private:
  THost& host_;
  IConnection& connection_;

 public:
  TQueryWithSource Kardex{this, "Kardex", connection_};
  TQueryWithSource KardexSearch{this, "KardexSearch", connection_};
  TQueryWithSource GoodTransaction{this, "GoodTransaction", connection_};
  TQueryWithSource GoodGroup{this, "GoodGroup", connection_};
  TQueryWithSource Kardex_Overall_Money{this, "Kardex_Overall_Money", connection_};
  TQueryWithSource Kardex_Overall_Tedad{this, "Kardex_Overall_Tedad", connection_};
  TQueryWithSource GoodAsset_Store{this, "GoodAsset_Store", connection_};
  TQueryWithSource CostLevel{this, "CostLevel", connection_};
  TQueryWithSource RialHistory{this, "RialHistory", connection_};
  TQueryWithSource AllGoodDetailTransaction{this, "AllGoodDetailTransaction", connection_};
  TQueryWithSource OneGoodDetailTransaction{this, "OneGoodDetailTransaction", connection_};
  TQueryWithSource GoodDetailTransaction{this, "GoodDetailTransaction", connection_};
  TQueryWithSource GoodDetailKardexDismatch{this, "GoodDetailKardexDismatch", connection_};
  TQueryWithSource GoodDetailOperationDismatch{this, "GoodDetailOperationDismatch", connection_};

 private:
  // Opens the general query for the length of one lookup.
  class Lookup;
  void FetchDetails(TQueryWithSource& report, std::string_view head, std::string_view parameters,
                    TForm* window, int mode, bool shown);

  TADOQuery general_{this, "General_QRY", connection_};
};

}  // namespace goods
