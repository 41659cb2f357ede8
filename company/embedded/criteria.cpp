#include "company/embedded/criteria.h"

#include <utility>

#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::string_view kPlace = "{criteria}";

struct Words {
  std::string_view kind;
  std::string field;
  std::string table;
  std::string type = "text";
  std::string expression;
};

std::optional<Words> ReadWords(std::string_view line) {
  Words words;
  words.kind = TakeWord(line);
  words.field = TakeWord(line);
  std::string_view word = TakeWord(line);
  if (words.kind == "name") {
    if (word != "of") return std::nullopt;
    words.table = TakeWord(line);
    word = TakeWord(line);
  } else if (words.kind == "equals" || words.kind == "range") {
    words.type = word;
    word = TakeWord(line);
  }
  words.expression = Trim(line);
  if (word != "on" || words.expression.empty()) return std::nullopt;
  return words;
}

std::string Written(std::string pattern, const Words& words) {
  pattern = ReplaceAll(pattern, "{T}", words.table);
  pattern = ReplaceAll(pattern, "{x}", words.expression);
  return ReplaceAll(pattern, "{F}", words.field);
}

// A range is held against each end on its own.
std::string WithinEnds(const Words& words) {
  if (words.type == "decimal") {
    return "(@From{F} IS NULL OR dec_cmp({x}, @From{F}) >= 0) AND (@To{F} IS NULL OR dec_cmp({x}, @To{F}) <= "
           "0)";
  }
  return "(@From{F} IS NULL OR {x} >= @From{F}) AND (@To{F} IS NULL OR {x} <= @To{F})";
}

std::string TestOf(const Words& words) {
  if (words.kind == "contains") return "instr(fold_persian({x}), fold_persian(@{F})) > 0";
  if (words.kind == "name") {
    return "{x} IN (SELECT Code FROM {T} WHERE instr(fold_persian(Name), fold_persian(@{F})) > 0)";
  }
  if (words.kind == "equals") return "{x} = @{F}";
  if (words.kind == "codes") return "shares_code({x}, @{F})";
  if (words.kind == "range") return WithinEnds(words);
  return {};
}

}  // namespace

std::string_view TakeWord(std::string_view& line) {
  line = Trim(line);
  const std::string_view word = line.substr(0, line.find(' '));
  line = Trim(line.substr(word.size()));
  return word;
}

std::optional<Criterion> ReadCriterion(std::string_view declaration) {
  const std::optional<Words> words = ReadWords(declaration);
  if (!words) return std::nullopt;
  const std::string test = TestOf(*words);
  if (test.empty()) return std::nullopt;
  const bool range = words->kind == "range";
  std::string asksNothing = "@{F} IS NULL";
  if (range) asksNothing = "coalesce(@From{F}, @To{F}) IS NULL";
  if (words->kind == "codes") asksNothing = "ifnull(trim(@{F}, ', '), '') = ''";
  const std::string exclusion = range ? "@NotRange{F}" : "@Not{F}";

  Criterion criterion;
  const std::string typed = " " + words->type + " default null";
  for (const char* name : {"@From{F}", "@To{F}"}) {
    if (range) criterion.parameters.push_back(Written("parameter " + std::string(name) + typed, *words));
  }
  if (!range) criterion.parameters.push_back(Written("parameter @{F}" + typed, *words));
  criterion.parameters.push_back(Written("parameter " + exclusion + " integer default 0", *words));
  criterion.condition =
      Written("(" + asksNothing + " OR ifnull(" + test + ", 0) = (" + exclusion + " IS NOT 1))", *words);
  criterion.given = Written(range ? "@From{F} or @To{F}" : "@{F}", *words);
  return criterion;
}

bool PutCriteria(std::string& body, const std::vector<Criterion>& criteria) {
  const std::size_t place = body.find(kPlace);
  if (place == std::string::npos) return false;
  std::string joined = "1\n";
  for (const Criterion& criterion : criteria) {
    joined += "  AND " + criterion.condition + "  -- when " + criterion.given + "\n";
  }
  body.replace(place, kPlace.size(), joined);
  return true;
}

}  // namespace goods
