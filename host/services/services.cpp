// What the service interfaces have of their own, here so that their type information lives in one library.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/services/host.h"

namespace goods {
namespace {

// A grid's layout has a line a column; what is larger was not written by this program.
constexpr std::uintmax_t kLargestSettingFile = 1 << 20;  // bytes

// Both are UTF-8, which the standard library does not take every narrow text for.
std::filesystem::path PathIn(const std::string& folder, std::string_view name) {
  return std::filesystem::path(std::u8string(folder.begin(), folder.end())) /
         std::u8string(name.begin(), name.end());
}

}  // namespace

IRights::~IRights() = default;
IMessages::~IMessages() = default;
IWaiting::~IWaiting() = default;
ISettings::~ISettings() = default;
IReportTable::~IReportTable() = default;
IPrinting::~IPrinting() = default;
IDocuments::~IDocuments() = default;
ILookups::~ILookups() = default;
IWindows::~IWindows() = default;
THost::~THost() = default;

std::string ISettings::ReadSection(std::string_view /*section*/) const { return {}; }
void ISettings::WriteSection(std::string_view /*section*/, std::string_view /*text*/) {}

std::optional<std::string> ISettings::ReadSettingFile(std::string_view name) const {
  const std::string folder = GetSettingFilePath();
  if (folder.empty()) return std::nullopt;
  const std::filesystem::path path = PathIn(folder, name);
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error) ||
      std::filesystem::file_size(path, error) > kLargestSettingFile) {
    return std::nullopt;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string text(std::istreambuf_iterator<char>(file), {});
  if (file.bad()) return std::nullopt;
  return text;
}

// Beside the file first: a disk that is full leaves the file that was there.
bool ISettings::WriteSettingFile(std::string_view name, std::string_view text) {
  const std::string folder = GetSettingFilePath();
  if (folder.empty()) return false;
  const std::filesystem::path path = PathIn(folder, name);
  const std::filesystem::path beside = PathIn(folder, std::string(name) + ".new");
  std::error_code error;
  const std::filesystem::file_type there = std::filesystem::symlink_status(path, error).type();
  if (there != std::filesystem::file_type::regular && there != std::filesystem::file_type::not_found)
    return false;
  std::filesystem::remove(beside, error);
  std::ofstream file(beside, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  error.clear();
  if (file) std::filesystem::rename(beside, path, error);
  if (file && !error) return true;
  std::filesystem::remove(beside, error);
  return false;
}

std::vector<TTag> ILookups::Tags() { return {}; }
std::vector<TCategory> ILookups::Categories() { return {}; }
std::optional<std::vector<std::string>> ILookups::SelectCategories(
    TForm* /*owner*/, const std::vector<std::string>& /*chosen*/) {
  return std::nullopt;
}

bool IDocuments::DontSavedVouchers(std::string_view /*kind*/) { return false; }
bool NoDocuments::LoadedDLLs(DocumentModule /*module*/) const { return false; }

bool IsAllowed(IRights& rights, int softwarePart, int permission, RightQuestion question) {
  return rights.HavePermission(rights.UserInfo(), softwarePart, permission,
                               question == RightQuestion::ToldAndLogged, question != RightQuestion::Silent,
                               "");
}

}  // namespace goods
