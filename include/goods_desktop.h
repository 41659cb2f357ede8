/* The desktop host as a library: what libgoods_desktop exports. A program in any language that can call C
 * shows the reports in windows, over a company of its own, with few calls: GoodsDesktop_Create,
 * GoodsDesktop_Open, GoodsDesktop_Destroy. Optional tables of functions put the program's own rights,
 * documents, settings, messages, waiting indicator, windows or connection in the place of the library's.
 *
 * Threads. Everything is called on one thread, on which GoodsDesktop_Create was called, and every function of
 * a table is called on it. A program with a QApplication of its own: on that one's thread. A program without
 * Qt: on its main thread; the library then makes the QApplication, which lives until the program ends.
 *
 * Texts. Each text is in the encoding that the session was created with, UTF-8 or UTF-16 of this machine's
 * byte order, and ends with a zero. A text that is handed to a function, in either direction, belongs to who
 * hands it over and need live only as long as the call; where it is kept, it is copied. A null pointer is the
 * empty text. What is not valid in its encoding is read as U+FFFD.
 *
 * Structs. struct_size is the size that the program was compiled with: sizeof(the struct). What an older
 * program does not know is as if it were 0; what a newer one asks for beyond this library is refused.
 * Everything that is not set must be 0. Structs are copied; what context points to must outlive the session.
 *
 * Failures. A function returns GOODS_DESKTOP_DONE or one of the codes below, and then GoodsDesktop_Problem
 * has a sentence. No exception leaves a function, and a function of a table must not let one out either. */
#ifndef GOODS_DESKTOP_H
#define GOODS_DESKTOP_H

#include <stdint.h>

#ifndef GOODS_DESKTOP_EXPORT
/* GOODS_BUILDS_DESKTOP: defined while the library itself is built, by its own build alone. */
#if defined(_WIN32) && defined(GOODS_BUILDS_DESKTOP)
#define GOODS_DESKTOP_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define GOODS_DESKTOP_EXPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define GOODS_DESKTOP_EXPORT __attribute__((visibility("default")))
#else
#define GOODS_DESKTOP_EXPORT
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What the functions return. */
enum {
  GOODS_DESKTOP_DONE = 0,
  GOODS_DESKTOP_WRONG_CALL =
      1, /* a mistake in the call: an argument that is missing or does not fit the others */
  GOODS_DESKTOP_WRONG_THREAD = 2, /* not the session's thread, or not that of the program's QApplication */
  GOODS_DESKTOP_NO_SCREEN = 3, /* windows cannot be shown: no screen, or a Qt application without windows */
  GOODS_DESKTOP_NO_MODULE = 4, /* the library of the reports is missing, does not match or has another host */
  GOODS_DESKTOP_NO_COMPANY = 5,    /* the company cannot be opened */
  GOODS_DESKTOP_NOT_SIGNED_IN = 6, /* the name or the password is not right, or has to wait */
  GOODS_DESKTOP_GIVEN_UP = 7,      /* the user closed the sign-in window */
  GOODS_DESKTOP_BUSY = 8,          /* a session is there already, or a report is being shown */
  GOODS_DESKTOP_NO_REPORT = 9,     /* no export of that name */
  GOODS_DESKTOP_STOPPED = 10,      /* the user stopped the statement */
  GOODS_DESKTOP_CONNECTION_LOST = 11,
  GOODS_DESKTOP_FAILED = 12 /* anything else */
};

/* Encodings. */
enum { GOODS_DESKTOP_UTF8 = 0, GOODS_DESKTOP_UTF16 = 1 };

/* A text in the session's encoding: const char* or a pointer to 16-bit units. */
typedef const void* goods_desktop_text;

/* A session: one user at work with one company. The library's; a program knows its address alone. */
typedef struct goods_desktop goods_desktop;
/* The answer to one statement, while it is read. The library's; valid during the call that brings it. */
typedef struct goods_desktop_rows goods_desktop_rows;

/* A connection of the program's own, in the place of a company that the library opens. It answers the
 * statements of docs/procedures.md: the procedures of the reports, and the views of the look-ups. Both
 * functions return GOODS_DESKTOP_DONE, or another code after GoodsDesktop_SayWhy has had the database's
 * message; _STOPPED when GoodsDesktop_EndRow or GoodsDesktop_GoOn said so; _CONNECTION_LOST when the server
 * is gone. Both must be there. */
