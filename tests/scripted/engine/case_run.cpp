#include "tests/scripted/engine/case_run.h"

#include <array>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "company/system/program.h"
#include "tests/scripted/engine/step_table.h"
#include "tests/scripted/engine/table_text.h"
#include "tests/scripted/engine/text_diff.h"

namespace goods {

CaseRun::CaseRun(const CaseEnvironment& environment, const CaseFile& file, const Case& one)
    : environment_(environment), file_(file), case_(one), host_(std::make_unique<ScriptedHost>()) {
  for (const Step& step : file.setup) steps_.push_back(&step);
  for (const Step& step : one.steps) steps_.push_back(&step);
  host_->Windows().OnIdle = [this] { return NextStep(); };
  host_->Documents().WhileOpen = [this] {
    if (documentFailure_) throw std::runtime_error(*std::exchange(documentFailure_, std::nullopt));
    if (std::exchange(holdDocument_, false)) Hold();
  };
  host_->Printing().WhileOpen = [this] {
    if (std::exchange(holdPreview_, false)) Hold();
  };
}

std::vector<std::string> CaseRun::Run() {
  if (environment_.prepareHost) environment_.prepareHost(*host_);
  if (environment_.attach && !environment_.attach(*host_)) Fail(case_.place, "the module refuses the host");
  host_->Windows().Pump([this] { return aborted_ || (next_ == steps_.size() && (!more_ || ended_)); }, [] {});
  if (environment_.detach && !environment_.detach()) Fail(case_.place, "the module does not let the host go");
  if (!aborted_ && !more_) {
    CheckNothingLeft();
    CheckWaits();
  }
  if (!settingsFolder_.empty()) std::filesystem::remove_all(settingsFolder_);
  return std::move(failures_);
}

bool CaseRun::AddStep() {
  if (!more_ || ended_) return false;
  std::optional<Step> step = more_(*this);
  ended_ = !step.has_value();
  if (ended_) return false;
  made_.push_back(std::move(*step));
  steps_.push_back(&made_.back());
  return true;
}

bool CaseRun::NextStep() {
  if (aborted_ || (next_ == steps_.size() && !AddStep())) return false;
  const Step& step = *steps_[next_++];
  // Nothing may be thrown through the windows of the module that stand between this step and its caller.
  try {
    Take(step);
  } catch (const CaseError& error) {
    if (more_) return true;
    failures_.emplace_back(error.what());
    aborted_ = true;
  } catch (const std::exception& error) {
    Fail(step.place, std::string("this step ended with: ") + error.what());
    aborted_ = true;
  }
  return true;
}

void CaseRun::Take(const Step& step) {
  Arguments arguments;
  const StepAction* action = AllSteps().Find(step, arguments);
  if (action == nullptr) throw CaseError(step.place.Text() + ": no step reads like this");
  (*action)(*this, step, arguments);
}

void CaseRun::Hold() {
  ++held_;
  host_->Windows().Pump([this] { return std::exchange(release_, false); }, [this] { release_ = true; });
  --held_;
}

void CaseRun::Release(const Place& place) {
  if (held_ == 0) throw CaseError(place.Text() + ": nothing is held open");
  release_ = true;
}

void CaseRun::UserAction(const std::function<void()>& action) {
  std::exception_ptr problem;
  RunUserAction(*host_, [&] {
    try {
      action();
    } catch (const CaseError&) {
      problem = std::current_exception();
    }
  });
  if (problem) std::rethrow_exception(problem);
}

void CaseRun::Fail(const Place& place, const std::string& message) {
  failures_.push_back(place.Text() + ": " + message);
}

void CaseRun::Compare(const Place& place, const std::string& what, const std::vector<std::string>& expected,
                      const std::vector<std::string>& got) {
  if (expected == got) return;
  std::string diff = DiffLines(expected, got);
  diff.pop_back();
  Fail(place, what + " (- expected, + got)\n" + diff);
}

void CaseRun::CompareTable(const Place& place, const std::string& what, const Table& expected,
                           const std::vector<std::vector<std::string>>& got) {
  std::vector<std::string> expectedLines{RowAsWritten(expected.heading)};
  std::vector<std::string> gotLines = expectedLines;
  for (const auto& row : expected.rows) expectedLines.push_back(RowAsWritten(row));
  for (const auto& row : got) gotLines.push_back(RowAsWritten(row));
  Compare(place, what, expectedLines, gotLines);
}

TForm& CaseRun::Window(const Place& place) {
  TForm* const window = host_->Windows().ActiveWindow();
  if (window == nullptr) throw CaseError(place.Text() + ": no window is open");
  return *window;
}

TForm& CaseRun::WindowToLookAt(const Place& place) {
  if (host_->Windows().ActiveWindow() != nullptr) return Window(place);
  TForm* const closed = host_->Windows().ClosedLast();
  if (closed == nullptr) throw CaseError(place.Text() + ": no window is open, and none is kept");
  return *closed;
}

std::optional<PrintedReport> CaseRun::TakePrint() {
  host_->Log.Take(CallKind::Print);
  auto& jobs = host_->Printing().Jobs;
  if (jobs.empty()) return std::nullopt;
  PrintedReport job = std::move(jobs.front());
  jobs.pop_front();
  return job;
}

const std::string& CaseRun::SettingsFolder() {
  if (settingsFolder_.empty()) {
    settingsFolder_ = MakeTemporaryFolder("goods-cases-");
    host_->Settings().Folder = settingsFolder_;
  }
  return settingsFolder_;
}

void CaseRun::CheckNothingLeft() {
  static constexpr std::array<std::pair<CallKind, const char*>, 4> kMustBeLookedAt{{
      {CallKind::Statement, "statements that nothing expects"},
      {CallKind::Message, "messages that nothing expects"},
      {CallKind::Document, "documents that nothing expects"},
      {CallKind::Misuse, "misuse of the host"},
  }};
  for (const auto& [kind, what] : kMustBeLookedAt) {
    Compare(case_.place, std::string("at the end of the case: ") + what, {}, host_->Log.NotLooked(kind));
  }
  if (!host_->Printing().Jobs.empty())
    Fail(case_.place, "at the end of the case: a preview that nothing expects");
  if (host_->Waiting().Shown() && !host_->Waiting().Acknowledged) {
    Fail(case_.place, "at the end of the case: the waiting indicator is still shown");
  }
  for (const std::string& statement : host_->Connection().Unanswered()) {
    Fail(case_.place, "no rows are given for " + InQuotes(statement));
  }
}

void CaseRun::CheckWaits() {
  const bool waits = host_->Connection().StillWaits() || host_->Lookups().StillWaits() || holdDocument_ ||
                     holdPreview_ || documentFailure_.has_value();
  if (waits) Fail(case_.place, "at the end of the case: a \"next ...\" step that nothing came for");
}

}  // namespace goods
