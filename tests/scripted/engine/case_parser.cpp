#include "tests/scripted/engine/case_parser.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "company/files/file_path.h"
#include "host/core/text.h"
#include "tests/scripted/engine/case_rows.h"

namespace goods {
namespace {

constexpr int kDeepestInclude = 5;

// Reads one file line by line into the parts of a CaseFile.
class Parser {
 public:
  Parser(CaseFile& file, bool included, int depth) : file_(file), included_(included), depth_(depth) {}

  void Read(std::string_view text, const std::string& path) {
    path_ = path;
    Place place{path, 0};
    for (std::string line : Split(text, '\n')) {
      ++place.line;
      if (line.ends_with('\r')) line.pop_back();
      const std::size_t indent = line.find_first_not_of(' ');
      if (indent == std::string::npos) continue;
      const std::string content = line.substr(indent);
      if (content.starts_with('#')) continue;
      if (content.find('\t') != std::string::npos) {
        throw CaseError(place.Text() + ": a tab; write blanks, and \\t inside quotes");
      }
      if (indent == 0) {
        Heading(place, content);
      } else if (indent == 2) {
        StepLine(place, content);
      } else {
        Block(place, content, indent);
      }
    }
  }

 private:
  void Heading(const Place& place, const std::string& text) {
    steps_ = nullptr;
    table_ = nullptr;
    if (text == "setup") {
      steps_ = &file_.setup;
    } else if (text.starts_with("table ")) {
      const std::string name(Trim(std::string_view(text).substr(6)));
      table_ = &file_.tables[name];
      if (!table_->empty()) throw CaseError(place.Text() + ": the table " + name + " is there already");
    } else if (text.starts_with("include ")) {
      Include(place, std::string(Trim(std::string_view(text).substr(8))));
    } else {
      Title(place, text);
    }
  }

  void Include(const Place& place, const std::string& name) {
    const auto path = PathOf(path_).parent_path() / PathOf(name);
    std::ifstream stream(path, std::ios::binary);
    if (!stream || depth_ == kDeepestInclude) {
      throw CaseError(place.Text() + ": cannot include " + path.string());
    }
    Parser(file_, true, depth_ + 1)
        .Read(std::string(std::istreambuf_iterator<char>(stream), {}), path.string());
  }

  void Title(const Place& place, const std::string& text) {
    const std::size_t point = text.find(". ");
    const auto number = ParseInteger(text.substr(0, point));
    if (point == std::string::npos || !number || *number < 1) {
      throw CaseError(place.Text() +
                      ": neither \"setup\", \"table NAME\", \"include FILE\" nor a title such as " +
                      "\"1. What happens.\"");
    }
    if (included_) throw CaseError(place.Text() + ": an included file holds no cases");
    if (!file_.cases.empty() && file_.cases.back().number >= *number) {
      throw CaseError(place.Text() + ": the number " + std::to_string(*number) + " does not rise");
    }
    file_.cases.push_back({place, static_cast<int>(*number), text.substr(point + 2), {}});
    steps_ = &file_.cases.back().steps;
  }

  void StepLine(const Place& place, const std::string& text) {
    if (steps_ == nullptr) throw CaseError(place.Text() + ": a step outside of a setup or case");
    steps_->push_back({place, ReadWords(place, text), {}});
  }

  void Block(const Place& place, const std::string& text, std::size_t indent) {
    if (indent < 4) throw CaseError(place.Text() + ": steps stand two blanks in, their blocks four");
    if (table_ != nullptr) {
      table_->push_back({place, text});
    } else if (steps_ == nullptr || steps_->empty()) {
      throw CaseError(place.Text() + ": a block without a step");
    } else {
      steps_->back().block.push_back({place, text});
    }
  }

  CaseFile& file_;
  bool included_;
  int depth_;
  std::string path_;
  std::vector<Step>* steps_ = nullptr;
  std::vector<BlockLine>* table_ = nullptr;
};

bool HasExpectation(const Case& one) {
  return std::any_of(one.steps.begin(), one.steps.end(), [](const Step& step) {
    return !step.words.front().quoted && step.words.front().text == "expect";
  });
}

}  // namespace

CaseFile ParseCases(std::string_view text, const std::string& path) {
  CaseFile file;
  file.path = path;
  Parser(file, false, 0).Read(text, path);
  if (file.cases.empty()) throw CaseError(path + ":1: no case in this file");
  for (const Case& one : file.cases) {
    if (!HasExpectation(one)) throw CaseError(one.place.Text() + ": this case expects nothing");
  }
  file.cases = ExpandRows(file.cases);
  return file;
}

CaseFile ReadCaseFile(const std::string& path) {
  std::ifstream stream(PathOf(path), std::ios::binary);
  if (!stream) throw CaseError(path + ":1: this file cannot be read");
  return ParseCases(std::string(std::istreambuf_iterator<char>(stream), {}), path);
}

}  // namespace goods
