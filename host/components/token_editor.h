// TTokenEditor: an edit that holds chosen things (tags, categories) instead of letters.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/control.h"
#include "host/core/color.h"

namespace goods {

struct TToken {
  std::string Code;
  std::string Text;
  std::optional<Color> Background;
};

// Chosen tokens stand in the order of choosing. What is typed beside them is looked for among the choices
// that are not chosen yet; accepting adds the first match.
class TTokenEditor : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }

  const std::vector<TToken>& Choices() const { return choices_; }
  void SetChoices(std::vector<TToken> choices);
  // One more choice; it takes the place of one with the same code.
  void AddChoice(TToken choice);

  const std::vector<TToken>& Tokens() const { return tokens_; }
  std::vector<std::string> Codes() const;
  // Codes joined with ",".
  std::string CodesText() const;
  // Replaces what is chosen. A code that is no choice stands for itself. All four fire OnChange when
  // something changed, and do so for the program as for the user.
  void SetCodes(const std::vector<std::string>& codes);
  bool Add(std::string_view code);  // false when it is chosen already, or no choice
  bool Remove(std::string_view code);
  void Clear() { SetCodes({}); }
  std::function<void()> OnChange;

  // What is being typed.
  const std::string& Text() const { return text_; }
  void TypeText(std::string_view text);
  // The choices whose text holds what is typed, as a Persian reader compares; all that are left while nothing
  // is typed.
  std::vector<TToken> Matches() const;
  // Adds the first match and empties the text; false, with the text kept and a problem told, without a match.
  bool AcceptText();
  const std::string& Problem() const { return problem_; }

  // Shows only.
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);
  const std::string& Placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string text);

  // Enter and the plus key of the numeric pad accept what is typed; Backspace beside an empty text takes the
  // last token away.
  void DoKey(TKey& key) override;

 private:
  const TToken* FindChoice(std::string_view code) const;
  bool Holds(std::string_view code) const;
  void TokensChanged();

  std::vector<TToken> choices_;
  std::vector<TToken> tokens_;
  std::string text_;
  std::string problem_;
  std::string placeholder_;
  bool readOnly_ = false;
};

}  // namespace goods
