#include "tests/desktop/app/every_window.h"

#include <QApplication>
#include <QMenu>

#include "desktop/app/category_picker.h"
#include "desktop/app/company_chooser.h"
#include "desktop/app/entity_picker.h"
#include "desktop/app/help_windows.h"
#include "desktop/app/import_dialog.h"
#include "desktop/app/main_window.h"
#include "desktop/app/password_dialog.h"
#include "desktop/app/report_views.h"
#include "desktop/app/server_dialog.h"
#include "desktop/app/settings_dialog.h"
#include "desktop/app/sign_in.h"
#include "desktop/app/users_dialog.h"
#include "desktop/views/column_chooser.h"
#include "desktop/windows/message_dialog.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/components/standard.h"

namespace goods {
namespace {

constexpr int kSearched = 700;  // milliseconds: longer than a search waits for further keys

// What the action opens; returns when it is closed again.
void LookAt(const std::function<void()>& open, const EveryWindow::Look& look) {
  bool shown = false;
  bool done = false;
  WhileModal([&](QWidget& window) {
    shown = true;
    Wait(50);
    look(window);
    if (window.isVisible()) window.close();
    done = true;
  });
  open();
  WaitUntil([&] { return done; });
  Wait(20);
  EXPECT_TRUE(shown);
  RethrowFailure();
}

void LookAtCriteria(QWidget& window, const EveryWindow::Look& look) {
  const auto* button = FormOf(window).FindComponent("ADVSearch_Fram1.ADVSearch_BTN");
  if (button == nullptr || !dynamic_cast<const TControl*>(button)->CanFocus()) return;
  LookAt([&] { PressKey(window, Qt::Key_F10, Qt::ControlModifier); }, look);
}

}  // namespace

bool IsSeen(const QWidget& part) {
  return part.isVisible() && part.isEnabled() && !part.visibleRegion().isEmpty();
}

void EveryWindow::Inside(const char* exportName, const Look& steps) {
  LookAt([&] { Module().Call(exportName); }, steps);
}

void EveryWindow::EachReport(const Look& look) {
  HostFor("admin");
  for (const ReportDescription& report : MenuReports()) {
    if (!Module().Has(report.exportName)) continue;
    SCOPED_TRACE(report.exportName);
    LookAt([&] { Module().Open(report); },
           [&](QWidget& window) {
             Wait(100);
             look(window);
             LookAtCriteria(window, look);
           });
  }
  Inside("Open_DetailTransactions", [&](QWidget& window) {
    Wait(kSearched);
    LookAt([&] { Component<TButton>(window, "OpenInfo_BTN").Click(); },
           [&](QWidget& good) {
             SCOPED_TRACE("one good's details");
             look(good);
             LookAtCriteria(good, look);
           });
  });
  Inside("Open_DetailKardexAsset_Dismatch", [&](QWidget& window) {
    Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
    Wait(kSearched);
    LookAt([&] { PressKey(window, Qt::Key_F2); },
           [&](QWidget& rows) {
             SCOPED_TRACE("operation mismatch");
             look(rows);
             LookAtCriteria(rows, look);
           });
  });
  Inside("Open_GoodTrans_Overall", [&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(100);
    bool compared = false;
    WhileModal([&](QWidget& dialog) {
      SCOPED_TRACE("the other period");
      look(dialog);
      Component<TEdit>(dialog, "Date1_EDT").SetText("1402/01/01");
      Component<TEdit>(dialog, "Date2_EDT").SetText("1402/12/29");
      WhenShown("PeriodComparison_FRM", [&](QWidget& comparison) {
        compared = true;
        look(comparison);
      });
      PressKey(dialog, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F12, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return compared; }));
    RethrowFailure();
  });
}

void EveryWindow::OverACard(const Look& look) {
  Inside("Open_GoodKardex", [&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    auto& form = dynamic_cast<FormView&>(window);
    auto& grid = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD");
    LookAt([&] { PressKey(window, Qt::Key_F9); },
           [&](QWidget& preview) {
             look(preview);
             LookAt([&] { PressKey(preview, Qt::Key_E, Qt::ControlModifier); }, look);
           });
    LookAt([&] { PressKey(window, Qt::Key_F11); }, look);
    form.Run([&] { grid.SetFocus(); });
    form.Flush();
    LookAt([&] { PressKey(window, Qt::Key_Down, Qt::AltModifier); }, look);
    LookAt([&] { ShowColumnChooser(form, grid); }, look);
    LookAt([&] { PressKey(window, Qt::Key_F2); }, look);
    LookAt(
        [&] {
          PressKey(window, Qt::Key_F6);
          auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
          ASSERT_NE(menu, nullptr);
          for (int i = 0; i < 9; ++i) {
            if (menu->activeAction() != nullptr && menu->activeAction()->text().contains("ذخیره")) break;
            PressKey(*menu, Qt::Key_Down);
          }
          PressKey(*menu, Qt::Key_Return);
        },
        look);
    // With a filter, the bar that finds, and figures below: all that a window may have at once.
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
    PressKey(window, Qt::Key_G, Qt::ControlModifier);
    PressKey(window, Qt::Key_F, Qt::ControlModifier);
    Wait(100);
    look(window);
  });
}

void EveryWindow::OfTheProgram(const Look& look) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "", {}, &host.Views());
  window.show();
  window.activateWindow();
  Wait(50);
  look(window);
  LookAt([&] { SignInDialog(Company(), "admin", "راهنما").Ask(); }, look);
  LookAt([&] { CompanyChooser(Settings(), [] { return QString(); }).Choose(); }, look);
  LookAt([&] { UsersDialog(Company().Users(), 1, &window).exec(); },
         [&](QWidget& users) {
           look(users);
           LookAt([&] { PressKey(users, Qt::Key_F2); }, look);
         });
  LookAt(
      [&] {
        PasswordDialog(
            "admin", true, [](auto&&...) {}, &window)
            .exec();
      },
      look);
  LookAt([&] { ServerDialog("server:SERVER=10.0.0.5;DATABASE=Sherkat;UID=anbar").Ask(); }, look);
  LookAt([&] { SettingsDialog(Settings(), &window).exec(); }, look);
  LookAt([&] { EntityPicker(Company(), EntityKind::Good, 0, "", &window).Choose(); }, look);
  LookAt([&] { CategoryPicker(host.Lookups().Categories(), {}, &window).Choose(); }, look);
  LookAt([&] { ImportDialog(folder_.path(), &window).Make(); }, look);
  LookAt([&] { host.Views().Manage(&window); }, look);
  LookAt([&] { ShowKeysWindow(&window); }, look);
  LookAt([&] { ShowAboutWindow(&window); }, look);
  ShownMessage message;
  message.text = "خواندن اطلاعات ناتمام ماند.";
  message.details = "Exec Kardex_Proc 12";
  message.question = true;
  LookAt([&] { MessageDialog(message, &window).exec(); }, look);
}

void EveryWindow::EachDialog(const Look& look) {
  OfTheProgram(look);
  HostFor("admin");
  OverACard(look);
}

}  // namespace goods
