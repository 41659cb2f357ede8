// One case while it runs: a host of its own, the steps one after the other, and what went wrong.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/custom_parameter.h"
#include "tests/scripted/engine/case_file.h"
#include "tests/scripted/scripted_host.h"

namespace goods {

// What cases can be run on. Functions that are empty are not there.
struct CaseEnvironment {
  std::function<bool(THost&)> attach;
  std::function<bool()> detach;
  // By name: an exported function, given the words behind its name. Throws std::invalid_argument when they do
  // not fit.
  std::map<std::string, std::function<void(const std::vector<Word>&)>, std::less<>> exports;
  // By class name: makes a window with the form mode and the custom parameter.
  using MakeWindow = std::function<std::unique_ptr<TForm>(THost& host, int formMode, Variant parameter)>;
  std::map<std::string, MakeWindow, std::less<>> windows;
  // Makes the host answer from a company instead of from the script; called before the first step.
  std::function<void(ScriptedHost&)> prepareHost;
};

// Steps are taken by the loop of the scripted windows, so that a step that shows a window does not end before
// later steps have closed it. An expectation that does not hold is noted and the case goes on; a step that
// cannot be taken ends the case.
class CaseRun {
 public:
  CaseRun(const CaseEnvironment& environment, const CaseFile& file, const Case& one);

  // Takes every step; the failures, each beginning with file and line. Empty: the case passed.
  std::vector<std::string> Run();

  // For a case that is made up while it runs: behind the last step comes what next gives, until it gives
  // none. A step that cannot be taken is left out, here and among the steps of the file, and what nothing has
  // looked at is no failure. Call it before Run.
  void GoOnWith(std::function<std::optional<Step>(CaseRun&)> next) { more_ = std::move(next); }

  const CaseEnvironment& Environment() const { return environment_; }
  const CaseFile& File() const { return file_; }
  ScriptedHost& Host() { return *host_; }

  void Fail(const Place& place, const std::string& message);
  std::size_t Failed() const { return failures_.size(); }
  // Fails with a diff when the two are not the same.
  void Compare(const Place& place, const std::string& what, const std::vector<std::string>& expected,
               const std::vector<std::string>& got);

  // The same for a table; got has the cells under the expected heading.
  void CompareTable(const Place& place, const std::string& what, const Table& expected,
                    const std::vector<std::vector<std::string>>& got);

  // The window in front; throws CaseError when no window is open.
  TForm& Window(const Place& place);
  // The window in front, or the one that was closed last.
  TForm& WindowToLookAt(const Place& place);

  // Does what the user does: an error of the module is shown to the user, a CaseError is thrown on.
  void UserAction(const std::function<void()>& action);

  // The next document, or preview, that opens stays open until Release; or the next document fails.
  void HoldNextDocument() { holdDocument_ = true; }
  void HoldNextPreview() { holdPreview_ = true; }
  void FailNextDocument(std::string message) { documentFailure_ = std::move(message); }
  // Closes what is held open; throws CaseError when nothing is.
  void Release(const Place& place);

  // Marks that a step has looked at the print jobs so far, and gives the oldest one not looked at.
  std::optional<PrintedReport> TakePrint();

  // The empty folder of the settings files of this case, made when first asked for.
  const std::string& SettingsFolder();

  std::map<std::string, int> Remembered;

 private:
  bool NextStep();
  bool AddStep();
  void Take(const Step& step);
  void Hold();
  void CheckNothingLeft();
  void CheckWaits();

  const CaseEnvironment& environment_;
  const CaseFile& file_;
  const Case& case_;
  std::vector<const Step*> steps_;
  std::deque<Step> made_;
  std::function<std::optional<Step>(CaseRun&)> more_;
  bool ended_ = false;
  std::size_t next_ = 0;
  bool aborted_ = false;
  std::vector<std::string> failures_;
  std::unique_ptr<ScriptedHost> host_;
  bool holdDocument_ = false;
  bool holdPreview_ = false;
  std::optional<std::string> documentFailure_;
  int held_ = 0;
  bool release_ = false;
  std::string settingsFolder_;
};

}  // namespace goods
