// What the tests of the C interface share: a session's options, a connection that answers from memory.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "goods_desktop.h"
#include "tests/desktop/app/kit.h"

namespace goods {

// A table or options with its size.
template <typename Struct>
Struct Sized() {
  Struct made{};
  made.struct_size = sizeof made;
  return made;
}

inline std::string Utf8Of(goods_desktop_text text) { return static_cast<const char*>(text); }
inline std::string ProblemOf() { return Utf8Of(GoodsDesktop_Problem(GOODS_DESKTOP_UTF8)); }

// Options for the small company, to be signed in to as admin. The session, if there is one, ends with the
// test.
class LibraryTest : public testing::Test {
 protected:
  LibraryTest();
  ~LibraryTest() override;
  void TearDown() override;

  int32_t Create() { return GoodsDesktop_Create(&options_, &session_); }
  // Opens the stock card of a good; steps are taken in its window.
  int32_t OpenCard(int32_t good, std::function<void(QWidget&)> steps);
  // The user and the rights are the program's: everything is granted.
  void UseOwnUser();
  // The connection is the program's: what answers is called for each statement that returns rows, and notes
  // it.
  void UseOwnConnection(
      std::function<int32_t(const std::string& statement, goods_desktop_rows* rows)> answers);

  QTemporaryDir folder_;
  std::string company_;
  std::string settingsFolder_;
  goods_desktop_rights rights_ = Sized<goods_desktop_rights>();
  goods_desktop_connection connection_ = Sized<goods_desktop_connection>();
  goods_desktop_options options_ = Sized<goods_desktop_options>();
  goods_desktop* session_ = nullptr;
  std::vector<std::string> statements_;
  std::function<int32_t(const std::string&, goods_desktop_rows*)> answers_;
};

}  // namespace goods
