// The host's settings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace goods {

// Every setting that reports read, declared once.
struct TSettings {
  bool SecondUnit = false;          // goods may have a second unit
  bool SecondUnitIsLarger = false;  // the second unit is the whole, the first the part
  bool WholeAndPart = false;        // stock is shown as whole second units and a part
  bool GoodsDetail = false;         // goods carry details
  int QuantityDecimals = 4;         // 0 to 9
  int AmountDecimals = 2;           // 0 to 9
  // The price basis of the money reports.
  bool PriceLevel = false;
  bool PriceHistory = false;
  int PriceBasis = -1;
  int BuyOrSell = -1;
  int PriceLevelCode = -1;
};

class ISettings {
 public:
  virtual ~ISettings();
  virtual TSettings& Settings() = 0;
  // Keeps one numbered item of a software part: whether it is on, its number and its text.
  virtual void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                               std::string_view text) = 0;
  // What a window remembers of its controls: the text of a section, empty when there is none. The base keeps
  // nothing.
  virtual std::string ReadSection(std::string_view section) const;
  virtual void WriteSection(std::string_view section, std::string_view text);
  // The folder of the per-report settings files, without a separator at its end; empty when none is kept.
  virtual std::string GetSettingFilePath() const = 0;
  // The text of a file of that folder; none when it is not there or cannot be read.
  virtual std::optional<std::string> ReadSettingFile(std::string_view name) const;
  // Writes the file whole or not at all: false when it could not be written, and what was there stays.
  virtual bool WriteSettingFile(std::string_view name, std::string_view text);
};

}  // namespace goods
