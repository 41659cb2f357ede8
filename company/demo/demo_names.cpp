#include "company/demo/demo_names.h"

#include <cstddef>

namespace goods {

namespace {

constexpr DemoLine kIronmongery[] = {
    {"پیچ خودکار", kUnitPiece, kUnitCarton, 1000, 2'500, {"3×16", "4×25", "4×40", "5×50", "5×70", "6×100"}},
    {"مهره شش گوش", kUnitPiece, kUnitCarton, 500, 4'000, {"M6", "M8", "M10", "M12", "M14", "M16"}},
    {"میخ فولادی",
     kUnitKilogram,
     kUnitCarton,
     20,
     620'000,
     {"2 سانت", "3 سانت", "4 سانت", "5 سانت", "7 سانت", "10 سانت"}},
    {"لولای گازور",
     kUnitPiece,
     kUnitCarton,
     100,
     95'000,
     {"ساده", "آرام بند", "سر کج", "تخت", "زاویه دار", "شیشه خور"}},
    {"قفل آویز", kUnitPiece, kUnitNone, 0, 780'000, {"40", "50", "60", "70", "80", "90"}},
    {"زنجیر گالوانیزه",
     kUnitKilogram,
     kUnitNone,
     0,
     850'000,
     {"نمره 3", "نمره 4", "نمره 5", "نمره 6", "نمره 8", "نمره 10"}}};
constexpr DemoLine kFood[] = {
    {"برنج ایرانی",
     kUnitKilogram,
     kUnitSack,
     10,
     950'000,
     {"هاشمی", "طارم", "دم سیاه", "شیرودی", "ندا", "فجر"}},
    {"روغن آفتابگردان",
     kUnitLitre,
     kUnitCarton,
     12,
     640'000,
     {"سرخ کردنی", "پخت و پز", "کم جذب", "ممتاز", "خانوار", "صنفی"}},
    {"رب گوجه فرنگی",
     kUnitPiece,
     kUnitCarton,
     12,
     420'000,
     {"400 گرمی", "800 گرمی", "1500 گرمی", "شیشه ای", "سنتی", "کم نمک"}},
    {"چای خشک",
     kUnitKilogram,
     kUnitCarton,
     24,
     2'900'000,
     {"قلم", "شکسته", "باروتی", "سرگل", "زرین", "کله مورچه"}},
    {"ماکارونی",
     kUnitPiece,
     kUnitCarton,
     20,
     180'000,
     {"رشته ای 1.2", "رشته ای 1.5", "فرمی", "پیچ", "صدف", "لازانیا"}},
    {"عدس", kUnitKilogram, kUnitSack, 25, 780'000, {"درشت", "ریز", "قرمز", "بوجاری", "درجه یک", "درجه دو"}}};
constexpr DemoLine kStationery[] = {
    {"دفتر خط دار",
     kUnitPiece,
     kUnitPack,
     10,
     210'000,
     {"40 برگ", "60 برگ", "80 برگ", "100 برگ", "160 برگ", "200 برگ"}},
    {"خودکار", kUnitPiece, kUnitPack, 50, 38'000, {"آبی", "مشکی", "قرمز", "سبز", "بنفش", "چهار رنگ"}},
    {"کاغذ تحریر", kUnitSheet, kUnitPack, 500, 3'200, {"A3", "A4", "A5", "B4", "گلاسه", "رنگی"}},
    {"پوشه", kUnitPiece, kUnitPack, 25, 64'000, {"دکمه دار", "کش دار", "زیپی", "آویز", "سیمی", "مقوایی"}},
    {"ماژیک وایت برد",
     kUnitPiece,
     kUnitPack,
     12,
     145'000,
     {"آبی", "مشکی", "قرمز", "سبز", "نوک پهن", "نوک گرد"}}};
constexpr DemoLine kClothing[] = {{"پیراهن مردانه",
                                   kUnitPiece,
                                   kUnitNone,
                                   0,
                                   4'200'000,
                                   {"سفید", "آبی", "چهارخانه", "راه راه", "کتان", "جین"}},
                                  {"شلوار کتان",
                                   kUnitPiece,
                                   kUnitNone,
                                   0,
                                   5'600'000,
                                   {"راسته", "جذب", "کارگو", "کش دار", "زمستانی", "بهاره"}},
                                  {"جوراب نخی",
                                   kUnitPiece,
                                   kUnitPack,
                                   12,
                                   320'000,
                                   {"ساق کوتاه", "ساق بلند", "مچی", "ورزشی", "حوله ای", "زنانه"}},
                                  {"پارچه پنبه ای",
                                   kUnitMetre,
                                   kUnitRoll,
                                   40,
                                   890'000,
                                   {"ساده", "گلدار", "کجراه", "ملحفه ای", "تترون", "متقال"}}};
constexpr DemoLine kElectrical[] = {
    {"سیم افشان", kUnitMetre, kUnitRoll, 100, 165'000, {"1×1.5", "1×2.5", "1×4", "1×6", "2×1.5", "3×2.5"}},
    {"لامپ کم مصرف",
     kUnitPiece,
     kUnitCarton,
     50,
     480'000,
     {"7 وات", "9 وات", "12 وات", "15 وات", "20 وات", "30 وات"}},
    {"کلید و پریز",
     kUnitPiece,
     kUnitCarton,
     60,
     360'000,
     {"تک پل", "دو پل", "تبدیل", "ارت دار", "تلفن", "آنتن"}},
    {"فیوز مینیاتوری",
     kUnitPiece,
     kUnitPack,
     12,
     720'000,
     {"6 آمپر", "10 آمپر", "16 آمپر", "20 آمپر", "25 آمپر", "32 آمپر"}},
    {"الکتروموتور",
     kUnitPiece,
     kUnitNone,
     0,
     86'000'000,
     {"0.5 اسب", "1 اسب", "2 اسب", "3 اسب", "5.5 اسب", "10 اسب"}}};
constexpr DemoLine kHygiene[] = {
    {"مایع دستشویی",
     kUnitLitre,
     kUnitGallon,
     4,
     310'000,
     {"سبز", "صدفی", "بنفش", "بی بو", "آلوئه ورا", "کرمی"}},
    {"شامپو", kUnitPiece, kUnitCarton, 24, 690'000, {"معمولی", "چرب", "خشک", "کودک", "ضد شوره", "تقویتی"}},
    {"دستمال کاغذی",
     kUnitPiece,
     kUnitCarton,
     20,
     240'000,
     {"100 برگ", "150 برگ", "200 برگ", "300 برگ", "جیبی", "حوله ای"}},
    {"پودر لباسشویی",
     kUnitKilogram,
     kUnitCarton,
     12,
     560'000,
     {"دستی", "ماشینی", "آنزیم دار", "سفیدشوی", "رنگی شوی", "کودک"}}};
constexpr DemoLine kPaint[] = {
    {"رنگ روغنی",
     kUnitKilogram,
     kUnitGallon,
     4,
     1'450'000,
     {"سفید", "کرم", "طوسی", "قهوه ای", "آبی", "مشکی"}},
    {"رنگ پلاستیک",
     kUnitKilogram,
     kUnitGallon,
     15,
     610'000,
     {"سفید مات", "نیم براق", "کرم", "طوسی", "گلبهی", "سقفی"}},
    {"تینر", kUnitLitre, kUnitGallon, 20, 540'000, {"فوری", "روغنی", "10000", "20000", "بی بو", "صنعتی"}},
    {"قلم مو",
     kUnitPiece,
     kUnitPack,
     12,
     290'000,
     {"نمره 1", "نمره 2", "نمره 3", "نمره 4", "نمره 5", "رادیاتوری"}}};
constexpr DemoLine kBuilding[] = {
    {"سیمان", kUnitKilogram, kUnitSack, 50, 22'000, {"تیپ 2", "تیپ 5", "سفید", "پوزولانی", "بنایی", "فله"}},
    {"کاشی",
     kUnitMetre,
     kUnitCarton,
     2,
     2'300'000,
     {"30×60 سفید", "30×90 طرح دار", "پرسلان 60×60", "کف 40×40", "استخری", "نسوز"}},
    {"لوله پلیمری", kUnitMetre, kUnitRoll, 50, 340'000, {"16", "20", "25", "32", "40", "63"}},
    {"تیرآهن", kUnitKilogram, kUnitNone, 0, 415'000, {"14", "16", "18", "20", "22", "24"}},
    {"دستگاه بالابر",
     kUnitPiece,
     kUnitNone,
     0,
     2'750'000'000,
     {"300 کیلو", "500 کیلو", "750 کیلو", "1 تن", "2 تن", "3 تن"}}};

constexpr DemoTrade kTrades[] = {{"یراق آلات", kIronmongery},    {"پوشاک و پارچه", kClothing},
                                 {"لوازم التحریر", kStationery}, {"مواد غذایی", kFood},
                                 {"لوازم برقی", kElectrical},    {"بهداشتی و شوینده", kHygiene},
                                 {"رنگ و ابزار نقاشی", kPaint},  {"مصالح ساختمانی", kBuilding}};

constexpr const char* kUnits[] = {"",      "عدد",  "کیلوگرم", "متر",  "لیتر", "برگ",
                                  "کارتن", "کیسه", "رول",     "گالن", "بسته"};
constexpr const char* kStores[] = {"انبار مرکزی",   "انبار فروشگاه", "انبار مواد اولیه", "انبار محصول",
                                   "انبار شهرستان", "انبار امانی",   "انبار ضایعات",     "انبار قطعات"};
constexpr const char* kCities[] = {"تهران", "مشهد", "اصفهان", "شیراز", "تبریز", "رشت", "یزد", "کرمان"};
constexpr const char* kFirst[] = {"علی",  "رضا",  "مریم",  "زهرا",  "حسین", "سارا",  "مهدی",  "نرگس",
                                  "امیر", "لیلا", "کیوان", "فاطمه", "یاسر", "شیرین", "بهرام", "مینا"};
constexpr const char* kLast[] = {"کریمی", "یزدانی", "کاشانی", "موسوی", "رحیمی", "صادقی", "نیکنام", "باقری",
                                 "شریفی", "کیانی",  "اکبری",  "یوسفی", "مرادی", "حیدری", "قاسمی",  "کوهی"};
constexpr const char* kFirms[] = {"بازرگانی", "پخش", "تولیدی", "شرکت", "کارخانه", "فروشگاه"};
constexpr const char* kFirmNames[] = {"آفتاب", "سپهر",    "البرز", "دنا", "کاوه",
                                      "نگین",  "پارسیان", "یکتا",  "مهر", "کیمیا"};

constexpr const char* kSaleNotes[] = {"فروش نقدی", "فروش نسیه", "سفارش تلفنی", "تحویل در محل", ""};
constexpr const char* kBuyNotes[] = {"خرید نقدی", "خرید اعتباری", "خرید طبق پیش فاکتور", ""};
constexpr const char* kReturnNotes[] = {"مرجوعی کالای معیوب", "مرجوعی مازاد", "اختلاف در سفارش"};
constexpr const char* kMoveNotes[] = {"جابجایی بین انبارها", "تأمین موجودی فروشگاه", ""};
constexpr const char* kMakeNotes[] = {"تولید سفارش مشتری", "تولید برای موجودی", "بسته بندی"};
constexpr const char* kNoteNotes[] = {"طبق درخواست انبار", "مصرف داخلی", "بابت انبارگردانی", "نمونه"};
constexpr const char* kOtherNotes[] = {"اصلاح موجودی", "سند پایان ماه"};

template <std::size_t count>
const char* Pick(const char* const (&texts)[count], std::int64_t choice) {
  return texts[static_cast<std::size_t>(choice) % count];
}

}  // namespace

std::span<const DemoTrade> DemoTrades() { return kTrades; }
std::span<const char* const> DemoUnitNames() { return kUnits; }
std::span<const char* const> DemoStoreNames() { return kStores; }
std::span<const char* const> DemoCities() { return kCities; }

std::string DemoPersonName(std::int64_t number, std::int64_t suppliers) {
  const auto n = static_cast<std::size_t>(number);
  std::string name;
  std::size_t round = 0;
  if (number < suppliers) {
    name = std::string(kFirms[n % std::size(kFirms)]) + " " +
           kFirmNames[n / std::size(kFirms) % std::size(kFirmNames)];
    round = n / (std::size(kFirms) * std::size(kFirmNames));
  } else {
    const std::size_t m = n - static_cast<std::size_t>(suppliers);
    name = std::string(kFirst[m % std::size(kFirst)]) + " " +
           kLast[(m / std::size(kFirst) + m) % std::size(kLast)];
    round = m / (std::size(kFirst) * std::size(kLast));
  }
  return round == 0 ? name : name + " " + std::to_string(round + 1);
}

const char* DemoComment(int type, std::int64_t choice) {
  switch (type) {
    case 1:
    case 12:
    case 13:
      return Pick(kSaleNotes, choice);
    case 2:
      return Pick(kBuyNotes, choice);
    case 3:
      return "موجودی اول دوره";
    case 4:
    case 5:
      return Pick(kReturnNotes, choice);
    case 6:
    case 7:
      return Pick(kMoveNotes, choice);
    case 0:
    case 8:
    case 9:
    case 10:
    case 18:
    case 19:
    case 20:
      return Pick(kMakeNotes, choice);
    case 11:
    case 21:
    case 22:
    case 23:
      return Pick(kNoteNotes, choice);
    default:
      return Pick(kOtherNotes, choice);
  }
}

}  // namespace goods
