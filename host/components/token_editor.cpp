#include "host/components/token_editor.h"

#include <algorithm>
#include <utility>

#include "host/data/persian.h"

namespace goods {

void TTokenEditor::SetChoices(std::vector<TToken> choices) {
  choices_ = std::move(choices);
  for (TToken& token : tokens_) {
    if (const TToken* choice = FindChoice(token.Code)) token = *choice;
  }
  Changed();
}

void TTokenEditor::AddChoice(TToken choice) {
  std::vector<TToken> choices = choices_;
  std::erase_if(choices, [&](const TToken& each) { return each.Code == choice.Code; });
  choices.push_back(std::move(choice));
  SetChoices(std::move(choices));
}

std::vector<std::string> TTokenEditor::Codes() const {
  std::vector<std::string> codes;
  for (const TToken& token : tokens_) codes.push_back(token.Code);
  return codes;
}

std::string TTokenEditor::CodesText() const {
  std::string text;
  for (const TToken& token : tokens_) text += (text.empty() ? "" : ",") + token.Code;
  return text;
}

void TTokenEditor::SetCodes(const std::vector<std::string>& codes) {
  const std::vector<std::string> before = Codes();
  tokens_.clear();
  for (const std::string& code : codes) {
    const TToken* choice = FindChoice(code);
    if (!Holds(code)) tokens_.push_back(choice == nullptr ? TToken{code, code, {}} : *choice);
  }
  if (Codes() != before) TokensChanged();
}

bool TTokenEditor::Add(std::string_view code) {
  const TToken* choice = FindChoice(code);
  if (choice == nullptr || Holds(code)) return false;
  tokens_.push_back(*choice);
  TokensChanged();
  return true;
}

bool TTokenEditor::Remove(std::string_view code) {
  if (std::erase_if(tokens_, [&](const TToken& token) { return token.Code == code; }) == 0) return false;
  TokensChanged();
  return true;
}

void TTokenEditor::TypeText(std::string_view text) {
  if (readOnly_ || text == text_) return;
  text_ = std::string(text);
  problem_.clear();
  Changed();
}

std::vector<TToken> TTokenEditor::Matches() const {
  std::vector<TToken> matches;
  const std::string wanted = FoldPersian(text_);
  for (const TToken& choice : choices_) {
    if (!Holds(choice.Code) && FoldPersian(choice.Text).find(wanted) != std::string::npos) {
      matches.push_back(choice);
    }
  }
  return matches;
}

bool TTokenEditor::AcceptText() {
  if (readOnly_ || text_.empty()) return false;
  const std::vector<TToken> matches = Matches();
  if (matches.empty()) {
    problem_ = "موردی با این نام وجود ندارد.";
    Changed();
    return false;
  }
  text_.clear();
  problem_.clear();
  return Add(matches.front().Code);
}

void TTokenEditor::SetReadOnly(bool readOnly) {
  if (readOnly == readOnly_) return;
  readOnly_ = readOnly;
  Changed();
}

void TTokenEditor::SetPlaceholder(std::string text) {
  placeholder_ = std::move(text);
  Changed();
}

void TTokenEditor::DoKey(TKey& key) {
  if (readOnly_) return;
  if ((key.Is(Key::Enter) || key.Is(Key::Plus)) && !text_.empty()) {
    key.Consume();
    AcceptText();
  } else if (key.Is(Key::Backspace) && text_.empty() && !tokens_.empty()) {
    key.Consume();
    tokens_.pop_back();
    TokensChanged();
  }
}

const TToken* TTokenEditor::FindChoice(std::string_view code) const {
  const auto found = std::find_if(choices_.begin(), choices_.end(),
                                  [&](const TToken& choice) { return choice.Code == code; });
  return found == choices_.end() ? nullptr : &*found;
}

bool TTokenEditor::Holds(std::string_view code) const {
  return std::any_of(tokens_.begin(), tokens_.end(), [&](const TToken& token) { return token.Code == code; });
}

void TTokenEditor::TokensChanged() {
  Changed();
  if (OnChange) OnChange();
}

}  // namespace goods