typedef struct goods_desktop_connection {
  uint32_t struct_size;
  void* context;
  /* Runs a statement that returns rows: GoodsDesktop_AddColumn for each column, then for each row one cell to
   * each column, from the first to the last, and GoodsDesktop_EndRow. */
  int32_t (*open)(void* context, goods_desktop_text statement, goods_desktop_rows* rows);
  /* Runs a statement for its effect; what a failing one did must be undone. rows takes no columns here. */
  int32_t (*execute)(void* context, goods_desktop_text statement, goods_desktop_rows* rows);
} goods_desktop_connection;

/* Types of columns. */
enum { GOODS_DESKTOP_INTEGER = 0, GOODS_DESKTOP_DECIMAL = 1, GOODS_DESKTOP_TEXT = 2 };

/* Who may what. A function that is null is answered by the company's own rights of the signed-in user. */
typedef struct goods_desktop_rights {
  uint32_t struct_size;
  void* context;
  /* Whether the user holds the permission on the software part (docs/host-guide.md has the numbers): 1 yes; 0
   * no, and where show_message is not 0 the library tells the user so; 2 no, and the function has told the
   * user itself. logged: the question goes into the program's log of user actions, if it keeps one. text is
   * added to the message. Needed where the user is the program's own (user_name below). */
  int32_t (*have_permission)(void* context, int64_t user, int32_t software_part, int32_t permission,
                             int32_t show_message, int32_t logged, goods_desktop_text text);
  /* The user did what the permission allows, on the thing with that code. */
  void (*set_user_event)(void* context, int32_t software_part, int32_t permission, int64_t code);
  /* Whether prices and amounts are shown: 1 yes, 0 no. Null with a user of the program's own: no. */
  int32_t (*sees_prices)(void* context);
} goods_desktop_rights;

/* Kinds of documents. */
enum {
  GOODS_DESKTOP_FIX_PRODUCTION = 1,
  GOODS_DESKTOP_SALE_INVOICE = 2,
  GOODS_DESKTOP_PURCHASE_INVOICE = 3,
  GOODS_DESKTOP_GOOD_RECORD = 4, /* the code is the good's */
  GOODS_DESKTOP_SALE_RETURN = 5,
  GOODS_DESKTOP_PURCHASE_RETURN = 6,
  GOODS_DESKTOP_TRANSFER = 7,
  GOODS_DESKTOP_VAR_PRODUCTION = 8,
  GOODS_DESKTOP_EXPENSE_NOTE = 9,
  GOODS_DESKTOP_VOUCHER = 10,
  GOODS_DESKTOP_ADVANCED_PRODUCTION = 11,
  GOODS_DESKTOP_ISSUE_NOTE = 12,
  GOODS_DESKTOP_RECEIPT_NOTE = 13,
  GOODS_DESKTOP_REVENUE_NOTE = 14
};

/* What stands behind a row. */
typedef struct goods_desktop_documents {
  uint32_t struct_size;
  void* context;
  /* Shows the document and returns when it is closed; mode 1 is for reading. 1: it was shown, or the user was
   * told why not; 0: the library shows its own viewer, which reads the document from the company. */
  int32_t (*open)(void* context, int32_t kind, int64_t code, int32_t mode);
  /* 1 while the program works with documents of that kind in a way that none may open now; the user is told.
   * Here and below a sale return stands for both kinds of return, an issue note for expense notes too, a
   * receipt note for revenue notes too. */
  int32_t (*is_busy)(void* context, int32_t kind);
  /* 1 while a window of documents of that kind is open in the program; the user is told, and none is opened.
   */
  int32_t (*is_shown)(void* context, int32_t kind);
  /* 1 while vouchers that the program made by itself wait for being saved; kind "3" are those of stock. */
  int32_t (*unsaved_vouchers)(void* context, goods_desktop_text kind);
} goods_desktop_documents;

/* The settings that reports read. Truth values are 0 or 1. */
typedef struct goods_desktop_record {
  uint32_t struct_size;
  int32_t second_unit;           /* goods may have a second unit */
  int32_t second_unit_is_larger; /* the second unit is the whole, the first the part */
  int32_t whole_and_part;        /* stock is shown as whole second units and a part */
  int32_t goods_detail;          /* goods carry details */
  int32_t quantity_decimals;     /* 0 to 9 */
  int32_t amount_decimals;       /* 0 to 9 */
  int32_t price_level;           /* the price basis of the money reports; -1 is none */
  int32_t price_history;
  int32_t price_basis;
  int32_t buy_or_sell;
  int32_t price_level_code;
} goods_desktop_record;

/* What goods_desktop_settings keeps under a name. */
enum { GOODS_DESKTOP_SECTION = 0, GOODS_DESKTOP_LAYOUT = 1 };

