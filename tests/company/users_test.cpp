// Users, rights and passwords of a company, and signing in.
#include "company/embedded/users.h"

#include <algorithm>
#include <set>

#include <sys/stat.h>

#include "company/embedded/password.h"
#include "company/right_names.h"
#include "company_fixture.h"
#include "host/services/rights.h"

namespace goods {
namespace {

constexpr char kUsersPassword[] = "چای-سبز-9";

class UsersTest : public ::testing::Test {
 protected:
  UsersTest() {
    std::filesystem::copy_file(SmallDemoPath(), file_.Path());
    company_ = OpenCompany(file_.Path());
  }
  IUsers& Users() { return company_->Users(); }
  CompanyUser Find(const std::string& login) {
    for (const CompanyUser& user : Users().List()) {
      if (user.login == login) return user;
    }
    ADD_FAILURE() << login;
    return {};
  }
  // What the change is refused with; "" when it is not, and then the users are as they were.
  template <typename Change>
  std::string Refused(Change change) {
    const auto before = Users().List().size();
    try {
      change();
      return "";
    } catch (const CompanyError& error) {
      EXPECT_EQ(Users().List().size(), before);
      return error.what();
    }
  }
  static CompanyUser Named(const char* login) {
    CompanyUser user;
    user.login = login;
    user.name = "کاربر";
    return user;
  }

