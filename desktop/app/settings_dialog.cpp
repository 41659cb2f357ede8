#include "desktop/app/settings_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace goods {
namespace {

QGroupBox* Group(const QString& title, std::initializer_list<QCheckBox*> boxes, QWidget* parent) {
  auto* group = new QGroupBox(title, parent);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(14, 12, 14, 12);
  layout->setSpacing(8);
  for (QCheckBox* box : boxes) layout->addWidget(box);
  return group;
}

}  // namespace

SettingsDialog::SettingsDialog(DesktopSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      secondUnit_(Box("SecondUnit_CHK", "کالاها &واحد دوم دارند", settings.Settings().SecondUnit)),
      secondUnitIsLarger_(Box("SecondUnitIsLarger_CHK",
                              "واحد دوم &بزرگ‌تر است (واحد کل)",
                              settings.Settings().SecondUnitIsLarger)),
      wholeAndPart_(Box("WholeAndPart_CHK", "موجودی به &صورت کل و جزء نشان داده شود",
                        settings.Settings().WholeAndPart)),
      goodsDetail_(Box("GoodsDetail_CHK", "کالاها &جزئیات دارند", settings.Settings().GoodsDetail)),
      quantityDecimals_(Decimals("QuantityDecimals_EDT", "رقم‌های اعشار مقدار",
                                 settings.Settings().QuantityDecimals)),
      amountDecimals_(Decimals("AmountDecimals_EDT", "رقم‌های اعشار مبلغ",
                               settings.Settings().AmountDecimals)),
      persianDigits_(Box("PersianDigits_CHK", "نمایش &رقم‌ها به فارسی",
                         settings.Options().PersianDigits)),
      darkPalette_(Box("DarkPalette_CHK", "رنگ‌های &تیره", settings.Options().DarkPalette)) {
  LayOut();
  connect(secondUnit_, &QCheckBox::toggled, this, &SettingsDialog::FollowSecondUnit);
  FollowSecondUnit();
}

QCheckBox* SettingsDialog::Box(const char* name, const QString& text, bool on) {
  auto* box = new QCheckBox(text, this);
  box->setObjectName(name);
  box->setChecked(on);
  return box;
}

QSpinBox* SettingsDialog::Decimals(const char* name, const QString& accessible, int value) {
  auto* box = new QSpinBox(this);
  box->setObjectName(name);
  box->setAccessibleName(accessible);
  box->setRange(0, 9);
  box->setValue(value);
  return box;
}

void SettingsDialog::LayOut() {
  setObjectName("Settings_FRM");
  setWindowTitle("تنظیمات");
  setAccessibleName("تنظیمات");
  setLayoutDirection(Qt::RightToLeft);

  auto* decimals = new QGroupBox("رقم‌های اعشار", this);
  auto* form = new QFormLayout(decimals);
  form->setContentsMargins(14, 12, 14, 12);
  form->addRow("&مقدار :", quantityDecimals_);
  form->addRow("مب&لغ :", amountDecimals_);

  auto* buttons = new QDialogButtonBox(this);
  auto* accept = buttons->addButton("تایید  Enter", QDialogButtonBox::AcceptRole);
  accept->setObjectName("Select_BTN");
  accept->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 18, 20, 14);
  layout->setSpacing(12);
  layout->addWidget(Group("واحدها", {secondUnit_, secondUnitIsLarger_, wholeAndPart_}, this));
  layout->addWidget(Group("کالا", {goodsDetail_}, this));
  layout->addWidget(decimals);
  layout->addWidget(Group("نمایش", {persianDigits_, darkPalette_}, this));
  layout->addStretch(1);
  layout->addWidget(buttons);
  setMinimumWidth(420);
}

void SettingsDialog::FollowSecondUnit() {
  secondUnitIsLarger_->setEnabled(secondUnit_->isChecked());
  wholeAndPart_->setEnabled(secondUnit_->isChecked());
}

void SettingsDialog::accept() {
  TSettings& settings = settings_.Settings();
  settings.SecondUnit = secondUnit_->isChecked();
  settings.SecondUnitIsLarger = secondUnitIsLarger_->isChecked();
  settings.WholeAndPart = wholeAndPart_->isChecked();
  settings.GoodsDetail = goodsDetail_->isChecked();
  settings.QuantityDecimals = quantityDecimals_->value();
  settings.AmountDecimals = amountDecimals_->value();
  settings_.Options().PersianDigits = persianDigits_->isChecked();
  settings_.Options().DarkPalette = darkPalette_->isChecked();
  settings_.Save();
  QDialog::accept();
}

}  // namespace goods
