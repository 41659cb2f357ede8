// Expectations about the print job.
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/step_table.h"
#include "tests/scripted/engine/table_text.h"

namespace goods {
namespace {

// The lines of a block "expect print". Title, options, lines and parameters are always compared; row numbers,
// table and footer where the block has them.
struct ExpectedPrint {
  std::vector<std::string> head;
  std::vector<std::string> table;
  std::vector<std::string> footer;
  std::vector<std::string> rowNumbers;
};

ExpectedPrint ReadExpected(const Step& step) {
  if (step.block.empty()) throw CaseError(step.place.Text() + ": the lines below this line are missing");
  ExpectedPrint expected;
  std::vector<BlockLine> table;
  for (const BlockLine& line : step.block) {
    if (line.text.starts_with('|')) {
      table.push_back(line);
    } else if (line.text.starts_with("footer ")) {
      const BlockLine cells{line.place, line.text.substr(line.text.find('|'))};
      const Table footer = ReadTable({cells}, line.place);
      expected.footer = {RowAsWritten(footer.heading)};
    } else if (line.text.starts_with("row-numbers ")) {
      expected.rowNumbers = {line.text};
    } else {
      const std::vector<Word> words = ReadWords(line.place, line.text);
      const std::string& first = words.front().text;
      const bool text = first == "title" || first == "line" || first == "parameter";
      if (words.size() != 2 || (!text && first != "options") || text != words[1].quoted) {
        throw CaseError(line.place.Text() +
                        ": neither title, options, line, parameter, row-numbers, footer " +
                        "nor a line of the table");
      }
      expected.head.push_back(first + " " + (text ? InQuotes(words[1].text) : words[1].text));
    }
  }
  if (!table.empty()) {
    const Table read = ReadTable(table, step.place);
    expected.table.push_back(RowAsWritten(read.heading));
    for (const auto& row : read.rows) expected.table.push_back(RowAsWritten(row));
  }
  return expected;
}

void ExpectPrint(CaseRun& run, const Step& step, const Arguments&) {
  const ExpectedPrint expected = ReadExpected(step);
  const auto job = run.TakePrint();
  if (!job) return run.Fail(step.place, "nothing is printed");
  std::vector<std::string> head{"title " + InQuotes(job->title), "options " + std::to_string(job->options)};
  for (const std::string& line : job->lines) head.push_back("line " + InQuotes(line));
  for (const std::string& parameter : job->parameters) head.push_back("parameter " + InQuotes(parameter));
  run.Compare(step.place, "another print job", expected.head, head);
  if (!expected.rowNumbers.empty()) {
    run.Compare(step.place, "other row numbers", expected.rowNumbers,
                {std::string("row-numbers ") + (job->rowNumbers ? "on" : "off")});
  }
  if (!expected.footer.empty()) {
    run.Compare(step.place, "another printed footer", expected.footer, {RowAsWritten(job->footers)});
  }
  if (!expected.table.empty()) {
    std::vector<std::string> table{RowAsWritten(job->columns)};
    for (const auto& row : job->rows) table.push_back(RowAsWritten(row));
    run.Compare(step.place, "another printed table", expected.table, table);
  }
}

}  // namespace

void AddPrintExpectations(StepTable& table) {
  table.Add("expect print", ExpectPrint);
  table.Add("expect no print", [](CaseRun& run, const Step& step, const Arguments&) {
    if (run.TakePrint()) run.Fail(step.place, "something is printed");
  });
}

}  // namespace goods
