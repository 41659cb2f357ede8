#include "desktop/app/services/desktop_settings.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <utility>

namespace goods {
namespace {

constexpr int kRecentCompanies = 10;

struct Switch {
  const char* key;
  bool TSettings::*value;
};
constexpr std::array<Switch, 6> kSwitches{{
    {"SecondUnit", &TSettings::SecondUnit},
    {"SecondUnitIsLarger", &TSettings::SecondUnitIsLarger},
    {"WholeAndPart", &TSettings::WholeAndPart},
    {"GoodsDetail", &TSettings::GoodsDetail},
    {"PriceLevel", &TSettings::PriceLevel},
    {"PriceHistory", &TSettings::PriceHistory},
}};

struct Number {
  const char* key;
  int TSettings::*value;
  int least;
  int most;
};
constexpr std::array<Number, 5> kNumbers{{
    {"QuantityDecimals", &TSettings::QuantityDecimals, 0, 9},
    {"AmountDecimals", &TSettings::AmountDecimals, 0, 9},
    {"PriceBasis", &TSettings::PriceBasis, -1, 1'000'000},
    {"BuyOrSell", &TSettings::BuyOrSell, -1, 1},
    {"PriceLevelCode", &TSettings::PriceLevelCode, -100, 1'000'000'000},
}};

// A separator in a section's name would make a group of it.
QString SectionKey(std::string_view section) {
  QString name = QString::fromUtf8(section.data(), static_cast<qsizetype>(section.size()));
  return "Sections/" + name.replace('/', '_').replace('\\', '_');
}

QString MadeFolder(const QString& folder) {
  QDir().mkpath(folder);
  return folder;
}

}  // namespace

DesktopSettings::DesktopSettings(const QString& folder)
    : folder_(MadeFolder(folder)), store_(folder_ + "/goods-desktop.ini", QSettings::IniFormat) {
  Load();
}

QString DesktopSettings::DefaultFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

void DesktopSettings::Load() {
  store_.beginGroup("Settings");
  for (const auto& [key, value] : kSwitches) settings_.*value = store_.value(key, settings_.*value).toBool();
  for (const auto& [key, value, least, most] : kNumbers) {
    bool isNumber = false;
    const int read = store_.value(key, settings_.*value).toInt(&isNumber);
    if (isNumber && read >= least && read <= most) settings_.*value = read;
  }
  store_.endGroup();
  options_.PersianDigits = store_.value("Desktop/PersianDigits", options_.PersianDigits).toBool();
  options_.ThousandsSeparators =
      store_.value("Desktop/ThousandsSeparators", options_.ThousandsSeparators).toBool();
  options_.DarkPalette = store_.value("Desktop/DarkPalette", options_.DarkPalette).toBool();
}

void DesktopSettings::Save() {
  store_.beginGroup("Settings");
  for (const auto& [key, value] : kSwitches) store_.setValue(key, settings_.*value);
  for (const auto& number : kNumbers) store_.setValue(number.key, settings_.*number.value);
  store_.endGroup();
  store_.setValue("Desktop/PersianDigits", options_.PersianDigits);
  store_.setValue("Desktop/ThousandsSeparators", options_.ThousandsSeparators);
  store_.setValue("Desktop/DarkPalette", options_.DarkPalette);
  Write();
}

// The store is replaced whole or stays as it was.
void DesktopSettings::Write() {
  store_.sync();
  if (store_.status() == QSettings::NoError || std::exchange(told_, true) || !OnFailure) return;
  OnFailure("تنظیمات را نمی‌توان نوشت: " + store_.fileName());
}

void DesktopSettings::SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                                      std::string_view text) {
  store_.beginGroup(QString("Items/%1/%2").arg(softwarePart).arg(item));
  store_.setValue("On", on);
  store_.setValue("Number", static_cast<qlonglong>(number));
  store_.setValue("Text", QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  store_.endGroup();
  // A report writes the settings record before it saves an item; both are kept together.
  Save();
}

std::string DesktopSettings::ReadSection(std::string_view section) const {
  return store_.value(SectionKey(section)).toString().toStdString();
}

void DesktopSettings::WriteSection(std::string_view section, std::string_view text) {
  store_.setValue(SectionKey(section), QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  Write();
}

std::string DesktopSettings::GetSettingFilePath() const {
  return MadeFolder(folder_ + "/reports").toStdString();
}

QStringList DesktopSettings::RecentCompanies() const {
  return store_.value("Desktop/RecentCompanies").toStringList();
}

void DesktopSettings::AddRecentCompany(const QString& path) {
  QStringList recent = RecentCompanies();
  recent.removeAll(path);
  recent.prepend(path);
  store_.setValue("Desktop/RecentCompanies", QStringList(recent.mid(0, kRecentCompanies)));
}

QString DesktopSettings::LastLogin() const { return store_.value("Desktop/LastLogin").toString(); }
void DesktopSettings::SetLastLogin(const QString& login) { store_.setValue("Desktop/LastLogin", login); }

QByteArray DesktopSettings::WindowState(const QString& window) const {
  return store_.value("Windows/" + window).toByteArray();
}

void DesktopSettings::SetWindowState(const QString& window, const QByteArray& state) {
  store_.setValue("Windows/" + window, state);
}

}  // namespace goods
