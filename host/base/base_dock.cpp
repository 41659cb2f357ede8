#include "host/base/base_dock.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/components/grid_arrangement.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kPrintOptions = 5;

constexpr std::string_view kFormSuffix = "_FRM";

std::string GridSettingsFile(std::string_view report, std::int64_t first, std::int64_t second) {
  return std::string(report) + "_" + std::to_string(first) + "_" + std::to_string(second) + ".ini";
}

// A window that is shown again begins without what the user put on its columns the last time.
void LiftNarrowing(TControl& container) {
  for (TControl* control : container.Controls()) {
    if (auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(control)) {
      RemoveConditions(*grid);
      if (!grid->Groups().Levels().empty()) grid->Groups().Set(nullptr);
    }
    LiftNarrowing(*control);
  }
}

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

std::string TBaseDock_FRM::HostTitle() const {
  return FormOptions_SFO.WindowTitle.empty() ? std::string(Trim(PlainCaption(Caption())))
                                             : FormOptions_SFO.WindowTitle;
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

void TBaseDock_FRM::SetCommonControls(TSmartDBGrid_QRT& grid, TButton& print, TButton& exit,
                                      GridLayout layout) {
  if (layout == GridLayout::Kept) KeepLayout(grid);
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

std::vector<std::string> TBaseDock_FRM::PrintLines() {
  std::vector<std::string> lines;
  PrintDBGridEhBeforePrint(lines);
  if (printedGrid_ == nullptr) return lines;
  if (std::string narrowing = NarrowingLine(*printedGrid_); !narrowing.empty())
    lines.push_back(std::move(narrowing));
  if (std::string grouping = printedGrid_->Groups().Caption(); !grouping.empty())
    lines.push_back(std::move(grouping));
  return lines;
}

void TBaseDock_FRM::LoadGridSettings(TSmartDBGrid_QRT& grid, std::string_view report, std::int64_t first,
                                     std::int64_t second) {
  const auto text = Host().Settings().ReadSettingFile(GridSettingsFile(report, first, second));
  if (text) ApplyArrangement(grid, *text);
}

void TBaseDock_FRM::SaveGridSettings(const TSmartDBGrid_QRT& grid, std::string_view report,
                                     std::int64_t first, std::int64_t second) {
  Host().Settings().WriteSettingFile(GridSettingsFile(report, first, second), ArrangementOf(grid));
}

void TBaseDock_FRM::KeepLayout(TSmartDBGrid_QRT& grid) {
  const auto same = [&grid](const KeptLayout& each) { return each.grid == &grid; };
  if (std::any_of(layouts_.begin(), layouts_.end(), same)) return;
  std::string_view report = Name();
  if (report.ends_with(kFormSuffix)) report.remove_suffix(kFormSuffix.size());
  std::string file =
      GridSettingsFile(report, PrintOption.SoftwarePart, static_cast<std::int64_t>(layouts_.size()));
  if (const auto text = Host().Settings().ReadSettingFile(file)) ApplyArrangement(grid, *text);
  layouts_.push_back({&grid, std::move(file), ArrangementOf(grid)});
}

void TBaseDock_FRM::FormClose() {
  for (KeptLayout& layout : layouts_) {
    std::string now = ArrangementOf(*layout.grid);
    if (now != layout.text && Host().Settings().WriteSettingFile(layout.file, now)) {
      layout.text = std::move(now);
    }
  }
  LiftNarrowing(*this);
  TForm::FormClose();
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
