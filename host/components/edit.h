// Edits. The kind of input is enforced here, whoever sets the text, and what is read as a value is one:
// Value() of a code edit is a number or nothing, which is what keeps the bare values in statements safe.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/components/control.h"

namespace goods {

// Text: anything on one line. Digits: at most 18 digits. Integer: the same behind an optional "-". Amount: an
// optional "-", digits with "," as thousands separators, and one "." with at most nine decimals. Date: up to
// ten digits and "/", a Jalali date while it is being typed. Time: up to five digits and ":", hours and
// minutes. Persian and Arabic digits are taken as 0 to 9 in all kinds but Text.
enum class InputKind { Text, Digits, Integer, Amount, Date, Time };

inline constexpr const char* kNoSuchDate = "این تاریخ در تقویم وجود ندارد.";

class TEdit : public TControl {
 public:
  TEdit(TComponent* owner, std::string name, InputKind kind = InputKind::Text);

  bool TakesFocus() const override { return true; }
  InputKind Kind() const { return kind_; }
  // Empties the edit where its text is not of the new kind.
  void SetKind(InputKind kind);
  int MaxLength = 0;  // characters; 0: the kind's own limit
  // The search box of its window: views give it a key of its own and name the key in its placeholder.
  bool SearchBox = false;

  const std::string& Text() const { return text_; }
  // Sets the whole text as if it had been typed and accepted: OnChange, then OnAccept. A text that is not of
  // the edit's kind is refused: false, and nothing changes.
  bool SetText(std::string_view text);
  // What a view calls at each key: OnChange only; the text is accepted later.
  bool TypeText(std::string_view text);
  // The end of typing (Enter, or the focus goes): completes a date ("14010305", "1401/3/5", "01-3-5") or a
  // time ("930", "9:5"), marks a date that does not exist as a problem until it is another one, then OnAccept
  // when the text is another than the one accepted before.
  void Accept();
  void Clear() { SetText(""); }

  // Whether the text is a value of its kind: a number with a digit in it, a date or a time that exists, any
  // text but the empty one.
  bool HoldsValue() const;
  // Something is there that is no value of the kind, or none yet: "-", ".", "1404/1". Nothing of it may go
  // out.
  bool HalfTyped() const { return !text_.empty() && !HoldsValue(); }
  // The value as statements take it, a number without thousands separators ("1,250." is 1250, ".5" is 0.5);
  // empty without a value.
  std::string Value() const;

  // The text as the reader knows it, separators included; empty without a value.
  std::string TextOfValue() const { return HoldsValue() ? text_ : std::string(); }

  // The number of the kinds Digits and Integer, 0 without one.
  std::int64_t AsInteger() const;
  // Date kind: the text is a date that exists.
  bool IsValidDate() const;
  // Time kind: the text is a time of the day, "00:00" to "23:59".
  bool IsValidTime() const;

  // Position of the caret in characters from the start of the text.
  int Caret() const { return caret_; }
  void SetCaret(int caret);

  // Why the text cannot be used; empty when nothing is wrong. Views mark the edit and show it.
  const std::string& Problem() const { return problem_; }
  void SetProblem(std::string problem);

  const std::string& Placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string text);

  std::function<void()> OnChange;
  std::function<void()> OnAccept;

  void DoExit() override;
  void DoKey(TKey& key) override;

 protected:
  // The text as Accept completes it.
  std::string Completed() const;
  // The last accepted date that exists, or the empty text.
  const std::string& LastGoodDate() const { return lastGoodDate_; }

 private:
  bool Store(std::string_view text);

  InputKind kind_;
  std::string text_;
  std::string accepted_;
  std::string lastGoodDate_;
  std::string problem_;
  std::string placeholder_;
  int caret_ = 0;
};

// An edit of a Jalali date; views give it a calendar to drop down, and do not let go of the focus while it
// holds an impossible date.
class TDateEdit : public TEdit {
 public:
  TDateEdit(TComponent* owner, std::string name) : TEdit(owner, std::move(name), InputKind::Date) {}

  // Neither empty nor a date, nor what Accept completes to one.
  bool HoldsImpossibleDate() const;
  // Back to the date that was accepted last and exists, or to none.
  void GiveBackLastGoodDate() { SetText(LastGoodDate()); }
};

}  // namespace goods
