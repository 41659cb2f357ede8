#include "company/demo/demo_company.h"

#include <string_view>

#include "company/company.h"
#include "company/demo/demo_goods.h"
#include "company/demo/demo_movements.h"
#include "company/embedded/password.h"

namespace goods {

namespace {

struct DemoUser {
  std::int64_t code;
  const char* login;
  const char* name;
  bool everyRight;
};

constexpr DemoUser kUsers[] = {
    {1, "admin", "مدیر", true}, {2, "anbar", "انباردار", false}, {3, "guest", "مهمان", false}};

// The storekeeper opens and prints the quantity reports and the stock's own documents, and uses saved lists.
// Missing: the money list (part 502 whole, with 24, 5021 and 34), stock values (permission 24 on any part),
// invoices (201, 204, 205), vouchers (401) and advanced production (1101).
constexpr int kStorekeeperRights[][2] = {{501, 6}, {501, 7},  {501, 23}, {501, 34}, {509, 6}, {509, 23},
                                         {510, 6}, {510, 23}, {513, 6},  {513, 23}, {528, 6}, {528, 23},
                                         {531, 6}, {531, 23}, {102, 2},  {210, 2},  {211, 2}, {212, 2},
                                         {213, 2}, {302, 2},  {310, 2}};

void WriteUsers(CompanyWriter& writer, std::uint64_t seed) {
  for (const DemoUser& user : kUsers) {
    const PasswordSalt salt = SaltFrom(std::to_string(seed) + ":" + user.login);
    writer.AddUser(user.code, user.login, user.name, HashPassword(user.login, salt), user.everyRight,
                   user.everyRight);
  }
  Statement right =
      writer.Tables().Prepare("INSERT INTO UserRights(UserCode, Part, Permission) VALUES(2, ?1, ?2)");
  for (const auto& [part, permission] : kStorekeeperRights) {
    right.Bind(1, std::int64_t{part});
    right.Bind(2, std::int64_t{permission});
    right.Run();
  }
}

void CheckOptions(const DemoOptions& options) {
  if (options.goods < 1 || options.goods > 1'000'000)
    throw CompanyError("شمار کالاها باید از 1 تا 1000000 باشد.");
  if (options.stores < 1 || options.stores > 1'000)
    throw CompanyError("شمار انبارها باید از 1 تا 1000 باشد.");
  if (options.movements < 0 || options.movements > 100'000'000) {
    throw CompanyError("شمار گردش ها باید از 0 تا 100000000 باشد.");
  }
}

}  // namespace

void MakeDemoCompany(const std::string& path, const DemoOptions& options, const WorkWatcher& watcher) {
  CheckOptions(options);
  try {
    CompanyWriter writer(path, options.replace, watcher);
    writer.SetTitle("شرکت نمونه");
    Random random(options.seed);
    WriteDemoStores(writer, options);
    const std::vector<DemoGood> goods = WriteDemoGoods(writer, options, random);
    const DemoPeople people = WriteDemoPeople(writer, options);
    WriteDemoTables(writer);
    WriteUsers(writer, options.seed);
    {
      WorkMeter meter(watcher, "ساختن گردش ها", options.movements);
      DemoMovements movements(writer, options, goods, people, random,
                              [&meter](std::int64_t made) { meter.Reach(made); });
      movements.Run();
    }
    writer.Finish();
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error) + " (" + path + ")");
  }
}

}  // namespace goods
