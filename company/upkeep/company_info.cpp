#include "company/upkeep/company_info.h"

#include <filesystem>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/files/file_path.h"

namespace goods {

namespace {

std::string Line(const char* caption, const std::string& text) {
  return std::string(caption) + ": " + text + "\n";
}
std::string Line(const char* caption, std::int64_t number) { return Line(caption, std::to_string(number)); }

}  // namespace

CompanyInfo ReadCompanyInfo(const std::string& path) {
  PrepareCompanyFile(path);
  try {
    Database db(path, SQLITE_OPEN_READONLY);
    db.Run("BEGIN");
    const auto count = [&](const char* table) {
      return db.AskInteger("SELECT count(*) FROM " + std::string(table));
    };
    CompanyInfo info;
    info.title = db.AskText("SELECT Value FROM Meta WHERE Key = 'Title'");
    info.schema = static_cast<int>(db.AskInteger("PRAGMA user_version"));
    info.bytes = static_cast<std::int64_t>(std::filesystem::file_size(PathOf(path)));
    info.goods = count("GoodInf");
    info.stores = count("Stores");
    info.persons = count("Persons");
    info.movements = count("Kardex");
    info.documents = count("Documents");
    info.detailRows = count("DetailKardex");
    info.batches = count("Batches");
    info.firstDate = db.AskText("SELECT min(Date) FROM Kardex");
    info.lastDate = db.AskText("SELECT max(Date) FROM Kardex");
    Statement users = db.Prepare(
        "SELECT Login, Name, EveryRight, EveryRight OR SeesPrices, PasswordHash <> '', "
        "(SELECT count(*) FROM UserRights r WHERE r.UserCode = u.Code) FROM Users u ORDER BY Code");
    while (users.Step()) {
      info.users.push_back({std::string(users.Text(0)), std::string(users.Text(1)), users.Integer(2) != 0,
                            users.Integer(3) != 0, users.Integer(4) != 0, users.Integer(5)});
    }
    return info;
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

std::string CompanyInfoText(const CompanyInfo& info) {
  std::string text = Line("نام", info.title) + Line("نسخه ساختار", info.schema) +
                     Line("اندازه فایل (بایت)", info.bytes) + Line("کالا", info.goods) +
                     Line("انبار", info.stores) + Line("شخص", info.persons) + Line("گردش", info.movements) +
                     Line("سند", info.documents) + Line("سطر جزییات", info.detailRows) +
                     Line("دسته های افزوده از فایل", info.batches);
  if (!info.firstDate.empty()) text += Line("تاریخ گردش ها", info.firstDate + " تا " + info.lastDate);
  for (const CompanyInfo::User& user : info.users) {
    text +=
        Line("کاربر", user.login + " (" + user.name + ")، " +
                          (user.everyRight ? "همه حقوق" : std::to_string(user.rights) + " حق") +
                          (user.seesPrices ? "" : "، بی قیمت") + (user.hasPassword ? "" : "، بی گذرواژه"));
  }
  return text;
}

}  // namespace goods
