#include "desktop/app/settings_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kMostDecimals = 9;

QVBoxLayout* Group(const QString& title, std::initializer_list<QCheckBox*> boxes, QWidget* parent) {
  auto* layout = new QVBoxLayout;
  layout->setSpacing(8);
  auto* heading = new QLabel(title, parent);
  QFont font = heading->font();
  font.setWeight(QFont::DemiBold);
  heading->setFont(font);
  layout->addWidget(heading);
  for (QCheckBox* box : boxes) layout->addWidget(box);
  return layout;
}

}  // namespace

SettingsDialog::SettingsDialog(DesktopSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      secondUnit_(Box("SecondUnit_CHK", "کالاها &واحد دوم دارند", settings.Settings().SecondUnit)),
      secondUnitIsLarger_(Box("SecondUnitIsLarger_CHK",
                              "واحد &دوم بزرگ‌تر است (واحد کل)",
                              settings.Settings().SecondUnitIsLarger)),
      wholeAndPart_(Box("WholeAndPart_CHK", "موجودی به صورت کل و جزء نشان د&اده شود",
                        settings.Settings().WholeAndPart)),
      goodsDetail_(Box("GoodsDetail_CHK", "کالاها &جزئیات دارند", settings.Settings().GoodsDetail)),
      quantityDecimals_(Decimals("QuantityDecimals_EDT", "رقم‌های اعشار مقدار",
                                 settings.Settings().QuantityDecimals)),
      amountDecimals_(Decimals("AmountDecimals_EDT", "رقم‌های اعشار مبلغ",
                               settings.Settings().AmountDecimals)),
      persianDigits_(Box("PersianDigits_CHK", "نمایش &رقم‌ها به فارسی",
                         settings.Options().PersianDigits)),
      thousandsSeparators_(Box("ThousandsSeparators_CHK", "جداکننده &هزارگان در مقدارها",
                               settings.Options().ThousandsSeparators)),
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

QComboBox* SettingsDialog::Decimals(const char* name, const QString& accessible, int value) {
  auto* box = new QComboBox(this);
  box->setObjectName(name);
  box->setAccessibleName(accessible);
  for (int count = 0; count <= kMostDecimals; ++count) box->addItem(ShownDigits(QString::number(count)));
  box->setCurrentIndex(value);
  return box;
}

void SettingsDialog::LayOut() {
  setObjectName("Settings_FRM");
  setWindowTitle("تنظیمات");
  setAccessibleName("تنظیمات");
  setLayoutDirection(Qt::RightToLeft);

  auto* form = new QFormLayout;
  form->setHorizontalSpacing(16);
  form->addRow("م&قدار :", quantityDecimals_);
  form->addRow("م&بلغ :", amountDecimals_);
  QVBoxLayout* decimals = Group("رقم‌های اعشار", {}, this);
  decimals->addLayout(form);
  auto* where = MutedLabel(
      "تنها به الگوی چاپ «گردش کلی کالا» داده می‌شود؛ "
      "ستون‌های گزارش‌ها قالب خود را دارند.",
      this);
  where->setObjectName("Decimals_LBL");
  decimals->addWidget(where);

  auto* buttons = new QDialogButtonBox(this);
  auto* accept = buttons->addButton("تایید  Enter", QDialogButtonBox::AcceptRole);
  accept->setObjectName("Select_BTN");
  accept->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 18, 20, 14);
  layout->setSpacing(18);
  layout->addLayout(Group("واحدها", {secondUnit_, secondUnitIsLarger_, wholeAndPart_}, this));
  layout->addLayout(Group("کالا", {goodsDetail_}, this));
  layout->addLayout(decimals);
  layout->addLayout(Group("نمایش", {persianDigits_, thousandsSeparators_, darkPalette_}, this));
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
  settings.QuantityDecimals = quantityDecimals_->currentIndex();
  settings.AmountDecimals = amountDecimals_->currentIndex();
  settings_.Options().PersianDigits = persianDigits_->isChecked();
  settings_.Options().ThousandsSeparators = thousandsSeparators_->isChecked();
  settings_.Options().DarkPalette = darkPalette_->isChecked();
  settings_.Save();
  QDialog::accept();
}

}  // namespace goods
