// MainWindow: the reports, the menu, and who works with which company.
#pragma once

#include <QEventLoop>
#include <QMainWindow>
#include <QString>
#include <functional>
#include <vector>

#include "desktop/app/help_key.h"
#include "desktop/app/services/desktop_settings.h"
#include "desktop/app/services/module_library.h"
#include "desktop/app/start_page.h"
#include "host/services/host.h"

namespace goods {

// What the user wants after the window is closed.
enum class MainOutcome { Quit, SignOut, SwitchCompany };

class ReportViews;

// What a user may do about users; an entry of the menu for each that is there.
struct AccountActions {
  std::function<void(QWidget* parent)> manageUsers = {};
  std::function<void(QWidget* parent)> changePassword = {};
};

class MainWindow : public QMainWindow {
 public:
  // All must outlive the window; the module has the host attached.
  MainWindow(THost& host, ModuleLibrary& module, DesktopSettings& settings, const QString& companyTitle,
             const QString& companyPath, AccountActions account = {}, ReportViews* views = nullptr);
  ~MainWindow() override;

  // Shows the window and returns when it is closed.
  MainOutcome Run();

  void OpenReport(const ReportDescription& report);
  // A saved view by its place on the start page.
  void OpenView(std::size_t view);
  void ShowSettings();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::vector<OfferedReport> OfferedReports() const;
  void ShowViews();
  void ManageViews();
  void MakeMenus(const std::vector<OfferedReport>& reports);
  QAction* AddAction(QMenu& menu, const char* name, const QString& text, const QKeySequence& shortcut,
                     void (MainWindow::*slot)());
  void MakeStatusBar(const QString& companyTitle, const QString& companyPath);
  void Leave(MainOutcome outcome);
  void Quit() { Leave(MainOutcome::Quit); }
  void SignOut() { Leave(MainOutcome::SignOut); }
  void SwitchCompany() { Leave(MainOutcome::SwitchCompany); }
  void ManageUsers();
  void ChangePassword();
  void ShowHelp();
  void ShowKeys();
  void ShowAbout();

  THost& host_;
  ModuleLibrary& module_;
  DesktopSettings& settings_;
  AccountActions account_;
  ReportViews* views_;  // null where none are kept
  std::vector<OfferedView> offeredViews_;
  HelpKey helpKey_;
  StartPage* page_;
  QEventLoop loop_;
  MainOutcome outcome_ = MainOutcome::Quit;
};

// The look that the settings ask for, given to the whole application.
void ApplyLook(const DesktopOptions& options);

}  // namespace goods
