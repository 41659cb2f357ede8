#include "desktop/print/page_setup_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "desktop/views/shown_text.h"
#include "desktop/views/spin_box.h"
#include "desktop/views/theme.h"
#include "host/components/control.h"

namespace goods {
namespace {

constexpr int kSetupWidth = 420;
constexpr int kSetupHeight = 520;
constexpr int kWidthStep = 10;
constexpr int kWholeWidth = 100;

QString SetupTitleOf(const ReportColumn& column) {
  const QString title = ToQt(PlainCaption(column.caption)).replace('|', " / ").trimmed();
  return title.isEmpty() ? ToQt(column.name) : ShownText(title);
}

}  // namespace

PageSetupDialog::PageSetupDialog(const PageOptions& options, const std::vector<ReportColumn>& columns,
                                 QWidget* parent)
    : QDialog(parent), given_(options) {
  setObjectName("PageSetup_DLG");
  setWindowTitle("تنظیم صفحه");
  setLayoutDirection(Qt::RightToLeft);

  auto* form = new QFormLayout;
  form->setHorizontalSpacing(Scaled(16, *this));
  textSize_ = AddCombo(*form, "TextSize_CMB", "&اندازه نوشته :");
  textSize_->addItem("به اندازه ستون‌ها", 0);
  for (int size = PageOptions::kLeastText; size <= PageOptions::kMostText; ++size)
    textSize_->addItem(ShownDigits(QString::number(size)), size);
  sheet_ = AddCombo(*form, "Sheet_CMB", "&جهت کاغذ :");
  sheet_->addItem("به اندازه ستون‌ها", static_cast<int>(SheetDirection::ByColumns));
  sheet_->addItem("ایستاده", static_cast<int>(SheetDirection::Upright));
  sheet_->addItem("خوابیده", static_cast<int>(SheetDirection::Lying));

  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  auto* list = new QWidget;
  auto* columnsForm = new QFormLayout(list);
  AddWidths(columns, *columnsForm, *list);
  area->setWidget(list);

  auto* buttons = new QDialogButtonBox(this);
  auto* accept = buttons->addButton("تایید  Enter", QDialogButtonBox::AcceptRole);
  accept->setObjectName("Select_BTN");
  accept->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  auto* reset = buttons->addButton("&پیش‌فرض", QDialogButtonBox::ResetRole);
  reset->setObjectName("Reset_BTN");
  reset->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(reset, &QPushButton::clicked, this, [this] {
    Show({});
    Changed();
  });

  auto* layout = new QVBoxLayout(this);
  const int margin = Scaled(16, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(Scaled(10, *this));
  layout->addLayout(form);
  layout->addWidget(new QLabel(
      "پهنای ستون‌ها روی کاغذ، درصدی از پهنای آن در جدول:", this));
  layout->addWidget(area, 1);
  layout->addWidget(buttons);
  resize(Scaled(kSetupWidth, *this), Scaled(kSetupHeight, *this));
  Show(options);
}

QComboBox* PageSetupDialog::AddCombo(QFormLayout& form, const char* name, const QString& title) {
  auto* box = new QComboBox(this);
  box->setObjectName(name);
  box->setAccessibleName(QString(title).remove('&').remove(" :"));
  form.addRow(title, box);
  connect(box, &QComboBox::currentIndexChanged, this, [this] { Changed(); });
  return box;
}

void PageSetupDialog::AddWidths(const std::vector<ReportColumn>& columns, QFormLayout& form,
                                QWidget& parent) {
  for (const ReportColumn& column : columns) {
    auto* box = new SpinBox(&parent);
    const QString title = SetupTitleOf(column);
    box->setObjectName("Width_" + ToQt(column.name));
    box->setAccessibleName("پهنای " + title);
    box->setRange(PageOptions::kLeastWidth, PageOptions::kMostWidth);
    box->setSingleStep(kWidthStep);
    box->setSuffix(QString(" ") + (PersianDigits() ? "٪" : "%"));
    connect(box, &SpinBox::valueChanged, this, [this] { Changed(); });
    auto* label = new QLabel(&parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(title);
    label->setBuddy(box);
    form.addRow(label, box);
    widths_.push_back({column.name, box});
  }
}

void PageSetupDialog::Show(const PageOptions& options) {
  showing_ = true;
  textSize_->setCurrentIndex(std::max(0, textSize_->findData(options.textSize)));
  sheet_->setCurrentIndex(std::max(0, sheet_->findData(static_cast<int>(options.sheet))));
  for (const ColumnWidth& each : widths_) {
    const auto chosen = options.widths.find(each.name);
    each.box->setValue(chosen == options.widths.end() ? kWholeWidth : chosen->second);
  }
  showing_ = false;
}

void PageSetupDialog::Changed() {
  if (!showing_ && OnChange) OnChange();
}

PageOptions PageSetupDialog::Options() const {
  PageOptions options = given_;
  options.textSize = textSize_->currentData().toInt();
  options.sheet = static_cast<SheetDirection>(sheet_->currentData().toInt());
  for (const ColumnWidth& each : widths_) {
    if (each.box->value() == kWholeWidth) {
      options.widths.erase(each.name);
    } else {
      options.widths[each.name] = each.box->value();
    }
  }
  return options;
}

}  // namespace goods
