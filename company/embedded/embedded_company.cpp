#include "company/embedded/embedded_company.h"

#include <utility>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/embedded_connection.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "company/embedded/users.h"
#include "company/kit/statement_company.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kLongestTitle = 200;

// Signing in and rights have no listener that could stop them.
constexpr std::uint64_t kMostInstructions = 500'000'000;

std::string Shortened(std::string text) {
  if (CharCount(text) > kLongestTitle) text = std::string(FirstChars(text, kLongestTitle - 1)) + "…";
  return text;
}

class EmbeddedCompany : public StatementCompany {
 public:
  EmbeddedCompany(std::string path, bool writable)
      : path_(std::move(path)),
        writable_(writable),
        db_(OpenCompanyDatabase(path_, SQLITE_OPEN_READONLY, Access::Read)),
        users_([this] { return OpenInPlace(SQLITE_OPEN_READONLY, Access::Read); },
               [this] { return OpenToWrite(); }),
        guard_([this] { return OpenToWrite(); }) {
    title_ = Shortened(db_.AskText("SELECT Value FROM Meta WHERE Key = 'Title'"));
  }

  std::string Title() const override { return title_; }

  std::unique_ptr<IConnection> OpenConnection() override {
    return Guarded([&] {
      auto connection = std::make_unique<EmbeddedConnection>(path_, writable_);
      CheckInPlace();  // so that it reached this company's file
      return connection;
    });
  }

  std::optional<UserRecord> SignIn(std::string_view login, std::string_view password) override {
    return Guarded([&] {
      std::optional<UserRecord> user = guard_.SignIn(db_, login, password);
      if (user) user->name = Shortened(std::move(user->name));
      return user;
    });
  }

  bool HasRight(const UserRecord& user, int softwarePart, int permission) override {
    return Guarded([&] {
      Statement right = db_.Prepare(
          "SELECT 1 FROM Users u WHERE u.Code = ?1 AND (u.EveryRight <> 0 OR EXISTS("
          "SELECT 1 FROM UserRights r WHERE r.UserCode = u.Code AND r.Part = ?2 AND r.Permission = ?3))");
      right.Bind(1, user.code);
      right.Bind(2, std::int64_t{softwarePart});
      right.Bind(3, std::int64_t{permission});
      return right.Step();
    });
  }

  IUsers& Users() override { return users_; }

 private:
  // What stands under the file's name now may be another company with other users.
  void CheckInPlace() const {
    if (db_.WasMoved()) throw CompanyError(std::string(kMovedMessage));
  }

  // A handle that reached this company's file.
  Database OpenInPlace(int flags, Access access) const {
    CheckInPlace();
    Database db = OpenCompanyDatabase(path_, flags, access);
    CheckInPlace();
    return db;
  }

  Database OpenToWrite() const {
    if (!writable_) throw CompanyError("فایل شرکت فقط خواندنی است و چیزی در آن نوشته نمی شود.");
    return OpenInPlace(SQLITE_OPEN_READWRITE, Access::Write);
  }

  template <typename Body>
  auto Guarded(Body body) const -> decltype(body()) {
    CheckInPlace();
    const ProgressWatch watch(db_.Handle(), nullptr, kMostInstructions);
    try {
      return body();
    } catch (const SqliteError& error) {
      throw CompanyError(PersianMessage(error));
    }
  }

  std::string path_;
  bool writable_;
  Database db_;
  EmbeddedUsers users_;
  SignInGuard guard_;
  std::string title_;
};

}  // namespace

std::unique_ptr<ICompany> OpenEmbeddedCompany(const std::string& path, IStatementProgress* progress) {
  const bool writable = PrepareCompanyFile(path, progress);
  try {
    return std::make_unique<EmbeddedCompany>(path, writable);
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error) + " (" + path + ")");
  }
}

}  // namespace goods
