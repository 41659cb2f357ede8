#include "company/kit/statement_company.h"

#include "company/kit/documents.h"

namespace goods {

ICompany::~ICompany() = default;
CompanyError::~CompanyError() = default;
OpeningCancelled::~OpeningCancelled() = default;

StatementCompany::StatementCompany() = default;
StatementCompany::~StatementCompany() = default;

void StatementCompany::Connect() {
  if (lookUps_ != nullptr) return;
  connection_ = OpenConnection();
  lookUps_ = std::make_unique<LookUps>(*connection_);
}

void StatementCompany::Disconnect() {
  lookUps_ = nullptr;
  connection_ = nullptr;
}

std::optional<EntityRecord> StatementCompany::FindEntity(EntityType type, std::int64_t code) {
  return Asked([&](LookUps& lookUps) { return lookUps.FindEntity(type, code); });
}

std::vector<EntityRecord> StatementCompany::SearchEntities(EntityType type, std::string_view text,
                                                           std::size_t limit) {
  return Asked([&](LookUps& lookUps) { return lookUps.SearchEntities(type, text, limit); });
}

std::optional<GoodRecord> StatementCompany::FindGood(std::int64_t code) {
  return Asked([&](LookUps& lookUps) { return lookUps.FindGood(code); });
}

std::string StatementCompany::CategoryName(std::int64_t code) {
  const std::optional<EntityRecord> category = FindEntity(EntityType::Category, code);
  return category ? category->name : std::string();
}

std::vector<TagRecord> StatementCompany::Tags() {
  return Asked([](LookUps& lookUps) { return lookUps.Tags(); });
}

std::vector<CategoryRecord> StatementCompany::Categories() {
  return Asked([](LookUps& lookUps) { return lookUps.Categories(); });
}

std::optional<DocumentView> StatementCompany::Document(DocumentKind kind, std::int64_t code) {
  return Asked([&](LookUps& lookUps) { return ReadDocument(lookUps, kind, code); });
}

std::vector<BusyGood> StatementCompany::ListBusyGoods(std::size_t limit) {
  return Asked([&](LookUps& lookUps) { return lookUps.ListBusyGoods(limit); });
}

}  // namespace goods
