// SignInGuard: failed sign-ins are counted and answered with a growing delay.
#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <utility>

#include "company/embedded/password.h"
#include "company/embedded/users.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::int64_t kFreeFailures = 5;
constexpr std::int64_t kFirstDelay = 5;
constexpr std::int64_t kLongestDelay = 300;
constexpr std::size_t kLoginKept = 60;  // characters of what was typed
constexpr std::size_t kLoginsKept = 1'000;
constexpr std::int64_t kMostFailures = 1'000'000;
// A forgotten password is no attack: a day without a try begins anew.
constexpr std::int64_t kForgottenAfter = std::int64_t{24} * 60 * 60;

struct Known {
  UserRecord user;
  std::string hash;
};

// Reads to the end, so that no lock is held while the password is looked at.
std::optional<Known> Find(Database& db, std::string_view login) {
  Statement user = db.Prepare(
      "SELECT Code, Login, Name, EveryRight, EveryRight OR SeesPrices, PasswordHash FROM Users "
      "WHERE Login = ?1");
  user.Bind(1, login);
  if (!user.Step()) return std::nullopt;
  return Known{{user.Integer(0), std::string(user.Text(1)), std::string(user.Text(2)), user.Integer(3) != 0,
                user.Integer(4) != 0},
               std::string(user.Text(5))};
}

std::string KeyOf(std::string_view login) { return std::string(FirstChars(login, kLoginKept)); }

}  // namespace

SignInDelayed::SignInDelayed(std::int64_t seconds)
    : CompanyError("پس از چند بار گذرواژه نادرست، ورود این کاربر تا " + std::to_string(seconds) +
                   " ثانیه دیگر پذیرفته نمی شود."),
      seconds_(seconds) {}

SignInDelayed::~SignInDelayed() = default;

std::int64_t SignInDelay(std::int64_t failures) {
  if (failures < kFreeFailures) return 0;
  const std::int64_t doublings = std::min<std::int64_t>(failures - kFreeFailures, 10);
  return std::min(kFirstDelay << doublings, kLongestDelay);
}

SignInGuard::SignInGuard(CompanyOpening forWriting, Clock clock)
    : forWriting_(std::move(forWriting)), clock_(std::move(clock)) {}

SignInGuard::SignInGuard(CompanyOpening forWriting)
    : SignInGuard(std::move(forWriting), [] { return static_cast<std::int64_t>(std::time(nullptr)); }) {}

std::optional<UserRecord> SignInGuard::SignIn(Database& db, std::string_view login,
                                              std::string_view password) {
  const std::string key = KeyOf(login);
  return SignIn(key, FailuresOf(db, key), [&]() -> std::optional<UserRecord> {
    const std::optional<Known> known = Find(db, login);
    if (!(known ? VerifyPassword(password, known->hash) : VerifyNothing(password))) return std::nullopt;
    return known->user;
  });
}

std::optional<UserRecord> SignInGuard::SignIn(std::string_view login, const Check& check) {
  const std::string key = KeyOf(login);
  return SignIn(key, Unwritten(key), check);
}

std::optional<UserRecord> SignInGuard::SignIn(const std::string& key, Failures failures, const Check& check) {
  const std::int64_t now = clock_();
  if (now - failures.last > kForgottenAfter) failures = {};
  if (failures.last > now) {  // the clock was set back: the wait begins now
    failures.last = now;
    Keep(key, failures);
  }
  const std::int64_t left = SignInDelay(failures.count) - (now - failures.last);
  if (left > 0) throw SignInDelayed(left);

  std::optional<UserRecord> user = check();
  if (!user) {
    Keep(key, {failures.count + 1, now});
  } else if (failures.count > 0) {
    Forget(key);
  }
  return user;
}

SignInGuard::Failures SignInGuard::Unwritten(const std::string& login) const {
  const auto unwritten = unwritten_.find(login);
  return unwritten == unwritten_.end() ? Failures() : unwritten->second;
}

SignInGuard::Failures SignInGuard::FailuresOf(Database& db, const std::string& login) const {
  Failures failures;
  Statement kept = db.Prepare("SELECT Failures, LastFailure FROM SignInFailures WHERE Login = ?1");
  kept.Bind(1, std::string_view(login));
  if (kept.Step()) {
    // A file may hold any number.
    failures.count = std::clamp<std::int64_t>(kept.Integer(0), 0, kMostFailures);
    failures.last = std::max<std::int64_t>(kept.Integer(1), 0);
  }
  const Failures unwritten = Unwritten(login);
  return unwritten.count > failures.count ? unwritten : failures;
}

void SignInGuard::Keep(const std::string& login, Failures failures) {
  const bool written = Write([&](Database& db) {
    Statement keep = db.Prepare(
        "INSERT INTO SignInFailures(Login, Failures, LastFailure) VALUES(?1, ?2, ?3) "
        "ON CONFLICT(Login) DO UPDATE SET Failures = ?2, LastFailure = ?3");
    keep.Bind(1, std::string_view(login));
    keep.Bind(2, failures.count);
    keep.Bind(3, failures.last);
    keep.Run();
    db.Run(
        "DELETE FROM SignInFailures WHERE Login NOT IN "
        "(SELECT Login FROM SignInFailures ORDER BY LastFailure DESC LIMIT " +
        std::to_string(kLoginsKept) + ")");
  });
  unwritten_.erase(login);
  if (written) return;
  if (unwritten_.size() >= kLoginsKept) {
    unwritten_.erase(std::min_element(unwritten_.begin(), unwritten_.end(), [](const auto& a, const auto& b) {
      return a.second.last < b.second.last;
    }));
  }
  unwritten_[login] = failures;
}

void SignInGuard::Forget(const std::string& login) {
  unwritten_.erase(login);
  Write([&](Database& db) {
    Statement forget = db.Prepare("DELETE FROM SignInFailures WHERE Login = ?1");
    forget.Bind(1, std::string_view(login));
    forget.Run();
  });
}

bool SignInGuard::Write(const std::function<void(Database&)>& change) const {
  if (!forWriting_) return false;
  try {
    Database db = forWriting_();
    Transaction transaction(db);
    change(db);
    transaction.Commit();
    return true;
  } catch (const std::runtime_error&) {
    return false;  // read-only, full, locked or taken away: signing in goes on
  }
}

}  // namespace goods
