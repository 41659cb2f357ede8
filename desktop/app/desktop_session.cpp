#include "desktop/app/desktop_session.h"

#include <QCoreApplication>
#include <filesystem>
#include <utility>

#include "company/files/file_path.h"
#include "company/system/library.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

// The folder of the library or program that this code is in; empty where it cannot be told.
std::string FolderOfThisCode() {
  static const char kHere = 0;
  // A program is told as it was called, which may be by a name that was looked for.
  const std::filesystem::path file = PathOf(FileOfCode(&kHere));
  std::error_code ignored;
  return file.is_absolute() && std::filesystem::exists(file, ignored) ? file.parent_path().string()
                                                                      : std::string();
}

}  // namespace

std::unique_ptr<ModuleLibrary> LoadModule(const std::string& given) {
  if (const std::string folder = FolderOfThisCode(); given.empty() && !folder.empty()) {
    for (const std::string& path : ModuleLibrary::SearchPaths(folder)) {
      std::error_code ignored;
      if (std::filesystem::exists(PathOf(path), ignored)) return std::make_unique<ModuleLibrary>(path);
    }
  }
  return std::make_unique<ModuleLibrary>(
      ModuleLibrary::Find(given, FromQt(QCoreApplication::applicationDirPath())));
}

DesktopSession::DesktopSession(ICompany& company, const UserRecord& user, DesktopSettings& settings,
                               ModuleLibrary& module, StatementLog* log, OwnServices own)
    : module_(module), host_(company, user, settings, module, log, {}, std::move(own)) {
  module_.Attach(host_);
}

DesktopSession::~DesktopSession() { module_.Detach(); }

}  // namespace goods
