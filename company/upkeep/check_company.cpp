#include "company/upkeep/check_company.h"

#include <set>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/upkeep/card_check.h"
#include "host/core/text.h"

namespace goods {

namespace {

// A question whose rows are differences: the text with {1}, {2}, ... replaced by the columns.
struct Question {
  const char* sql;
  const char* text;
};

constexpr Question kQuestions[] = {
    {"SELECT DISTINCT k.Kala FROM Kardex k LEFT JOIN GoodInf g ON g.Code = k.Kala WHERE g.Code IS NULL",
     "گردش هایی از کالای {1} هست که تعریف نشده است"},
    {"SELECT k.Anbar, count(*) FROM Kardex k LEFT JOIN Stores s ON s.Code = k.Anbar WHERE s.Code IS NULL "
     "GROUP BY 1",
     "{2} گردش در انبار {1} است که تعریف نشده است"},
    {"SELECT k.Percode, count(*) FROM Kardex k LEFT JOIN Persons p ON p.Code = k.Percode"
     " WHERE k.Percode <> 0 AND p.Code IS NULL GROUP BY 1",
     "{2} گردش از شخص {1} است که تعریف نشده است"},
    {"SELECT k.Type, count(*) FROM Kardex k LEFT JOIN MovementTypes m ON m.Type = k.Type WHERE m.Type IS NULL"
     " GROUP BY 1",
     "{2} گردش از نوع {1} است که شناخته نیست"},
    {"SELECT DISTINCT m.Kind, k.OperationCode FROM Kardex k JOIN MovementTypes m ON m.Type = k.Type"
     " LEFT JOIN Documents d ON d.Kind = m.Kind AND d.Code = k.OperationCode"
     " WHERE m.Kind <> 4 AND d.Code IS NULL",
     "سند {2} از نوع {1} سربرگ ندارد"},
    {"SELECT d.Kind, d.Code FROM Documents d WHERE NOT EXISTS(SELECT 1 FROM MovementTypes m JOIN Kardex k"
     " ON k.Type = m.Type AND k.OperationCode = d.Code WHERE m.Kind = d.Kind)",
     "سند {2} از نوع {1} سطری ندارد"},
    {"SELECT d.Kind, d.Code, d.Percode FROM Documents d LEFT JOIN Persons p ON p.Code = d.Percode"
     " WHERE d.Percode <> 0 AND p.Code IS NULL",
     "سند {2} از نوع {1} از شخص {3} است که تعریف نشده است"},
    {"SELECT d.Kala, d.Date, d.Radif, d.DetailValueID FROM DetailKardex d LEFT JOIN Kardex k ON k.Kala = "
     "d.Kala AND"
     " k.Date = d.Date AND k.Radif = d.Radif WHERE k.Radif IS NULL",
     "جزییات {4} کالای {1} در {2}، ردیف {3}، گردشی ندارد"},
    {"SELECT d.Kala, d.Date, d.Radif, d.DetailValueID FROM DetailKardex d JOIN Kardex k ON k.Kala = d.Kala "
     "AND"
     " k.Date = d.Date AND k.Radif = d.Radif WHERE k.Anbar <> d.Anbar OR k.Percode <> d.Percode OR k.Type <> "
     "d.Type"
     " OR k.OperationCode <> d.OperationCode OR k.OperationRow <> d.OperationRow",
     "جزییات {4} کالای {1} در {2}، ردیف {3}، با گردش خود یکی نیست"},
    {"SELECT d.ID, d.Kala, x.Kala FROM DetailKardex x JOIN DetailValues d ON d.ID = x.DetailValueID"
     " WHERE d.Kala <> x.Kala GROUP BY 1, 2, 3",
     "ترکیب جزییات {1} از کالای {2} است و گردش کالای {3} را دارد"},
    {"SELECT c.Code, c.ParentCode FROM Categories c LEFT JOIN Categories p ON p.Code = c.ParentCode"
     " WHERE c.ParentCode <> 0 AND p.Code IS NULL",
     "سردسته {2} دسته {1} تعریف نشده است"},
    {"SELECT r.UserCode FROM UserRights r LEFT JOIN Users u ON u.Code = r.UserCode WHERE u.Code IS NULL "
     "GROUP BY 1",
     "حقی از کاربر {1} هست که نیست"},
    {"SELECT Radif, count(*) FROM Kardex GROUP BY Radif HAVING count(*) > 1", "ردیف {1} {2} بار آمده است"},
};

class Check {
 public:
  Check(const std::string& path, const CheckOptions& options)
      : options_(options), db_(path, SQLITE_OPEN_READONLY) {
    db_.Run("PRAGMA cache_size = -65536; PRAGMA temp_store = FILE; BEGIN");
  }

  std::int64_t Run() {
    if (!CheckStructure()) return count_;
    CheckReferences();
    CheckGoodCodes("Tags", "TagS", "برچسب");
    CheckGoodCodes("category_code", "Categories", "دسته");
    CheckCards(db_, options_.watcher, [this](const std::string& text) { Tell(text); });
    return count_;
  }

 private:
  void Tell(const std::string& text) {
    ++count_;
    if (options_.difference) options_.difference(text);
  }

  // A file whose pages do not hold together cannot be asked anything else.
  bool CheckStructure() {
    const WatchedStatements watched(db_, options_.watcher, "ساختار فایل");
    Statement rows = db_.Prepare("PRAGMA integrity_check");
    while (rows.Step()) {
      if (rows.Text(0) != "ok") Tell("ساختار فایل: " + std::string(rows.Text(0)));
    }
    return count_ == 0;
  }

  void CheckReferences() {
    const WatchedStatements watched(db_, options_.watcher, "ارجاع ها");
    Statement keys = db_.Prepare("PRAGMA foreign_key_check");
    while (keys.Step()) {
      Tell("سطر " + std::string(keys.Text(1)) + " از جدول " + std::string(keys.Text(0)) + " به سطری از " +
           std::string(keys.Text(2)) + " ارجاع دارد که نیست");
    }
    for (const Question& question : kQuestions) {
      Statement rows = db_.Prepare(question.sql);
      while (rows.Step()) {
        std::string text = question.text;
        for (int column = 0; column < rows.Columns(); ++column) {
          text = ReplaceAll(text, "{" + std::to_string(column + 1) + "}", rows.Text(column));
        }
        Tell(text);
      }
    }
  }

  void CheckGoodCodes(const char* column, const char* table, const char* what) {
    std::set<std::string, std::less<>> known;
    Statement codes = db_.Prepare("SELECT Code FROM " + std::string(table));
    while (codes.Step()) known.emplace(codes.Text(0));
    Statement goods =
        db_.Prepare("SELECT Code, " + std::string(column) + " FROM GoodInf WHERE " + column + " <> ''");
    while (goods.Step()) {
      for (const std::string& code : Split(goods.Text(1), ',')) {
        if (Trim(code).empty() || known.contains(Trim(code))) continue;
        Tell(std::string(what) + " " + code + " کالای " + std::string(goods.Text(0)) + " تعریف نشده است");
      }
    }
  }

  const CheckOptions& options_;
  Database db_;
  std::int64_t count_ = 0;
};

}  // namespace

std::int64_t CheckCompany(const std::string& path, const CheckOptions& options) {
  PrepareCompanyFile(path);
  try {
    return RunStoppable([&] { return Check(path, options).Run(); });
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

}  // namespace goods
