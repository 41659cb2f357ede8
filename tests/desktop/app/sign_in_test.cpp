#include "desktop/app/sign_in.h"

#include <QLabel>
#include <QLineEdit>

#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using SignIn = DesktopTest;

TEST_F(SignIn, TheRightPasswordGivesTheUser) {
  SignInDialog dialog(Company(), "", "");
  WhileModal([](QWidget& window) {
    TypeText(window, "Login_EDT", "anbar");
    TypeText(window, "Password_EDT", "anbar");
    PressKey(window, Qt::Key_Return);
  });
  const auto user = dialog.Ask();
  ASSERT_TRUE(user);
  EXPECT_EQ(user->login, "anbar");
}

TEST_F(SignIn, AWrongPasswordIsToldAndTheWindowStays) {
  SignInDialog dialog(Company(), "admin", "");
  WhileModal([](QWidget& window) {
    TypeText(window, "Password_EDT", "wrong");
    PressKey(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    const auto& problem = dynamic_cast<QLabel&>(Child(window, "Problem_LBL"));
    EXPECT_EQ(problem.text(), "نام کاربر یا گذرواژه درست نیست.");
    EXPECT_EQ(dynamic_cast<QLineEdit&>(Child(window, "Password_EDT")).selectedText().size(), 5);
    TypeText(window, "Password_EDT", "admin");
    PressKey(window, Qt::Key_Return);
  });
  const auto user = dialog.Ask();
  ASSERT_TRUE(user);
  EXPECT_EQ(user->login, "admin");
}

TEST_F(SignIn, EscGivesUp) {
  SignInDialog dialog(Company(), "admin", "");
  WhileModal([](QWidget& window) { PressKey(window, Qt::Key_Escape); });
  EXPECT_FALSE(dialog.Ask());
}

}  // namespace
}  // namespace goods
