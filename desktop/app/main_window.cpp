#include "desktop/app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QMenuBar>
#include <QStatusBar>
#include <algorithm>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/app/help_book.h"
#include "desktop/app/help_viewer.h"
#include "desktop/app/help_windows.h"
#include "desktop/app/report_views.h"
#include "desktop/app/services/company_rights.h"
#include "desktop/app/settings_dialog.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/numbered_menu.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/text_label.h"
#include "desktop/views/theme.h"
#include "desktop/views/thousands.h"
#include "goods_reports.h"

namespace goods {
namespace {

constexpr const char* kStateName = "Main";
constexpr int kLeastLabelWidth = 170;

}  // namespace

void ApplyLook(const DesktopOptions& options) {
  SetPersianDigits(options.PersianDigits);
  SetThousandsSeparators(options.ThousandsSeparators);
  ApplyTheme(*qobject_cast<QApplication*>(QApplication::instance()),
             options.DarkPalette ? ThemeMode::Dark : ThemeMode::Light);
  QApplication::setWindowIcon(ProgramIcon(64));
}

MainWindow::MainWindow(THost& host, ModuleLibrary& module, DesktopSettings& settings,
                       const QString& companyTitle, const QString& companyPath, AccountActions account,
                       ReportViews* views)
    : host_(host),
      module_(module),
      settings_(settings),
      account_(std::move(account)),
      views_(views),
      page_(nullptr) {
  setObjectName("Main_FRM");
  setWindowTitle(QString(kProgramTitle) + " — " + companyTitle);
  setLayoutDirection(Qt::RightToLeft);
  resize(1180, 760);
  const std::vector<OfferedReport> reports = OfferedReports();
  page_ = new StartPage(
      ShownText(companyTitle),
      "گزارش را با کلیدهای جهت‌نما برگزینید و Enter را بزنید.",
      reports, [this](const ReportDescription& report) { OpenReport(report); }, this);
  setCentralWidget(page_);
  MakeMenus(reports);
  MakeStatusBar(companyTitle, companyPath);
  restoreGeometry(settings_.WindowState(kStateName));
  if (views_ != nullptr) views_->OnChanged = [this] { ShowViews(); };
  ShowViews();
  page_->FocusFirst();
}

MainWindow::~MainWindow() {
  if (views_ != nullptr) views_->OnChanged = nullptr;
}

void MainWindow::ShowViews() {
  if (views_ == nullptr) return;
  offeredViews_.clear();
  for (const OfferedReport& report : OfferedReports()) {
    for (const SavedView* view : views_->Store().ViewsOf(report.entry->name)) {
      if (view->onStartPage)
        offeredViews_.push_back({view->report, view->name, ToQt(report.entry->title), report.reason});
    }
  }
  page_->SetViews(offeredViews_, [this](std::size_t view) { OpenView(view); });
}

void MainWindow::OpenView(std::size_t view) {
  if (view >= offeredViews_.size()) return;
  const OfferedView offered = offeredViews_[view];
  const ReportDescription* report = FindReport(offered.report);
  if (report == nullptr) return;
  RunUserAction(host_, [&] { views_->Open(report->name, offered.name, [&] { module_.Open(*report); }); });
}

void MainWindow::ManageViews() { views_->Manage(this); }

std::vector<OfferedReport> MainWindow::OfferedReports() const {
  std::vector<OfferedReport> offered;
  IRights& rights = host_.Rights();
  for (const ReportDescription& report : MenuReports()) {
    if (!module_.Has(report.exportName)) continue;
    const bool allowed = IsAllowed(rights, report.softwarePart, report.permission, RightQuestion::Silent);
    offered.push_back(
        {&report, allowed ? QString() : ToQt(MissingRightText(report.softwarePart, report.permission))});
  }
  return offered;
}

QAction* MainWindow::AddAction(QMenu& menu, const char* name, const QString& text,
                               const QKeySequence& shortcut, void (MainWindow::*slot)()) {
  QAction* action = menu.addAction(text, this, slot);
  action->setShortcuts(OnBothLayouts(shortcut));
  action->setObjectName(name);
  return action;
}

void MainWindow::MakeMenus(const std::vector<OfferedReport>& reports) {
  QMenu& program = *menuBar()->addMenu("پر&ونده");
  AddAction(program, "SwitchCompany_ACT", "تعویض شرکت…", Qt::Key_F3, &MainWindow::SwitchCompany);
  AddAction(program, "SignOut_ACT", "خروج از حساب کا&ربر", QKeySequence("Ctrl+L"), &MainWindow::SignOut);
  program.addSeparator();
  if (account_.manageUsers) AddAction(program, "Users_ACT", "کاربران…", Qt::Key_F6, &MainWindow::ManageUsers);
  if (account_.changePassword) {
    AddAction(program, "Password_ACT", "تغییر گذرواژه…", Qt::Key_F7, &MainWindow::ChangePassword);
  }
  if (account_.manageUsers || account_.changePassword) program.addSeparator();
  AddAction(program, "Settings_ACT", "تنظیمات…", Qt::Key_F12, &MainWindow::ShowSettings);
  program.addSeparator();
  AddAction(program, "Quit_ACT", "خر&وج", QKeySequence("Ctrl+Q"), &MainWindow::Quit);

  auto& list = *new NumberedMenu("گز&ارش‌ها", this);
  menuBar()->addMenu(&list);
  list.setToolTipsVisible(true);
  std::string_view group;
  for (const OfferedReport& report : reports) {
    if (!group.empty() && group != report.entry->group) list.addSeparator();
    group = report.entry->group;
    QAction* action = list.addAction(NumberedMenu::Numbered(report.entry->digit, ToQt(report.entry->title)));
    action->setObjectName(QString(report.entry->exportName) + "_ACT");
    action->setShortcuts(OnBothLayouts(QKeySequence(QString("Ctrl+%1").arg(report.entry->digit))));
    action->setEnabled(report.reason.isEmpty());
    action->setToolTip(report.reason.isEmpty() ? ToQt(report.entry->about) : report.reason);
    connect(action, &QAction::triggered, this, [this, entry = report.entry] { OpenReport(*entry); });
  }

  if (views_ != nullptr) {
    list.addSeparator();
    AddAction(list, "Views_ACT", "&نماهای ذخیره‌شده…", QKeySequence("Ctrl+M"),
              &MainWindow::ManageViews);
  }

  QMenu& help = *menuBar()->addMenu("&راهنما");
  AddAction(help, "Help_ACT", "&راهنمای گزارش‌ها", Qt::Key_F1, &MainWindow::ShowHelp);
  AddAction(help, "Keys_ACT", "&کلیدها", QKeySequence("Ctrl+F1"), &MainWindow::ShowKeys);
  AddAction(help, "About_ACT", "&درباره برنامه", {}, &MainWindow::ShowAbout);
}

void MainWindow::MakeStatusBar(const QString& companyTitle, const QString& companyPath) {
  const auto add = [this](const char* name, const QString& text) {
    auto* label = new TextLabel(this);
    label->setText(text);
    label->setObjectName(name);
    label->setContentsMargins(10, 2, 10, 2);
    label->setMinimumWidth(std::min(label->sizeHint().width(), kLeastLabelWidth));
    label->SetShrinkable(true);  // a long name does not widen the window
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    statusBar()->addWidget(label);
    return label;
  };
  statusBar()->setSizeGripEnabled(false);
  add("StatusCompany_LBL", "شرکت: " + ShownText(companyTitle))->setToolTip(companyPath);
  add("StatusUser_LBL", "کاربر: " + ShownText(host_.Rights().UserInfo().Name));
  add("StatusDate_LBL", "تاریخ: " + ShownText(host_.Windows().NowDate()));
}

void MainWindow::OpenReport(const ReportDescription& report) {
  RunUserAction(host_, [&] {
    if (views_ == nullptr) return module_.Open(report);
    views_->Open(report.name, "", [&] { module_.Open(report); });
  });
}

void MainWindow::ShowSettings() {
  SettingsDialog dialog(settings_, this);
  if (dialog.exec() == QDialog::Accepted) ApplyLook(settings_.Options());
}

void MainWindow::ManageUsers() {
  RunUserAction(host_, [this] { account_.manageUsers(this); });
}

void MainWindow::ChangePassword() {
  RunUserAction(host_, [this] { account_.changePassword(this); });
}

void MainWindow::ShowHelp() { OpenHelp(*this, kHelpIndex); }
void MainWindow::ShowKeys() { ShowKeysWindow(this); }
void MainWindow::ShowAbout() { ShowAboutWindow(this); }

void MainWindow::Leave(MainOutcome outcome) {
  outcome_ = outcome;
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  settings_.SetWindowState(kStateName, saveGeometry());
  event->accept();
  loop_.quit();
}

MainOutcome MainWindow::Run() {
  outcome_ = MainOutcome::Quit;
  show();
  loop_.exec();
  return outcome_;
}

}  // namespace goods
