// The exported functions.
#include "goods_desktop.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "desktop/app/program.h"
#include "desktop/library/c_connection.h"
#include "desktop/library/c_session.h"

using namespace goods;

namespace {

// The reports have one host at a time, so there is one session.
std::unique_ptr<goods_desktop> g_session;
bool g_busy = false;  // a session is being made, or the program runs

struct BusyScope {
  BusyScope() {
    if (g_busy || g_session != nullptr) throw CallFailure(GOODS_DESKTOP_BUSY, "نشست دیگری باز است.");
    g_busy = true;
  }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;
  ~BusyScope() { g_busy = false; }
};

goods_desktop& TheSession(const goods_desktop* session) {
  if (session == nullptr || session != g_session.get()) FailWrongCall("این نشست باز نیست.");
  if (!g_session->IsOnItsThread()) {
    throw CallFailure(GOODS_DESKTOP_WRONG_THREAD, "این کار تنها در رشته نشست شدنی است.");
  }
  return *g_session;
}

goods_desktop_rows& TheRows(goods_desktop_rows* rows) {
  if (rows == nullptr) FailWrongCall("rows داده نشده است.");
  return *rows;
}

Decimal DecimalOf(std::int64_t units, std::int32_t places) {
  if (places < 0 || places > Decimal::kDecimals)
    FailWrongCall("شمار رقم‌های اعشار باید ۰ تا ۹ باشد.");
  Int128 billionths = units;
  for (std::int32_t place = places; place < Decimal::kDecimals; ++place) billionths *= 10;
  return Decimal::FromUnits(billionths);
}

std::int32_t StoppedOrDone(bool goesOn) {
  return goesOn ? GOODS_DESKTOP_DONE : KeepProblem(GOODS_DESKTOP_STOPPED, "این دستور متوقف شد.");
}

std::string Utf8(const char* text) { return TextIn(text, TextEncoding::Utf8); }

}  // namespace

const char* GoodsDesktop_Version(void) { return GOODS_PROJECT_VERSION; }

goods_desktop_text GoodsDesktop_Problem(int32_t encoding) {
  return ProblemText(encoding == GOODS_DESKTOP_UTF16 ? TextEncoding::Utf16 : TextEncoding::Utf8);
}

int32_t GoodsDesktop_Create(const goods_desktop_options* options, goods_desktop** session) {
  if (session != nullptr) *session = nullptr;
  return AnswerCall([&] {
    if (options == nullptr || session == nullptr) FailWrongCall("options یا session داده نشده است.");
    const BusyScope busy;
    g_session = std::make_unique<goods_desktop>(CopyOf(options, "goods_desktop_options"));
    *session = g_session.get();
  });
}

int32_t GoodsDesktop_Open(goods_desktop* session, const goods_desktop_report* report) {
  return AnswerCall([&] {
    if (report == nullptr) FailWrongCall("report داده نشده است.");
    TheSession(session).Open(CopyOf(report, "goods_desktop_report"));
  });
}

int32_t GoodsDesktop_CloseReports(goods_desktop* session) {
  return AnswerCall([&] { TheSession(session).CloseReports(); });
}

int32_t GoodsDesktop_Destroy(goods_desktop* session) {
  return AnswerCall([&] {
    if (session == nullptr) return;
    if (!TheSession(session).LetGo())
      throw CallFailure(GOODS_DESKTOP_BUSY, "گزارشی باز است؛ نخست آن را ببندید.");
    g_session.reset();
  });
}

int32_t GoodsDesktop_AddColumn(goods_desktop_rows* rows, goods_desktop_text name, int32_t type) {
  return AnswerCall([&] { TheRows(rows).AddColumn(TextIn(name, rows->Encoding()), type); });
}

int32_t GoodsDesktop_AddInteger(goods_desktop_rows* rows, int64_t value) {
  return AnswerCall([&] { TheRows(rows).AddInteger(value); });
}

int32_t GoodsDesktop_AddDecimal(goods_desktop_rows* rows, int64_t units, int32_t places) {
  return AnswerCall([&] { TheRows(rows).AddDecimal(DecimalOf(units, places)); });
}

int32_t GoodsDesktop_AddText(goods_desktop_rows* rows, goods_desktop_text text) {
  return AnswerCall([&] { TheRows(rows).AddText(TextIn(text, rows->Encoding())); });
}

int32_t GoodsDesktop_AddNull(goods_desktop_rows* rows) {
  return AnswerCall([&] { TheRows(rows).AddNull(); });
}

int32_t GoodsDesktop_EndRow(goods_desktop_rows* rows) {
  bool goesOn = true;
  const int32_t code = AnswerCall([&] { goesOn = TheRows(rows).EndRow(); });
  return code == GOODS_DESKTOP_DONE ? StoppedOrDone(goesOn) : code;
}

int32_t GoodsDesktop_GoOn(goods_desktop_rows* rows) {
  bool goesOn = true;
  const int32_t code = AnswerCall([&] { goesOn = TheRows(rows).GoOn(); });
  return code == GOODS_DESKTOP_DONE ? StoppedOrDone(goesOn) : code;
}

int32_t GoodsDesktop_SayWhy(goods_desktop_rows* rows, goods_desktop_text message) {
  return AnswerCall([&] { TheRows(rows).SayWhy(TextIn(message, rows->Encoding())); });
}

int32_t GoodsDesktop_RunProgram(const goods_desktop_program* program, int32_t* exit_code) {
  if (exit_code != nullptr) *exit_code = 1;
  return AnswerCall([&] {
    if (program == nullptr || exit_code == nullptr) FailWrongCall("program یا exit_code داده نشده است.");
    const goods_desktop_program given = CopyOf(program, "goods_desktop_program");
    const BusyScope busy;
    bool made = false;
    TheApplication(made);
    StartOptions options;
    options.demo = given.demo != 0;
    options.company = Utf8(given.company);
    options.user = Utf8(given.user);
    options.passwordFile = Utf8(given.password_file);
    options.statementLog = Utf8(given.statement_log);
    options.module = Utf8(given.module);
    options.settingsFolder = Utf8(given.settings_folder);
    options.dataFolder = Utf8(given.data_folder);
    *exit_code = DesktopProgram(std::move(options)).Run();
  });
}
