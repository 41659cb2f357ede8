#include "company/interchange/company_tables.h"

#include <array>

#include "company/writer/movement.h"

namespace goods {

namespace {

constexpr std::int64_t kLargestStore = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kLongestName = 100;
constexpr std::int64_t kLongestText = 4000;
constexpr std::int64_t kAnyCode = kLargestCode;

constexpr TableField Code(const char* names, const char* column, std::int64_t low, std::int64_t high) {
  return {names, column, FieldKind::Code, true, low, high};
}
constexpr TableField Name(const char* names, const char* column) {
  return {names, column, FieldKind::Text, true, 1, kLongestName};
}
constexpr TableField Text(const char* names, const char* column) {
  return {names, column, FieldKind::Text, false, 0, kLongestText};
}
constexpr TableField Whole(const char* names, const char* column, bool required, std::int64_t low,
                           std::int64_t high) {
  return {names, column, FieldKind::Whole, required, low, high};
}
constexpr TableField Number(const char* names, const char* column, std::int64_t largest) {
  return {names, column, FieldKind::Number, false, 0, largest};
}
constexpr TableField Link(const char* names, const char* column, Entity entity) {
  return {names, column, FieldKind::Link, true, 1, kAnyCode, entity};
}

constexpr TableField kGroups[] = {Code("code|کد", "Code", 0, kAnyCode),
                                  Name("name|نام|نام گروه|عنوان", "Name")};
constexpr TableField kUnits[] = {Code("code|کد", "Code", 0, kAnyCode),
                                 {"name|نام|نام واحد|عنوان", "Name", FieldKind::Text, true, 0, kLongestName}};
constexpr TableField kCategories[] = {
    Code("code|کد", "Code", 1, kAnyCode),
    Name("name|نام|عنوان", "Name"),
    {"parent|سردسته|کد سردسته", "ParentCode", FieldKind::Whole, false, 0, kAnyCode}};
constexpr TableField kColors[] = {Code("code|کد", "code", 0, kAnyCode), Text("title|عنوان|نام", "Title"),
                                  Text("grid color|رنگ جدول", "ColorText"),
                                  Text("picture color|رنگ تصویر", "H-img")};
constexpr TableField kTags[] = {
    Code("code|کد", "Code", 1, kAnyCode),
    Name("name|نام|عنوان", "Name"),
    {"color|رنگ", "color_code", FieldKind::Colour, true, 0, kAnyCode, Entity::Colour}};
constexpr TableField kStores[] = {
    Code("code|کد|کد انبار", "Code", 1, kLargestStore), Name("name|نام|نام انبار|عنوان", "Name"),
    Text("address|نشانی|آدرس", "Address"), Text("abbreviation|نام کوتاه", "AbbName")};
constexpr TableField kPersons[] = {
    Code("code|کد|کد شخص|کد طرف حساب", "Code", 1, kAnyCode), Name("name|نام|نام شخص|طرف حساب|عنوان", "Name"),
    Text("phone|تلفن", "Phone"), Text("city|شهر", "City"), Text("abbreviation|نام کوتاه", "AbbName")};
constexpr TableField kGoods[] = {
    Code("code|good code|کد|کد کالا", "Code", 1, kAnyCode),
    Name("name|نام|نام کالا|شرح کالا|عنوان", "Name"),
    {"group code|کد گروه", "GrpCode", FieldKind::Link, false, 0, kAnyCode, Entity::Group},
    {"group|گروه|گروه کالا|نام گروه", "GrpCode", FieldKind::Name, true, 1, kLongestName, Entity::Group,
     "group code"},
    {"unit code|کد واحد", "Unit", FieldKind::Link, false, 0, kAnyCode, Entity::Unit},
    {"unit|واحد|واحد شمارش|واحد اصلی", "Unit", FieldKind::Name, true, 1, kLongestName, Entity::Unit,
     "unit code"},
    {"second unit code|کد واحد دوم", "Unit2", FieldKind::Link, false, 0, kAnyCode, Entity::Unit},
    {"second unit|unit2|واحد دوم|واحد فرعی", "Unit2", FieldKind::Name, false, 0, kLongestName, Entity::Unit},
    {"second unit ratio|ratio|نسبت واحد دوم|نسبت|ضریب واحد دوم", "Meghdar_Formool,Meghdar2", FieldKind::Ratio,
     false, 0, kLargestQuantity},
    Number("minimum stock|minimum|min stock|حداقل موجودی|نقطه سفارش", "MinAva", kLargestQuantity),
    Text("abbreviation|bar code|barcode|بارکد|نام اختصاری|نام کوتاه", "AbbName"),
    Text("position|جای کالا|محل", "Position"),
    Text("place|مکان", "Pos"),
    Text("message code|کد پیامک", "SMSCode"),
    Number("consumer price|فی مصرف کننده|قیمت مصرف کننده", "ConsumerPrice", kLargestPrice),
    {"unit kind|نوع واحد", "UnitKind", FieldKind::Whole, false, 1, 5},
    Whole("status|وضعیت", "Status", false, 0, kAnyCode),
    Text("kind|نوع کالا", "kala_type"),
    Text("index|شاخص", "kala_index"),
    Text("other name|نام دیگر", "kala_name"),
    Whole("main store|انبار اصلی", "Store", false, 0, kAnyCode)};
constexpr TableField kDetailTypes[] = {Code("code|کد", "ID", 1, kAnyCode), Name("title|عنوان", "Title"),
                                       Whole("type|نوع", "DetailType", true, 1, 6),
                                       Whole("calendar|تقویم", "DateType", false, 0, 1)};
constexpr TableField kDetailItems[] = {Link("detail|جزییات", "DetailID", Entity::DetailType),
                                       Whole("row|ردیف", "Row", true, 0, kAnyCode),
                                       Text("value|مقدار", "Value")};
constexpr TableField kGoodDetails[] = {Link("good|کالا|کد کالا", "Kala", Entity::Good),
                                       Whole("position|جایگاه", "Position", true, 1, 5),
                                       Link("detail|جزییات", "DetailID", Entity::DetailType)};
constexpr TableField kCombinations[] = {
    Code("code|کد", "ID", 1, kLargestDocument), Link("good|کالا|کد کالا", "Kala", Entity::Good),
    Text("value 1|مقدار 1", "D1Value"),         Text("value 2|مقدار 2", "D2Value"),
    Text("value 3|مقدار 3", "D3Value"),         Text("value 4|مقدار 4", "D4Value"),
    Text("value 5|مقدار 5", "D5Value")};
constexpr TableField kPriceLevels[] = {Code("code|کد", "Code", -kAnyCode, kAnyCode),
                                       Name("name|نام|عنوان", "Name"),
                                       Whole("kind|نوع", "CostType", false, 0, kAnyCode)};
constexpr TableField kPrices[] = {
    {"level|سطح|سطح قیمت", "LevelCode", FieldKind::Link, true, -kAnyCode, kAnyCode, Entity::PriceLevel},
    Link("good|کالا|کد کالا", "Kala", Entity::Good),
    Number("buying price|قیمت خرید|فی خرید", "BuyPrice", kLargestPrice),
    Number("selling price|قیمت فروش|فی فروش", "SellPrice", kLargestPrice)};
constexpr TableField kLists[] = {Code("code|کد", "Code", 1, kAnyCode), Name("title|عنوان", "Title"),
                                 Whole("enabled|فعال", "Enable", false, 0, 1),
                                 Whole("display|نمایش", "DisplayType", false, 0, kAnyCode),
                                 Whole("type|نوع", "Type", false, 0, kAnyCode)};
constexpr TableField kListGoods[] = {Link("list|فهرست", "ListCode", Entity::List),
                                     Link("good|کالا|کد کالا", "Kala", Entity::Good)};
constexpr TableField kUsers[] = {Code("code|کد", "Code", 1, kAnyCode),
                                 Name("login|نام کاربری", "Login"),
                                 Name("name|نام", "Name"),
                                 {"every right|همه حقوق", "EveryRight", FieldKind::Flag},
                                 {"sees prices|دیدن قیمت", "SeesPrices", FieldKind::Flag},
                                 Text("password hash|درهم گذرواژه", "PasswordHash")};
constexpr TableField kRights[] = {
    {"user|کاربر", "UserCode", FieldKind::Login, true, 0, kLongestName, Entity::User},
    Whole("part|بخش", "Part", true, 0, kAnyCode),
    Whole("permission|مجوز", "Permission", true, 0, kAnyCode)};

constexpr CompanyTable kTables[] = {
    {"groups|گروه ها|گروه کالا", "GoodGrps", Entity::Group, 1, kGroups, "گروه"},
    {"units|واحدها|واحد", "Units", Entity::Unit, 1, kUnits, "واحد"},
    {"categories|دسته ها", "Categories", Entity::Category, 1, kCategories, "دسته"},
    {"colors|رنگ ها", "colors", Entity::Colour, 1, kColors, "رنگ"},
    {"tags|برچسب ها", "TagS", Entity::Tag, 1, kTags, "برچسب"},
    {"stores|انبارها|انبار", "Stores", Entity::Store, 1, kStores, "انبار"},
    {"persons|اشخاص|طرف حساب ها", "Persons", Entity::Person, 1, kPersons, "شخص"},
    {"goods|کالاها|کالا", "GoodInf", Entity::Good, 1, kGoods, "کالا"},
    {"detail_types|جزییات", "DetailTypes", Entity::DetailType, 1, kDetailTypes, "نوع جزییات"},
    {"detail_items|مقدارهای جزییات", "DetailTypesItems", Entity::None, 2, kDetailItems, "مقدار جزییات"},
    {"good_details|جزییات کالاها", "GoodDetails", Entity::None, 2, kGoodDetails, "جزییات کالا"},
    {"combinations|ترکیب ها", "DetailValues", Entity::Combination, 1, kCombinations, "ترکیب جزییات"},
    {"price_levels|سطح های قیمت", "costlevel", Entity::PriceLevel, 1, kPriceLevels, "سطح قیمت"},
    {"prices|قیمت ها", "CostLevelPrices", Entity::None, 2, kPrices, "قیمت"},
    {"lists|فهرست ها", "SelectedLists", Entity::List, 1, kLists, "فهرست"},
    {"list_goods|کالاهای فهرست ها", "SelectedListGoods", Entity::None, 2, kListGoods, "کالای فهرست"},
    {"users|کاربران", "Users", Entity::User, 1, kUsers, "کاربر"},
    {"rights|حقوق", "UserRights", Entity::None, 3, kRights, "حق"},
};

}  // namespace

std::span<const CompanyTable> CompanyTables() { return kTables; }

const CompanyTable& GoodsTable() {
  for (const CompanyTable& table : kTables) {
    if (table.entity == Entity::Good) return table;
  }
  return kTables[0];
}

}  // namespace goods
