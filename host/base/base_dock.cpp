#include "host/base/base_dock.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace goods {
namespace {

namespace fs = std::filesystem;

constexpr int kPrintOptions = 5;
constexpr std::uintmax_t kLargestLayout = 1 << 20;  // bytes

bool Contains(const std::vector<const TControl*>& controls, const TControl& control) {
  return std::find(controls.begin(), controls.end(), &control) != controls.end();
}

}  // namespace

TBaseDock_FRM::TBaseDock_FRM(THost& host, std::string name, int formMode, Variant customParameter,
                             std::string settingsName)
    : TForm(host, std::move(name)),
      formMode_(formMode),
      customParameter_(std::move(customParameter)),
      settingsName_(std::move(settingsName)) {}

TBaseDock_FRM::TBaseDock_FRM(THost& host, std::string name, int formMode, std::string settingsName)
    : TBaseDock_FRM(host, std::move(name), formMode, Variant(), std::move(settingsName)) {}

TBaseDock_FRM::~TBaseDock_FRM() = default;

void TBaseDock_FRM::Initialise() {
  FormCreate();
  OnCustomParameter(CustomParameter(customParameter_));
}

void TBaseDock_FRM::SetCustomParameter(Variant parameter, std::string_view /*text*/) {
  customParameter_ = std::move(parameter);
  OnCustomParameter(CustomParameter(customParameter_));
}

void TBaseDock_FRM::OnCustomParameter(const CustomParameter& /*parameter*/) {}

void TBaseDock_FRM::SetShortCut(TControl& control) {
  if (HasShortCut(control)) return;
  withShortCut_.push_back(&control);
  control.Changed();
}

void TBaseDock_FRM::SetPopMenu(TControl& control) {
  if (HasPopMenu(control)) return;
  withPopMenu_.push_back(&control);
  control.Changed();
}

bool TBaseDock_FRM::HasShortCut(const TControl& control) const { return Contains(withShortCut_, control); }
bool TBaseDock_FRM::HasPopMenu(const TControl& control) const { return Contains(withPopMenu_, control); }

void TBaseDock_FRM::SetCommonControls(TSmartDBGrid_QRT& grid, TButton& print, TButton& exit) {
  printedGrid_ = &grid;
  printButton_ = &print;
  exitButton_ = &exit;
  print.OnClick = [this] { BasePrintList_Click(); };
  exit.OnClick = [this] { Close(); };
  PrintDBGridEh.OnBeforePrint = [this](std::vector<std::string>& lines) { PrintDBGridEhBeforePrint(lines); };
}

void TBaseDock_FRM::BasePrintList_Click() {
  if (!PrintOption.Enabled || printedGrid_ == nullptr) return;
  if (PrintOption.SoftwarePart != 0 &&
      !IsAllowed(Host().Rights(), PrintOption.SoftwarePart, kPermissionPrintList)) {
    return;
  }
  PrintDBGridEh.Grid = printedGrid_;
  PrintDBGridEh.Title = Caption();
  PrintDBGridEh.Options = kPrintOptions;
  if (!PreparePrint()) return;
  PrintDBGridEh.Preview(Host().Printing());
}

bool TBaseDock_FRM::PreparePrint() { return true; }

void TBaseDock_FRM::PrintDBGridEhBeforePrint(std::vector<std::string>& /*lines*/) {}

std::string TBaseDock_FRM::GridSettingsFile(std::string_view report, std::int64_t first,
                                            std::int64_t second) const {
  const std::string folder = Host().Settings().GetSettingFilePath();
  if (folder.empty()) return {};
  return folder + "/" + std::string(report) + "_" + std::to_string(first) + "_" + std::to_string(second) +
         ".ini";
}

void TBaseDock_FRM::LoadGridSettings(TSmartDBGrid_QRT& grid, std::string_view report, std::int64_t first,
                                     std::int64_t second) {
  const std::string path = GridSettingsFile(report, first, second);
  std::error_code error;
  if (!fs::is_regular_file(path, error) || fs::file_size(path, error) > kLargestLayout) return;
  std::ifstream file(path, std::ios::binary);
  if (!file) return;
  grid.LoadLayout(std::string(std::istreambuf_iterator<char>(file), {}));
}

void TBaseDock_FRM::SaveGridSettings(const TSmartDBGrid_QRT& grid, std::string_view report,
                                     std::int64_t first, std::int64_t second) {
  const std::string path = GridSettingsFile(report, first, second);
  if (path.empty()) return;
  std::error_code error;
  const fs::file_type there = fs::symlink_status(path, error).type();
  if (there != fs::file_type::regular && there != fs::file_type::not_found) return;
  // Written aside and moved into place, so that a full disk leaves the layout that was kept before.
  const std::string aside = path + ".new";
  fs::remove(aside, error);
  std::ofstream file(aside, std::ios::binary | std::ios::trunc);
  file << grid.SaveLayout();
  file.close();
  if (file) fs::rename(aside, path, error);
  if (!file || error) fs::remove(aside, error);
}

void TBaseDock_FRM::FormKeyDown(TKey& key) {
  const auto press = [&key](TButton* button) {
    if (button == nullptr) return;
    key.Consume();
    button->Click();
  };
  if (key.Is(Key::F9)) {
    press(printButton_);
  } else if (key.Is(Key::Escape)) {
    press(exitButton_);
  }
}

}  // namespace goods
