#include "desktop/library/c_session.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <clocale>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/app/main_window.h"
#include "desktop/app/sign_in.h"
#include "desktop/library/c_connection.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

// Exports without arguments.
constexpr std::array<std::string_view, 10> kPlainExports{
    "Open_GoodKardex",
    "Open_KardexSearch",
    "Open_GoodAmountAsset",
    "Open_GoodCashAsset",
    "Open_GoodTrans_Overall",
    "Open_GoodsAsset_Store",
    "Open_DetailTransactions",
    "Open_SearchInDetailTransactions",
    "Open_DetailKardexAsset_Dismatch",
    "Open_StoreExistance",
};

bool IsSet(const char* variable) { return !qEnvironmentVariableIsEmpty(variable); }

// Qt ends the program where it finds no screen; so it is not asked where none can be.
void RequireScreen() {
#ifdef Q_OS_LINUX
  if (IsSet("QT_QPA_PLATFORM") || IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY")) return;
  throw CallFailure(GOODS_DESKTOP_NO_SCREEN, "صفحه نمایشی پیدا نشد.");
#endif
}

QApplication& MakeApplication() {
  RequireScreen();
  static int count = 1;
  static char name[] = "goods-desktop";
  static char* arguments[] = {name, nullptr};
  // Qt sets the whole locale; a program without Qt goes on writing numbers as before.
  const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
  auto* application = new QApplication(count, arguments);
  std::setlocale(LC_NUMERIC, numbers.c_str());
  QApplication::setOrganizationName("goods");
  QApplication::setApplicationName("goods-desktop");
  QApplication::setQuitOnLastWindowClosed(false);
  return *application;
}

TextEncoding EncodingOf(std::int32_t encoding) {
  if (encoding == GOODS_DESKTOP_UTF8) return TextEncoding::Utf8;
  if (encoding == GOODS_DESKTOP_UTF16) return TextEncoding::Utf16;
  FailWrongCall("این کدگذاری متن شناخته نیست: " + std::to_string(encoding));
}

void GiveLook(QApplication& application, bool made, std::int32_t look, const DesktopOptions& options) {
  SetPersianDigits(options.PersianDigits);
  if (made) {
    ApplyLook(options);
  } else if (look == GOODS_DESKTOP_OWN_LOOK) {
    ApplyTheme(application, options.DarkPalette ? ThemeMode::Dark : ThemeMode::Light);
  } else {
    AdoptTheme(application);
  }
}

std::string Otherwise(const std::string& text, const char* otherwise) {
  return text.empty() ? otherwise : text;
}

}  // namespace

QApplication& TheApplication(bool& made) {
  static const QApplication* own = nullptr;
  QCoreApplication* there = QCoreApplication::instance();
  if (there == nullptr) own = &MakeApplication();
  auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (application == nullptr) {
    throw CallFailure(
        GOODS_DESKTOP_NO_SCREEN,
        "برنامه QApplication ندارد و نمی‌تواند پنجره نشان دهد.");
  }
  if (application->thread() != QThread::currentThread()) {
    throw CallFailure(GOODS_DESKTOP_WRONG_THREAD,
                      "این کار تنها در رشته پنجره‌ها شدنی است.");
  }
  made = application == own;
  return *application;
}

}  // namespace goods

using namespace goods;

