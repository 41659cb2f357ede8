/* A library loaded while a program runs, on either system. */
#ifndef LOAD_LIBRARY_H
#define LOAD_LIBRARY_H

#include <string.h>

#if defined(_WIN32)
#include <windows.h>

static void* library_open(const char* file) { return (void*)LoadLibraryA(file); }
static const char* library_problem(void) { return "LoadLibrary failed"; }
static int library_close(void* library) { return FreeLibrary((HMODULE)library) != 0; }
static int library_find(void* library, const char* name, void* function) {
  const FARPROC found = GetProcAddress((HMODULE)library, name);
  memcpy(function, &found, sizeof found);
  return found != NULL;
}
#else
#include <dlfcn.h>

static void* library_open(const char* file) { return dlopen(file, RTLD_NOW | RTLD_LOCAL); }
static const char* library_problem(void) { return dlerror(); }
static int library_close(void* library) { return dlclose(library) == 0; }
/* ISO C has no cast from an object pointer to a function pointer. */
static int library_find(void* library, const char* name, void* function) {
  void* found = dlsym(library, name);
  memcpy(function, &found, sizeof found);
  return found != NULL;
}
#endif

#endif
