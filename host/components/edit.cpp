#include "host/components/edit.h"

#include <algorithm>
#include <utility>

#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kMaxDigits = 18;
constexpr std::size_t kMaxDecimals = 9;

bool AllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsDigits(std::string_view text) { return text.size() <= kMaxDigits && AllDigits(text); }

bool IsInteger(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return IsDigits(text);
}

bool IsAmount(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string whole = ReplaceAll(text.substr(0, point), ",", "");
  const std::string_view decimals = point == std::string_view::npos ? "" : text.substr(point + 1);
  return whole.size() <= kMaxDigits && AllDigits(whole) && decimals.size() <= kMaxDecimals &&
         AllDigits(decimals);
}

bool IsDateInTheMaking(std::string_view text) {
  return text.size() <= 10 &&
         std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '/'; });
}

bool IsTimeInTheMaking(std::string_view text) {
  return text.size() <= 5 &&
         std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == ':'; });
}

bool Fits(InputKind kind, std::string_view text) {
  switch (kind) {
    case InputKind::Digits:
      return IsDigits(text);
    case InputKind::Integer:
      return IsInteger(text);
    case InputKind::Amount:
      return IsAmount(text);
    case InputKind::Date:
      return IsDateInTheMaking(text);
    case InputKind::Time:
      return IsTimeInTheMaking(text);
    case InputKind::Text:
      break;
  }
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

bool HasDigit(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// An amount as a statement writes it: no separators, a digit on both sides of a point.
std::string PlainAmount(std::string_view text) {
  std::string plain = ReplaceAll(text, ",", "");
  const std::size_t digits = plain.starts_with('-') ? 1 : 0;
  if (plain.substr(digits).starts_with('.')) plain.insert(digits, "0");
  if (plain.ends_with('.')) plain.pop_back();
  return plain;
}

std::string TwoDigits(const std::string& part) { return part.size() == 1 ? "0" + part : part; }

// "01" as "1401", "99" as "1399": a year of two digits is that of the current century up to 49.
std::string FourDigitYear(const std::string& year) {
  if (year.size() != 2) return year;
  return (year < "50" ? "14" : "13") + year;
}

// "14010305", "1401/3/5" and "01/3/5" as "1401/03/05"; anything else as it stands.
std::string CompletedDate(const std::string& text) {
  if (text.size() == 8 && AllDigits(text))
    return text.substr(0, 4) + "/" + text.substr(4, 2) + "/" + text.substr(6);
  const std::vector<std::string> parts = Split(text, '/');
  const auto oneOrTwo = [](const std::string& part) { return part.size() == 1 || part.size() == 2; };
  const bool complete = parts.size() == 3 && (parts[0].size() == 4 || parts[0].size() == 2) &&
                        oneOrTwo(parts[1]) && oneOrTwo(parts[2]);
  if (!complete) return text;
  return FourDigitYear(parts[0]) + "/" + TwoDigits(parts[1]) + "/" + TwoDigits(parts[2]);
}

// "930" and "9:5" as "09:30" and "09:05"; anything else as it stands.
std::string CompletedTime(const std::string& text) {
  if ((text.size() == 3 || text.size() == 4) && AllDigits(text)) {
    const std::size_t hours = text.size() - 2;
    return TwoDigits(text.substr(0, hours)) + ":" + text.substr(hours);
  }
  const std::vector<std::string> parts = Split(text, ':');
  const auto oneOrTwo = [](const std::string& part) { return part.size() == 1 || part.size() == 2; };
  if (parts.size() != 2 || !oneOrTwo(parts[0]) || !oneOrTwo(parts[1])) return text;
  return TwoDigits(parts[0]) + ":" + TwoDigits(parts[1]);
}

}  // namespace

TEdit::TEdit(TComponent* owner, std::string name, InputKind kind)
    : TControl(owner, std::move(name)), kind_(kind) {}

void TEdit::SetKind(InputKind kind) {
  if (kind == kind_) return;
  kind_ = kind;
  if (!Fits(kind_, text_)) Clear();
  Changed();
}

bool TEdit::Store(std::string_view text) {
  std::string plain = kind_ == InputKind::Text ? std::string(text) : AsciiDigits(Trim(text));
  // Other programs part a date with "-" or ".".
  if (kind_ == InputKind::Date) {
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return c == '-' || c == '.'; }, '/');
  }
  const bool tooLong = MaxLength > 0 && CharCount(plain) > static_cast<std::size_t>(MaxLength);
  if (tooLong || !Fits(kind_, plain)) {
    Changed();  // a view that already shows the refused text goes back to this one
    return false;
  }
  if (plain == text_) return true;
  text_ = plain;
  caret_ = std::min(caret_, static_cast<int>(CharCount(text_)));
  if (kind_ == InputKind::Date && !HalfTyped()) SetProblem("");
  Changed();
  if (OnChange) OnChange();
  return true;
}

bool TEdit::SetText(std::string_view text) {
  if (!Store(text)) return false;
  Accept();
  return true;
}

bool TEdit::TypeText(std::string_view text) { return Store(text); }

std::string TEdit::Completed() const {
  if (kind_ == InputKind::Date) return CompletedDate(text_);
  return kind_ == InputKind::Time ? CompletedTime(text_) : text_;
}

void TEdit::Accept() {
  Store(Completed());
  if (kind_ == InputKind::Date) {
    SetProblem(HalfTyped() ? kNoSuchDate : "");
    if (!HalfTyped()) lastGoodDate_ = text_;
  }
  if (text_ == accepted_) return;
  accepted_ = text_;
  if (OnAccept) OnAccept();
}

bool TEdit::HoldsValue() const {
  switch (kind_) {
    case InputKind::Digits:
    case InputKind::Integer:
    case InputKind::Amount:
      return HasDigit(text_);
    case InputKind::Date:
      return IsValidDate();
    case InputKind::Time:
      return IsValidTime();
    case InputKind::Text:
      break;
  }
  return !text_.empty();
}

std::string TEdit::Value() const {
  if (!HoldsValue()) return {};
  return kind_ == InputKind::Amount ? PlainAmount(text_) : text_;
}

std::int64_t TEdit::AsInteger() const { return ParseInteger(text_).value_or(0); }

bool TEdit::IsValidDate() const { return IsValidJalali(text_); }

bool TEdit::IsValidTime() const {
  if (text_.size() != 5 || text_[2] != ':') return false;
  const auto hours = ParseInteger(text_.substr(0, 2));
  const auto minutes = ParseInteger(text_.substr(3));
  return hours && minutes && *hours < 24 && *minutes < 60;
}

void TEdit::SetCaret(int caret) {
  caret = std::clamp(caret, 0, static_cast<int>(CharCount(text_)));
  if (caret == caret_) return;
  caret_ = caret;
  Changed();
}

void TEdit::SetProblem(std::string problem) {
  if (problem == problem_) return;
  problem_ = std::move(problem);
  Changed();
}

void TEdit::SetPlaceholder(std::string text) {
  if (text == placeholder_) return;
  placeholder_ = std::move(text);
  Changed();
}

void TEdit::DoKey(TKey& key) {
  if (!key.Is(Key::Enter)) return;
  key.Consume();
  Accept();
}

void TEdit::DoExit() {
  Accept();
  TControl::DoExit();
}

bool TDateEdit::HoldsImpossibleDate() const {
  const std::string completed = Completed();
  return !completed.empty() && !IsValidJalali(completed);
}

}  // namespace goods
