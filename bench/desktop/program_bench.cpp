// The desktop program as a process: the time from its start to the painted main window, beside a Qt program
// that shows an empty one; and the most memory that it ever held with the turnover list open, beside the same
// empty program. Usage: bench_program [--goods N] [--movements N] [COMPANY] COMPANY is made where it is
// missing; without one the time is taken over a demo company of the usual size.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include <dlfcn.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/demo/demo_company.h"
#include "company/embedded/sqlite.h"
#include "desktop/app/program.h"
#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "figures.h"
#include "host/components/grid.h"

extern char** environ;

namespace goods {
namespace {

constexpr int kStarts = 10;

// Milliseconds of a clock that every process reads alike.
double Now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

// A line of /proc/self/status in megabytes (10^6 bytes).
double Megabytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    double kibibytes = 0;
    if (word == name + ":" && status >> kibibytes) return kibibytes * 1024 / 1e6;
  }
  return 0;
}

// Calls back once, when the first window has been painted with all that stands in it.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(std::function<void()> painted) : painted_(std::move(painted)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(object);
    if (seen_ || event->type() != QEvent::Paint || widget == nullptr || !widget->isWindow()) return false;
    seen_ = true;
    QTimer::singleShot(0, this, [this] { painted_(); });
    return false;
  }

 private:
  std::function<void()> painted_;
  bool seen_ = false;
};

// The highest memory before the last ForgetPeak; hashing the password at the sign-in takes 64 MB for a
// moment, under which what comes later would not be seen.
double forgottenPeak = 0;

void ForgetPeak() {
  forgottenPeak = Megabytes("VmHWM");
  std::ofstream("/proc/self/clear_refs") << "5";
}

void Print(double time, std::size_t rows) {
  const double later = Megabytes("VmHWM");
  std::printf("%.3f %.1f %.1f %.1f %zu\n", time, std::max(later, forgottenPeak), later, Megabytes("RssAnon"),
              rows);
  std::fflush(stdout);
}

int RunEmpty(QApplication& application) {
  QMainWindow window;
  FirstPaint paint([] {
    Print(Now(), 0);
    std::_Exit(0);
  });
  window.resize(1200, 760);
  window.show();
  return application.exec();
}

std::size_t RowsShown(QWidget* window) {
  auto* view = dynamic_cast<FormView*>(window);
  if (view == nullptr) return 0;
  const auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(view->Form().FindComponent("GoodTransactin_List_GRD"));
  return grid == nullptr || grid->DataSet() == nullptr ? 0 : grid->DataSet()->RecordCount();
}

// The list as a user opens it, every good, scrolled to its other end; then what it took.
void ShowList(const std::string& module) {
  ForgetPeak();
  QTimer::singleShot(1000, qApp, [] {
    QWidget* window = QApplication::activeModalWidget();
    auto* view = dynamic_cast<FormView*>(window);
    if (view == nullptr) std::_Exit(1);
    auto& list = view->Form();
    list.KeyDown({Key::Digit6, false, true, false});
    QTimer::singleShot(1000, qApp, [window] {
      Print(Now(), RowsShown(window));
      std::_Exit(0);
    });
  });
  void* library = dlopen(module.c_str(), RTLD_NOW | RTLD_NOLOAD);
  auto* open = library == nullptr ? nullptr : dlsym(library, "Open_GoodAmountAsset");
  if (open == nullptr) std::_Exit(1);
  reinterpret_cast<void (*)()>(open)();
}

int RunDesktop(const std::string& company, const std::string& folder, bool list) {
  StartOptions options;
  options.company = company;
  options.user = "admin";
  options.passwordFile = folder + "/password";
  options.settingsFolder = folder;
  const std::string module = ModuleLibrary::Find("", QApplication::applicationDirPath().toStdString());
  FirstPaint paint([&] {
    if (list) return ShowList(module);
    Print(Now(), 0);
    std::_Exit(0);
  });
  return DesktopProgram(options).Run();
}

struct Outcome {
  double milliseconds = 0;  // from the start
  double processor = 0;     // milliseconds of processor time, to the end
  double peak = 0;          // megabytes, file pages of the company and the libraries among them
  double later = 0;         // the same without what was forgotten
  double own = 0;           // megabytes at the end that belong to no file
  std::size_t rows = 0;
};

