/* unload TIMES HOST LIBRARY...: loads the library HOST, calls RunUnloadHost in it and unloads it, that often. Each
 * LIBRARY, by which HOST does its work, must then be gone from memory. Exits with 0 when all is as it should be. */
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int is_loaded(const char* library) {
  void* handle = dlopen(library, RTLD_NOLOAD | RTLD_NOW);
  if (handle != NULL) dlclose(handle);
  return handle != NULL;
}

static int load_and_unload(const char* host, int libraries, char** library) {
  int (*run)(void);
  void* symbol;
  int each;
  void* handle = dlopen(host, RTLD_NOW | RTLD_LOCAL);
  if (handle == NULL) {
    printf("%s\n", dlerror());
    return 0;
  }
  symbol = dlsym(handle, "RunUnloadHost");
  if (symbol == NULL) return 0;
  memcpy(&run, &symbol, sizeof run);
  if (run() != 0) {
    printf("the host does not attach\n");
    return 0;
  }
  for (each = 0; each < libraries; ++each) {
    if (is_loaded(library[each])) continue;
    printf("%s is not what the host is loaded with\n", library[each]);
    return 0;
  }
  if (dlclose(handle) != 0) return 0;
  for (each = 0; each < libraries; ++each) {
    if (!is_loaded(library[each])) continue;
    printf("%s is still loaded\n", library[each]);
    return 0;
  }
  return 1;
}

int main(int count, char** arguments) {
  int times;
  if (count < 4) return 2;
  for (times = atoi(arguments[1]); times > 0; --times) {
    if (!load_and_unload(arguments[2], count - 3, arguments + 3)) return 1;
  }
  return 0;
}
