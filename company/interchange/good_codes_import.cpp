// Goods' tags and categories: files with one code a row, a list of codes in the good.
#include <map>

#include "company/interchange/table_import.h"

namespace goods {

std::vector<ColumnTitle> GoodCodesTitles(const char* title) {
  return {{"good|کالا|کد کالا", true}, {title, true}};
}

std::vector<ColumnTitle> CompanyTitles() { return {{"title|عنوان|نام", true}}; }

void ReadGoodCodes(ImportSession& session, const char* file, const char* title, Entity entity,
                   const char* column) {
  TableReader reader(session.source, file, GoodCodesTitles(title));
  if (!reader.Open(false)) return;
  std::map<std::int64_t, std::string> codes;
  while (reader.Next()) {
    const std::optional<std::int64_t> good = session.Book(Entity::Good).Find(reader.Field(0));
    if (!good) reader.Refuse("کالا «" + std::string(reader.Field(0)) + "» تعریف نشده است");
    const std::optional<std::int64_t> code = session.Book(entity).Find(reader.Field(1));
    if (!code) {
      reader.Refuse(std::string(EntityName(entity)) + " «" + std::string(reader.Field(1)) +
                    "» تعریف نشده است");
    }
    if (reader.Refused()) continue;
    std::string& list = codes[*good];
    if (list.empty()) list = ",";
    list += std::to_string(*code) + ",";
  }
  if (session.source.problems.Total() > 0) return;
  Statement update =
      session.db.Prepare("UPDATE GoodInf SET " + std::string(column) + " = ?2 WHERE Code = ?1");
  for (const auto& [good, list] : codes) {
    update.Bind(1, good);
    update.Bind(2, std::string_view(list));
    update.Run();
  }
}

}  // namespace goods
