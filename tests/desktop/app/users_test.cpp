// Users in the desktop: the window for users with every right, and everybody's own password.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItem>
#include <QTableView>
#include <filesystem>

#include "desktop/app/main_window.h"
#include "desktop/app/password_dialog.h"
#include "desktop/app/program.h"
#include "desktop/app/user_dialog.h"
#include "desktop/app/users_dialog.h"
#include "desktop/views/check_tree.h"
#include "host/services/rights.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr const char* kUsersPassword = "Tea-green-9";

CheckTree& RightsOf(QWidget& window) {
  for (QWidget* each : window.findChildren<QWidget*>()) {
    if (auto* tree = dynamic_cast<CheckTree*>(each)) return *tree;
  }
  throw std::runtime_error("no rights in the window");
}

class UsersWindow : public DesktopTest {
 protected:
  // A company of its own: its users change.
  UsersWindow() : path_(Path("users.goods")) {
    std::filesystem::copy_file(SmallCompany(), path_);
    own_ = OpenCompany(path_);
  }
  IUsers& Users() { return own_->Users(); }
  CompanyUser Find(const std::string& login) {
    for (const CompanyUser& user : Users().List()) {
      if (user.login == login) return user;
    }
    throw std::runtime_error("no user " + login);
  }
  void Open(std::function<void(QWidget&)> steps) {
    UsersDialog dialog(Users(), 1, nullptr);
    WhileModal(std::move(steps));
    dialog.exec();
  }
  static QString Told(QWidget& window) { return dynamic_cast<QLabel&>(Child(window, "Problem_LBL")).text(); }
  static QTableView& Table(QWidget& window) { return dynamic_cast<QTableView&>(Child(window, "Users_GRD")); }
  static void GoTo(QWidget& window, const char* login) {
    QTableView& table = Table(window);
    for (int row = 0; row < table.model()->rowCount(); ++row) {
      if (table.model()->index(row, 0).data() == login) table.setCurrentIndex(table.model()->index(row, 0));
    }
    EXPECT_EQ(table.currentIndex().siblingAtColumn(0).data(), login);
  }
  static void Press(QWidget& window, const char* button) {
    dynamic_cast<QPushButton&>(Child(window, button)).click();
  }

  std::string path_;
  std::unique_ptr<ICompany> own_;
};

TEST_F(UsersWindow, EverybodyIsListedWithPricesAndRightsInWords) {
  Open([](QWidget& window) {
    const QAbstractItemModel& model = *Table(window).model();
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(0, 3).data(), "همه مجوزها");
    EXPECT_EQ(model.index(1, 0).data(), "anbar");
    EXPECT_EQ(model.index(1, 2).data(), "نمی‌بیند");
    EXPECT_TRUE(model.index(1, 3).data().toString().contains("کاردکس کالا"));
    EXPECT_FALSE(model.index(1, 3).data().toString().contains("موجودی ریالی"));
    EXPECT_EQ(model.index(2, 3).data(), "هیچ مجوزی");
  });
}

TEST_F(UsersWindow, ANewUserIsMadeWithTheTickedRights) {
  Open([&](QWidget& window) {
    WhileModal([](QWidget& user) {
      TypeText(user, "Login_EDT", "sara");
      TypeText(user, "Name_EDT", "سارا");
      TypeText(user, "NewPassword_EDT", kUsersPassword);
      TypeText(user, "Again_EDT", "other");
      auto& rights = RightsOf(user);
      rights.Item("stock-card")->setCheckState(Qt::Checked);
      rights.Item("document.sale")->setCheckState(Qt::Checked);
      PressKey(user, Qt::Key_F3);
      EXPECT_TRUE(user.isVisible());
      EXPECT_EQ(Told(user), "دو گذرواژه یکی نیستند.");
      dynamic_cast<QLineEdit&>(Child(user, "Again_EDT")).setText(kUsersPassword);
      PressKey(user, Qt::Key_F3);
      EXPECT_FALSE(user.isVisible());
    });
    PressKey(window, Qt::Key_Insert);
    EXPECT_EQ(Table(window).currentIndex().siblingAtColumn(0).data(), "sara");
  });
  const auto signedIn = own_->SignIn("sara", kUsersPassword);
  ASSERT_TRUE(signedIn);
  EXPECT_EQ(signedIn->name, "سارا");
  EXPECT_FALSE(signedIn->seesPrices);
  EXPECT_EQ(Find("sara").rights, (std::vector<UserRight>{{kPartSale, kPermissionOpenDocument},
                                                         {kPartStockCard, kPermissionOpenReport}}));
}

TEST_F(UsersWindow, ALoginThatIsTakenIsToldAndTheWindowStays) {
  Open([&](QWidget& window) {
    WhileModal([](QWidget& user) {
      TypeText(user, "Login_EDT", "anbar");
      TypeText(user, "Name_EDT", "دیگری");
      TypeText(user, "NewPassword_EDT", kUsersPassword);
      TypeText(user, "Again_EDT", kUsersPassword);
      PressKey(user, Qt::Key_F3);
      EXPECT_TRUE(user.isVisible());
      EXPECT_TRUE(Told(user).contains("anbar"));
      PressKey(user, Qt::Key_Escape);
    });
    Press(window, "Add_BTN");
    EXPECT_EQ(Table(window).model()->rowCount(), 3);
  });
}

