// Texts, failures and structs at the border to C.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "goods_desktop.h"

namespace goods {

enum class TextEncoding { Utf8, Utf16 };

// A text of the program's, as UTF-8; empty for null.
std::string TextIn(goods_desktop_text text, TextEncoding encoding);

// A text of ours, in the program's encoding, as long as it lives.
class TextOut {
 public:
  TextOut(std::string_view text, TextEncoding encoding);
  goods_desktop_text Get() const {
    return encoding_ == TextEncoding::Utf8 ? static_cast<goods_desktop_text>(utf8_.c_str())
                                           : static_cast<goods_desktop_text>(utf16_.c_str());
  }

 private:
  TextEncoding encoding_;
  std::string utf8_;
  std::u16string utf16_;
};

// A call that fails with this code; the text is for the user.
class CallFailure : public std::runtime_error {
 public:
  CallFailure(std::int32_t code, const std::string& text) : std::runtime_error(text), code_(code) {}
  ~CallFailure() override;
  std::int32_t Code() const { return code_; }

 private:
  std::int32_t code_;
};

[[noreturn]] void FailWrongCall(const std::string& text);

// Keeps the text for GoodsDesktop_Problem on this thread, and gives the code back.
std::int32_t KeepProblem(std::int32_t code, std::string_view text) noexcept;
goods_desktop_text ProblemText(TextEncoding encoding) noexcept;
// The same with the code and text of the exception that is being handled.
std::int32_t KeepCurrentException() noexcept;

// What every exported function is made of: nothing that is thrown goes through.
template <typename Body>
std::int32_t AnswerCall(Body&& body) noexcept {
  try {
    body();
    return GOODS_DESKTOP_DONE;
  } catch (...) {
    return KeepCurrentException();
  }
}

// A program's struct in the size that this library knows: fields that the program's has not are 0, what it
// has beyond them must be 0.
template <typename Struct>
Struct CopyOf(const Struct* given, const char* name) {
  Struct copy{};
  copy.struct_size = sizeof(Struct);
  if (given == nullptr) return copy;
  const std::size_t size = given->struct_size;
  if (size < 2 * sizeof(void*)) FailWrongCall(std::string("struct_size نادرست است: ") + name);
  const auto* bytes = reinterpret_cast<const char*>(given);
  if (size > sizeof(Struct) &&
      std::any_of(bytes + sizeof(Struct), bytes + size, [](char byte) { return byte != 0; })) {
    FailWrongCall(
        std::string(
            "برنامه چیزی می‌خواهد که این نسخه کتابخانه ندارد: ") +
        name);
  }
  std::memcpy(&copy, given, std::min(size, sizeof(Struct)));
  copy.struct_size = sizeof(Struct);
  return copy;
}

}  // namespace goods