/* What is remembered. A function that is null: as without the table, in a file of the settings folder. */
typedef struct goods_desktop_settings {
  uint32_t struct_size;
  void* context;
  /* Asked once, when the session is created: record has the defaults, and struct_size of this library. */
  void (*load)(void* context, goods_desktop_record* record);
  /* A numbered item of a software part has changed; record has all settings as they are now. */
  void (*save_item)(void* context, int32_t software_part, int32_t item, int32_t on, int64_t number,
                    goods_desktop_text text, const goods_desktop_record* record);
  /* What was kept under the name: a section (what a window remembers of its controls, and its place) or the
   * layout of a list. Null: nothing. The program's; valid until the next call of a function of this table. */
  goods_desktop_text (*read)(void* context, int32_t kind, goods_desktop_text name);
  /* Keeps the text whole or not at all: 1 when it is kept. */
  int32_t (*write)(void* context, int32_t kind, goods_desktop_text name, goods_desktop_text text);
} goods_desktop_settings;

/* Icons of messages. */
enum {
  GOODS_DESKTOP_PLAIN = 0,
  GOODS_DESKTOP_INFORMATION = 1,
  GOODS_DESKTOP_WARNING = 2,
  GOODS_DESKTOP_ERROR = 3
};

/* What the user is told. */
typedef struct goods_desktop_messages {
  uint32_t struct_size;
  void* context;
  /* Shows a message and returns when it was read: 1; or 0: the library shows it. details is what a technician
   * may want to see, such as the statement that failed. balloon is 1 for a hint beside a field, which does
   * not wait. */
  int32_t (*show)(void* context, int32_t icon, goods_desktop_text caption, goods_desktop_text text,
                  goods_desktop_text details, int32_t balloon);
} goods_desktop_messages;

/* The waiting indicator, shown when a statement takes longer than 150 ms. Both functions must be there. */
typedef struct goods_desktop_waiting {
  uint32_t struct_size;
  void* context;
  /* Shows the text and the number of rows read so far, or changes them; every 50 ms or less often. 1: go on,
   * 0: stop the statement. It must not open a report, and leaves the message loop to the library: Esc stops
   * the statement too. */
  int32_t (*show)(void* context, goods_desktop_text text, uint64_t rows);
  void (*hide)(void* context);
} goods_desktop_waiting;

/* For a program on Qt Widgets: where report windows stand. Both functions must be there. */
typedef struct goods_desktop_windows {
  uint32_t struct_size;
  void* context;
  /* widget is a QWidget* that shows a report: 1 when the program has put it into a layout or a tab of its
   * own, where it is not modal; 0: it is a window of its own, and modal. Dialogs are always windows of their
   * own. widget->close() closes the report. GoodsDesktop_Open returns when the report is closed; reports that
   * were opened while it is shown are closed before it returns. */
  int32_t (*show)(void* context, void* widget, goods_desktop_text title);
  /* The report is closed: the program takes the widget out of its layout. The widget stays the library's. */
  void (*hide)(void* context, void* widget);
} goods_desktop_windows;

/* Looks. */
enum {
  GOODS_DESKTOP_PROGRAMS_LOOK =
      0, /* the program's style and font stay; tables take their colours from its palette */
  GOODS_DESKTOP_OWN_LOOK =
      1 /* the library's style, colours, font and right-to-left layout, for the whole QApplication */
};

typedef struct goods_desktop_options {
  uint32_t struct_size;
  int32_t encoding;
  int32_t look; /* without a QApplication of the program's own always the library's */
  int32_t unused;
  /* "file:PATH" or a path alone: a company file; "server:ADDRESS": a database on a server (docs/server.md).
   * Null with a connection of the program's own. */
  goods_desktop_text company;
  /* Who works. login and password sign in to the company. user_name and user_code instead: a user of the
   * program's own, for whom rights must be there. None of them: the sign-in window is shown, for which a
   * company must be there. */
  goods_desktop_text login;
  goods_desktop_text password;
  goods_desktop_text user_name;
  int64_t user_code;
  /* What a company behind a connection of the program's own is called. */
  goods_desktop_text title;
  /* Where settings are kept; null: the folder of this user's settings of the application. */
  goods_desktop_text settings_folder;
  /* The library of the reports; null: the one beside this library. */
  goods_desktop_text module;
  /* Each of them may be null. */
  const goods_desktop_connection* connection;
  const goods_desktop_rights* rights;
  const goods_desktop_documents* documents;
  const goods_desktop_settings* settings;
  const goods_desktop_messages* messages;
  const goods_desktop_waiting* waiting;
  const goods_desktop_windows* windows;
} goods_desktop_options;

