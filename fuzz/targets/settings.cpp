// A section of the settings and a grid's layout, as a user's file may hold them.
#include <string>

#include "fuzz/fuzz_input.h"
#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/standard.h"
#include "host/components/stored_properties.h"

namespace goods {
namespace {

class Section : public ISettings {
 public:
  explicit Section(std::string_view text) : text_(text) {}
  TSettings& Settings() override { return settings_; }
  void SaveSettingItem(int, int, bool, std::int64_t, std::string_view) override {}
  std::string ReadSection(std::string_view) const override { return text_; }
  void WriteSection(std::string_view, std::string_view text) override { text_ = text; }
  std::string GetSettingFilePath() const override { return {}; }

 private:
  TSettings settings_;
  std::string text_;
};

struct Window {
  Window() {
    combo.SetItems({{"الف", 1, ""}, {"ب", 2, ""}, {"ج", 3, ""}});
    for (const char* field : {"Code", "Name", "Amount"}) grid.AddColumn(field, field);
    stored.Keep(box);
    stored.Keep(combo);
    stored.Keep(text);
    stored.Keep(number);
    stored.Keep(grid);
  }
  TComponent window{nullptr, "Test_FRM"};
  TPanel frame{&window, "Period_PNL"};
  TCheckBox box{&frame, "All_CHK"};
  TComboBox combo{&window, "Kind_CMB"};
  TEdit text{&window, "Text_EDT"};
  TEdit number{&window, "Number_EDT", InputKind::Integer};
  TSmartDBGrid_QRT grid{&window, "Rows_GRD"};
  TStoredProperties stored{&window, "Stored_PRP", "Test"};
};

}  // namespace
}  // namespace goods

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = goods::fuzz::AsText(data, size);
  goods::Window window;
  window.grid.LoadLayout(text);
  const std::string layout = window.grid.SaveLayout();
  window.grid.LoadLayout(layout);
  goods::fuzz::Holds(window.grid.SaveLayout() == layout, "a layout reads as it is written");

  goods::Section section(text);
  window.stored.Load(section);
  window.stored.Save(section);
  const std::string kept = section.ReadSection("Test");
  window.stored.Load(section);
  window.stored.Save(section);
  goods::fuzz::Holds(section.ReadSection("Test") == kept, "a section reads as it is written");
  return 0;
}