  TestFile file_{"users.goods"};
  std::unique_ptr<ICompany> company_;
};

TEST_F(UsersTest, TheDemoHasAManagerAStorekeeperWithoutPricesAndAGuest) {
  EXPECT_TRUE(Find("admin").everyRight);
  EXPECT_TRUE(Find("admin").seesPrices);
  EXPECT_FALSE(Find("anbar").seesPrices);
  EXPECT_FALSE(Find("anbar").rights.empty());
  EXPECT_TRUE(Find("guest").rights.empty());
  EXPECT_TRUE(company_->SignIn("admin", "admin")->seesPrices);
  EXPECT_FALSE(company_->SignIn("anbar", "anbar")->seesPrices);
}

TEST_F(UsersTest, ANewUserSignsInWithWhatWasGiven) {
  CompanyUser user = Named("sara");
  user.seesPrices = false;
  user.rights = {{kPartStockCard, kPermissionOpenReport}, {kPartSale, kPermissionOpenDocument}};
  const std::int64_t code = Users().Add(user, kUsersPassword);
  EXPECT_EQ(code, 4);
  const auto signedIn = company_->SignIn("sara", kUsersPassword);
  ASSERT_TRUE(signedIn);
  EXPECT_EQ(signedIn->code, code);
  EXPECT_EQ(signedIn->name, "کاربر");
  EXPECT_FALSE(signedIn->seesPrices);
  EXPECT_TRUE(company_->HasRight(*signedIn, kPartStockCard, kPermissionOpenReport));
  EXPECT_FALSE(company_->HasRight(*signedIn, kPartStockCard, kPermissionPrintList));
  const CompanyUser listed = Find("sara");
  EXPECT_EQ(listed.rights, (std::vector<UserRight>{{kPartSale, kPermissionOpenDocument},
                                                   {kPartStockCard, kPermissionOpenReport}}));
}

TEST_F(UsersTest, ChangesHoldFromTheNextQuestionOnAndPricesFromTheNextSigningIn) {
  CompanyUser user = Find("guest");
  const UserRecord guest = *company_->SignIn("guest", "guest");
  user.rights = {{kPartStoreAsset, kPermissionOpenReport}};
  user.seesPrices = true;
  Users().Change(user);
  EXPECT_TRUE(company_->HasRight(guest, kPartStoreAsset, kPermissionOpenReport));
  EXPECT_TRUE(company_->SignIn("guest", "guest")->seesPrices);
  user.rights.clear();
  Users().Change(user);
  EXPECT_FALSE(company_->HasRight(guest, kPartStoreAsset, kPermissionOpenReport));
}

TEST_F(UsersTest, ANewPasswordReplacesTheOldOne) {
  Users().SetPassword(Find("guest").code, kUsersPassword);
  EXPECT_FALSE(company_->SignIn("guest", "guest"));
  EXPECT_TRUE(company_->SignIn("guest", kUsersPassword));
}

TEST_F(UsersTest, ARemovedUserIsGoneWithItsRights) {
  const UserRecord storekeeper = *company_->SignIn("anbar", "anbar");
  Users().Remove(storekeeper.code);
  EXPECT_FALSE(company_->SignIn("anbar", "anbar"));
  EXPECT_FALSE(company_->HasRight(storekeeper, kPartStockCard, kPermissionOpenReport));
  EXPECT_NE(Refused([&] { Users().Remove(storekeeper.code); }), "");
}

TEST_F(UsersTest, WhatCannotBeIsRefusedWithoutAChange) {
  EXPECT_NE(Refused([&] { Users().Add(Named("admin"), kUsersPassword); }).find("admin"), std::string::npos);
  for (const char* login : {"", "two words", "tab\t", "\u202eadmin", "ad\u200fmin"}) {
    EXPECT_NE(Refused([&] { Users().Add(Named(login), kUsersPassword); }), "") << login;
  }
  EXPECT_NE(Refused([&] { Users().Add(Named("sara"), "short"); }), "");
  EXPECT_NE(Refused([&] { Users().Add(Named("long-login"), "LONG-login"); }), "");
  CompanyUser nameless = Named("sara");
  nameless.name = "  ";
  EXPECT_NE(Refused([&] { Users().Add(nameless, kUsersPassword); }), "");
  EXPECT_NE(Refused([&] { Users().SetPassword(77, kUsersPassword); }), "");
  EXPECT_NE(Refused([&] { Users().SetPassword(1, "1234567"); }), "");
  EXPECT_TRUE(company_->SignIn("admin", "admin"));
}

TEST_F(UsersTest, SomebodyWithEveryRightAlwaysStays) {
  CompanyUser manager = Find("admin");
  EXPECT_NE(Refused([&] { Users().Remove(manager.code); }), "");
  manager.everyRight = false;
  EXPECT_NE(Refused([&] { Users().Change(manager); }), "");
  EXPECT_TRUE(Find("admin").everyRight);
  CompanyUser second = Named("second");
  second.everyRight = true;
  Users().Add(second, kUsersPassword);
  Users().Remove(manager.code);
  EXPECT_EQ(company_->SignIn("second", kUsersPassword)->everyRight, true);
}

TEST_F(UsersTest, AFileThatMayNotBeWrittenIsLeftAlone) {
  std::filesystem::permissions(file_.Path(), std::filesystem::perms::owner_read);
  company_ = OpenCompany(file_.Path());
  const std::string before = ReadFile(file_.Path());
  EXPECT_NE(Refused([&] { Users().SetPassword(3, kUsersPassword); }).find("فقط خواندنی"), std::string::npos);
  for (int i = 0; i < 5; ++i) EXPECT_FALSE(company_->SignIn("guest", "wrong"));
  EXPECT_THROW(company_->SignIn("guest", "guest"), SignInDelayed);
  EXPECT_TRUE(ReadFile(file_.Path()) == before);
}

TEST_F(UsersTest, ACompanyFileIsItsOwnersAlone) {
  const TestFile made("owner.goods");
  DemoOptions options;
  options.goods = 5;
  options.stores = 1;
  options.movements = 20;
  const mode_t before = umask(0);
  MakeDemoCompany(made.Path(), options);
  umask(before);
  struct stat state {};
  ASSERT_EQ(stat(made.Path().c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0600U);
}

// Time itself says nothing in a test; the number of hashes that were worked out does.
TEST_F(UsersTest, AnUnknownLoginCostsWhatAWrongPasswordCosts) {
  const auto work = [&](const char* login) {
    const std::uint64_t before = PasswordHashesWorkedOut();
    EXPECT_FALSE(company_->SignIn(login, "wrong"));
    return PasswordHashesWorkedOut() - before;
  };
  EXPECT_EQ(work("admin"), 1U);
  EXPECT_EQ(work("nobody"), 1U);
}

TEST(SignInDelayTest, GrowsFromTheFifthFailureToFiveMinutes) {
  const std::int64_t expected[] = {0, 0, 0, 0, 0, 5, 10, 20, 40, 80, 160, 300, 300};
  for (std::int64_t failures = 0; failures < 13; ++failures) {
    EXPECT_EQ(SignInDelay(failures), expected[failures]) << failures;
  }
  EXPECT_EQ(SignInDelay(1'000'000), 300);
}

class SignInGuardTest : public UsersTest {
 protected:
  SignInGuard Guard() {
    return SignInGuard([this] { return Database(file_.Path(), SQLITE_OPEN_READWRITE); },
                       [this] { return now_; });
  }
  // Seconds that the login has to wait; 0 when the password was looked at.
  std::int64_t WaitOf(SignInGuard& guard, const char* login, const char* password = "wrong") {
    try {
      guard.SignIn(db_, login, password);
      return 0;
    } catch (const SignInDelayed& delayed) {
      EXPECT_NE(std::string(delayed.what()).find(std::to_string(delayed.Seconds())), std::string::npos);
      return delayed.Seconds();
    }
  }

  Database db_{file_.Path(), SQLITE_OPEN_READONLY};
  std::int64_t now_ = 1'700'000'000;
};

TEST_F(SignInGuardTest, AfterFiveFailuresEveryTryWaitsAndTheWaitGrows) {
  SignInGuard guard = Guard();
  for (int i = 0; i < 5; ++i) EXPECT_EQ(WaitOf(guard, "admin"), 0);
  const std::uint64_t before = PasswordHashesWorkedOut();
  EXPECT_EQ(WaitOf(guard, "admin", "admin"), 5);
  EXPECT_EQ(PasswordHashesWorkedOut(), before);
  now_ += 3;
  EXPECT_EQ(WaitOf(guard, "admin", "admin"), 2);
  now_ += 2;
  EXPECT_EQ(WaitOf(guard, "admin"), 0);
  EXPECT_EQ(WaitOf(guard, "admin"), 10);
  now_ += 10;
  EXPECT_EQ(guard.SignIn(db_, "admin", "admin")->login, "admin");
  EXPECT_EQ(WaitOf(guard, "admin"), 0);
}

TEST_F(SignInGuardTest, AnotherProgramAndAnUnknownLoginWaitAlike) {
  {
    SignInGuard guard = Guard();
    for (int i = 0; i < 5; ++i) {
      WaitOf(guard, "admin");
      WaitOf(guard, "nobody");
    }
  }
  SignInGuard later = Guard();
  EXPECT_EQ(WaitOf(later, "admin", "admin"), 5);
  EXPECT_EQ(WaitOf(later, "nobody"), 5);
  EXPECT_EQ(WaitOf(later, "anbar", "anbar"), 0);
}

TEST_F(SignInGuardTest, ADayWithoutATryBeginsAnewAndAClockSetBackDoesNotLengthenTheWait) {
  SignInGuard guard = Guard();
  for (int i = 0; i < 5; ++i) WaitOf(guard, "admin");
  now_ -= 1'000'000;
  EXPECT_EQ(WaitOf(guard, "admin"), 5);
  now_ += 5;
  EXPECT_EQ(WaitOf(guard, "admin"), 0);
  EXPECT_EQ(WaitOf(guard, "admin"), 10);
  now_ += 24 * 60 * 60 + 1;
  EXPECT_EQ(WaitOf(guard, "admin"), 0);
  EXPECT_EQ(WaitOf(guard, "admin"), 0);
}

TEST_F(SignInGuardTest, WhateverNumbersAFileHoldsTheWaitIsAtMostFiveMinutes) {
  SignInGuard guard = Guard();
  for (const char* numbers : {"9223372036854775807, 9223372036854775807", "9223372036854775807, 1700000000",
                              "-9223372036854775808, -9223372036854775808"}) {
    Database(file_.Path(), SQLITE_OPEN_READWRITE)
        .Run(std::string("INSERT OR REPLACE INTO SignInFailures VALUES('admin', ") + numbers + ")");
    EXPECT_LE(WaitOf(guard, "admin"), 300) << numbers;
    now_ += 301;
    EXPECT_EQ(WaitOf(guard, "admin", "admin"), 0) << numbers;
  }
}

TEST_F(SignInGuardTest, UsersThatAreLookedUpElsewhereWaitAlike) {
  SignInGuard guard({}, [this] { return now_; });
  int looked = 0;
  const auto wrong = [&]() -> std::optional<UserRecord> {
    ++looked;
    return std::nullopt;
  };
  for (int i = 0; i < 2'000; ++i) guard.SignIn("login" + std::to_string(i), wrong);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(guard.SignIn("admin", wrong), std::nullopt);
  EXPECT_THROW(guard.SignIn("admin", wrong), SignInDelayed);
  EXPECT_EQ(looked, 2'005);
  now_ += 5;
  EXPECT_TRUE(guard.SignIn("admin", [] { return UserRecord(); }));
  EXPECT_EQ(guard.SignIn("admin", wrong), std::nullopt);
}

TEST_F(SignInGuardTest, TheLatestThousandLoginsAreKept) {
  {
    Database db(file_.Path(), SQLITE_OPEN_READWRITE);
    Transaction transaction(db);
    Statement fill = db.Prepare("INSERT INTO SignInFailures VALUES(?1, 5, ?2)");
    for (std::int64_t i = 0; i < 1'500; ++i) {
      fill.Bind(1, std::string_view("login" + std::to_string(i)));
      fill.Bind(2, now_ - 2'000 + i);
      fill.Run();
    }
    transaction.Commit();
  }
  SignInGuard guard = Guard();
  WaitOf(guard, "admin");
  EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM SignInFailures"), 1'000);
  EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM SignInFailures WHERE Login = 'admin'"), 1);
}

TEST(PasswordTest, RandomOnesAreLongPlainAndNeverTheSame) {
  std::set<std::string> made;
  for (int i = 0; i < 200; ++i) {
    const std::string password = MakePassword();
    EXPECT_EQ(password.size(), 19U);
    EXPECT_EQ(password.find_first_of("0O1lI"), std::string::npos) << password;
    EXPECT_TRUE(std::all_of(password.begin(), password.end(),
                            [](unsigned char c) { return c == '-' || std::isalnum(c) != 0; }));
    made.insert(password);
  }
  EXPECT_EQ(made.size(), 200U);
}

TEST(RightNamesTest, EveryKeyAndEveryRightStandsOnceAndIsFoundAgain) {
  std::set<std::string_view> keys;
  std::set<UserRight> rights;
  for (const NamedRight& each : NamedRights()) {
    EXPECT_TRUE(keys.insert(each.key).second) << each.key;
    EXPECT_TRUE(rights.insert(each.right).second) << each.key;
    EXPECT_FALSE(each.group.empty());
    EXPECT_FALSE(each.text.empty());
    EXPECT_EQ(ParseRight(each.key), each.right);
    EXPECT_EQ(RightKey(each.right), each.key);
  }
  EXPECT_EQ(ParseRight("503:6"), (UserRight{503, 6}));
  EXPECT_EQ(RightKey({503, 6}), "503:6");
  for (const char* none : {"", "nothing", ":", "1:", ":6", "a:b", "-1:6", "0:6", "99999999:1"}) {
    EXPECT_FALSE(ParseRight(none)) << none;
  }
}

}  // namespace
}  // namespace goods
