// goods-pictures: drives the real windows without a screen and writes their pictures for the documentation.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <iostream>

#include "desktop/app/company_chooser.h"
#include "desktop/app/demo_company.h"
#include "desktop/app/desktop_host.h"
#include "desktop/app/entity_picker.h"
#include "desktop/app/import_dialog.h"
#include "desktop/app/main_window.h"
#include "desktop/app/server_dialog.h"
#include "desktop/app/settings_dialog.h"
#include "desktop/app/sign_in.h"
#include "desktop/app/users_dialog.h"
#include "desktop/tools/picture_scenes_charts.h"
#include "desktop/tools/picture_scenes_desk.h"
#include "desktop/tools/picture_scenes_reports.h"
#include "desktop/tools/picture_scenes_views.h"
#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "goods_reports.h"
#include "host/components/drop_down.h"

namespace goods {
namespace {

struct Pictures {
  ICompany& company;
  DesktopSettings& settings;
  ModuleLibrary& module;
  QString folder;

  void Save(QWidget& window, const char* name) const {
    const QString path = folder + "/" + name + ".png";
    if (!PictureOf(window).save(path)) throw std::runtime_error("cannot write " + FromQt(path));
    std::cout << FromQt(path) << "\n";
  }
};

// Files as another system hands them over, with a row that is wrong.
void WriteForeignFiles(const QDir& folder) {
  const auto write = [&](const char* name, const QString& text) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("cannot write a file");
    file.write(text.toUtf8());
  };
  QString goods = "کد کالا;نام کالا;گروه;واحد;نقطه سفارش;بارکد\n";
  const char* const names[] = {"روغن آفتابگردان",
                               "برنج هاشمی",
                               "چای کیسه‌ای",
                               "شکر",
                               "قند حبه",
                               "رب گوجه",
                               "ماکارونی",
                               "عدس",
                               "لپه",
                               "نخود"};
  for (int i = 0; i < 10; ++i) {
    goods += QString("G00000%1;%2;خواربار;بسته;%3;62600010%4\n")
                 .arg(i)
                 .arg(names[i])
                 .arg(20 + i * 5)
                 .arg(1000 + i * 7);
  }
  write("کالاها.csv", goods);
  QString movements = "تاریخ;کد کالا;انبار;عملیات;تعداد;فی;شماره سند\n";
  for (int i = 0; i < 60; ++i) {
    movements += QString("1403/0%1/%2;G00000%3;مرکزی;%4;%5;%6;%7\n")
                     .arg(1 + i / 20)
                     .arg(i == 41 ? 32 : 10 + i % 20)
                     .arg(i == 47 ? 77 : i % 10)
                     .arg(i < 10       ? "موجودی اول دوره"
                          : i % 3 == 0 ? "خرید"
                                       : "فروش")
                     .arg(i == 52 ? QString("دوازده") : QString::number(5 + i % 7))
                     .arg(450000 + i * 1000)
                     .arg(1 + i / 3);
  }
  write("گردش کالا.csv", movements);
}

void PictureImport(const Pictures& pictures) {
  const QTemporaryDir data;
  WriteForeignFiles(QDir(data.path()));
  ImportDialog dialog(data.path());
  WhileModal([&](QWidget& window) {
    dynamic_cast<QLineEdit&>(Child(window, "Source_EDT")).setText(data.path());
    const auto goOn = [&] {
      PressKey(window, Qt::Key_Return);
      Wait(1200);
    };
    goOn();
    auto& tables = dynamic_cast<QListWidget&>(Child(window, "Tables_LST"));
    tables.setCurrentRow(1);
    Wait(200);
    pictures.Save(window, "import-matching");
    goOn();
    goOn();
    pictures.Save(window, "import-problems");
    for (int i = 0; i < 4; ++i) PressKey(window, Qt::Key_Escape);
  });
  dialog.Make();
  RethrowFailure();
}

void PictureDialogs(const Pictures& pictures) {
  SignInDialog signIn(pictures.company, "admin", kDemoUsersHint);
  WhileModal([&](QWidget& window) { pictures.Save(window, "sign-in"); });
  signIn.Ask();

  CompanyChooser chooser(pictures.settings, [] { return QString(); });
  WhileModal([&](QWidget& window) { pictures.Save(window, "company-chooser"); });
  chooser.Choose();

  UsersDialog users(pictures.company.Users(), 1, nullptr);
  WhileModal([&](QWidget& window) {
    PressKey(window, Qt::Key_Down);
    WhileModal([&](QWidget& user) { pictures.Save(user, "user"); });
    PressKey(window, Qt::Key_F2);
  });
  users.exec();

  PictureImport(pictures);
  ServerDialog server("server:SERVER=10.0.0.5;DATABASE=Sherkat;UID=anbar");
  WhileModal([&](QWidget& window) { pictures.Save(window, "server-dialog"); });
  server.Ask();

  SettingsDialog settings(pictures.settings);
  WhileModal([&](QWidget& window) { pictures.Save(window, "settings"); });
  settings.exec();

  EntityPicker picker(pictures.company, EntityKind::Good, 0, "", nullptr);
  WhileModal([&](QWidget& window) {
    TypeText(window, "Search_EDT", "رو");
    Wait(400);
    pictures.Save(window, "picker");
  });
  picker.Choose();
}

// The good is typed as a user types it; store and dates come as another report would hand them over.
void PictureStockCards(const Pictures& pictures, DesktopHost& host, const BusyGood& good) {
  const auto settle = [](QWidget& window, int width = 1440) {
    window.resize(width, 860);
    Wait(400);
  };
  const auto typedCard = [&](auto&& steps) {
    WhileModal([&, steps](QWidget& window) {
      TypeText(window, "Good_SEF.Code_EDT", QString::number(good.code));
      PressKey(window, Qt::Key_Return);
      settle(window);
      steps(window);
    });
    pictures.module.Call("Open_GoodKardex");
    RethrowFailure();
  };
  typedCard([&](QWidget& window) {
    pictures.Save(window, "stock-card");
    WhileModal([&](QWidget& document) { pictures.Save(document, "document"); });
    PressKey(window, Qt::Key_F2);
    WhileModal([&](QWidget& preview) {
      preview.resize(1200, 860);
      Wait(600);
      pictures.Save(preview, "print-preview");
    });
    PressKey(window, Qt::Key_F9);
  });
  WhileModal([&](QWidget& window) {
    settle(window);
    pictures.Save(window, "stock-card-criteria");
  });
  pictures.module.OpenKardex(good.code, 1, "1403/01/01", "1403/06/31");
  host.Settings().Settings().SecondUnit = true;
  typedCard([&](QWidget& window) {
    settle(window, 1560);
    pictures.Save(window, "stock-card-second-unit");
  });
  host.Settings().Settings().SecondUnit = false;
  RethrowFailure();
}

void PictureMain(const Pictures& pictures, DesktopHost& host) {
  MainWindow window(host, pictures.module, pictures.settings, ToQt(pictures.company.Title()), "");
  window.resize(1200, 760);
  window.show();
  Wait(300);
  pictures.Save(window, "main-window");
}

// The search that a storekeeper makes: goods by name, in a year, through the criteria dialog.
void PictureRowSearch(const Pictures& pictures) {
  const auto settle = [](QWidget& window) {
    window.resize(1440, 860);
    Wait(400);
  };
  WhileModal([&](QWidget& window) {
    settle(window);
    WhileModal([&](QWidget& dialog) {
      TypeText(dialog, "SearchGood_FRAME.GeneralSearch_EDT", "روغن");
      TypeText(dialog, "SearchRangeDate_FRAME.RangeDate_From_EDT", "14030101");
      TypeText(dialog, "SearchRangeDate_FRAME.RangeDate_To_EDT", "14031230");
      PressKey(dialog, Qt::Key_Return);
      Wait(200);
      pictures.Save(dialog, "row-search-criteria");
      PressKey(dialog, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    Wait(400);
    pictures.Save(window, "row-search");
  });
  pictures.module.Call("Open_KardexSearch");
  WhileModal([&](QWidget& window) {
    settle(window);
    pictures.Save(window, "negative-card");
  });
  pictures.module.OpenKardexNegativ("1", "0", "0");
  RethrowFailure();
}

// The lists of goods: in quantity with its criteria and tags, in whole and part, and in money with the choice
// of the price.
void PictureTurnover(const Pictures& pictures, DesktopHost& host) {
  const auto shown = [&](const char* exportName, const std::function<void(QWidget&)>& steps) {
    WhileModal([steps](QWidget& window) {
      window.resize(1440, 860);
      Wait(500);
      steps(window);
    });
    pictures.module.Call(exportName);
    RethrowFailure();
  };
  shown("Open_GoodAmountAsset", [&](QWidget& window) {
    pictures.Save(window, "goods-quantity");
    WhileModal([&](QWidget& dialog) { pictures.Save(dialog, "goods-criteria"); });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    Component<TButton>(window, "Tags_btn").Click();
    Wait(300);
    for (int i = 0; i < 3; ++i) PressKey(window, Qt::Key_Down);
    Wait(300);
    pictures.Save(window, "goods-tags");
  });
  shown("Open_GoodCashAsset", [&](QWidget& window) {
    pictures.Save(window, "goods-money");
    Component<TCheckBox>(window, "pnlReport_PNL.Stock_CHK").SetChecked(true);
    Component<TDropDownCombo>(window, "pnlReport_PNL.Report_CMB").SetDroppedDown(true);
    Wait(400);
    pictures.Save(window, "goods-price-basis");
  });
  TSettings& settings = host.Settings().Settings();
  settings.SecondUnit = settings.SecondUnitIsLarger = settings.WholeAndPart = true;
  shown("Open_GoodAmountAsset", [&](QWidget& window) { pictures.Save(window, "goods-whole-and-part"); });
  settings.SecondUnit = settings.SecondUnitIsLarger = settings.WholeAndPart = false;
}

enum class Part { All, Charts, Desk };

void MakePictures(const std::string& file, const std::string& moduleFile, const QString& folder,
                  const QString& settingsFolder, Part part) {
  QDir().mkpath(folder);
  DesktopSettings settings(settingsFolder);
  ApplyLook(settings.Options());
  const auto company = OpenCompany(file);
  ModuleLibrary module(ModuleLibrary::Find(moduleFile, FromQt(QApplication::applicationDirPath())));
  const Pictures pictures{*company, settings, module, folder};
  if (part == Part::All) PictureDialogs(pictures);
  for (const char* login : {"guest", "admin"}) {
    const auto user = company->SignIn(login, login);
    if (!user) throw std::runtime_error("this is no demo company");
    DesktopHost host(*company, *user, settings, module, nullptr);
    module.Attach(host);
    const ReportScenes scenes{module, host,
                              [&](QWidget& window, const char* name) { pictures.Save(window, name); }};
    if (login == std::string_view("admin")) {
      const std::int64_t good = company->ListBusyGoods(1).at(0).code;
      if (part != Part::Desk) PictureCharts(scenes, good);
      if (part != Part::Charts) PictureDesk(scenes, good);
      if (part != Part::All) {
        module.Detach();
        return;
      }
      PictureMain(pictures, host);
      PictureStockCards(pictures, host, company->ListBusyGoods(1).at(0));
      PictureRowSearch(pictures);
      if (module.Has("Open_GoodAmountAsset")) PictureTurnover(pictures, host);
      PictureReports(scenes);
      PictureViews(scenes, ToQt(company->Title()), settings, good);
    } else if (part == Part::All) {
      MainWindow window(host, module, settings, ToQt(company->Title()), "");
      window.resize(1200, 760);
      window.show();
      Wait(300);
      pictures.Save(window, "main-window-guest");
    }
    module.Detach();
  }
}

}  // namespace
}  // namespace goods

// Only a mistake in the options' own declarations is thrown out of it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  goods::UseOffscreenScreen(QSize(1920, 1080));
  QLoggingCategory::setFilterRules("*.warning=false\n*.debug=false");
  QApplication application(argc, argv);
  std::string company;
  std::string module;
  std::string folder;
  const QTemporaryDir fresh;  // kept layouts of an earlier run would show
  std::string settings = goods::FromQt(fresh.path());
  bool charts = false;
  bool desk = false;
  CLI::App commandLine("Writes pictures of the desktop's windows.");
  commandLine.add_option("--company", company, "A demo company")->required();
  commandLine.add_option("--module", module, "The report library, instead of the one beside the program");
  commandLine.add_option("--out", folder, "Where the pictures go")->required();
  commandLine.add_flag("--charts", charts, "Pictures of the charts alone");
  commandLine.add_flag("--desk", desk, "Pictures of what every report window offers alone");
  commandLine.add_option("--settings", settings, "Folder of the settings");
  CLI11_PARSE(commandLine, argc, argv);
  try {
    goods::MakePictures(company, module, goods::ToQt(folder), goods::ToQt(settings),
                        charts ? goods::Part::Charts
                        : desk ? goods::Part::Desk
                               : goods::Part::All);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
