#include "desktop/library/c_text.h"

#include <array>
#include <exception>

#include "company/company.h"
#include "desktop/app/services/module_library.h"
#include "host/core/text.h"
#include "host/services/error_text.h"

namespace goods {
namespace {

constexpr std::size_t kProblemCharacters = 1000;

// Plain arrays: nothing is to be freed when a thread ends.
struct Problem {
  std::array<char, 4 * kProblemCharacters + 1> utf8;
  std::array<char16_t, 2 * kProblemCharacters + 1> utf16;
};
thread_local constinit Problem t_problem{};

}  // namespace

CallFailure::~CallFailure() = default;

std::string TextIn(goods_desktop_text text, TextEncoding encoding) {
  if (text == nullptr) return {};
  if (encoding == TextEncoding::Utf16) return FromUtf16(static_cast<const char16_t*>(text));
  return FromUtf16(ToUtf16(static_cast<const char*>(text)));
}

TextOut::TextOut(std::string_view text, TextEncoding encoding) : encoding_(encoding) {
  if (encoding == TextEncoding::Utf8) {
    utf8_ = text;
  } else {
    utf16_ = ToUtf16(text);
  }
}

void FailWrongCall(const std::string& text) { throw CallFailure(GOODS_DESKTOP_WRONG_CALL, text); }

std::int32_t KeepProblem(std::int32_t code, std::string_view text) noexcept {
  t_problem.utf8[0] = 0;
  t_problem.utf16[0] = 0;
  try {
    const std::u16string wide = ToUtf16(FirstChars(text, kProblemCharacters));
    const std::string narrow = FromUtf16(wide);
    std::copy_n(narrow.c_str(), narrow.size() + 1, t_problem.utf8.begin());
    std::copy_n(wide.c_str(), wide.size() + 1, t_problem.utf16.begin());
  } catch (const std::exception&) {
    // No memory: the code has to do.
  }
  return code;
}

goods_desktop_text ProblemText(TextEncoding encoding) noexcept {
  if (encoding == TextEncoding::Utf16) return t_problem.utf16.data();
  return t_problem.utf8.data();
}

std::int32_t KeepCurrentException() noexcept {
  try {
    throw;
  } catch (const CallFailure& failure) {
    return KeepProblem(failure.Code(), failure.what());
  } catch (const SignInDelayed& delayed) {
    return KeepProblem(GOODS_DESKTOP_NOT_SIGNED_IN, delayed.what());
  } catch (const CompanyError& error) {
    return KeepProblem(GOODS_DESKTOP_NO_COMPANY, error.what());
  } catch (const ModuleError& error) {
    return KeepProblem(GOODS_DESKTOP_NO_MODULE, error.what());
  } catch (const std::bad_alloc&) {
    return KeepProblem(GOODS_DESKTOP_FAILED, "حافظه کافی نیست.");
  } catch (const std::exception& error) {
    try {
      return KeepProblem(GOODS_DESKTOP_FAILED, ErrorText(error));
    } catch (const std::exception&) {
      return KeepProblem(GOODS_DESKTOP_FAILED, kUnexpectedError);
    }
  } catch (...) {
    return KeepProblem(GOODS_DESKTOP_FAILED, kUnexpectedError);
  }
}

}  // namespace goods