goods_desktop::goods_desktop(const goods_desktop_options& options)
    : thread_(QThread::currentThread()), tables_(CopyTables(options, EncodingOf(options.encoding))) {
  const bool ownUser = options.user_name != nullptr;
  const bool ownConnection = tables_.connection.open != nullptr;
  if (ownConnection == (options.company != nullptr)) {
    FailWrongCall(
        "یا شرکت باید داده شود یا جدول goods_desktop_connection، و تنها یکی از "
        "آن‌ها.");
  }
  if (ownUser && options.login != nullptr) {
    FailWrongCall(
        "یا login باید داده شود یا user_name، و تنها یکی از آن‌ها.");
  }
  if (ownConnection && !ownUser)
    FailWrongCall("با جدول goods_desktop_connection باید user_name هم داده شود.");
  if (ownUser && tables_.rights.have_permission == nullptr)
    FailWrongCall("با user_name باید تابع have_permission هم داده شود.");

  bool made = false;
  QApplication& application = TheApplication(made);
  const QString folder = options.settings_folder == nullptr ? DesktopSettings::DefaultFolder()
                                                            : ToQt(Text(options.settings_folder));
  settings_ = std::make_unique<OwnSettings>(folder, tables_);
  GiveLook(application, made, options.look, settings_->Options());
  module_ = LoadModule(Text(options.module));
  company_ = OpenTheCompany(options);
  const UserRecord user = SignIn(options);
  session_ = std::make_unique<DesktopSession>(*company_, user, *settings_, *module_, nullptr,
                                              ServicesOf(tables_, *settings_));
  constexpr std::string_view kFile = "file:";
  const std::string file = Text(options.company);
  session_->Host().Printing().Protect(file.starts_with(kFile) ? file.substr(kFile.size()) : file);
  helpKey_ = std::make_unique<HelpKey>(HelpKey::Reach::ReportsOnly);
}

goods_desktop::~goods_desktop() = default;

std::unique_ptr<ICompany> goods_desktop::OpenTheCompany(const goods_desktop_options& options) const {
  if (tables_.connection.open != nullptr)
    return MakeOwnCompany(tables_.connection, tables_.encoding, Text(options.title));
  return OpenCompany(Text(options.company));
}

UserRecord goods_desktop::SignIn(const goods_desktop_options& options) {
  if (options.user_name != nullptr) {
    UserRecord own;
    own.code = options.user_code;
    own.name = Text(options.user_name);
    return own;
  }
  if (options.login != nullptr) {
    const std::string login = Text(options.login);
    auto user = company_->SignIn(login, Text(options.password));
    if (user) return *std::move(user);
    throw CallFailure(GOODS_DESKTOP_NOT_SIGNED_IN, "نام کاربر یا گذرواژه درست نیست: " + login);
  }
  SignInDialog dialog(*company_, settings_->LastLogin(), {}, QApplication::activeWindow());
  auto user = dialog.Ask();
  if (!user) throw CallFailure(GOODS_DESKTOP_GIVEN_UP, "کاربر وارد نشد.");
  settings_->SetLastLogin(ToQt(user->login));
  return *std::move(user);
}

void goods_desktop::Open(const goods_desktop_report& report) {
  const std::string_view name = report.name == nullptr ? std::string_view() : report.name;
  const std::string from = Text(report.from);
  const std::string to = Text(report.to);
  if (name == "Open_Kardex") {
    module_->OpenKardex(report.good, report.store, from, to);
  } else if (name == "Open_GarKala") {
    module_->OpenGarKala(report.software_part);
  } else if (name == "Open_KardexNegativ") {
    module_->OpenKardexNegativ(Otherwise(Text(report.mode), "1"), Otherwise(Text(report.first), "0"),
                               Otherwise(Text(report.second), "0"));
  } else if (name == "Open_GoodDetailTransactions") {
    const std::string tags = Text(report.tags);
    const std::string category = Text(report.category);
    module_->OpenGoodDetailTransactions(report.good, report.store != 0, report.store, !from.empty(), from, to,
                                        !tags.empty(), tags, !category.empty(), category);
  } else if (std::find(kPlainExports.begin(), kPlainExports.end(), name) != kPlainExports.end()) {
    module_->Call(report.name);
  } else {
    throw CallFailure(GOODS_DESKTOP_NO_REPORT, "گزارشی با این نام نیست: " + std::string(name));
  }
}

void goods_desktop::CloseReports() { session_->Host().Windows().CloseAll(); }

bool goods_desktop::LetGo() { return module_->Detach(); }
