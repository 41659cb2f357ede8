#include "tests/scripted/engine/case_rows.h"

#include <algorithm>
#include <set>
#include <utility>

namespace goods {
namespace {

// Puts the cells of one row into texts, and keeps in mind which headings were used.
class RowTexts {
 public:
  RowTexts(const Table& table, const Table::Row& row) : table_(table), row_(row) {}

  std::string Filled(const std::string& text, const Place& place) {
    std::string filled;
    std::size_t at = 0;
    for (std::size_t open = text.find('{'); open != std::string::npos; open = text.find('{', at)) {
      const std::size_t close = text.find('}', open);
      if (close == std::string::npos) break;
      filled += text.substr(at, open - at) + CellOf(text.substr(open + 1, close - open - 1), place);
      at = close + 1;
    }
    return filled + text.substr(at);
  }

  const std::set<std::string>& Used() const { return used_; }

 private:
  std::string CellOf(const std::string& heading, const Place& place) {
    const auto found = std::find(table_.heading.begin(), table_.heading.end(), heading);
    if (found == table_.heading.end()) {
      throw CaseError(place.Text() + ": {" + heading + "} is no heading of the table of this case");
    }
    used_.insert(heading);
    return row_[static_cast<std::size_t>(found - table_.heading.begin())].value_or("");
  }

  const Table& table_;
  const Table::Row& row_;
  std::set<std::string> used_;
};

Case FilledCase(const Case& one, const Table& table, const Table::Row& row) {
  RowTexts texts(table, row);
  Case filled = one;
  filled.title = texts.Filled(one.title, one.place);
  filled.steps.erase(filled.steps.begin());
  for (Step& step : filled.steps) {
    for (Word& word : step.words) word.text = texts.Filled(word.text, step.place);
    for (BlockLine& line : step.block) line.text = texts.Filled(line.text, line.place);
  }
  for (const std::string& heading : table.heading) {
    if (!texts.Used().contains(heading)) {
      throw CaseError(one.place.Text() + ": nothing in this case uses {" + heading + "}");
    }
  }
  return filled;
}

bool IsForEach(const Case& one) {
  const std::vector<Word>& words = one.steps.front().words;
  return words.size() == 2 && words[0].text == "for" && words[1].text == "each" && !words[0].quoted;
}

}  // namespace

std::vector<Case> ExpandRows(const std::vector<Case>& cases) {
  std::vector<Case> expanded;
  for (const Case& one : cases) {
    if (!IsForEach(one)) {
      expanded.push_back(one);
      continue;
    }
    const Table table = ReadTable(one.steps.front().block, one.steps.front().place);
    if (table.rows.empty()) throw CaseError(one.place.Text() + ": the table of this case has no rows");
    for (const Table::Row& row : table.rows) expanded.push_back(FilledCase(one, table, row));
  }
  return expanded;
}

}  // namespace goods
