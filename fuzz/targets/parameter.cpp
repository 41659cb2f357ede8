// Texts that a host or a user hands over: custom parameters, dates, numbers, display formats. The first byte
// chooses.
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

#include "fuzz/fuzz_input.h"
#include "host/base/custom_parameter.h"
#include "host/core/jalali.h"
#include "host/core/text.h"
#include "host/data/decimal.h"
#include "host/data/display_format.h"

namespace goods {
namespace {

void TryParameter(std::string_view text) {
  const CustomParameter parameter{Variant(std::string(text))};
  for (std::size_t i = 0; i < parameter.Count() + 2; ++i) {
    const std::int64_t number = parameter.Integer(i);
    fuzz::Holds(number == 0 || ParseInteger(Trim(parameter.Text(i))).has_value(),
                "a number was written as one");
  }
}

void TryDate(std::string_view text) {
  const std::optional<JalaliDate> date = ParseJalali(text);
  if (!date) return;
  fuzz::Holds(JalaliFromDays(DaysFromJalali(*date)) == *date, "days and dates go back and forth");
  fuzz::Holds(ParseJalali(FormatJalali(*date)) == date, "a date reads as it is written");
}

void TryNumber(std::string_view text) {
  const std::optional<Decimal> first = Decimal::Parse(fuzz::TakeLine(text));
  const std::optional<Decimal> second = Decimal::Parse(fuzz::TakeLine(text));
  if (first) fuzz::Holds(Decimal::Parse(first->ToString()) == first, "a number reads as it is written");
  if (!first || !second) return;
  try {
    const Decimal sum = *first + *second;
    fuzz::Holds(sum - *second == *first, "what is added can be taken away");
  } catch (const std::overflow_error&) {
  }
  try {
    static_cast<void>(*first * *second);
    static_cast<void>(*first / *second);
  } catch (const std::overflow_error&) {
  } catch (const std::domain_error&) {
    fuzz::Holds(second->IsZero(), "only zero does not divide");
  }
}

void TryFormat(std::string_view text) {
  const std::optional<Decimal> value = Decimal::Parse(fuzz::TakeLine(text));
  const DisplayFormat format(text);
  for (const Decimal shown : {value.value_or(Decimal(-1)), Decimal(), Decimal::FromUnits(1)}) {
    try {
      static_cast<void>(format.Format(shown));
    } catch (const std::overflow_error&) {
    }
  }
}

}  // namespace
}  // namespace goods

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view text = goods::fuzz::AsText(data + 1, size - 1);
  switch (data[0] % 4) {
    case 0:
      goods::TryParameter(text);
      break;
    case 1:
      goods::TryDate(text);
      break;
    case 2:
      goods::TryNumber(text);
      break;
    default:
      goods::TryFormat(text);
  }
  return 0;
}
