// CriteriaText: the criteria of a report as they are put together, as parameters and in Persian.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// Puts a condition in parentheses behind the filter caption. Nothing joins the two: the condition brings its
// own word. A condition of blanks adds nothing.
std::string AddFarsiFilter(std::string_view condition, std::string_view filter);
// The conditions added one after the other.
std::string FarsiFilterOf(const std::vector<std::string>& conditions);

// A range as its edits hold it, while its box is ticked: ends that are no values yet are empty.
struct CriteriaRange {
  bool inUse = false;
  std::string from;
  std::string to;

  // Ends that are both empty or "0" ask for nothing.
  bool AsksNothing() const;
};

// One good, group, store or person; the code 0 asks for none.
struct CriteriaCode {
  std::int64_t code = 0;
  std::string name;

  // "code - name", as criteria are told.
  std::string CodeAndName() const { return std::to_string(code) + " - " + name; }
};

// Parameters and phrases read in the order in which they are added.
struct CriteriaText {
  std::string parameters;
  std::string caption;

  // name as the procedure knows it; value as it goes out, quoted where it is a text.
  void Add(std::string_view name, std::string_view value);
  // A piece with a spacing of its own.
  void AddPiece(std::string_view piece);
  // The ends that are given, bare and without thousands separators; an end that is not given is open and
  // stays out.
  void AddNumbers(std::string_view fromName, std::string_view toName, const CriteriaRange& range);
  // Both dates, quoted; one that is not given as ''.
  void AddDates(const CriteriaRange& range);
  // The code, bare, and behind the label code and name; nothing for the code 0.
  void AddOne(std::string_view name, std::string_view label, const CriteriaCode& one);
  void Say(std::string_view phrase);
};

}  // namespace goods
