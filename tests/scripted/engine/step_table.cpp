#include "tests/scripted/engine/step_table.h"

#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

bool FitsWord(std::string_view pattern, const Word& word) {
  if (!pattern.starts_with('{')) return !word.quoted && word.text == pattern;
  if (pattern == "{text}") return word.quoted;
  if (pattern == "{n}") return !word.quoted && ParseInteger(word.text).has_value();
  return !word.quoted;
}

std::vector<std::string> WordsOf(std::string_view pattern) {
  std::vector<std::string> words;
  for (const std::string& word : Split(pattern, ' ')) {
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

}  // namespace

std::int64_t Arguments::Number(std::size_t index) const {
  return ParseInteger(words_.at(index).text).value_or(0);
}

std::string Arguments::TextOrNone(std::size_t index) const {
  return index < words_.size() ? words_[index].text : std::string();
}

void StepTable::Add(std::string_view pattern, StepAction action) {
  patterns_.emplace_back(pattern);
  const std::size_t optional = pattern.find('[');
  if (optional != std::string_view::npos) {
    entries_.push_back({WordsOf(pattern.substr(0, optional)), action});
    const std::string whole = ReplaceAll(ReplaceAll(pattern, "[", ""), "]", "");
    entries_.push_back({WordsOf(whole), std::move(action)});
  } else {
    entries_.push_back({WordsOf(pattern), std::move(action)});
  }
}

const StepAction* StepTable::Find(const Step& step, Arguments& arguments) const {
  for (const Entry& entry : entries_) {
    arguments.words_.clear();
    bool fits = true;
    std::size_t at = 0;
    for (std::size_t i = 0; fits && i < entry.words.size(); ++i) {
      if (entry.words[i] == "{...}") {
        while (at < step.words.size()) arguments.words_.push_back(step.words[at++]);
      } else {
        fits = at < step.words.size() && FitsWord(entry.words[i], step.words[at]);
        if (fits && entry.words[i].starts_with('{')) arguments.words_.push_back(step.words[at]);
        ++at;
      }
    }
    if (fits && at == step.words.size()) return &entry.action;
  }
  return nullptr;
}

const StepTable& AllSteps() {
  static const StepTable table = [] {
    StepTable all;
    AddHostSteps(all);
    AddWindowSteps(all);
    AddControlSteps(all);
    AddPanelSteps(all);
    AddGridSteps(all);
    AddCallExpectations(all);
    AddGridExpectations(all);
    AddPrintExpectations(all);
    AddListExpectations(all);
    AddControlExpectations(all);  // last: its patterns begin with the name of a component
    return all;
  }();
  return table;
}

}  // namespace goods
