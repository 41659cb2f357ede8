// What a frame of a scrolled table costs at 1,000 and at 1,000,000 rows, and what a window costs until its
// first painting beside a bare dialog with as many widgets of the same kinds.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>

#include <benchmark/benchmark.h>

#include "desktop/tools/window_driver.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/theme.h"
#include "figures.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

void ScrollFrame(benchmark::State& state) {
  TestHost host;
  TCard_FRM form(host);
  form.Fill(static_cast<std::size_t>(state.range(0)));
  form.Criteria_PNL.SetFolded(true);
  FormView view(form);
  view.show();
  Settle();
  auto& grid = dynamic_cast<GridWidget&>(*view.WidgetOf(form.Kardex_GRD));
  QScrollBar& bar = *grid.verticalScrollBar();
  int row = 0;
  for (auto each : state) {
    row = (row + 37) % bar.maximum();
    bar.setValue(row);
    grid.viewport()->repaint();
  }
  state.counters["rows_in_view"] = grid.Geometry().WholeRows();
}
BENCHMARK(ScrollFrame)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Repetitions(5);

void WindowToFirstPaint(benchmark::State& state) {
  TestHost host;
  for (auto each : state) {
    TCard_FRM form(host);
    FormView view(form);
    view.show();
    view.repaint();
    benchmark::DoNotOptimize(view.findChildren<QWidget*>().size());
  }
  TCard_FRM form(host);
  FormView view(form);
  state.counters["widgets"] = static_cast<double>(view.findChildren<QWidget*>().size());
}
BENCHMARK(WindowToFirstPaint)->Unit(benchmark::kMillisecond);

// As many widgets of each kind as the window has, in rows of five.
void BareDialogToFirstPaint(benchmark::State& state) {
  TestHost host;
  TCard_FRM form(host);
  const FormView model(form);
  const auto count = [&]<typename Kind>() { return static_cast<int>(model.findChildren<Kind*>().size()); };
  const int labels = count.template operator()<QLabel>();
  const int edits = count.template operator()<QLineEdit>();
  const int boxes = count.template operator()<QCheckBox>();
  const int combos = count.template operator()<QComboBox>();
  const int buttons = count.template operator()<QPushButton>();
  const int all = static_cast<int>(model.findChildren<QWidget*>().size());
  for (auto each : state) {
    QDialog dialog;
    dialog.resize(1060, 680);
    auto* column = new QVBoxLayout(&dialog);
    QHBoxLayout* row = nullptr;
    int placed = 0;
    const auto place = [&](QWidget* widget) {
      if (placed++ % 5 == 0) {
        row = new QHBoxLayout;
        column->addLayout(row);
      }
      row->addWidget(widget);
    };
    for (int i = 0; i < labels; ++i) place(new QLabel("وارده :"));
    for (int i = 0; i < edits; ++i) place(new QLineEdit("1402"));
    for (int i = 0; i < boxes; ++i) place(new QCheckBox("به جز"));
    for (int i = 0; i < combos; ++i) place(new QComboBox);
    for (int i = 0; i < buttons; ++i) place(new QPushButton("خروج"));
    for (int rest = all - labels - edits - boxes - combos - buttons; rest > 0; --rest) place(new QWidget);
    dialog.show();
    dialog.repaint();
  }
  state.counters["widgets"] = all;
}
BENCHMARK(BareDialogToFirstPaint)->Unit(benchmark::kMillisecond);

void Report() {
  Tell({"a frame of a scrolled table of 1,000,000 rows", ProcessorTime("ScrollFrame/1000000"),
        "of 1,000 rows", ProcessorTime("ScrollFrame/1000"), 1.5});
  Tell({"a window to its first painting", ProcessorTime("WindowToFirstPaint"),
        "a bare dialog with as many widgets", ProcessorTime("BareDialogToFirstPaint")});
}

}  // namespace
}  // namespace goods::testing

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1920, 1080));
  qputenv("QT_LOGGING_RULES", "*.debug=false");
  QApplication application(argc, argv);
  goods::ApplyTheme(application, goods::ThemeMode::Light);
  return goods::RunBenchmarks(argc, argv, goods::testing::Report);
}
