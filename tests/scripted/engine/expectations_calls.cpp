// Expectations about what the report asked of the host: statements, messages, documents, rights and so on.
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/core/text.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

struct KindNames {
  CallKind kind;
  const char* many;
  const char* one;
};

constexpr std::array<KindNames, 9> kKinds{{
    {CallKind::Message, "messages", "message"},
    {CallKind::Document, "documents", "document"},
    {CallKind::Right, "rights", "right"},
    {CallKind::Waiting, "waiting", "waiting"},
    {CallKind::Lookup, "lookups", "lookup"},
    {CallKind::Keyboard, "keyboard", "keyboard"},
    {CallKind::Setting, "settings", "setting"},
    {CallKind::Window, "windows", "window shown"},
    {CallKind::Misuse, "misuse", "misuse"},
}};

// The block's lines as they stand: calls, or other lines that need no quotes around them.
std::vector<std::string> ReadLines(const Step& step) {
  if (step.block.empty()) throw CaseError(step.place.Text() + ": the lines below this line are missing");
  std::vector<std::string> lines;
  for (const BlockLine& line : step.block) lines.emplace_back(Trim(line.text));
  return lines;
}

std::vector<std::string> InQuotesEach(std::vector<std::string> texts) {
  for (std::string& text : texts) text = InQuotes(text);
  return texts;
}

void ExpectStatements(CaseRun& run, const Step& step, const Arguments&) {
  run.Compare(step.place, "the statements are others", InQuotesEach(ReadTexts(step)),
              InQuotesEach(run.Host().Log.Take(CallKind::Statement)));
}

void ExpectWaitingShown(CaseRun& run, const Step& step, const Arguments& given) {
  ScriptedWaiting& waiting = run.Host().Waiting();
  waiting.Acknowledged = true;
  if (!waiting.Shown()) {
    run.Fail(step.place, "the waiting indicator is not shown");
  } else {
    run.Compare(step.place, "the waiting text is another", {given.Text(0)}, {waiting.Text()});
  }
}

std::vector<std::string> QuotedLines(std::string_view text) {
  std::vector<std::string> lines = Split(text, '\n');
  if (lines.back().empty()) lines.pop_back();
  return InQuotesEach(std::move(lines));
}

std::vector<std::string> FileLines(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return {"(no such file)"};
  return QuotedLines(std::string(std::istreambuf_iterator<char>(file), {}));
}

void AddKindExpectations(StepTable& table) {
  for (const KindNames& names : kKinds) {
    const std::string many = names.many;
    const CallKind kind = names.kind;
    table.Add("expect " + many, [kind, many](CaseRun& run, const Step& step, const Arguments&) {
      run.Compare(step.place, "other " + many, ReadLines(step), run.Host().Log.Take(kind));
    });
    table.Add("expect no " + std::string(names.one),
              [kind, many](CaseRun& run, const Step& step, const Arguments&) {
                run.Compare(step.place, "unexpected " + many, {}, run.Host().Log.Take(kind));
              });
    table.Add("forget " + many,
              [kind](CaseRun& run, const Step&, const Arguments&) { run.Host().Log.Take(kind); });
  }
}

}  // namespace

void AddCallExpectations(StepTable& table) {
  table.Add("expect statements", ExpectStatements);
  table.Add("expect no statement", [](CaseRun& run, const Step& step, const Arguments&) {
    run.Compare(step.place, "unexpected statements", {},
                InQuotesEach(run.Host().Log.Take(CallKind::Statement)));
  });
  table.Add("forget statements",
            [](CaseRun& run, const Step&, const Arguments&) { run.Host().Log.Take(CallKind::Statement); });
  table.Add("expect waiting shown {text}", ExpectWaitingShown);
  table.Add("expect waiting hidden", [](CaseRun& run, const Step& step, const Arguments&) {
    if (run.Host().Waiting().Shown()) run.Fail(step.place, "the waiting indicator is shown");
  });
  AddKindExpectations(table);
  table.Add("expect calls", [](CaseRun& run, const Step& step, const Arguments&) {
    run.Compare(step.place, "other calls", ReadLines(step), run.Host().Log.TakeAll());
  });
  table.Add("expect no call", [](CaseRun& run, const Step& step, const Arguments&) {
    run.Compare(step.place, "unexpected calls", {}, run.Host().Log.TakeAll());
  });
  table.Add("forget calls", [](CaseRun& run, const Step&, const Arguments&) { run.Host().Log.TakeAll(); });
  table.Add("expect section {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    const auto text = run.Host().Settings().FindSection(given.Text(0));
    run.Compare(step.place, "the section holds something else", InQuotesEach(ReadTexts(step)),
                text ? QuotedLines(*text) : std::vector<std::string>{"(no such section)"});
  });
  table.Add("expect settings file {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    run.Compare(step.place, "the settings file holds something else", InQuotesEach(ReadTexts(step)),
                FileLines(std::filesystem::path(run.SettingsFolder()) / given.Text(0)));
  });
}

}  // namespace goods
