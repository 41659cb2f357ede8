// The table of the reports: windows, exports and documentation agree with it.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "goods_reports.h"
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
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

std::string TextOf(const std::string& file) {
  std::ifstream stream(std::string(GOODS_SOURCES) + "/" + file, std::ios::binary);
  EXPECT_TRUE(stream) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

template <typename Window>
void ExpectShows(ReportId id, const std::string& parameter) {
  ScriptedHost host;
  host.Connection().Answer("%", {});
  const Window window(host, 1, Variant(parameter), "");
  const ReportDescription& report = Describe(id);
  EXPECT_EQ(window.Name(), report.form);
  EXPECT_EQ(window.FormOptions_SFO.HelpKeyword, report.name);
  EXPECT_EQ(window.FormOptions_SFO.ComponentSoftwarePart, report.component) << report.name;
  EXPECT_EQ(window.PrintOption.SoftwarePart, report.softwarePart) << report.name;
}

TEST(ReportTable, EachWindowSaysWhichReportItShows) {
  ExpectShows<TGoodTransaction_FRM>(ReportId::GoodsInQuantity, "501");
  ExpectShows<TGoodTransaction_FRM>(ReportId::GoodsInMoney, "502");
  ExpectShows<TGoodTrans_Overall_FRM>(ReportId::OverallTurnover, "0");
  ExpectShows<TGoodsAsset_Store_FRM>(ReportId::StockPerStore, "0");
  ExpectShows<TKardex_FRM>(ReportId::StockCard, "1;0;0;;;");
  ExpectShows<TKardexSearch_FRM>(ReportId::RowSearch, "");
  ExpectShows<TGoodDetailTransaction_FRM>(ReportId::StockByDetails, "1");
  ExpectShows<TAllGoodDetailTransaction_FRM>(ReportId::SearchInDetails, "");
  ExpectShows<TGoodDetailKardexDismatch_FRM>(ReportId::DetailMismatch, "");
  ExpectShows<TOneGoodDetailTransaction_FRM>(ReportId::OneGoodDetails, "");
  ExpectShows<TGoodDetailOperationDismatch_FRM>(ReportId::OperationMismatch, "");
}

TEST(ReportTable, TheRowSearchIsTheNegativeCardByItsParameterAlone) {
  ScriptedHost host;
  TKardexSearch_FRM window(host, 1, Variant(std::string("0;0;0")), "");
  EXPECT_EQ(window.FormOptions_SFO.HelpKeyword, "row-search");
  host.Connection().Answer("Exec srKardex_Negative", {});
  window.SetCustomParameter(Variant(std::string("1;0;0")), "");
  EXPECT_EQ(window.FormOptions_SFO.HelpKeyword, "negative-card");
}

TEST(ReportTable, NamesDigitsAndMenuExportsAreEachUsedOnce) {
  std::set<std::string_view> names;
  std::set<std::string_view> exports;
  std::set<int> digits;
  for (const ReportDescription& report : kReports) EXPECT_TRUE(names.insert(report.name).second);
  for (const ReportDescription& report : MenuReports()) {
    EXPECT_TRUE(exports.insert(report.exportName).second) << report.name;
    EXPECT_TRUE(digits.insert(report.digit).second) << report.name;
  }
  EXPECT_EQ(MenuReports().size(), 10U);
  for (std::size_t at = MenuReports().size(); at < kReports.size(); ++at)
    EXPECT_EQ(kReports[at].exportName, nullptr)
        << "a report without an export stands among those of the menu";
}

// Every export but the two that attach a host and the one that does nothing opens a report of the table.
TEST(ReportTable, TheExportsAreThoseOfTheTable) {
  std::set<std::string> told{"Goods_AttachHost", "Goods_AttachProblem", "Goods_DetachHost",
                             "Open_StoreExistance"};
  for (const ReportDescription& report : kReports) {
    if (report.exportName != nullptr) told.insert(report.exportName);
    if (report.callerExport != nullptr) told.insert(report.callerExport);
  }
  std::set<std::string> exported;
  std::ifstream list(std::string(GOODS_SOURCES) + "/tests/end_to_end/exports.txt");
  for (std::string line; std::getline(list, line);) exported.insert(line);
  EXPECT_EQ(told, exported);
}

TEST(ReportTable, TheHeaderOfTheExportsNamesThePartWhoseRightEachAsksFor) {
  const std::string header = TextOf("include/goods_transaction_qrt.h");
  for (const ReportDescription& report : MenuReports()) {
    const std::size_t declared = header.find(std::string("void ") + report.exportName + "(");
    ASSERT_NE(declared, std::string::npos) << report.exportName;
    if (report.life == ReportLife::Kept && report.callerExport == std::string_view("Open_GarKala")) continue;
    const std::string comment =
        header.substr(header.rfind("/*", declared), declared - header.rfind("/*", declared));
    EXPECT_NE(comment.find("permission 6"), std::string::npos) << report.exportName;
    EXPECT_NE(comment.find(std::to_string(report.softwarePart)), std::string::npos) << report.exportName;
  }
}

TEST(ReportTable, TheHelpHasAPageForEachAndItsIndexNamesThemInTheOrderOfTheTable) {
  const std::string index = TextOf("docs/fa/index.md");
  std::vector<std::size_t> places;
  for (const ReportDescription& report : kReports) {
    EXPECT_TRUE(TextOf("docs/fa/" + report.HelpPage()).starts_with("# ")) << report.name;
    places.push_back(index.find("](" + report.HelpPage() + ")"));
    EXPECT_NE(places.back(), std::string::npos) << report.name;
  }
  // One good's details stand beside the search in details there, and behind the reports of the menu here.
  std::erase(places, places[static_cast<std::size_t>(ReportId::OneGoodDetails)]);
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST(ReportTable, ThePageForUsersTellsThePartOfEachReport) {
  const std::string page = ReplaceAll(TextOf("docs/reports.md"), "\n", " ");
  for (const ReportDescription& report : MenuReports()) {
    EXPECT_NE(page.find("part " + std::to_string(report.softwarePart)), std::string::npos) << report.name;
  }
}

}  // namespace
}  // namespace goods
