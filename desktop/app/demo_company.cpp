#include "company/demo/demo_company.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProgressDialog>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <exception>
#include <thread>

#include "company/company.h"
#include "desktop/app/app_look.h"
#include "desktop/app/demo_company.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kRefreshInterval = 50;  // milliseconds

// Runs the generator on a thread of its own while the progress window lives on this one.
void MakeWithProgress(const std::string& path, QWidget* parent) {
  const DemoOptions options;
  QProgressDialog window("شرکت نمایشی برای نخستین بار ساخته می‌شود…",
                         QString(), 0, static_cast<int>(options.movements), parent);
  window.setWindowTitle(kProgramTitle);
  window.setWindowModality(Qt::ApplicationModal);
  window.setLayoutDirection(Qt::RightToLeft);
  window.setMinimumDuration(0);
  window.setMinimumWidth(420);
  window.setAutoReset(false);
  window.setValue(0);

  std::atomic<std::int64_t> made{0};
  std::atomic<bool> done{false};
  std::exception_ptr failure;
  std::thread worker([&] {
    try {
      MakeDemoCompany(path, options, [&made](const WorkProgress& progress) {
        made = std::max(made.load(), progress.done);
        return true;
      });
    } catch (...) {
      failure = std::current_exception();
    }
    done = true;
  });
  QEventLoop loop;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
    window.setValue(static_cast<int>(made.load()));
    if (done) loop.quit();
  });
  timer.start(kRefreshInterval);
  loop.exec();
  worker.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace

QString DataFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(folder);
  return folder;
}

QString EnsureDemoCompany(const QString& folder, QWidget* parent) {
  QString path = folder + "/demo.goods";
  if (QFile::exists(path)) return path;
  if (!QDir().mkpath(folder))
    throw CompanyError("پوشه داده‌ها را نمی‌توان ساخت: " + FromQt(folder));
  try {
    MakeWithProgress(FromQt(path), parent);
  } catch (const std::exception&) {
    // Another program has made it in the meantime.
    if (!QFile::exists(path)) throw;
  }
  return path;
}

}  // namespace goods
