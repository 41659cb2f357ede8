// Edits. The kind of input is enforced here, whoever sets the text: a code edit can never hold anything but a
// number, which is what keeps the bare values in statements safe.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/components/control.h"

namespace goods {

// Text: anything on one line. Integer: an optional "-" and at most 18 digits. Amount: an optional "-", digits
// with "," as thousands separators, and one "." with at most nine decimals. Date: up to ten digits and "/", a
// Jalali date while it is being typed. Time: up to five digits and ":", hours and minutes. Persian and Arabic
// digits are taken as 0 to 9 in all kinds but Text.
enum class InputKind { Text, Integer, Amount, Date, Time };

class TEdit : public TControl {
 public:
  TEdit(TComponent* owner, std::string name, InputKind kind = InputKind::Text);

  bool TakesFocus() const override { return true; }
  InputKind Kind() const { return kind_; }
  // Empties the edit where its text is not of the new kind.
  void SetKind(InputKind kind);
  int MaxLength = 0;  // characters; 0: the kind's own limit

  const std::string& Text() const { return text_; }
  // Sets the whole text as if it had been typed and accepted: OnChange, then OnAccept. A text that is not of
  // the edit's kind is refused: false, and nothing changes.
  bool SetText(std::string_view text);
  // What a view calls at each key: OnChange only; the text is accepted later.
  bool TypeText(std::string_view text);
  // The end of typing (Enter, or the focus goes): completes a date ("14010305", "1401/3/5") or a time ("930",
  // "9:5"), then OnAccept when the text is another than the one accepted before.
  void Accept();
  void Clear() { SetText(""); }

  // Integer kind: the number, 0 when empty.
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

 private:
  bool Store(std::string_view text);

  InputKind kind_;
  std::string text_;
  std::string accepted_;
  std::string problem_;
  std::string placeholder_;
  int caret_ = 0;
};

// An edit of a Jalali date; views give it a calendar to drop down.
class TDateEdit : public TEdit {
 public:
  TDateEdit(TComponent* owner, std::string name) : TEdit(owner, std::move(name), InputKind::Date) {}
};

}  // namespace goods
