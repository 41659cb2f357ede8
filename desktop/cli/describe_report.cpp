#include <map>
#include <ostream>

#include "desktop/app/services/module_library.h"
#include "desktop/cli/report_run.h"
#include "desktop/cli/screenless_services.h"
#include "desktop/cli/screenless_windows.h"
#include "desktop/requests/criteria_driver.h"
#include "host/base/base_dock.h"
#include "host/components/standard.h"
#include "host/core/text.h"
#include "host/services/host.h"

namespace goods {
namespace {

// Every statement finds nothing, in columns that no window misses.
class EmptyConnection : public IConnection {
 public:
  void Open(std::string_view /*statement*/, RowStore& into, IStatementProgress* /*progress*/) override {
    into.Define({{"Code", ColumnType::Integer}, {"Name", ColumnType::Text}});
    into.Finish();
  }
  void Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) override {}
};

class EmptyLookups : public ILookups {
 public:
  std::optional<std::vector<std::string>> LookupDBs(EntityType /*type*/, std::int64_t /*code*/,
                                                    std::string_view /*fields*/) override {
    return std::nullopt;
  }
  std::optional<std::int64_t> SelectEntity(TForm* /*owner*/, EntityType /*type*/, std::int64_t /*current*/,
                                           std::string_view /*filter*/) override {
    return std::nullopt;
  }
  std::string ReturnCategoryName(std::string_view /*code*/) override { return {}; }
};

class EmptyHost : public THost {
 public:
  explicit EmptyHost(std::ostream& messages) : messages_(messages), windows_(*this) {}
  IConnection& Connection() override { return connection_; }
  IRights& Rights() override { return rights_; }
  IMessages& Messages() override { return messages_; }
  IWaiting& Waiting() override { return waiting_; }
  ISettings& Settings() override { return settings_; }
  IPrinting& Printing() override { return printing_; }
  IDocuments& Documents() override { return documents_; }
  ILookups& Lookups() override { return lookups_; }
  ScreenlessWindows& Windows() override { return windows_; }

 private:
  EmptyConnection connection_;
  EveryRight rights_;
  StreamMessages messages_;
  ScreenlessWindows windows_;
  NoWaiting waiting_;
  FixedSettings settings_;
  NoPrinting printing_;
  NoDocuments documents_;
  EmptyLookups lookups_;
};

void DescribeCriteria(const ReportSpec& report, std::ostream& out) {
  out << "criteria:\n";
  for (const ReportCriterion& criterion : report.criteria) {
    std::string head = "--" + std::string(criterion.option);
    if (const std::string value = ValueName(criterion); !value.empty()) head += " " + value;
    if (criterion.kind == CriterionKind::Period) head += " --to DAY --period WORD";
    out << "  " << head << "\n      " << criterion.help;
    if (!criterion.choices.empty()) out << ": " << ReplaceAll(criterion.choices, " ", ", ");
    if (criterion.required) out << "; required";
    if (criterion.exclude) out << "; may be excluded";
    out << "\n";
  }
}

void DescribeColumns(const TSmartDBGrid_QRT& grid, std::ostream& out) {
  out << "\ncolumns (* shown by itself):\n";
  for (const auto& column : grid.Columns()) {
    if (!IsOffered(*column)) continue;
    out << (column->Visible() ? "  * " : "    ") << column->FieldName() << "  "
        << ReplaceAll(PlainCaption(column->Caption()), "|", " / ") << "\n";
  }
}

// The entries of lists that do not come from a company.
void DescribeEntries(const ReportSpec& report, const TForm& form, std::ostream& out) {
  for (const ReportCriterion& criterion : report.criteria) {
    if (criterion.kind != CriterionKind::Object) continue;
    const auto* list = dynamic_cast<const TComboBox*>(form.FindComponent(criterion.path));
    if (list == nullptr || list->Items().size() < 2) continue;
    out << "\n--" << criterion.option << ":\n";
    for (std::size_t i = 1; i < list->Items().size(); ++i) {
      out << "  " << list->Items()[i].Object << "  " << Trim(list->Items()[i].Text) << "\n";
    }
  }
}

}  // namespace

void DescribeReport(const ReportSpec& report, const SessionOptions& options, std::ostream& out) {
  const ReportDescription& described = *report.description;
  out << described.name << ": " << described.title << "\n" << described.about << "\n\n";
  out << "rights: " << described.permission << " on " << described.softwarePart << " to open it, "
      << kPermissionPrintList << " on " << described.softwarePart << " to write it\n\n";
  DescribeCriteria(report, out);
  if (!report.through.empty()) return;  // opened from a row, which there is none of
  EmptyHost host(out);
  host.Windows().OnShown = [&](TForm& form) {
    auto* window = dynamic_cast<TBaseDock_FRM*>(&form);
    if (window == nullptr || window->PrintedGrid() == nullptr) return;
    DescribeColumns(*window->PrintedGrid(), out);
    DescribeEntries(report, *window, out);
  };
  ModuleLibrary module(ModuleLibrary::Find(options.module, options.programFolder));
  module.Attach(host);
  module.Open(Describe(report.outer));
}

}  // namespace goods
