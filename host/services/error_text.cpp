#include "host/services/error_text.h"

#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace goods {

namespace {

// The lead bytes of U+0600 to U+06FF, with which any Persian sentence is written.
bool HoldsPersian(std::string_view text) { return text.find_first_of("\xd8\xd9\xda\xdb") != text.npos; }

}  // namespace

std::string ErrorText(const std::exception& error) {
  if (HoldsPersian(error.what())) return error.what();
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return "حافظه برای این کار کافی نیست.";
  if (dynamic_cast<const std::length_error*>(&error) != nullptr)
    return "حاصل این کار بزرگتر از گنجایش برنامه است.";
  if (dynamic_cast<const std::overflow_error*>(&error) != nullptr) return "حاصل از اندازه یک عدد بزرگتر است.";
  if (dynamic_cast<const std::domain_error*>(&error) != nullptr) return "تقسیم بر صفر ممکن نیست.";
  if (dynamic_cast<const std::system_error*>(&error) != nullptr) return "سیستم این کار را انجام نداد.";
  return kUnexpectedError;
}

}  // namespace goods
