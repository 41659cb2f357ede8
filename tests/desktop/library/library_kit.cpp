#include "tests/desktop/library/library_kit.h"

namespace goods {

namespace {

// One good, as the look-up of its header reads it.
int32_t AnswerGood(goods_desktop_rows* rows) {
  constexpr int kColumns = 11;
  for (int column = 0; column < kColumns; ++column) {
    const bool number = column == 0 || column == 5;  // the code, and the kind of its units
    GoodsDesktop_AddColumn(rows, "c", number ? GOODS_DESKTOP_INTEGER : GOODS_DESKTOP_TEXT);
  }
  for (int column = 0; column < kColumns; ++column) {
    if (column == 0 || column == 5) {
      GoodsDesktop_AddInteger(rows, column == 0 ? 12 : 1);
    } else {
      GoodsDesktop_AddText(rows, column == 1 ? "پیچ" : "");
    }
  }
  return GoodsDesktop_EndRow(rows);
}

}  // namespace

LibraryTest::LibraryTest() : company_("file:" + SmallCompany()), settingsFolder_(FromQt(folder_.path())) {
  options_.company = company_.c_str();
  options_.login = "admin";
  options_.password = "admin";
  options_.settings_folder = settingsFolder_.c_str();
  options_.module = GOODS_MODULE_FILE;
}

LibraryTest::~LibraryTest() { GoodsDesktop_Destroy(session_); }

void LibraryTest::TearDown() { EXPECT_NO_THROW(RethrowFailure()); }

int32_t LibraryTest::OpenCard(int32_t good, std::function<void(QWidget&)> steps) {
  WhileModal(std::move(steps));
  auto report = Sized<goods_desktop_report>();
  report.name = "Open_Kardex";
  report.good = good;
  return GoodsDesktop_Open(session_, &report);
}

void LibraryTest::UseOwnUser() {
  options_.login = nullptr;
  options_.password = nullptr;
  options_.user_name = "انباردار";
  options_.user_code = 7;
  rights_.have_permission = [](void*, int64_t, int32_t, int32_t, int32_t, int32_t, goods_desktop_text) {
    return 1;
  };
  options_.rights = &rights_;
}

void LibraryTest::UseOwnConnection(
    std::function<int32_t(const std::string& statement, goods_desktop_rows* rows)> answers) {
  UseOwnUser();
  options_.company = nullptr;
  answers_ = std::move(answers);
  connection_.context = this;
  connection_.open = [](void* test, goods_desktop_text statement, goods_desktop_rows* rows) {
    auto& self = *static_cast<LibraryTest*>(test);
    self.statements_.push_back(Utf8Of(statement));
    if (self.statements_.back().find("FROM GoodLookUp_VW") != std::string::npos) return AnswerGood(rows);
    return self.answers_(self.statements_.back(), rows);
  };
  connection_.execute = [](void*, goods_desktop_text, goods_desktop_rows*) -> int32_t {
    return GOODS_DESKTOP_DONE;
  };
  options_.connection = &connection_;
}

}  // namespace goods
