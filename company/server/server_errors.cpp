#include "company/server/server_errors.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "company/server/odbc/odbc_handles.h"
#include "host/core/text.h"

namespace goods {

namespace {

// By the numbers that SQL Server gives, and by words of the message for servers that number otherwise: all of
// them stand in it, in small letters. The first that fits counts.
struct KnownFailure {
  std::array<int, 4> numbers;
  std::array<std::string_view, 2> words;
  const char* meaning;
};

constexpr KnownFailure kKnown[] = {
    {{1222}, {"lock", "time"}, "داده ها در دست کاربر دیگری است؛ کمی بعد دوباره بکوشید."},
    {{1205}, {"deadlock", ""}, "کار با کار کاربر دیگری برخورد کرد؛ دوباره بکوشید."},
    {{4060, 911},
     {"database", "does not exist"},
     "این پایگاه داده روی سرور نیست، یا این کاربر به آن راه ندارد."},
    {{18456, 18452}, {"login failed", ""}, "سرور نام کاربر یا گذرواژه را نپذیرفت."},
    {{229, 230, 262, 300}, {"permission", "denied"}, "این کاربر روی سرور حق این کار را ندارد."},
    {{2812},
     {"procedure", "does not exist"},
     "پایگاه داده این روال را ندارد؛ goods-company verify می گوید چه کم است."},
    {{468}, {"collation", "conflict"}, "ترتیب حروف (collation) این پایگاه داده با جدول های شرکت نمی خواند."},
};

bool Fits(const KnownFailure& known, int number, std::string_view said) {
  if (number != 0 && std::find(known.numbers.begin(), known.numbers.end(), number) != known.numbers.end())
    return true;
  return std::all_of(known.words.begin(), known.words.end(),
                     [&](std::string_view word) { return said.find(word) != std::string_view::npos; });
}

}  // namespace

std::string UserMessage(const OdbcError& error) {
  std::string said = error.what();
  if (error.TimedOut()) return "پاسخ سرور در زمان تعیین شده نرسید.\n" + said;
  const std::string small = LowerAscii(said);
  for (const KnownFailure& known : kKnown) {
    if (Fits(known, error.Native(), small)) return std::string(known.meaning) + "\n" + said;
  }
  return said;
}

}  // namespace goods
