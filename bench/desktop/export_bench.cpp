// The time from the call of each export to the first painting of its window, beside a bare dialog with as
// many widgets: the window made anew, and a kept window shown again.
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "company/demo/demo_company.h"
#include "desktop/app/desktop_host.h"
#include "desktop/views/theme.h"
#include "figures.h"
#include "goods_reports.h"

namespace goods {
namespace {

// Takes the time of the first painting of a dialog, and closes it as a user does.
class FirstPaint : public QObject {
 public:
  FirstPaint() { qApp->installEventFilter(this); }
  void Start() {
    painted_ = false;
    clock_.start();
  }
  double Seconds() const { return seconds_; }
  int Widgets() const { return widgets_; }

  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(object);
    if (painted_ || event->type() != QEvent::Paint || widget == nullptr || !widget->isWindow()) return false;
    painted_ = true;
    // The window paints its children right after itself; the message loop comes when all are painted.
    QTimer::singleShot(0, widget, [this, widget] {
      seconds_ = static_cast<double>(clock_.nsecsElapsed()) * 1e-9;
      widgets_ = static_cast<int>(widget->findChildren<QWidget*>().size());
      widget->close();
    });
    return false;
  }

 private:
  QElapsedTimer clock_;
  bool painted_ = false;
  double seconds_ = 0;
  int widgets_ = 0;
};

struct Desktop {
  Desktop() {
    const std::string file = (folder.path() + "/demo.goods").toStdString();
    MakeDemoCompany(file, {});
    company = OpenCompany(file);
    settings = std::make_unique<DesktopSettings>(folder.path() + "/settings");
    module = std::make_unique<ModuleLibrary>(
        ModuleLibrary::Find("", QApplication::applicationDirPath().toStdString()));
    host = std::make_unique<DesktopHost>(*company, *company->SignIn("admin", "admin"), *settings, *module,
                                         nullptr);
    good = company->ListBusyGoods(2).at(1).code;
  }
  QTemporaryDir folder;
  std::unique_ptr<ICompany> company;
  std::unique_ptr<DesktopSettings> settings;
  std::unique_ptr<ModuleLibrary> module;
  std::unique_ptr<DesktopHost> host;
  std::int64_t good = 0;
};

Desktop& TheDesktop() {
  static Desktop desktop;
  return desktop;
}

struct OpenedWindow {
  std::string name;  // of the export
  std::function<void(Desktop& desktop)> open;
  bool kept;  // shown again by the next call
};

// Every report as a menu opens it, and two as other parts of the program do, of a busy good.
std::vector<OpenedWindow> Windows() {
  std::vector<OpenedWindow> windows;
  for (const ReportDescription& report : MenuReports()) {
    windows.push_back({report.exportName, [&report](Desktop& desktop) { desktop.module->Open(report); },
                       report.life == ReportLife::Kept});
  }
  const ReportDescription& card = Describe(ReportId::StockCard);
  windows.push_back({card.callerExport,
                     [](Desktop& desktop) { desktop.module->OpenKardex(desktop.good, 0, "", ""); },
                     card.life == ReportLife::Kept});
  const ReportDescription& details = Describe(ReportId::StockByDetails);
  windows.push_back({details.callerExport,
                     [](Desktop& desktop) {
                       desktop.module->OpenGoodDetailTransactions(desktop.good, false, 0, false, "", "",
                                                                  false, "", false, "");
                     },
                     details.life == ReportLife::Kept});
  return windows;
}

template <typename Open>
void Measure(benchmark::State& state, Open&& open) {
  FirstPaint paint;
  for (auto each : state) {
    paint.Start();
    open();
    state.SetIterationTime(paint.Seconds());
  }
  state.counters["widgets"] = paint.Widgets();
}

// The statements that run before the first painting are part of the time.
void MadeAnew(benchmark::State& state, const OpenedWindow& window) {
  Desktop& desktop = TheDesktop();
  Measure(state, [&] {
    desktop.module->Attach(*desktop.host);
    window.open(desktop);
    desktop.module->Detach();
  });
}

void ShownAgain(benchmark::State& state, const OpenedWindow& window) {
  Desktop& desktop = TheDesktop();
  desktop.module->Attach(*desktop.host);
  Measure(state, [&] { window.open(desktop); });
  desktop.module->Detach();
}

// As many plain widgets as the window has.
void BareDialog(benchmark::State& state, const OpenedWindow& window) {
  Desktop& desktop = TheDesktop();
  FirstPaint paint;
  desktop.module->Attach(*desktop.host);
  paint.Start();
  window.open(desktop);
  desktop.module->Detach();
  const int widgets = paint.Widgets();
  Measure(state, [&] {
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    layout->setSpacing(0);
    for (int i = 0; i < widgets; ++i) layout->addWidget(new QLabel("کالا"));
    dialog.exec();
  });
}

void Register() {
  static const std::vector<OpenedWindow> kWindows = Windows();
  for (const OpenedWindow& window : kWindows) {
    const auto add = [&window](const char* kind, void (*run)(benchmark::State&, const OpenedWindow&)) {
      benchmark::RegisterBenchmark((window.name + kind).c_str(),
                                   [&window, run](benchmark::State& state) { run(state, window); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    };
    add("/new", MadeAnew);
    if (window.kept) add("/kept", ShownAgain);
    add("/bare", BareDialog);
  }
}

void Report() {
  for (const OpenedWindow& window : Windows()) {
    const std::string name = window.name;
    const double bare = ProcessorTime(name + "/bare");
    const std::string dialog = "a bare dialog of as many widgets";
    Tell({"`" + name + "` to its first painting, its statements included", ProcessorTime(name + "/new"),
          dialog, bare});
    Tell({"the same, kept and shown again", ProcessorTime(name + "/kept"), dialog, bare});
  }
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  goods::ApplyTheme(application, goods::ThemeMode::Light);
  goods::Register();
  return goods::RunBenchmarks(argc, argv, goods::Report);
}
