#include "tests/scripted/engine/case_file.h"

#include "host/core/text.h"

namespace goods {
namespace {

// Reads a text in quotes that begins at the position; moves the position behind its end.
std::string ReadQuoted(const Place& place, std::string_view text, std::size_t& at) {
  std::string result;
  for (++at; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '"') {
      ++at;
      return result;
    }
    if (c != '\\') {
      result += c;
      continue;
    }
    if (++at == text.size()) break;
    switch (text[at]) {
      case '"':
      case '\\':
        result += text[at];
        break;
      case 'r':
        result += '\r';
        break;
      case 'n':
        result += '\n';
        break;
      case 't':
        result += '\t';
        break;
      default:
        throw CaseError(place.Text() + ": \\" + text[at] + " stands for nothing");
    }
  }
  throw CaseError(place.Text() + ": a quote that is not closed");
}

// The texts between the bars of one line of a table.
std::vector<std::optional<std::string>> ReadCells(const BlockLine& line) {
  const std::string& text = line.text;
  if (!text.starts_with('|') || !text.ends_with('|') || text.size() < 2) {
    throw CaseError(line.place.Text() + ": a line of a table begins and ends with |");
  }
  std::vector<std::optional<std::string>> cells;
  std::size_t at = 1;
  while (at < text.size()) {
    while (at < text.size() && text[at] == ' ') ++at;
    if (at < text.size() && text[at] == '"') {
      cells.emplace_back(ReadQuoted(line.place, text, at));
      while (at < text.size() && text[at] == ' ') ++at;
      if (at == text.size() || text[at] != '|') {
        throw CaseError(line.place.Text() + ": a text behind the closing quote of a cell");
      }
    } else {
      const std::size_t bar = text.find('|', at);
      const std::string cell(Trim(std::string_view(text).substr(at, bar - at)));
      cells.push_back(cell == "null" ? std::optional<std::string>() : cell);
      at = bar;
    }
    ++at;
  }
  return cells;
}

}  // namespace

std::vector<Word> ReadWords(const Place& place, std::string_view text) {
  std::vector<Word> words;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == ' ') {
      ++at;
    } else if (text[at] == '"') {
      words.push_back({ReadQuoted(place, text, at), true});
      if (at < text.size() && text[at] != ' ') {
        throw CaseError(place.Text() + ": a blank is missing behind a closing quote");
      }
    } else {
      const std::size_t end = std::min(text.find(' ', at), text.size());
      words.push_back({std::string(text.substr(at, end - at)), false});
      at = end;
    }
  }
  return words;
}

Table ReadTable(const std::vector<BlockLine>& block, const Place& owner) {
  if (block.empty()) throw CaseError(owner.Text() + ": the table below this line is missing");
  Table table;
  for (const auto& cell : ReadCells(block.front())) table.heading.push_back(cell.value_or("null"));
  for (std::size_t i = 1; i < block.size(); ++i) {
    table.rows.push_back(ReadCells(block[i]));
    if (table.rows.back().size() != table.heading.size()) {
      throw CaseError(block[i].place.Text() + ": " + std::to_string(table.rows.back().size()) +
                      " cells, but the heading has " + std::to_string(table.heading.size()));
    }
  }
  return table;
}

std::vector<std::string> ReadTexts(const Step& step) {
  if (step.block.empty()) throw CaseError(step.place.Text() + ": the texts below this line are missing");
  std::vector<std::string> texts;
  bool goesOn = false;
  for (const BlockLine& line : step.block) {
    std::vector<Word> words = ReadWords(line.place, line.text);
    const bool plus = words.size() == 2 && !words[1].quoted && words[1].text == "+";
    if (!words[0].quoted || words.size() > (plus ? 2u : 1u)) {
      throw CaseError(line.place.Text() + ": one text in quotes is expected here");
    }
    if (goesOn) {
      texts.back() += words[0].text;
    } else {
      texts.push_back(std::move(words[0].text));
    }
    goesOn = plus;
  }
  if (goesOn) throw CaseError(step.block.back().place.Text() + ": a text goes on, but nothing follows");
  return texts;
}

}  // namespace goods