TEST_F(UsersWindow, ChangingAUserKeepsRightsThatHaveNoName) {
  CompanyUser guest = Find("guest");
  guest.rights = {{503, 6}, {kPartStockCard, kPermissionOpenReport}};
  Users().Change(guest);
  Open([&](QWidget& window) {
    GoTo(window, "guest");
    WhileModal([](QWidget& user) {
      EXPECT_FALSE(Child(user, "Login_EDT").isEnabled());
      auto& rights = RightsOf(user);
      EXPECT_TRUE(rights.IsChecked("stock-card"));
      rights.Item("stock-card")->setCheckState(Qt::Unchecked);
      dynamic_cast<QCheckBox&>(Child(user, "SeesPrices_CHK")).setChecked(true);
      PressKey(user, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F2);
    EXPECT_EQ(Table(window).model()->index(2, 2).data(), "می‌بیند");
  });
  EXPECT_EQ(Find("guest").rights, (std::vector<UserRight>{{503, 6}}));
  EXPECT_TRUE(Find("guest").seesPrices);
}

TEST_F(UsersWindow, WithEveryRightThereIsNothingElseToChoose) {
  Open([&](QWidget& window) {
    WhileModal([](QWidget& user) {
      EXPECT_FALSE(RightsOf(user).isEnabled());
      auto& every = dynamic_cast<QCheckBox&>(Child(user, "EveryRight_CHK"));
      EXPECT_TRUE(every.isChecked());
      every.setChecked(false);
      EXPECT_TRUE(RightsOf(user).isEnabled());
      PressKey(user, Qt::Key_F3);
      EXPECT_TRUE(user.isVisible());
      EXPECT_TRUE(Told(user).contains("همه مجوزها"));
      PressKey(user, Qt::Key_Escape);
    });
    PressKey(window, Qt::Key_F2);
  });
  EXPECT_TRUE(Find("admin").everyRight);
}

TEST_F(UsersWindow, AUserIsRemovedAfterAQuestionAndNeverOneself) {
  Open([&](QWidget& window) {
    PressKey(window, Qt::Key_Delete);
    EXPECT_TRUE(Told(window).contains("خودتان"));
    GoTo(window, "guest");
    WhileModal([](QWidget& question) { PressKey(question, Qt::Key_Escape); });
    PressKey(window, Qt::Key_Delete);
    EXPECT_EQ(Table(window).model()->rowCount(), 3);
    WhileModal([](QWidget& question) { Press(question, "Yes_BTN"); });
    Press(window, "Remove_BTN");
    EXPECT_EQ(Table(window).model()->rowCount(), 2);
  });
  EXPECT_FALSE(own_->SignIn("guest", "guest"));
}

TEST_F(UsersWindow, AnotherPasswordIsGivenToAUser) {
  Open([&](QWidget& window) {
    GoTo(window, "anbar");
    WhileModal([](QWidget& dialog) {
      TypeText(dialog, "NewPassword_EDT", "short");
      TypeText(dialog, "Again_EDT", "short");
      PressKey(dialog, Qt::Key_Return);
      EXPECT_TRUE(dialog.isVisible());
      for (const char* edit : {"NewPassword_EDT", "Again_EDT"}) {
        dynamic_cast<QLineEdit&>(Child(dialog, edit)).setText(kUsersPassword);
      }
      PressKey(dialog, Qt::Key_Return);
      EXPECT_FALSE(dialog.isVisible());
    });
    PressKey(window, Qt::Key_F8);
  });
  EXPECT_TRUE(own_->SignIn("anbar", kUsersPassword));
}

TEST_F(UsersWindow, OnlyUsersWithEveryRightManageUsersAndEverybodyChangesTheOwnPassword) {
  for (const char* login : {"admin", "anbar", "guest"}) {
    const UserRecord user = *own_->SignIn(login, login);
    const AccountActions actions = AccountActionsFor(*own_, user);
    EXPECT_EQ(static_cast<bool>(actions.manageUsers), user.everyRight) << login;
    EXPECT_TRUE(static_cast<bool>(actions.changePassword)) << login;
  }
}

TEST_F(UsersWindow, TheMenuHasAnEntryForWhatTheUserMayDo) {
  DesktopHost& host = HostFor("anbar");
  const AccountActions actions = AccountActionsFor(*own_, *own_->SignIn("anbar", "anbar"));
  MainWindow window(host, Module(), Settings(), "شرکت", "", actions);
  EXPECT_EQ(window.findChild<QAction*>("Users_ACT"), nullptr);
  EXPECT_NE(window.findChild<QAction*>("Password_ACT"), nullptr);
}

TEST_F(UsersWindow, TheOwnPasswordIsChangedWithTheOldOneAlone) {
  const UserRecord user = *own_->SignIn("anbar", "anbar");
  const AccountActions actions = AccountActionsFor(*own_, user);
  WhileModal([](QWidget& dialog) {
    TypeText(dialog, "OldPassword_EDT", "wrong");
    TypeText(dialog, "NewPassword_EDT", kUsersPassword);
    TypeText(dialog, "Again_EDT", kUsersPassword);
    PressKey(dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Told(dialog), "گذرواژه کنونی درست نیست.");
    dynamic_cast<QLineEdit&>(Child(dialog, "OldPassword_EDT")).setText("anbar");
    PressKey(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  actions.changePassword(nullptr);
  EXPECT_TRUE(own_->SignIn("anbar", kUsersPassword));
}

}  // namespace
}  // namespace goods
