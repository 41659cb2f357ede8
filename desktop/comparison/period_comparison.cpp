#include "desktop/comparison/period_comparison.h"

#include <algorithm>
#include <span>
#include <utility>

#include "desktop/comparison/compared_period.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/core/text.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr const char* kReadingOtherPeriod = "در حال خواندن دوره دیگر...";
constexpr const char* kPercentFormat = "#,0.##;#,0.##-;0";
constexpr int kLeastFigureWidth = 112;
constexpr int kPercentWidth = 84;

std::string TitleOfFigure(const TGridColumn& column) {
  return ReplaceAll(PlainCaption(column.Caption()), "|", " - ");
}

bool IsCompared(const TGridColumn& column, const TADOQuery& rows) {
  return column.IsNumber() && rows.FindField(column.FieldName()).has_value();
}

}  // namespace

Comparison ComparisonOf(const TSmartDBGrid_QRT& grid, std::string_view key) {
  Comparison comparison{.key = std::string(key), .labels = {std::string(key)}, .figures = {}};
  for (const TGridColumn* column : grid.VisibleColumns()) {
    if (IsCompared(*column, *grid.DataSet())) {
      comparison.figures.push_back(column->FieldName());
    } else if (!SameText(column->FieldName(), key) && column->Kind() != CellKind::Swatch) {
      comparison.labels.push_back(column->FieldName());
    }
  }
  return comparison;
}

TPeriodComparison_FRM::TPeriodComparison_FRM(TBaseDock_FRM& report, TSmartDBGrid_QRT& grid,
                                             ComparedPeriods periods, const Comparison& comparison,
                                             RowStore rows)
    : TBaseDock_FRM(report.Host(), "PeriodComparison_FRM", 1, ""),
      report_(report),
      grid_(grid),
      periods_(std::move(periods)),
      key_(comparison.key),
      joined_(std::move(rows)) {
  SetCaption(report.HostTitle() + " - مقایسه دو دوره");
  PreferredWidth = report.PreferredWidth;
  PreferredHeight = report.PreferredHeight;
  Maximised = report.Maximised;
  PrintOption = report.PrintOption;
  FormOptions_SFO.HelpKeyword = report.FormOptions_SFO.HelpKeyword;
  Periods_LBL.SetCaption(PeriodsLine());
  DeclareColumns(comparison);
  for (TButton* button : {&btnShow_BTN, &PrintList_BTN, &Exit_BTN}) Buttons_PNL.Place(*button);
  Place(Periods_LBL);
  Place(Comparison_GRD, 1);
  Place(Buttons_PNL);
  Comparison_GRD.SetDataSource(&Comparison_DS);
  Comparison_GRD.OnDblClick = [this] { btnShow_BTNClick(); };
  btnShow_BTN.OnClick = [this] { btnShow_BTNClick(); };
  SetCommonControls(Comparison_GRD, PrintList_BTN, Exit_BTN, GridLayout::Own);
  Initialise();
}

TPeriodComparison_FRM::~TPeriodComparison_FRM() = default;

std::string TPeriodComparison_FRM::PeriodsLine() const {
  return "دوره گزارش: " + PeriodText(periods_.own) + "   دوره دیگر: " + PeriodText(periods_.other);
}

void TPeriodComparison_FRM::DeclareColumns(const Comparison& comparison) {
  Comparison_GRD.SetAccessibleName("مقایسه دو دوره");
  Comparison_GRD.ShowFooter = true;
  Comparison_GRD.SetEmptyText("در هیچ یک از دو دوره ردیفی نیست.");
  for (const TGridColumn* column : grid_.VisibleColumns()) {
    const std::string& field = column->FieldName();
    const auto named = [&](const std::string& each) { return SameText(each, field); };
    if (std::any_of(comparison.labels.begin(), comparison.labels.end(), named)) {
      Comparison_GRD.AddColumn(field, column->Caption()).SetWidth(column->Width()).SetMoney(column->Money());
      ++Comparison_GRD.FixedColumns;
    }
  }
  for (const TGridColumn* column : grid_.VisibleColumns()) {
    const auto named = [&](const std::string& each) { return SameText(each, column->FieldName()); };
    if (std::any_of(comparison.figures.begin(), comparison.figures.end(), named)) DeclareFigure(*column);
  }
}

