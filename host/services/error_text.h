// What a user is told of an exception.
#pragma once

#include <exception>
#include <string>

namespace goods {

// For what has no text of its own for a user: a mistake in a program.
inline constexpr char kUnexpectedError[] =
    "خطای پیش‌بینی‌نشده‌ای روی داد و این کار انجام نشد.";

// The exception's own text when it is Persian; else a Persian sentence for its kind. Exceptions of this
// system that stand for something a user can cause or mend carry Persian texts; those of the language's
// library do not.
std::string ErrorText(const std::exception& error);

}  // namespace goods
