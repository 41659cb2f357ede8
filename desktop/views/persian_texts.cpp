#include "desktop/views/persian_texts.h"

#include <QApplication>
#include <QByteArray>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

namespace goods {
namespace {

struct PersianText {
  const char* source;
  const char* text;
};

// Whatever the place is that asks for it, a text of the toolkit means the same here.
constexpr PersianText kTexts[] = {
    // Buttons.
    {"OK", "تأیید"},
    {"&OK", "&تأیید"},
    {"Save", "ذخیره"},
    {"&Save", "&ذخیره"},
    {"Save All", "ذخیره همه"},
    {"Open", "باز کردن"},
    {"&Open", "&باز کردن"},
    {"&Yes", "&بله"},
    {"Yes to &All", "بله برای &همه"},
    {"&No", "&خیر"},
    {"N&o to All", "خیر برای ه&مه"},
    {"Abort", "توقف"},
    {"Retry", "دوباره"},
    {"Ignore", "نادیده گرفتن"},
    {"Close", "بستن"},
    {"&Close", "&بستن"},
    {"Cancel", "انصراف"},
    {"&Cancel", "&انصراف"},
    {"Discard", "دور ریختن"},
    {"Help", "راهنما"},
    {"Apply", "اعمال"},
    {"Reset", "از نو"},
    {"Restore Defaults", "مقدارهای نخست"},
    {"Show Details...", "نمایش جزئیات…"},
    {"Hide Details...", "پنهان کردن جزئیات…"},
    // Edits, boxes of numbers, scroll bars, tabs.
    {"&Undo", "&واگرد"},
    {"&Redo", "&ازنو"},
    {"Cu&t", "&برش"},
    {"&Copy", "&رونوشت"},
    {"Copy &Link Location", "رونوشت از نشانی &پیوند"},
    {"&Paste", "&چسباندن"},
    {"Delete", "حذف"},
    {"Select All", "گزینش همه"},
    {"&Select All", "گزینش &همه"},
    {"&Step up", "&افزایش"},
    {"Step &down", "&کاهش"},
    {"Clear", "پاک کردن"},
    {"Scroll here", "لغزش تا اینجا"},
    {"Left edge", "لبه چپ"},
    {"Right edge", "لبه راست"},
    {"Top", "بالا"},
    {"Bottom", "پایین"},
    {"Page left", "یک صفحه به چپ"},
    {"Page right", "یک صفحه به راست"},
    {"Page up", "یک صفحه به بالا"},
    {"Page down", "یک صفحه به پایین"},
    {"Scroll left", "لغزش به چپ"},
    {"Scroll right", "لغزش به راست"},
    {"Scroll up", "لغزش به بالا"},
    {"Scroll down", "لغزش به پایین"},
    {"Scroll Left", "لغزش به چپ"},
    {"Scroll Right", "لغزش به راست"},
    {"Insert Unicode control character", "درج نویسه کنترلی"},
    // File dialogs.
    {"Look in:", "در پوشه :"},
    {"Back", "پس"},
    {"Go back", "برگشت به پوشه پیشین"},
    {"Forward", "پیش"},
    {"Go forward", "رفتن به پوشه بعدی"},
    {"Parent Directory", "پوشه بالاتر"},
    {"Go to the parent directory", "رفتن به پوشه بالاتر"},
    {"Create New Folder", "پوشه تازه"},
    {"Create a New Folder", "ساختن پوشه تازه"},
    {"List View", "فهرست"},
    {"Change to list view mode", "نمایش به صورت فهرست"},
    {"Detail View", "جزئیات"},
    {"Change to detail view mode", "نمایش با جزئیات"},
    {"Sidebar", "جاها"},
    {"List of places and bookmarks", "فهرست جاها و نشانه‌ها"},
    {"Files", "پرونده‌ها"},
    {"File &name:", "&نام پرونده :"},
    {"Files of type:", "نوع پرونده :"},
    {"Save As", "ذخیره با نام"},
    {"&Choose", "&گزینش"},
    {"Directory:", "پوشه :"},
    {"Directories", "پوشه‌ها"},
    {"Find Directory", "یافتن پوشه"},
    {"All Files (*)", "همه پرونده‌ها (*)"},
    {"&Rename", "&تغییر نام"},
    {"&Delete", "&حذف"},
    {"Show &hidden files", "نمایش پرونده‌های &پنهان"},
    {"&New Folder", "پوشه &تازه"},
    {"New Folder", "پوشه تازه"},
    {"Remove", "برداشتن"},
    {"Recent Places", "جاهای اخیر"},
    {"My Computer", "رایانه"},
    {"Computer", "رایانه"},
    {"Drive", "دیسک"},
    {"File", "پرونده"},
    {"File Folder", "پوشه"},
    {"Folder", "پوشه"},
    {"%1 File", "پرونده %1"},
    {"Shortcut", "میان‌بر"},
    {"Alias", "میان‌بر"},
    {"Unknown", "ناشناخته"},
    {"Name", "نام"},
    {"Size", "اندازه"},
    {"Kind", "نوع"},
    {"Type", "نوع"},
    {"Date Modified", "تاریخ تغییر"},
    {"%1 bytes", "%1 بایت"},
    {"%1 byte(s)", "%1 بایت"},
    {"%1 KB", "%1 کیلوبایت"},
    {"%1 MB", "%1 مگابایت"},
    {"%1 GB", "%1 گیگابایت"},
    {"%1 TB", "%1 ترابایت"},
    {"%1 already exists.\nDo you want to replace it?", "%1 از پیش هست.\nآیا به جای آن نوشته شود؟"},
    {"%1 already exists.\nDo you want to overwrite it?", "%1 از پیش هست.\nآیا به جای آن نوشته شود؟"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nپرونده پیدا نشد.\nنام پرونده را بررسی کنید."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nپوشه پیدا نشد.\nنام پوشه را بررسی کنید."},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     "«%1» برای نوشتن بسته است.\nآیا با این همه حذف شود؟"},
    {"Are you sure you want to delete '%1'?", "آیا «%1» حذف شود؟"},
    {"Could not delete directory.", "پوشه را نمی‌توان حذف کرد."},
    {"Invalid filename", "نام پرونده درست نیست"},
    // Print dialogs.
    {"Print", "چاپ"},
    {"&Print", "&چاپ"},
    {"Page Setup", "تنظیم صفحه"},
    {"Print To File ...", "چاپ در پرونده…"},
    {"Print to File (PDF)", "چاپ در پرونده (PDF)"},
    {"Local file", "پرونده در همین رایانه"},
    {"Write PDF file", "نوشتن پرونده PDF"},
    {"&Options >>", "گزینه‌&ها >>"},
    {"&Options <<", "گزینه‌&ها <<"},
    {"%1 is a directory.\nPlease choose a different file name.",
     "%1 یک پوشه است.\nنام دیگری برای پرونده برگزینید."},
    {"File %1 is not writable.\nPlease choose a different file name.",
     "پرونده %1 را نمی‌توان نوشت.\nنام دیگری برای پرونده "
     "برگزینید."},
    {"Printer", "چاپگر"},
    {"&Name:", "&نام :"},
    {"P&roperties", "&ویژگی‌ها"},
    {"Location:", "جا :"},
    {"Preview", "پیش‌نمایش"},
    {"Type:", "نوع :"},
    {"Output &file:", "پرونده &خروجی :"},
    {"Copies", "نسخه‌ها"},
    {"Copies:", "شمار نسخه‌ها :"},
    {"Print range", "بازه چاپ"},
    {"Print all", "همه صفحه‌ها"},
    {"Pages from", "صفحه‌های"},
    {"to", "تا"},
    {"Pages", "صفحه‌ها"},
    {"Page", "صفحه"},
    {"Page Set:", "صفحه‌های :"},
    {"All Pages", "همه صفحه‌ها"},
    {"Odd Pages", "صفحه‌های فرد"},
    {"Even Pages", "صفحه‌های زوج"},
    {"Current Page", "صفحه جاری"},
    {"Selection", "گزینش"},
    {"Output Settings", "تنظیم خروجی"},
    {"Collate", "دسته‌بندی نسخه‌ها"},
    {"Reverse", "وارونه"},
    {"Options", "گزینه‌ها"},
    {"Color Mode", "رنگ"},
    {"Color", "رنگی"},
    {"Grayscale", "خاکستری"},
    {"Duplex Printing", "چاپ دورو"},
    {"Double Sided Printing", "چاپ دورو"},
    {"Off", "خاموش"},
    {"Long side binding", "صحافی از لبه بلند"},
    {"Short side binding", "صحافی از لبه کوتاه"},
    {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a "
     "hyphen. "
     "E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
     "صفحه‌ها یا بازه‌ها را با ویرگول از هم جدا کنید. "
     "بازه دو عدد است با خط تیره در میان؛ "
     "برای نمونه 3,5-7,9 صفحه‌های ۳، ۵، ۶، ۷ و ۹ را چاپ می‌کند."},
    {"None", "هیچکدام"},
    {"Long side", "لبه بلند"},
    {"Short side", "لبه کوتاه"},
    {"Paper", "کاغذ"},
    {"Page size:", "اندازه کاغذ :"},
    {"Width:", "پهنا :"},
    {"Height:", "بلندی :"},
    {"Paper source:", "سینی کاغذ :"},
    {"Orientation", "جهت"},
    {"Portrait", "ایستاده"},
    {"Landscape", "خوابیده"},
    {"Reverse landscape", "خوابیده وارونه"},
    {"Reverse portrait", "ایستاده وارونه"},
    {"Margins", "حاشیه‌ها"},
    {"top margin", "حاشیه بالا"},
    {"bottom margin", "حاشیه پایین"},
    {"left margin", "حاشیه چپ"},
    {"right margin", "حاشیه راست"},
    {"Page Layout", "چیدن صفحه‌ها"},
    {"Pages per sheet:", "صفحه در هر برگ :"},
    {"Page order:", "ترتیب صفحه‌ها :"},
    {"Custom", "دلخواه"},
    {"Advanced", "پیشرفته"},
    {"Job Options", "گزینه‌های کار"},
    {"Job Billing:", "حساب کار :"},
    {"Job priority:", "اولویت کار :"},
    {"Scheduled printing:", "زمان چاپ :"},
    {"Billing information:", "حساب کار :"},
    {"Banner Pages", "صفحه‌های سرآغاز و پایان"},
    {"Start:", "آغاز :"},
    {"End:", "پایان :"},
    {"Millimeters (mm)", "میلی‌متر"},
    {"Points (pt)", "پوینت"},
    {"Inches (in)", "اینچ"},
};

class PersianTranslator : public QTranslator {
 public:
  explicit PersianTranslator(QObject* parent) : QTranslator(parent) {
    for (const auto& [source, text] : kTexts) texts_.insert(source, QString::fromUtf8(text));
  }

  bool isEmpty() const override { return false; }
  QString translate(const char* /*context*/, const char* source, const char* /*disambiguation*/,
                    int /*number*/) const override {
    return source == nullptr ? QString() : texts_.value(source);
  }

 private:
  QHash<QByteArray, QString> texts_;
};

}  // namespace

void UsePersianTexts(QApplication& application) {
  auto system = std::make_unique<QTranslator>();
  if (system->load("qtbase_fa", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    system->setParent(&application);
    QApplication::installTranslator(system.release());
  }
  QApplication::installTranslator(new PersianTranslator(&application));
}

}  // namespace goods