void TPeriodComparison_FRM::DeclareFigure(const TGridColumn& figure) {
  const ComparedFields fields(figure.FieldName());
  const std::string title = TitleOfFigure(figure) + "|";
  const auto add = [&](const std::string& field, const std::string& caption) -> TGridColumn& {
    return Comparison_GRD.AddColumn(field, title + caption)
        .SetDisplayFormat(figure.DisplayFormatText())
        .SetMoney(figure.Money())
        .SetFooter(figure.Footer())
        .SetWidth(std::max(kLeastFigureWidth, figure.Width()));
  };
  add(fields.own, PeriodText(periods_.own));
  add(fields.other, PeriodText(periods_.other));
  add(fields.difference, "تفاوت");
  add(fields.percent, "درصد")
      .SetDisplayFormat(kPercentFormat)
      .SetFooter(FooterKind::None)
      .SetWidth(kPercentWidth);
}

// What the user filters, sorts and groups the report's table by holds here, as far as its columns are
// compared.
void TPeriodComparison_FRM::TakeOverView() {
  const std::vector<RowCondition> conditions = grid_.DataSet()->Narrowing();
  for (const RowCondition& condition : conditions) AddCondition(Comparison_GRD, condition);
  if (!grid_.SortKeys().empty()) Comparison_GRD.SetSortKeys(grid_.SortKeys());
  if (!grid_.Groups().Levels().empty()) Comparison_GRD.Groups().SetLevels(grid_.Groups().Levels());
}

void TPeriodComparison_FRM::FormShow() {
  TBaseDock_FRM::FormShow();
  SetShortCut(Comparison_GRD);
  SetPopMenu(Comparison_GRD);
  if (!Comparison_QRY.Active()) {
    LoadGridSettings(Comparison_GRD, LayoutName(), PrintOption.SoftwarePart, 0);
    Comparison_QRY.Open();
    TakeOverView();
  }
  btnShow_BTN.SetEnabled(!Comparison_QRY.IsEmpty());
  Comparison_GRD.SetFocus();
}

void TPeriodComparison_FRM::FormClose() {
  SaveGridSettings(Comparison_GRD, LayoutName(), PrintOption.SoftwarePart, 0);
  TBaseDock_FRM::FormClose();
}

// Of each grid that is compared, since columns belong to it.
std::string TPeriodComparison_FRM::LayoutName() const { return "PeriodComparison_" + grid_.Name(); }

void TPeriodComparison_FRM::FormKeyDown(TKey& key) {
  TBaseDock_FRM::FormKeyDown(key);
  if (key.IsConsumed() || !key.Is(Key::F2)) return;
  key.Consume();
  btnShow_BTN.Click();
}

void TPeriodComparison_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& lines) {
  report_.PrintDBGridEhBeforePrint(lines);  // without what its own table is filtered and grouped by
  lines.push_back(PeriodsLine());
}

void TPeriodComparison_FRM::btnShow_BTNClick() {
  if (!Comparison_QRY.RecNo()) return;
  const Value key = Comparison_QRY.FieldByName(key_);
  TADOQuery* rows = grid_.DataSet();
  if (rows == nullptr || !rows->Locate(key_, std::span(&key, 1))) {
    Host().Messages().ShowSmartMessage("این ردیف در گزارش دیده نمی‌شود.", Caption(),
                                       MessageIcon::Information);
    return;
  }
  grid_.DoubleClick();
}

void ComparePeriods(TBaseDock_FRM& report, IPeriodReport& periods, TSmartDBGrid_QRT& grid) {
  const auto asked = periods.PeriodOfRows();
  if (!asked) return;
  THost& host = report.Host();
  TComparedPeriod_FRM dialog(host, *asked);
  if (dialog.ShowModal() != kModalOk) return;
  const auto own = periods.PeriodOfRows();  // as the rows are now
  if (!own) return;
  const ReportPeriod other = dialog.Period();
  TADOQuery rows(nullptr, "OtherPeriod_QRY", host.Connection());
  {
    const WaitingScope waiting(host.Waiting(), &report, kReadingOtherPeriod);
    periods.ReadPeriod(grid, other, rows);
  }
  if (!rows.Active()) return;
  const Comparison comparison = ComparisonOf(grid, periods.KeyField(grid));
  TPeriodComparison_FRM(report, grid, {*own, other}, comparison,
                        JoinPeriods(*grid.DataSet(), rows, comparison))
      .ShowModal();
}

}  // namespace goods
