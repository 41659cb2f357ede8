// The program's tables of functions, as the services that stand in for the host's own.
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/app/desktop_host.h"
#include "desktop/library/c_text.h"

namespace goods {

// The tables as they were handed over, copied; where the program has none, every function is null.
struct OwnTables {
  TextEncoding encoding = TextEncoding::Utf8;
  goods_desktop_connection connection{};
  goods_desktop_rights rights{};
  goods_desktop_documents documents{};
  goods_desktop_settings settings{};
  goods_desktop_messages messages{};
  goods_desktop_waiting waiting{};
  goods_desktop_windows windows{};
};

// Fails with _WRONG_CALL where a table lacks a function that must be there.
OwnTables CopyTables(const goods_desktop_options& options, TextEncoding encoding);

// Settings in a file of the folder, but for what the table keeps.
class OwnSettings : public DesktopSettings {
 public:
  OwnSettings(const QString& folder, const OwnTables& tables);

  void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                       std::string_view text) override;
  std::string ReadSection(std::string_view section) const override;
  void WriteSection(std::string_view section, std::string_view text) override;
  std::optional<std::string> ReadSettingFile(std::string_view name) const override;
  bool WriteSettingFile(std::string_view name, std::string_view text) override;

 private:
  std::optional<std::string> Read(std::int32_t kind, std::string_view name) const;
  bool Write(std::int32_t kind, std::string_view name, std::string_view text) const;

  goods_desktop_settings table_;
  TextEncoding encoding_;
};

// The rest of the services. settings must outlive them.
OwnServices ServicesOf(const OwnTables& tables, OwnSettings& settings);

}  // namespace goods
