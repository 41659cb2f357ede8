#include "desktop/app/help_book.h"

#include <QFile>
#include <array>
#include <string_view>

#include "host/base/base_dock.h"
#include "host/components/grid.h"

// The pages lie in a library of their own, whose resources are there only once it is asked for.
static void LoadPages() { Q_INIT_RESOURCE(help_pages); }

namespace goods {
namespace {

struct Topic {
  std::string_view form;
  const char* file;
};

constexpr const char* kNegativeCard = "negative-card.md";
constexpr const char* kMoneyList = "turnover-money.md";

constexpr std::array<Topic, 10> kTopics{{
    {"GoodTransaction_FRM", "turnover-list.md"},
    {"GoodTrans_Overall_FRM", "overall-turnover.md"},
    {"GoodsAsset_Store_FRM", "store-stock.md"},
    {"Kardex_FRM", "stock-card.md"},
    {"KardexSearch_FRM", "row-search.md"},
    {"GoodDetailTransaction_FRM", "detail-stock.md"},
    {"AllGoodDetailTransaction_FRM", "detail-search.md"},
    {"GoodDetailKardexDismatch_FRM", "detail-mismatch.md"},
    {"OneGoodDetailTransaction_FRM", "one-good-detail.md"},
    {"GoodDetailOperationDismatch_FRM", "operation-mismatch.md"},
}};

QString TitleOf(const QString& file) {
  QFile page(":/help/fa/" + file);
  if (!page.open(QIODevice::ReadOnly)) return file;
  return QString::fromUtf8(page.readLine()).remove('#').trimmed();
}

// The list in money is the same window as the list in quantity, and says so by its component software part.
bool IsMoneyList(const TForm& form) {
  const auto* report = dynamic_cast<const TBaseDock_FRM*>(&form);
  return report != nullptr && report->FormOptions_SFO.ComponentSoftwarePart == cspGoodCashAsset;
}

// So is the negative card the row search; what it asks the database for tells them apart.
bool IsNegativeCard(const TForm& form) {
  const auto* grid = dynamic_cast<const TSmartDBGrid_QRT*>(form.FindComponent("KardexSearch_GRD"));
  return grid != nullptr && grid->DataSet() != nullptr &&
         grid->DataSet()->SQL().find("srKardex_Negative") != std::string::npos;
}

std::vector<HelpPage> ReadPages() {
  LoadPages();
  std::vector<QString> files{kHelpIndex};
  for (const Topic& topic : kTopics) {
    files.emplace_back(topic.file);
    if (topic.form == "GoodTransaction_FRM") files.emplace_back(kMoneyList);
    if (topic.form == "KardexSearch_FRM") files.emplace_back(kNegativeCard);
  }
  std::vector<HelpPage> pages;
  for (const QString& file : files) pages.push_back({file, TitleOf(file)});
  return pages;
}

}  // namespace

const std::vector<HelpPage>& HelpPages() {
  static const std::vector<HelpPage> kPages = ReadPages();
  return kPages;
}

QUrl HelpUrl(const QString& file) { return QUrl("qrc:/help/fa/" + file); }

QString HelpPageOf(const TForm& form) {
  if (IsMoneyList(form)) return kMoneyList;
  if (IsNegativeCard(form)) return kNegativeCard;
  for (const Topic& topic : kTopics) {
    if (topic.form == form.Name()) return topic.file;
  }
  return {};
}

}  // namespace goods
