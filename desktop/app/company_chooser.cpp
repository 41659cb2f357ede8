#include "desktop/app/company_chooser.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/app/import_dialog.h"
#include "desktop/app/server_dialog.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/file_dialogs.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kPathRole = Qt::UserRole;  // empty: the demo company
constexpr const char* kFileKinds =
    "پرونده شرکت (*.goods *.db *.sqlite);;همه پرونده‌ها (*)";

// Two lines and some air.
QSize RowSize(const QWidget& list) { return {0, list.fontMetrics().lineSpacing() * 2 + 14}; }

}  // namespace

CompanyChooser::CompanyChooser(DesktopSettings& settings, DemoMaker demo, QWidget* parent)
    : QDialog(parent), settings_(settings), demo_(std::move(demo)) {}

void CompanyChooser::LayOut() {
  if (list_ != nullptr) return;
  list_ = new QListWidget(this);
  problem_ = ProblemLabel(this);
  setObjectName("Company_FRM");
  setWindowTitle("انتخاب شرکت");
  setAccessibleName("انتخاب شرکت");
  setLayoutDirection(Qt::RightToLeft);

  list_->setObjectName("Company_LST");
  list_->setAccessibleName("شرکت‌ها");
  GiveListLook(*list_);
  auto* demo = new QListWidgetItem(
      "شرکت نمایشی\nداده‌های ساختگی برای آشنایی با گزارش‌ها",
      list_);
  demo->setData(kPathRole, QString());
  demo->setSizeHint(RowSize(*list_));
  for (const QString& path : settings_.RecentCompanies()) AddRecent(path);
  list_->setCurrentRow(list_->count() > 1 ? 1 : 0);
  connect(list_, &QListWidget::itemActivated, this, &CompanyChooser::OpenCurrent);

  auto* buttons = new QDialogButtonBox(this);
  auto* open = buttons->addButton("باز کردن  Enter", QDialogButtonBox::AcceptRole);
  open->setObjectName("Open_BTN");
  open->setDefault(true);
  auto* browse = buttons->addButton("پرونده دیگر…  F3", QDialogButtonBox::ActionRole);
  browse->setObjectName("Browse_BTN");
  auto* server = buttons->addButton("سرور…  F4", QDialogButtonBox::ActionRole);
  server->setObjectName("Server_BTN");
  connect(server, &QPushButton::clicked, this, [this] { OpenServer({}); });
  connect(new QShortcut(Qt::Key_F4, this), &QShortcut::activated, this, [this] { OpenServer({}); });
  auto* import = new QPushButton("شرکت تازه از پرونده‌ها…  F5", this);
  import->setObjectName("Import_BTN");
  import->setAutoDefault(false);
  connect(import, &QPushButton::clicked, this, &CompanyChooser::ImportFiles);
  connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, &CompanyChooser::ImportFiles);
  buttons->addButton("خروج  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &CompanyChooser::OpenCurrent);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(browse, &QPushButton::clicked, this, &CompanyChooser::BrowseForFile);
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, &CompanyChooser::BrowseForFile);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel("انتخاب شرکت", this));
  layout->addWidget(MutedLabel("با کدام شرکت کار می‌کنید؟", this));
  layout->addWidget(list_, 1);
  layout->addWidget(import, 0, Qt::AlignLeading);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(560, 460);
  list_->setFocus();
}

void CompanyChooser::AddRecent(const QString& description) {
  const bool server = IsOnServer(FromQt(description));
  const QString name = server ? QString("شرکت روی سرور") : QFileInfo(description).completeBaseName();
  const QString place = server ? description : QDir::toNativeSeparators(description);
  auto* item = new QListWidgetItem(name + "\n" + QChar(0x2066) + place + QChar(0x2069), list_);
  item->setData(kPathRole, description);
  item->setToolTip(description);
  item->setSizeHint(RowSize(*list_));
}

void CompanyChooser::OpenCurrent() {
  const QListWidgetItem* item = list_->currentItem();
  if (item == nullptr) return;
  const QString path = item->data(kPathRole).toString();
  if (path.isEmpty()) {
    OpenDemo();
  } else if (IsOnServer(FromQt(path))) {
    OpenServer(path);
  } else {
    OpenFile(path);
  }
}

void CompanyChooser::BrowseForFile() {
  const QString path = AskForFileToOpen(this, "باز کردن شرکت", {}, kFileKinds);
  if (!path.isEmpty()) OpenFile(path);
}

void CompanyChooser::OpenDemo() {
  try {
    Open(demo_(), true);
  } catch (const CompanyError& error) {
    ShowProblem(ToQt(error.what()));
  }
}

void CompanyChooser::OpenFile(const QString& path) {
  Open(path, false);
  if (opened_.company != nullptr) settings_.AddRecentCompany(opened_.path);
}

void CompanyChooser::OpenServer(const QString& known) {
  if (const auto description = ServerDialog(known, this).Ask()) OpenFile(ToQt(*description));
}

void CompanyChooser::ImportFiles() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const auto made = ImportDialog(folder, this).Make();
  if (!made) return;
  if (!made->login.isEmpty()) settings_.SetLastLogin(made->login);
  settings_.AddRecentCompany(made->path);
  if (made->open) {
    OpenFile(made->path);
  } else {
    AddRecent(made->path);
    list_->setCurrentRow(list_->count() - 1);
  }
}

void CompanyChooser::Open(const QString& path, bool demo) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    opened_ = {OpenCompany(FromQt(path)), ToQt(ShownDescription(FromQt(path))), demo};
    QApplication::restoreOverrideCursor();
    accept();
  } catch (const CompanyError& error) {
    QApplication::restoreOverrideCursor();
    opened_ = {};
    ShowProblem(ToQt(error.what()));
  }
}

void CompanyChooser::ShowProblem(const QString& text) {
  LayOut();
  problem_->setText(text);
  problem_->setVisible(true);
}

OpenedCompany CompanyChooser::Choose() {
  if (opened_.company == nullptr) {  // one may be open already, from the command line
    LayOut();
    exec();
  }
  return std::move(opened_);
}

}  // namespace goods
