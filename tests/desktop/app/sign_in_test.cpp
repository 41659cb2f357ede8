#include "desktop/app/sign_in.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <filesystem>

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

TEST_F(SignIn, AfterFiveFailuresTheWaitIsToldAndTheButtonWaits) {
  const std::string path = Path("own.goods");
  std::filesystem::copy_file(SmallCompany(), path);
  const auto company = OpenCompany(path);
  SignInDialog dialog(*company, "admin", "");
  WhileModal([](QWidget& window) {
    TypeText(window, "Password_EDT", "wrong");
    for (int i = 0; i < 6; ++i) PressKey(window, Qt::Key_Return);
    const auto& problem = dynamic_cast<QLabel&>(Child(window, "Problem_LBL"));
    EXPECT_TRUE(problem.text().contains("ثانیه")) << problem.text().toStdString();
    EXPECT_FALSE(Child(window, "SignIn_BTN").isEnabled());
    // Another user need not wait.
    Child(window, "Login_EDT").setFocus();
    PressKey(window, Qt::Key_A, Qt::ControlModifier);
    TypeText(window, "Login_EDT", "anbar");
    EXPECT_TRUE(Child(window, "SignIn_BTN").isEnabled());
    dynamic_cast<QLineEdit&>(Child(window, "Password_EDT")).setText("anbar");
    PressKey(window, Qt::Key_Return);
  });
  const auto user = dialog.Ask();
  ASSERT_TRUE(user);
  EXPECT_EQ(user->login, "anbar");
}

TEST_F(SignIn, CapsLockAndTheLayoutOfTheKeyboardAreHintedAt) {
  SignInDialog dialog(Company(), "admin", "");
  WhileModal([](QWidget& window) {
    const auto& hint = dynamic_cast<QLabel&>(Child(window, "Keyboard_LBL"));
    const auto type = [&](int key, Qt::KeyboardModifiers modifiers, const QString& text) {
      QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
      QApplication::sendEvent(&Child(window, "Password_EDT"), &press);
    };
    type(Qt::Key_A, {}, "a");
    EXPECT_EQ(hint.text(), "صفحه‌کلید: لاتین");
    type(Qt::Key_A, {}, "A");
    EXPECT_TRUE(hint.text().contains("Caps Lock"));
    type(Qt::Key_CapsLock, {}, "");
    EXPECT_FALSE(hint.text().contains("Caps Lock"));
    type(Qt::Key_A, Qt::ShiftModifier, "A");
    EXPECT_FALSE(hint.text().contains("Caps Lock"));
    type(Qt::Key_unknown, {}, "ش");
    EXPECT_EQ(hint.text(), "صفحه‌کلید: فارسی");
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialog.Ask());
}

TEST_F(SignIn, EscGivesUp) {
  SignInDialog dialog(Company(), "admin", "");
  WhileModal([](QWidget& window) { PressKey(window, Qt::Key_Escape); });
  EXPECT_FALSE(dialog.Ask());
}

}  // namespace
}  // namespace goods
