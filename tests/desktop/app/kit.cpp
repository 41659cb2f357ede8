#include "tests/desktop/app/kit.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

#include "company/demo/demo_company.h"

namespace goods {

const std::string& SmallCompany() {
  static const QTemporaryDir kFolder;
  static const std::string kPath = [] {
    DemoOptions options;
    options.goods = 60;
    options.stores = 3;
    options.movements = 2'000;
    std::string path = FromQt(kFolder.filePath("small.goods"));
    MakeDemoCompany(path, options);
    return path;
  }();
  return kPath;
}

namespace {

// The same company elsewhere, as its description: tests/end_to_end/check_on_server.sh.
std::string CompanyOfTheTests() {
  const char* elsewhere = std::getenv("GOODS_TEST_COMPANY");
  return elsewhere != nullptr ? elsewhere : SmallCompany();
}

}  // namespace

std::int64_t BusiestGood(ICompany& company) { return company.ListBusyGoods(1).at(0).code; }

DesktopTest::DesktopTest()
    : company_(OpenCompany(CompanyOfTheTests())), settings_(folder_.filePath("settings")) {}

DesktopTest::~DesktopTest() {
  if (module_ != nullptr) module_->Detach();
}

void DesktopTest::TearDown() { EXPECT_NO_THROW(RethrowFailure()); }

std::string DesktopTest::Written(const std::string& path) const {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

DesktopHost& DesktopTest::HostFor(const char* login, DesktopHost::ConnectionWrapper wrap) {
  const auto user = company_->SignIn(login, login);
  if (!user) throw std::runtime_error("the demo company has no such user");
  log_ = std::make_unique<StatementLog>(Path("statements.log"));
  module_ = std::make_unique<ModuleLibrary>(GOODS_MODULE_FILE);
  host_ = std::make_unique<DesktopHost>(*company_, *user, settings_, *module_, log_.get(), std::move(wrap));
  module_->Attach(*host_);
  return *host_;
}

TForm& FormOf(QWidget& window) {
  auto* view = dynamic_cast<FormView*>(&window);
  if (view == nullptr) throw std::runtime_error("the window in front shows no form");
  return view->Form();
}

void WhenShown(const QString& name, std::function<void(QWidget&)> steps) {
  constexpr int kPollMs = 10;
  auto* poll = new QTimer(QCoreApplication::instance());
  QObject::connect(poll, &QTimer::timeout, poll, [poll, name, steps = std::move(steps)] {
    const QPointer<QWidget> front(QApplication::activeModalWidget());
    if (front == nullptr || front->objectName() != name) return;
    poll->stop();
    poll->deleteLater();
    Wait(50);
    try {
      steps(*front);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    if (front != nullptr && front->isVisible()) front->close();
  });
  poll->start(kPollMs);
}

void TypeGood(QWidget& window, std::int64_t code) {
  QWidget& edit = Child(window, "Good_SEF.Code_EDT");
  edit.setFocus();
  PressKey(window, Qt::Key_A, Qt::ControlModifier);
  TypeText(window, "Good_SEF.Code_EDT", QString::number(code));
  PressKey(window, Qt::Key_Return);
  Wait(50);
}

std::size_t RowCount(QWidget& window) {
  for (const TComponent* component : FormOf(window).Components()) {
    const auto* grid = dynamic_cast<const TSmartDBGrid_QRT*>(component);
    if (grid != nullptr && grid->DataSet() != nullptr) return grid->DataSet()->RecordCount();
  }
  return 0;
}

}  // namespace goods
