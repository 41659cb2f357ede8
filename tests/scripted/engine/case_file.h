// A case file as it was read.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A file that cannot be understood, or a step that cannot be taken. The message begins with file and line.
class CaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Place {
  std::string file;
  std::size_t line = 0;
  std::string Text() const { return file + ":" + std::to_string(line); }
};

// A word of a step; one in double quotes keeps its blanks.
struct Word {
  std::string text;
  bool quoted = false;
};

struct BlockLine {
  Place place;
  std::string text;  // without the indentation
};

struct Step {
  Place place;
  std::vector<Word> words;
  std::vector<BlockLine> block;
};

struct Case {
  Place place;
  int number = 0;
  std::string title;
  std::vector<Step> steps;
};

// A table: the cells of the heading, and those of each row. A bare null is none.
struct Table {
  using Row = std::vector<std::optional<std::string>>;
  std::vector<std::string> heading;
  std::vector<Row> rows;
};

struct CaseFile {
  std::string path;
  std::vector<Step> setup;  // taken before the steps of each case
  std::vector<Case> cases;
  std::map<std::string, std::vector<BlockLine>, std::less<>> tables;  // by name
};

// Splits at blanks; a word in quotes may hold blanks, \" \\ \r \n \t. Throws CaseError.
std::vector<Word> ReadWords(const Place& place, std::string_view text);
// The lines of a table: cells between "|".
Table ReadTable(const std::vector<BlockLine>& block, const Place& owner);
// The lines of a block of texts, each in quotes; a line that ends with "+" goes on in the next one.
std::vector<std::string> ReadTexts(const Step& step);

}  // namespace goods
