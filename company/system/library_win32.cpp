#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include <windows.h>
// behind it
#include <psapi.h>

#include "company/files/file_path.h"
#include "company/system/library.h"

namespace goods {

namespace {

void* AddressOfExport(HMODULE module, const char* name) {
  const FARPROC found = GetProcAddress(module, name);
  void* address = nullptr;
  static_assert(sizeof address == sizeof found);
  std::memcpy(&address, &found, sizeof address);
  return address;
}

}  // namespace

void* OpenLibrary(const std::string& file, std::string& problem) {
  // What it needs itself is looked for beside it.
  const HMODULE module = LoadLibraryExW(PathOf(file).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (module == nullptr) problem = std::system_category().message(static_cast<int>(GetLastError()));
  return module;
}

void CloseLibrary(void* library) { FreeLibrary(static_cast<HMODULE>(library)); }

void* FindInLibrary(void* library, const char* name) {
  return AddressOfExport(static_cast<HMODULE>(library), name);
}

void* FindInProgram(const char* name) {
  std::vector<HMODULE> modules(1024);
  DWORD bytes = 0;
  const auto room = static_cast<DWORD>(modules.size() * sizeof(HMODULE));
  if (K32EnumProcessModules(GetCurrentProcess(), modules.data(), room, &bytes) == 0) return nullptr;
  modules.resize(std::min<std::size_t>(modules.size(), bytes / sizeof(HMODULE)));
  for (const HMODULE module : modules) {
    if (void* found = AddressOfExport(module, name)) return found;
  }
  return nullptr;
}

std::string FileOfCode(const void* address) {
  constexpr DWORD kRoom = 32768;  // characters of UTF-16
  constexpr DWORD kHow =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  if (GetModuleHandleExW(kHow, static_cast<const wchar_t*>(address), &module) == 0) return {};
  std::wstring file(kRoom, L'\0');
  const DWORD length = GetModuleFileNameW(module, file.data(), kRoom);
  file.resize(length < kRoom ? length : 0);
  return std::filesystem::path(file).string();
}

}  // namespace goods
