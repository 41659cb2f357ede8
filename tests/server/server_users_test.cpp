// Users of a company on a server, managed as those of a file.
#include "server_fixture.h"

namespace goods {
namespace {

constexpr char kPassword[] = "a long password";

class ServerUsersTest : public ::testing::Test {
 protected:
  void SetUp() override {
    GOODS_NEEDS_SERVER();
    DemoOptions options;
    options.goods = 10;
    options.movements = 100;
    both_ = std::make_unique<TwoEngines>(options);
  }

  IUsers& Users() { return both_->Server().Users(); }
  CompanyUser Find(const char* login) {
    for (CompanyUser& user : Users().List()) {
      if (user.login == login) return std::move(user);
    }
    ADD_FAILURE() << login;
    return {};
  }

  std::unique_ptr<TwoEngines> both_;
};

TEST_F(ServerUsersTest, AreThoseOfTheFileThatItWasFilledFrom) {
  const std::vector<CompanyUser> ours = both_->File().Users().List();
  const std::vector<CompanyUser> theirs = Users().List();
  ASSERT_EQ(theirs.size(), ours.size());
  for (std::size_t i = 0; i < ours.size(); ++i) {
    EXPECT_EQ(theirs[i].login, ours[i].login);
    EXPECT_EQ(theirs[i].name, ours[i].name);
    EXPECT_EQ(theirs[i].everyRight, ours[i].everyRight);
    EXPECT_EQ(theirs[i].seesPrices, ours[i].seesPrices);
    EXPECT_EQ(theirs[i].rights, ours[i].rights);
  }
  EXPECT_FALSE(both_->Server().SignIn("anbar", "anbar")->seesPrices);
  EXPECT_TRUE(both_->Server().SignIn("admin", "admin")->seesPrices);
}

TEST_F(ServerUsersTest, AreAddedChangedAndRemoved) {
  CompanyUser user;
  user.login = "sara";
  user.name = "سارا's";
  user.seesPrices = false;
  user.rights = {{501, 6}, {509, 6}};
  const std::int64_t code = Users().Add(user, kPassword);
  EXPECT_EQ(Find("sara").name, "سارا's");
  EXPECT_EQ(Find("sara").rights, user.rights);
  const auto signedIn = both_->Server().SignIn("sara", kPassword);
  ASSERT_TRUE(signedIn);
  EXPECT_FALSE(signedIn->seesPrices);
  EXPECT_TRUE(both_->Server().HasRight(*signedIn, 501, 6));
  EXPECT_FALSE(both_->Server().HasRight(*signedIn, 502, 6));

  user.code = code;
  user.seesPrices = true;
  user.rights = {{502, 6}};
  Users().Change(user);
  EXPECT_EQ(Find("sara").rights, user.rights);
  Users().SetPassword(code, "another password");
  EXPECT_FALSE(both_->Server().SignIn("sara", kPassword));
  EXPECT_TRUE(both_->Server().SignIn("sara", "another password")->seesPrices);

  EXPECT_THROW(Users().Add(user, kPassword), CompanyError);
  Users().Remove(code);
  EXPECT_FALSE(both_->Server().SignIn("sara", "another password"));
}

TEST_F(ServerUsersTest, SomebodyWithEveryRightAlwaysStays) {
  CompanyUser manager = Find("admin");
  EXPECT_THROW(Users().Remove(manager.code), CompanyError);
  manager.everyRight = false;
  EXPECT_THROW(Users().Change(manager), CompanyError);
  EXPECT_TRUE(Find("admin").everyRight);
}

}  // namespace
}  // namespace goods