// Runs this program in another mode and reads what it prints.
Outcome Spawn(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "/proc/self/exe");
  std::vector<char*> texts;
  for (std::string& argument : arguments) texts.push_back(argument.data());
  texts.push_back(nullptr);
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
  const double start = Now();
  pid_t child = 0;
  if (posix_spawn(&child, self.c_str(), &actions, nullptr, texts.data(), environ) != 0)
    throw std::runtime_error("the program did not start");
  close(ends[1]);
  std::string text;
  char block[256];
  for (ssize_t count = 0; (count = read(ends[0], block, sizeof block)) > 0;)
    text.append(block, static_cast<std::size_t>(count));
  close(ends[0]);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage used{};
  wait4(child, &status, 0, &used);
  Outcome outcome;
  for (const timeval& time : {used.ru_utime, used.ru_stime})
    outcome.processor += static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) * 1e-3;
  if (status != 0 || std::sscanf(text.c_str(), "%lf %lf %lf %lf %zu", &outcome.milliseconds, &outcome.peak,
                                 &outcome.later, &outcome.own, &outcome.rows) != 5)
    throw std::runtime_error("the program failed");
  outcome.milliseconds -= start;
  return outcome;
}

// The company with a hash of the same password in 8 KB and one pass, where a company's own has 64 MB and two.
void CopyWithCheapPassword(const std::string& company, const std::string& copy) {
  std::filesystem::copy_file(company, copy);
  Database db(copy, SQLITE_OPEN_READWRITE);
  Statement change = db.Prepare("UPDATE Users SET PasswordHash = ?1 WHERE Login = 'admin'");
  change.Bind(1, std::string_view("$argon2id$v=19$m=8,t=1,p=1$M/ibAhCVnfgc3brm0Dx3Jg$"
                                  "yJcwP+onkAZeHWWhnmTXNZbuYhNTZieHB8KqiaM3daU"));
  change.Run();
}

// The middle of several runs, after one that warms the caches.
Outcome Middle(const std::vector<std::string>& arguments) {
  std::vector<Outcome> outcomes;
  for (int i = 0; i <= kStarts; ++i) {
    outcomes.push_back(Spawn(arguments));
    if (i == 0) outcomes.clear();
  }
  std::sort(outcomes.begin(), outcomes.end(),
            [](const Outcome& a, const Outcome& b) { return a.milliseconds < b.milliseconds; });
  return outcomes[outcomes.size() / 2];
}

int Compare(std::string company, const DemoOptions& options) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  std::ofstream(path + "/password") << "admin\n";
  const bool given = !company.empty();
  if (!given) company = path + "/demo.goods";
  if (!std::filesystem::exists(company)) MakeDemoCompany(company, given ? options : DemoOptions());
  const Outcome empty = Middle({"--empty"});
  const Outcome main = Middle({"--desktop", company, "--folder", path});
  const std::string cheap = path + "/cheap.goods";
  CopyWithCheapPassword(company, cheap);
  const Outcome unhashed = Middle({"--desktop", cheap, "--folder", path});
  const Outcome list = Spawn({"--list", company, "--folder", path});
  Tell({"from the start of the process to the painted main window, signed in", main.processor,
        "a Qt program with an empty window", empty.processor});
  Tell({"the same with a password whose hash costs nothing", unhashed.processor,
        "a Qt program with an empty window", empty.processor, 3});
  Tell({"peak memory of the desktop program, turnover list open", list.peak, "250 MB", 250, 1, "MB"});
  Tell({"of it after the main window was painted", list.later, "the empty Qt program", empty.peak, 0, "MB"});
  return 0;
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1920, 1080));
  QApplication application(argc, argv);
  bool empty = false;
  std::string company, desktop, list, folder;
  goods::DemoOptions options;
  options.goods = 20'000;
  options.movements = 2'000'000;
  CLI::App commandLine("Start and memory of the desktop program.");
  commandLine.add_option("company", company, "A demo company");
  commandLine.add_option("--goods", options.goods, "Of a company that is made");
  commandLine.add_option("--movements", options.movements, "Of a company that is made");
  commandLine.add_flag("--empty", empty)->group("");
  commandLine.add_option("--desktop", desktop)->group("");
  commandLine.add_option("--list", list)->group("");
  commandLine.add_option("--folder", folder)->group("");
  CLI11_PARSE(commandLine, argc, argv);
  try {
    if (empty) return goods::RunEmpty(application);
    if (!list.empty()) return goods::RunDesktop(list, folder, true);
    if (!desktop.empty()) return goods::RunDesktop(desktop, folder, false);
    return goods::Compare(company, options);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
