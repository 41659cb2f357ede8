// What movement types and directions are called.
#include <map>
#include <string>

#include "company/interchange/import_fields.h"
#include "company/interchange/name_map.h"
#include "host/core/text.h"

namespace goods {

namespace {

// By movement type; the first name is the one that is exported.
constexpr std::string_view kTypeNames[] = {
    "fixed_production_in|کالای تولیدی در تولید آنالیز ثابت",
    "sale|sales|فروش|فاکتور فروش",
    "purchase|buy|خرید|فاکتور خرید",
    "opening|opening stock|opening balance|موجودی اول دوره|اول دوره|موجودی ابتدای دوره|افتتاحیه",
    "sale_return|sales return|return from customer|برگشت از فروش|مرجوعی فروش",
    "purchase_return|return to supplier|برگشت از خرید|مرجوعی خرید",
    "transfer_out|حواله از انبار|انتقال از انبار|خروج انتقالی",
    "transfer_in|حواله به انبار|انتقال به انبار|ورود انتقالی",
    "production_in|کالای تولیدی در تولید آنالیز متغیر|تولید|ورود از تولید",
    "production_out|کالای مصرفی در تولید آنالیز متغیر|مصرف در تولید|مصرف تولید",
    "fixed_production_out|کالای مصرفی در تولید آنالیز ثابت",
    "expense|کالای هزینه شده|هزینه|مصرف",
    "sale_accompanying|فروش با کالای همراه|کالای همراه",
    "sale_gift|هدیه در فاکتور فروش|هدیه|اشانتیون",
    "voucher_in|ورود با سند حسابداری",
    "voucher_out|خروج با سند حسابداری",
    "adjustment_in|اصلاح افزایشی با سند|اضافی انبار|اضافات انبارگردانی",
    "adjustment_out|اصلاح کاهشی با سند|کسری انبار|کسری انبارگردانی",
    "advanced_production_in|کالای تولیدی در تولید پیشرفته",
    "advanced_production_out|کالای مصرفی در تولید پیشرفته",
    "by_product|محصول جانبی در تولید پیشرفته|محصول جانبی",
    "issue|حواله خروج کالا|حواله خروج|حواله|خروج از انبار",
    "receipt|رسید ورود کالا|رسید ورود|رسید|رسید انبار|ورود به انبار",
    "revenue|کالای درآمد شده|درآمد",
    "split_out|تقسیم خروج جزییات",
    "split_in|تقسیم ورود جزییات"};
constexpr int kTypes = static_cast<int>(std::size(kTypeNames));

// By kind of document, from 1.
constexpr std::string_view kKindNames[] = {
    "fixed_production",    "sale",     "purchase",   "good_record", "sale_return",
    "purchase_return",     "transfer", "production", "expense",     "voucher",
    "advanced_production", "issue",    "receipt",    "revenue",     "split"};
constexpr std::int64_t kKinds = static_cast<std::int64_t>(std::size(kKindNames));

std::map<std::string, int, std::less<>> TypesByName() {
  std::map<std::string, int, std::less<>> types;
  for (int type = 0; type < kTypes; ++type) {
    for (const std::string& name : Split(kTypeNames[type], '|')) types.emplace(FoldName(name), type);
  }
  return types;
}

}  // namespace

std::optional<int> ReadMovementType(std::string_view text) {
  static const std::map<std::string, int, std::less<>> kTypesByName = TypesByName();
  if (const std::optional<std::int64_t> code = ReadWhole(text, 0, kTypes - 1)) return static_cast<int>(*code);
  const auto found = kTypesByName.find(FoldName(text));
  return found == kTypesByName.end() ? std::nullopt : std::optional(found->second);
}

std::string_view MovementTypeName(int type) {
  if (type < 0 || type >= kTypes) return "";
  const std::string_view names = kTypeNames[type];
  return names.substr(0, names.find('|'));
}

std::optional<std::int64_t> ReadDocumentKind(std::string_view text) {
  if (const std::optional<std::int64_t> number = ReadWhole(text, 1, kKinds)) return number;
  for (std::int64_t kind = 1; kind <= kKinds; ++kind) {
    if (FoldName(DocumentKindName(kind)) == FoldName(text)) return kind;
  }
  return std::nullopt;
}

std::string_view DocumentKindName(std::int64_t kind) {
  return kind >= 1 && kind <= kKinds ? kKindNames[kind - 1] : std::string_view();
}

std::optional<int> ReadDirection(std::string_view text) {
  const std::string_view plain = Trim(text);
  if (plain == "+" || plain == "1") return 1;
  if (plain == "-" || plain == "-1") return -1;
  const std::string folded = FoldName(plain);
  for (const char* in : {"in", "incoming", "ورود", "وارده", "ورودی"}) {
    if (folded == FoldName(in)) return 1;
  }
  for (const char* out : {"out", "outgoing", "خروج", "صادره", "خروجی"}) {
    if (folded == FoldName(out)) return -1;
  }
  return std::nullopt;
}

}  // namespace goods
