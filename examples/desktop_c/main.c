/* A C program without Qt that shows the stock card of a good over rows of its own: its connection answers the
 * reports' statements cell by cell, its user may do what its rights say, and what the user is told also goes
 * to the terminal. docs/desktop-library.md walks through it. */
#include <inttypes.h>
#include <stdio.h>
#include <string.h>

#include "goods_desktop.h"

/* ---- the rows: a program would read them from its own database */

struct movement {
  const char* date;
  int64_t store, type, document, in, out;
};

static const struct movement movements[] = {
    {"1402/01/05", 1, 2, 501, 20, 0},
    {"1402/01/19", 1, 1, 830, 0, 6},
    {"1402/02/02", 2, 2, 514, 10, 0},
    {"1402/02/11", 1, 1, 862, 0, 4},
};
static const int64_t price = 1250; /* hundredths: 12.50 */

static int32_t stock_card(goods_desktop_rows* rows) {
  int64_t remainder = 0;
  size_t row;
  GoodsDesktop_AddColumn(rows, "Date", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddColumn(rows, "Anbar", GOODS_DESKTOP_INTEGER);
  GoodsDesktop_AddColumn(rows, "Type", GOODS_DESKTOP_INTEGER);
  GoodsDesktop_AddColumn(rows, "OperationCode", GOODS_DESKTOP_INTEGER);
  GoodsDesktop_AddColumn(rows, "Tedad_Varde", GOODS_DESKTOP_DECIMAL);
  GoodsDesktop_AddColumn(rows, "Tedad_Sadere", GOODS_DESKTOP_DECIMAL);
  GoodsDesktop_AddColumn(rows, "Bagh", GOODS_DESKTOP_DECIMAL);
  GoodsDesktop_AddColumn(rows, "Miangin", GOODS_DESKTOP_DECIMAL);
  GoodsDesktop_AddColumn(rows, "Comment", GOODS_DESKTOP_TEXT);
  for (row = 0; row < sizeof movements / sizeof movements[0]; ++row) {
    const struct movement* movement = &movements[row];
    remainder += movement->in - movement->out;
    GoodsDesktop_AddText(rows, movement->date);
    GoodsDesktop_AddInteger(rows, movement->store);
    GoodsDesktop_AddInteger(rows, movement->type);
    GoodsDesktop_AddInteger(rows, movement->document);
    GoodsDesktop_AddInteger(rows, movement->in);
    GoodsDesktop_AddInteger(rows, movement->out);
    GoodsDesktop_AddInteger(rows, remainder);
    GoodsDesktop_AddDecimal(rows, price, 2);
    GoodsDesktop_AddNull(rows);
    if (GoodsDesktop_EndRow(rows) != GOODS_DESKTOP_DONE) return GOODS_DESKTOP_STOPPED;
  }
  return GOODS_DESKTOP_DONE;
}

static int32_t good_12(goods_desktop_rows* rows) {
  int title;
  GoodsDesktop_AddColumn(rows, "Code", GOODS_DESKTOP_INTEGER);
  GoodsDesktop_AddColumn(rows, "Name", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddColumn(rows, "Unit", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddColumn(rows, "Unit2", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddColumn(rows, "AbbName", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddColumn(rows, "UnitKind", GOODS_DESKTOP_INTEGER);
  for (title = 0; title < 5; ++title) GoodsDesktop_AddColumn(rows, "Title", GOODS_DESKTOP_TEXT);
  GoodsDesktop_AddInteger(rows, 12);
  GoodsDesktop_AddText(rows, "پیچ شش گوش");
  GoodsDesktop_AddText(rows, "عدد");
  GoodsDesktop_AddNull(rows);
  GoodsDesktop_AddNull(rows);
  GoodsDesktop_AddInteger(rows, 1);
  for (title = 0; title < 5; ++title) GoodsDesktop_AddNull(rows);
  return GoodsDesktop_EndRow(rows);
}

static int32_t open_statement(void* context, goods_desktop_text statement, goods_desktop_rows* rows) {
  const char* text = statement;
  (void)context;
  printf("statement: %s\n", text);
  if (strcmp(text, "Exec Kardex_Proc 12") == 0) return stock_card(rows);
  if (strstr(text, "FROM GoodLookUp_VW e WHERE e.Code = 12") != NULL) return good_12(rows);
  /* Other views have no rows here; other procedures are none of this program's. */
  if (strncmp(text, "SELECT ", 7) == 0) return GOODS_DESKTOP_DONE;
  GoodsDesktop_SayWhy(rows, "این برنامه تنها کاردکس کالای ۱۲ را دارد.");
  return GOODS_DESKTOP_FAILED;
}

static int32_t execute_statement(void* context, goods_desktop_text statement, goods_desktop_rows* rows) {
  (void)context, (void)rows;
  printf("statement: %s\n", (const char*)statement);
  return GOODS_DESKTOP_DONE;
}

/* ---- the rights: everything but printing, which is permission 23 */

static int32_t have_permission(void* context, int64_t user, int32_t software_part, int32_t permission,
                               int32_t show_message, int32_t logged, goods_desktop_text text) {
  (void)context, (void)user, (void)show_message, (void)logged, (void)text;
  printf("right: part %" PRId32 ", permission %" PRId32 "\n", software_part, permission);
  return permission != 23;
}

static int32_t sees_prices(void* context) {
  (void)context;
  return 1;
}

/* ---- messages: told on the terminal as well, so 0, and the library shows them */

static int32_t show_message(void* context, int32_t icon, goods_desktop_text caption, goods_desktop_text text,
                            goods_desktop_text details, int32_t balloon) {
  (void)context, (void)icon, (void)caption, (void)details, (void)balloon;
  printf("message: %s\n", (const char*)text);
  return 0;
}

static int failed(const char* what) {
  fprintf(stderr, "%s: %s\n", what, (const char*)GoodsDesktop_Problem(GOODS_DESKTOP_UTF8));
  return 1;
}

int main(void) {
  const goods_desktop_connection connection = {sizeof connection, NULL, open_statement, execute_statement};
  const goods_desktop_rights rights = {sizeof rights, NULL, have_permission, NULL, sees_prices};
  const goods_desktop_messages messages = {sizeof messages, NULL, show_message};
  goods_desktop_options options;
  goods_desktop_report report;
  goods_desktop* session;

  memset(&options, 0, sizeof options);
  options.struct_size = sizeof options;
  options.encoding = GOODS_DESKTOP_UTF8;
  options.title = "شرکت نمونه";
  options.user_name = "انباردار";
  options.user_code = 1;
  options.connection = &connection;
  options.rights = &rights;
  options.messages = &messages;
  if (GoodsDesktop_Create(&options, &session) != GOODS_DESKTOP_DONE) return failed("create");

  memset(&report, 0, sizeof report);
  report.struct_size = sizeof report;
  report.name = "Open_Kardex";
  report.good = 12;
  if (GoodsDesktop_Open(session, &report) != GOODS_DESKTOP_DONE) return failed("open");

  if (GoodsDesktop_Destroy(session) != GOODS_DESKTOP_DONE) return failed("destroy");
  printf("closed\n");
  return 0;
}
