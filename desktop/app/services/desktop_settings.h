// DesktopSettings: the settings of this computer's user, kept in one INI file of the program's folder.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>

#include "host/services/settings.h"

namespace goods {

// What only this host knows.
struct DesktopOptions {
  bool PersianDigits = true;
  bool ThousandsSeparators = false;  // in quantities too
  bool DarkPalette = false;
};

class DesktopSettings : public ISettings {
 public:
  // Reads <folder>/goods-desktop.ini; makes the folder where it is missing. A file that cannot be read, and
  // values out of range, count as not set.
  explicit DesktopSettings(const QString& folder);

  // The folder that is used when none is given: the user's configuration folder.
  static QString DefaultFolder();

  TSettings& Settings() override { return settings_; }
  DesktopOptions& Options() { return options_; }
  // Told once when the settings cannot be written, with a Persian text; what was kept before stays.
  std::function<void(const QString&)> OnFailure;
  // Writes both of the above.
  void Save();

  void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                       std::string_view text) override;
  std::string ReadSection(std::string_view section) const override;
  void WriteSection(std::string_view section, std::string_view text) override;
  // The folder is made where it is missing.
  std::string GetSettingFilePath() const override;

  // Company files that were opened, the last one first, at most ten.
  QStringList RecentCompanies() const;
  void AddRecentCompany(const QString& path);
  QString LastLogin() const;
  void SetLastLogin(const QString& login);
  QByteArray WindowState(const QString& window) const;
  void SetWindowState(const QString& window, const QByteArray& state);

 private:
  void Load();
  void Write();

  bool told_ = false;
  QString folder_;
  mutable QSettings store_;
  TSettings settings_;
  DesktopOptions options_;
};

}  // namespace goods
