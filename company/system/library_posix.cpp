#include <dlfcn.h>

#include "company/system/library.h"

namespace goods {

void* OpenLibrary(const std::string& file, std::string& problem) {
  void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library != nullptr) return library;
  const char* reason = dlerror();
  problem = reason == nullptr ? "" : reason;
  return nullptr;
}

void CloseLibrary(void* library) { dlclose(library); }

void* FindInLibrary(void* library, const char* name) { return dlsym(library, name); }

void* FindInProgram(const char* name) { return dlsym(RTLD_DEFAULT, name); }

std::string FileOfCode(const void* address) {
  Dl_info info{};
  return dladdr(address, &info) == 0 || info.dli_fname == nullptr ? std::string() : info.dli_fname;
}

}  // namespace goods
