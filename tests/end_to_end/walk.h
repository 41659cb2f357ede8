// Walk: a user of the desktop who goes through the reports, and the account that is kept of it.
#pragma once

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "tests/desktop/app/kit.h"

namespace goods {

using Steps = std::function<void(QWidget& window)>;

// The account has a heading for each export, under it what the user did, and under that the statements that
// reached the company's connection while he did it, with what became of them, and the messages that he was
// told. Whatever cannot be done throws std::runtime_error and fails the test.
class Walk : public DesktopTest {
 protected:
  // Signs in as the user with every right. Messages are answered in the user's place and told in the account.
  void SetUp() override;
  // A failed walk tells how far it came.
  void TearDown() override;

  const std::string& Account() const { return account_; }
  ModuleLibrary& Reports() { return Module(); }

  // A heading of the account; the call must leave no window behind.
  void Export(const std::string& heading, const std::function<void()>& call);
  // open must show a modal window, which the steps leave closed.
  void Inside(const std::function<void()>& open, const Steps& steps);
  void Did(const std::string& what);
  // The export is called again from inside its own window: a message, and nothing else.
  void CalledAgain(const std::function<void()>& call);

  // Types into an edit whose window runs its statement when the typing has paused.
  void TypeAndWait(QWidget& window, const char* edit, const char* text);
  void Clear(QWidget& window, const char* edit);
  // Sorts by a click on the title of a column, whose rows must then be in order.
  void SortBy(QWidget& window, const char* grid, const char* field);
  // F9, and the preview as a PDF: a file of as many pages as the preview has, with text on them.
  void Print(QWidget& window);
  // F2 on a row that has a document, by the movement type in that field, must open it; Esc closes it.
  void OpenDocument(QWidget& window, const char* grid, const char* typeField);
  // F2 must open a stock card; a document of its rows is opened, and both are closed.
  void OpenCard(QWidget& window);
  void Leave(QWidget& window);

 private:
  std::size_t StatementCount() const;

  DesktopHost* host_ = nullptr;
  std::string account_;
  std::size_t logRead_ = 0;  // bytes of the statement log
  std::size_t messagesTold_ = 0;
  int printed_ = 0;
};

// A click on the button, check box or radio button of that component.
void Click(QWidget& window, const char* name);
// The same of a check box that is not ticked yet; a kept criterion may be.
void Tick(QWidget& window, const char* name);
// A text over what stands in the edit, accepted with Enter.
void Enter(QWidget& window, const char* edit, const char* text);
TSmartDBGrid_QRT& GridOf(QWidget& window, const char* name);
void ClickRow(QWidget& window, const char* grid, std::size_t row);
// What no key and no click reaches: an action on the components, as a handler's.
void ByProgram(QWidget& window, const std::function<void()>& action);
// The first row whose field has that number becomes current; throws when there is none.
void GoTo(QWidget& window, const char* grid, const char* field, std::int64_t number);

}  // namespace goods
