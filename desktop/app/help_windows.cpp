#include "desktop/app/help_windows.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "desktop/app/app_look.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr const char* kVersion = "1.0.0";

struct KeyHelp {
  const char* keys;  // null: text is the title of a group
  const char* text;
};

constexpr std::array<KeyHelp, 39> kKeys{{
    {nullptr, "پنجره اصلی"},
    {"Ctrl+0 … Ctrl+9", "باز کردن گزارش"},
    {"F1", "راهنمای گزارش‌ها"},
    {"Ctrl+F1", "همین فهرست کلیدها"},
    {"F3", "تعویض شرکت"},
    {"Ctrl+L", "خروج از حساب کاربر"},
    {"Ctrl+M", "نماهای ذخیره‌شده"},
    {"F12", "تنظیمات"},
    {"Ctrl+Q", "خروج از برنامه"},
    {nullptr, "گزارش‌ها"},
    {"F1", "راهنمای همین گزارش"},
    {"F2", "سند یا گردش ردیف جاری"},
    {"Ctrl+N", "گزارش دیگر در کنار این؛ رفتن به دیگری"},
    {"Alt+Left", "برگشت به پنجره پیش"},
    {"F3", "خانه جستجوی گزارش"},
    {"F4", "انتخاب از فهرست، در خانه کد"},
    {"F6", "نماهای ذخیره‌شده"},
    {"Ctrl+Down", "دوره‌های آماده، در خانه تاریخ"},
    {"F8", "برداشتن فیلترهای جدول"},
    {"F9", "پیش نمایش چاپ"},
    {"F10", "رفتن به جستجو، در گزارش‌های جزئیات"},
    {"Ctrl+F2", "تهیه گزارش؛ در فهرست کالاها: جزئیات کالا"},
    {"Ctrl+F10", "جستجوی پیشرفته"},
    {"Ctrl+F11", "جستجوی گروه کالا"},
    {"Alt+2", "باز و بسته کردن شرط‌های کاردکس"},
    {"Ctrl+F", "یافتن در جدول"},
    {"حروف", "پرش در ستونی که جدول به ترتیب آن است"},
    {"Alt+Down", "فیلتر ستون جاری؛ Ctrl+← و Ctrl+→ ستون را برمی‌گزیند"},
    {"Ctrl+G، + و -",
     "گروه‌بندی بر پایه ستون جاری؛ باز و بسته کردن گروه"},
    {"Ctrl+Shift+G",
     "گروه‌بندی درون گروه‌ها؛ Alt++ و Alt+- یک لایه را باز و بسته "
     "می‌کند"},
    {"Ctrl+C", "رونوشت از ردیف‌های برگزیده"},
    {"Ctrl+T", "آمار ردیف‌های برگزیده"},
    {"Esc", "بستن پنجره؛ هنگام خواندن اطلاعات: توقف"},
    {nullptr, "فهرست انتخاب"},
    {"حروف و ارقام", "جستجو با نام یا کد"},
    {"↑ ↓ PgUp PgDn", "حرکت در فهرست"},
    {"Enter", "انتخاب"},
    {"دو بار کلیک", "انتخاب"},
    {"Esc", "انصراف"},
}};

void AddClose(QDialog& window, QVBoxLayout& layout) {
  auto* buttons = new QDialogButtonBox(&window);
  buttons->addButton("بستن  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  layout.addWidget(buttons);
}

}  // namespace

void ShowKeysWindow(QWidget* parent) {
  QDialog window(parent);
  window.setObjectName("Keys_FRM");
  window.setWindowTitle("کلیدها");
  window.setLayoutDirection(Qt::RightToLeft);
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(24, 20, 24, 16);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(28);
  grid->setVerticalSpacing(6);
  int line = 0;
  for (const auto& [keys, text] : kKeys) {
    auto* label = new QLabel(text, &window);
    if (keys == nullptr) {
      QFont font = label->font();
      font.setWeight(QFont::DemiBold);
      label->setFont(font);
      if (line > 0) label->setContentsMargins(0, 10, 0, 0);
      grid->addWidget(label, line, 0, 1, 2);
    } else {
      auto* keyLabel = new QLabel(keys, &window);
      keyLabel->setForegroundRole(QPalette::PlaceholderText);
      grid->addWidget(keyLabel, line, 0);
      grid->addWidget(label, line, 1);
    }
    ++line;
  }
  grid->setColumnStretch(1, 1);
  layout->addLayout(grid);
  layout->addStretch(1);
  AddClose(window, *layout);
  window.setMinimumWidth(420);
  window.exec();
}

void ShowAboutWindow(QWidget* parent) {
  QDialog window(parent);
  window.setObjectName("About_FRM");
  window.setWindowTitle("درباره برنامه");
  window.setLayoutDirection(Qt::RightToLeft);
  auto* texts = new QVBoxLayout;
  texts->addWidget(TitleLabel(kProgramTitle, &window));
  texts->addWidget(MutedLabel("نسخه " + ShownDigits(kVersion), &window));
  texts->addSpacing(6);
  texts->addWidget(
      new QLabel("کاردکس، گردش و موجودی کالا از روی اسناد انبار و فروش.\n"
                 "این برنامه هیچ سندی را نمی‌سازد و تغییر نمی‌دهد.",
                 &window));
  auto* line = new QHBoxLayout;
  line->setSpacing(18);
  line->addWidget(ProgramSign(64, &window), 0, Qt::AlignTop);
  line->addLayout(texts, 1);
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(24, 22, 24, 16);
  layout->setSpacing(18);
  layout->addLayout(line);
  AddClose(window, *layout);
  window.exec();
}

}  // namespace goods
