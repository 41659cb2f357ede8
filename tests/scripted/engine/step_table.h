// What a step can say: patterns, and what each of them does.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/scripted/engine/case_file.h"

namespace goods {

class CaseRun;

// What stood in the places of a pattern, from left to right.
class Arguments {
 public:
  std::size_t Count() const { return words_.size(); }
  const std::string& Text(std::size_t index) const { return words_.at(index).text; }
  std::int64_t Number(std::size_t index) const;
  // The text, or the empty one where an optional part was left out.
  std::string TextOrNone(std::size_t index) const;
  std::vector<Word> From(std::size_t index) const {
    return {words_.begin() + static_cast<long>(index), words_.end()};
  }

 private:
  friend class StepTable;
  std::vector<Word> words_;
};

using StepAction = std::function<void(CaseRun& run, const Step& step, const Arguments& arguments)>;

// A pattern is a line of words. {n} stands for a whole number, {text} for a text in quotes, {...} for all the
// words that are left, {any other} for a bare word; [ ] at the end holds what may be left out.
class StepTable {
 public:
  void Add(std::string_view pattern, StepAction action);
  // The first pattern that fits, null when none does.
  const StepAction* Find(const Step& step, Arguments& arguments) const;
  const std::vector<std::string>& Patterns() const { return patterns_; }

 private:
  struct Entry {
    std::vector<std::string> words;
    StepAction action;
  };
  std::vector<Entry> entries_;
  std::vector<std::string> patterns_;
};

// All steps and expectations; built once.
const StepTable& AllSteps();

void AddHostSteps(StepTable& table);
void AddWindowSteps(StepTable& table);
void AddControlSteps(StepTable& table);
void AddPanelSteps(StepTable& table);
void AddGridSteps(StepTable& table);
void AddCallExpectations(StepTable& table);
void AddGridExpectations(StepTable& table);
void AddPrintExpectations(StepTable& table);
void AddListExpectations(StepTable& table);
void AddControlExpectations(StepTable& table);

}  // namespace goods
