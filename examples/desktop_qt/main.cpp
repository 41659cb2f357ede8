// A Qt application that shows reports in tabs of its own window, beside its own pages.
// Usage: desktop_qt COMPANY LOGIN PASSWORD_FILE GOOD
#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

#include "goods_desktop.h"

namespace {

class Window : public QMainWindow {
 public:
  Window() : tabs_(new QTabWidget(this)) {
    setObjectName("Application");
    resize(1100, 700);
    setCentralWidget(tabs_);
    tabs_->setTabsClosable(true);
    auto* page = new QLabel("The application's own page", tabs_);
    page->setAlignment(Qt::AlignCenter);
    tabs_->addTab(page, "Start");
    connect(tabs_, &QTabWidget::tabCloseRequested, this, [this](int index) {
      // The first tab is the application's. A report asks for nothing; its tab goes when it is closed.
      if (index > 0) tabs_->widget(index)->close();
    });
  }
  ~Window() override { GoodsDesktop_Destroy(session_); }

  bool SignIn(const char* company, const char* login, const QByteArray& password) {
    goods_desktop_windows windows{};
    windows.struct_size = sizeof windows;
    windows.context = this;
    windows.show = [](void* window, void* report, goods_desktop_text title) {
      return static_cast<Window*>(window)->AddTab(static_cast<QWidget*>(report),
                                                  static_cast<const char*>(title));
    };
    windows.hide = [](void* window, void* report) {
      auto* tabs = static_cast<Window*>(window)->tabs_;
      tabs->removeTab(tabs->indexOf(static_cast<QWidget*>(report)));
    };
    goods_desktop_options options{};
    options.struct_size = sizeof options;
    options.company = company;
    options.login = login;
    options.password = password.constData();
    options.windows = &windows;
    return GoodsDesktop_Create(&options, &session_) == GOODS_DESKTOP_DONE;
  }

  void Offer(const QString& caption, const char* report, int good) {
    auto* bar = addToolBar(caption);
    QAction* action = bar->addAction(caption, this, [this, report, good] { Open(report, good); });
    action->setObjectName(report);
  }

  // Returns when the report's tab is closed; the window lives on meanwhile.
  void Open(const char* name, int good) {
    goods_desktop_report report{};
    report.struct_size = sizeof report;
    report.name = name;
    report.good = good;
    if (GoodsDesktop_Open(session_, &report) != GOODS_DESKTOP_DONE)
      statusBar()->showMessage(static_cast<const char*>(GoodsDesktop_Problem(GOODS_DESKTOP_UTF8)));
    // Closing was asked for while reports were shown.
    if (closing_ && tabs_->count() == 1) QTimer::singleShot(0, this, &QWidget::close);
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    closing_ = tabs_->count() > 1;
    if (!closing_) return;
    event->ignore();
    GoodsDesktop_CloseReports(session_);
  }

 private:
  int32_t AddTab(QWidget* report, const char* title) {
    tabs_->setCurrentIndex(tabs_->addTab(report, QString::fromUtf8(title)));
    return 1;
  }

  QTabWidget* tabs_;
  goods_desktop* session_ = nullptr;
  bool closing_ = false;
};

QByteArray FirstLine(const char* path) {
  QFile file(QString::fromLocal8Bit(path));
  return file.open(QIODevice::ReadOnly) ? file.readLine().trimmed() : QByteArray();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("desktop_qt");
  if (argc != 5) return 2;
  Window window;
  if (!window.SignIn(argv[1], argv[2], FirstLine(argv[3]))) {
    qWarning("%s", static_cast<const char*>(GoodsDesktop_Problem(GOODS_DESKTOP_UTF8)));
    return 1;
  }
  window.Offer("Stock card", "Open_Kardex", QByteArray(argv[4]).toInt());
  window.Offer("Goods list", "Open_GoodAmountAsset", 0);
  window.show();
  return QApplication::exec();
}
