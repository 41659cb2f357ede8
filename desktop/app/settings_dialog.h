// SettingsDialog: what the user can set about reports and looks.
#pragma once

#include <QDialog>

#include "desktop/app/services/desktop_settings.h"

class QCheckBox;
class QComboBox;

namespace goods {

// Accepting writes the settings; reports read them as they are next opened.
class SettingsDialog : public QDialog {
 public:
  explicit SettingsDialog(DesktopSettings& settings, QWidget* parent = nullptr);

  void accept() override;

 private:
  QCheckBox* Box(const char* name, const QString& text, bool on);
  QComboBox* Decimals(const char* name, const QString& accessible, int value);
  void LayOut();
  // The second unit's own choices need a second unit.
  void FollowSecondUnit();

  DesktopSettings& settings_;
  QCheckBox* secondUnit_;
  QCheckBox* secondUnitIsLarger_;
  QCheckBox* wholeAndPart_;
  QCheckBox* goodsDetail_;
  QComboBox* quantityDecimals_;
  QComboBox* amountDecimals_;
  QCheckBox* persianDigits_;
  QCheckBox* thousandsSeparators_;
  QCheckBox* darkPalette_;
};

}  // namespace goods
