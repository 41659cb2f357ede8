#include "module/data/stockcard_data.h"

#include "host/core/text.h"
#include "host/services/public_methods.h"
#include "module/data/lookup.h"

namespace goods {

void StockCardData::FillDataKardexTransact(std::int64_t good) {
  Kardex.Query.Close();
  Kardex.Query.SetSQL("Exec Kardex_Proc " + std::to_string(good));
  Kardex.Query.Open();
  Kardex.Query.Last();
}

TPreTimeData StockCardData::GetPreTimeData(std::string_view good, std::string_view date,
                                           std::string_view store, std::string_view person) {
  std::string condition = " Kala=" + std::string(good) + " And Date<" + QuotedStr(date);
  if (!person.empty()) condition = AddFilter(condition, "Percode=" + std::string(person));
  if (!store.empty()) condition = AddFilter(condition, "Anbar=" + std::string(store));

  Decimal incoming;
  Decimal outgoing;  // negative
  {
    const Lookup sums(
        module_,
        "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere "
        "from Kardex where " +
            condition);
    incoming = sums.Field("Varede").AsDecimal();
    outgoing = sums.Field("Sadere").AsDecimal();
  }
  const Lookup last(module_,
                    "Select Top 1 Miangin from Kardex where " + condition + " order by Date DESC,Radif DESC");
  const Decimal average = last.Field("Miangin").AsDecimal();
  const Decimal remainder = incoming + outgoing;

  const auto shown = [](Decimal number) { return SetCurrencyFormat(NumberToText(number)); };
  return {shown(incoming), shown(-outgoing), shown(remainder), shown(average), shown(remainder * average)};
}

RowSearchData::RowSearchData(DataModule& module)
    : KardexSearch(&module, "KardexSearch", module.Connection()) {
  // KardexSearch_QRYCalcFields
  KardexSearch.Query.AddComputed({"Radif", ColumnType::Integer}, [](std::size_t row, const RowStore&) {
    return Value(static_cast<std::int64_t>(row) + 1);
  });
}

void RowSearchData::KardexSearch_Fill_1() { KardexSearch.Query.SetSQL("Exec srKardex"); }

void RowSearchData::KardexSearch_Fill_2(std::string_view first, std::string_view second) {
  std::string statement = "Exec srKardex_Negative";
  if (first == "0" && second != "0") {
    statement += " '',''," + QuotedStr(second);
  } else if (first != "0" && second != "0") {
    statement += " '' , " + QuotedStr(first) + " , " + QuotedStr(second);
  }
  KardexSearch.Query.SetSQL(statement);
  KardexSearch.Query.Open();
}

}  // namespace goods
