// ModuleLibrary: the report module, loaded from its shared library and called through its exports.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

struct ReportDescription;
class THost;

// The module cannot be used. The message is Persian and meant for the user.
class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~ModuleError() override;
};

class ModuleLibrary {
 public:
  // Loads the library at path. Throws ModuleError when it is missing, cannot be loaded, or is not this
  // module.
  explicit ModuleLibrary(const std::string& path);
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;
  // Lets an attached host go, then unloads.
  ~ModuleLibrary();

  // Where the library may lie, best first, for a program in that folder: beside it, in lib beside it, and in
  // the lib folder next to its own.
  static std::vector<std::string> SearchPaths(const std::string& programFolder);
  // Loads given, or, when that is empty, the first of the search paths that exists. Returns its path. Throws
  // ModuleError when there is none.
  static std::string Find(const std::string& given, const std::string& programFolder);

  const std::string& Path() const { return path_; }

  // The host must live until Detach. Throws ModuleError when the module belongs to another version of the
  // host packages, or has a host.
  void Attach(THost& host);
  // False, and nothing changes, while a report is being shown.
  bool Detach();
  bool IsAttached() const { return attached_; }

  // Whether the library has an export of that name.
  bool Has(const char* exportName) const { return Find(exportName) != nullptr; }
  // Calls an export without arguments; throws ModuleError when the library has none of that name.
  void Call(const char* exportName);
  // What a menu does: opens the report through its export, with nothing asked for that the user can ask for
  // in its window. Throws ModuleError where the library has none, or the report has no export for users.
  void Open(const ReportDescription& report);
  void OpenKardex(std::int64_t good, std::int64_t store, std::string_view from, std::string_view to);
  // The stock by details; throws ModuleError where the library has none.
  void OpenGoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store, bool datesGiven,
                                  std::string_view from, std::string_view to, bool tagsGiven,
                                  std::string_view tags, bool categoryGiven, std::string_view category);
  // Throws ModuleError where the library has none.
  void OpenGarKala(int softwarePart);
  void OpenKardexNegativ(std::string_view mode, std::string_view first, std::string_view second);

 private:
  void* Find(const char* exportName) const;
  void* Require(const char* exportName) const;

  std::string path_;
  void* handle_ = nullptr;
  bool attached_ = false;
};

}  // namespace goods
