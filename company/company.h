// What a host asks of a company database beside running statements: sign-in, rights, look-ups, documents.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/users.h"
#include "host/services/lookups.h"

namespace goods {

class IConnection;
class IStatementProgress;

// A company that cannot be opened, made or asked. The message is Persian and meant for the user.
class CompanyError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~CompanyError() override;
};

// The user stopped the opening of a company.
class OpeningCancelled : public CompanyError {
 public:
  using CompanyError::CompanyError;
  ~OpeningCancelled() override;
};

// The login has to wait after failed sign-ins; what() says how long.
class SignInDelayed : public CompanyError {
 public:
  explicit SignInDelayed(std::int64_t seconds);
  ~SignInDelayed() override;
  std::int64_t Seconds() const { return seconds_; }

 private:
  std::int64_t seconds_;
};

struct UserRecord {
  std::int64_t code = 0;
  std::string login;
  std::string name;
  bool everyRight = false;
  bool seesPrices = false;  // also with every right
};

using EntityKind = EntityType;

// unit and unit2 are the names of a good's units; empty for other kinds and where there is none.
struct EntityRecord {
  std::int64_t code = 0;
  std::string name;
  std::string unit;
  std::string unit2;
};

// What is known of one good. unitKind (1 to 5): which measures its details use. detailTitles: what it keeps
// at its five positions, empty where it keeps none.
struct GoodRecord {
  std::int64_t code = 0;
  std::string name;
  std::string unit;
  std::string unit2;
  std::string abbreviation;
  int unitKind = 2;
  std::array<std::string, 5> detailTitles;
};

// The documents behind the rows of a stock card. DetailSplit has no window of its own.
enum class DocumentKind {
  FixProduction = 1,
  SaleInvoice,
  PurchaseInvoice,
  GoodRecord,
  SaleReturn,
  PurchaseReturn,
  Transfer,
  VarProduction,
  ExpenseNote,
  Voucher,
  AdvancedProduction,
  IssueNote,
  ReceiptNote,
  RevenueNote,
  DetailSplit
};

// The kind of document that a row of this movement type came from; none for an unknown type.
std::optional<DocumentKind> DocumentKindOfMovement(int type);

struct DocumentColumn {
  std::string caption;
  bool number = false;  // set right, in Latin reading order
  bool money = false;   // prices or amounts
};

struct DocumentLine {
  std::string caption;
  std::string text;
  bool money = false;
};

// A document as a reader sees it: every text is ready to be shown.
struct DocumentView {
  std::string title;
  std::vector<DocumentLine> header;
  std::vector<DocumentColumn> columns;
  std::vector<std::vector<std::string>> rows;  // one text a column
  std::vector<DocumentLine> totals;
};

// The document without its prices and amounts: no column, line or total of them is left.
DocumentView WithoutPrices(DocumentView view);

// background is a colour text of company data ("$00BBGGRR", "#RRGGBB"), empty for none.
struct TagRecord {
  std::int64_t code = 0;
  std::string name;
  std::string background;
};

// parent is 0 at the top of the tree.
struct CategoryRecord {
  std::int64_t code = 0;
  std::string name;
  std::int64_t parent = 0;
};

struct BusyGood {
  std::int64_t code = 0;
  std::string name;
  std::int64_t movements = 0;
};

// An open company. Everything here but Users only reads. One object is used by one thread at a time;
// connections are independent of it and of each other. Failures throw CompanyError.
class ICompany {
 public:
  virtual ~ICompany();
  // At most 200 characters; a longer one ends in "…".
  virtual std::string Title() const = 0;
  // A new connection for statements; valid also after the company object is gone.
  virtual std::unique_ptr<IConnection> OpenConnection() = 0;

  // None when the login is unknown or the password is not its own; both take as long. After five failures in
  // a row the login has to wait, longer with each further one: SignInDelayed. A company in a file counts them
  // for every program, one on a server for this object.
  virtual std::optional<UserRecord> SignIn(std::string_view login, std::string_view password) = 0;
  virtual bool HasRight(const UserRecord& user, int softwarePart, int permission) = 0;
  // The users and their rights. Lives as long as the company.
  virtual IUsers& Users() = 0;

  virtual std::optional<EntityRecord> FindEntity(EntityKind kind, std::int64_t code) = 0;
  // Entities whose code begins with the text (when it is a number) or whose name holds each of its words, as
  // a Persian reader compares, or the abbreviation of a good, store or person does; by code. An empty text
  // gives the first ones. limit caps the answer.
  virtual std::vector<EntityRecord> SearchEntities(EntityKind kind, std::string_view text,
                                                   std::size_t limit) = 0;

  virtual std::optional<GoodRecord> FindGood(std::int64_t code) = 0;
  // Empty for an unknown code.
  virtual std::string CategoryName(std::int64_t code) = 0;
  // All of them, by code.
  virtual std::vector<TagRecord> Tags() = 0;
  virtual std::vector<CategoryRecord> Categories() = 0;

  // None when there is no such document. The code of a GoodRecord is the good's own.
  virtual std::optional<DocumentView> Document(DocumentKind kind, std::int64_t code) = 0;

  // The goods with the most movements, busiest first.
  virtual std::vector<BusyGood> ListBusyGoods(std::size_t limit) = 0;
};

// Opens the company that a description names: "file:PATH", or a path alone (UTF-8), is a company file;
// "server:ADDRESS" is a database on a server, its address with the password as docs/server.md writes it. An
// older file is brought up to date first; a file marked read-only is opened for reading, and its derived
// figures then cannot be refreshed. Throws CompanyError when there is no such company, or when it is damaged,
// cut short or newer than this program, holds anything but a company's tables, or is locked by another one; a
// file is then as it was. Nothing that a file defines is run. progress, which may be null, hears of long work
// (bringing a large company up to date) and can stop it: OpeningCancelled. Once a file is renamed, deleted or
// replaced, everything that is asked of the company fails with a message.
std::unique_ptr<ICompany> OpenCompany(const std::string& description, IStatementProgress* progress = nullptr);

bool IsOnServer(const std::string& description);
// The description as it may be shown and kept: without a password. Throws CompanyError when it cannot be
// read.
std::string ShownDescription(const std::string& description);

}  // namespace goods