/* Which report, with what. Names are those of goods_transaction_qrt.h, which says what each needs. */
typedef struct goods_desktop_report {
  uint32_t struct_size;
  int32_t software_part;   /* Open_GarKala: 501 or 502 */
  const char* name;        /* "Open_GoodKardex", in ASCII whatever the session's encoding */
  int32_t good;            /* Open_Kardex, Open_GoodDetailTransactions: the good's code, 0 for none */
  int32_t store;           /* the same: 0 for every store */
  goods_desktop_text from; /* the same: Jalali dates "yyyy/mm/dd"; an empty from is no date range */
  goods_desktop_text to;
  goods_desktop_text tags;     /* Open_GoodDetailTransactions: tag codes between commas (",3,7,") */
  goods_desktop_text category; /* the same: a category's code */
  goods_desktop_text mode;     /* Open_KardexNegativ: its three texts; empty ones are "1", "0" and "0" */
  goods_desktop_text first;
  goods_desktop_text second;
} goods_desktop_report;

/* The library's version, "1.1.0", in ASCII. The library's, for ever. May be called on any thread. */
GOODS_DESKTOP_EXPORT const char* GoodsDesktop_Version(void);

/* Why the last function that returned another code than GOODS_DESKTOP_DONE on this thread did so: a sentence
 * for the user, in Persian, cut where it is longer than 1000 characters; the empty text before any. The
 * library's; valid until the next failure on this thread. May be called on any thread. */
GOODS_DESKTOP_EXPORT goods_desktop_text GoodsDesktop_Problem(int32_t encoding);

/* Opens the company, signs the user in, and attaches to the library of the reports, whose functions may then
 * also be called directly. session gets the session, or null with any code but _DONE. One session at a time.
 * May show the sign-in window, and brings an older company file up to date. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_Create(const goods_desktop_options* options,
                                                 goods_desktop** session);

/* Opens a report; returns when its window is closed. _DONE says that the export was called: what went wrong
 * inside, a missing right among it, was told to the user. Calls nest. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_Open(goods_desktop* session, const goods_desktop_report* report);

/* Asks every report window that is open to close, the front one first, so that the calls of GoodsDesktop_Open
 * return. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_CloseReports(goods_desktop* session);

/* Lets go of the reports and the company and frees the session, whose address is then no longer valid. _BUSY,
 * and nothing changes, while a report is being shown. A null session is _DONE. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_Destroy(goods_desktop* session);

/* For a connection of the program's own, during its functions. The first five return _DONE, _WRONG_CALL (a
 * cell without a column, a row with too few cells, a number that is none) or _FAILED (no memory). A decimal
 * is units / 10^places, places 0 to 9; a text in a decimal column is read as a number ("-12.5"), an integer
 * fits a decimal column too. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_AddColumn(goods_desktop_rows* rows, goods_desktop_text name,
                                                    int32_t type);
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_AddInteger(goods_desktop_rows* rows, int64_t value);
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_AddDecimal(goods_desktop_rows* rows, int64_t units, int32_t places);
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_AddText(goods_desktop_rows* rows, goods_desktop_text text);
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_AddNull(goods_desktop_rows* rows);
/* Ends a row. _STOPPED when the user wants no more: the function then returns that code at once. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_EndRow(goods_desktop_rows* rows);
/* Where no row comes for a while: call it at least every 50 ms, so that the window lives and Esc is heard.
 * _DONE or _STOPPED. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_GoOn(goods_desktop_rows* rows);
/* The database's own message, for the code that the function returns next. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_SayWhy(goods_desktop_rows* rows, goods_desktop_text message);

/* What the program goods-desktop is: company chooser, sign-in, start page, reports, until the user quits.
 * Texts are UTF-8; what is empty is asked of the user. */
typedef struct goods_desktop_program {
  uint32_t struct_size;
  int32_t demo; /* 1: the demo company, made on first use */
  const char* company;
  const char* user;
  const char* password_file; /* its first line is the password */
  const char* statement_log; /* each statement is appended to this file */
  const char* module;
  const char* settings_folder;
  const char* data_folder; /* where the demo company lies */
} goods_desktop_program;

/* Runs it; exit_code gets what the process should end with: 1 when it could not start, after telling the user
 * why. _BUSY while there is a session. Sets the library's look and the settings format of the whole
 * QApplication. */
GOODS_DESKTOP_EXPORT int32_t GoodsDesktop_RunProgram(const goods_desktop_program* program,
                                                     int32_t* exit_code);

#ifdef __cplusplus
}
#endif

#endif
