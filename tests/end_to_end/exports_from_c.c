/* Loads the library twice, attaches a host, calls the exports, detaches. Exits with 0 when all is as it
 * should be. */
#include <stdio.h>
#include <string.h>

#include "c_host.h"
#include "goods_transaction_qrt.h"
#include "load_library.h"

static int failures = 0;

static void expect(int holds, const char* what) {
  printf("%s: %s\n", holds ? "ok" : "FAILED", what);
  if (!holds) ++failures;
}

static void load(void* library, const char* name, void* function) {
  expect(library_find(library, name, function), name);
}

int main(int count, char** arguments) {
  int32_t (*attach)(int32_t, struct goods_host*);
  int32_t (*detach)(void);
  void (*openGoodKardex)(void);
  void (*openKardex)(int32_t, int32_t, const goods_char16*, const goods_char16*);
  void (*openStoreExistance)(void);
  const goods_char16 from[] = {'1', '4', '0', '1', '/', '0', '1', '/', '0', '1', 0};
  void* library;
  void* again;

  if (count != 2) return 2;
  library = library_open(arguments[1]);
  again = library_open(arguments[1]);
  if (library == NULL || library != again) {
    printf("FAILED: loading: %s\n", library_problem());
    return 1;
  }
  load(library, "Goods_AttachHost", &attach);
  load(library, "Goods_DetachHost", &detach);
  load(library, "Open_GoodKardex", &openGoodKardex);
  load(library, "Open_Kardex", &openKardex);
  load(library, "Open_StoreExistance", &openStoreExistance);
  if (failures > 0) return 1;

  openGoodKardex();
  openKardex(12, 0, from, from);
  expect(c_host_windows() == 0, "without a host nothing opens");
  expect(detach() == 0, "without a host there is nothing to detach");
  expect(attach(GOODS_HOST_VERSION + 1, c_host()) == 0, "another version is refused");
  expect(attach(GOODS_HOST_VERSION, NULL) == 0, "no host is refused");
  expect(attach(GOODS_HOST_VERSION, c_host()) == 1, "a host attaches");
  expect(attach(GOODS_HOST_VERSION, c_host()) == 0, "a second one is refused");
  expect(c_host_windows() == 0 && c_host_statements() == 0,
         "attaching shows no window and runs no statement");

  openGoodKardex();
  expect(c_host_windows() == 1 && c_host_statements() == 0, "the stock card opens without a good");
  openKardex(12, 0, from, NULL);
  expect(c_host_windows() == 2, "the stock card of one good opens");
  expect(c_host_statements() > 0, "and reads from the database");
  openStoreExistance();
  expect(c_host_windows() == 2, "the one that does nothing does nothing");

  c_host_lose_connection();
  openKardex(12, 0, NULL, NULL);
  expect(c_host_windows() == 3 && c_host_errors() > 0,
         "a lost connection is told, and the window opens and closes");
  expect(strcmp(c_host_last_statement(), "Exec Kardex_Proc 12") == 0,
         "the failing statement is the stock card's");

  expect(detach() == 1, "the host detaches");
  openGoodKardex();
  expect(c_host_windows() == 3, "and nothing opens any more");
  expect(attach(GOODS_HOST_VERSION, c_host()) == 1 && detach() == 1, "a host can attach again");
  expect(library_close(library) && library_close(again), "the library unloads");
  return failures == 0 ? 0 : 1;
}
