#include "tests/scripted/scripted_services.h"

#include <algorithm>

#include "host/components/form.h"
#include "host/core/text.h"

namespace goods {
namespace {

std::string WindowName(const TForm* form) { return form == nullptr ? "active" : form->Name(); }

// Puts it in the place of the one with its code, else at the end.
template <typename Coded>
void PutByCode(std::vector<Coded>& all, Coded one) {
  const auto same =
      std::find_if(all.begin(), all.end(), [&](const Coded& each) { return each.Code == one.Code; });
  if (same == all.end()) {
    all.push_back(std::move(one));
  } else {
    *same = std::move(one);
  }
}

}  // namespace

void ScriptedRights::SetAll(bool granted) {
  all_ = granted;
  rights_.clear();
}

void ScriptedRights::Set(int softwarePart, int permission, bool granted) {
  rights_[{softwarePart, permission}] = granted;
}

bool ScriptedRights::HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage,
                                    bool logged, std::string_view text) {
  log_.Add(CallKind::Right,
           CallText("HavePermission", user.Code, softwarePart, permission, showMessage, logged, text));
  const auto right = rights_.find({softwarePart, permission});
  return right == rights_.end() ? all_ : right->second;
}

void ScriptedRights::SetUserEvent(int softwarePart, int permission, std::int64_t code) {
  log_.Add(CallKind::Right, CallText("SetUserEvent", softwarePart, permission, code));
}

void ScriptedMessages::ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) {
  log_.Add(CallKind::Message, CallText("ShowSmartMessage", text, caption, static_cast<int>(icon)));
}

void ScriptedMessages::ShowSmartMessage(int number, std::string_view inserted) {
  log_.Add(CallKind::Message, CallText("ShowSmartMessage", number, inserted));
}

void ScriptedMessages::OpenOther(std::string_view text, std::string_view name) {
  log_.Add(CallKind::Message, CallText("OpenOther", text, name));
}

void ScriptedMessages::MsgWithoutGardesh(std::string_view name) {
  log_.Add(CallKind::Message, CallText("MsgWithoutGardesh", name));
}

void ScriptedMessages::MsgRequiredField(std::string_view name) {
  log_.Add(CallKind::Message, CallText("MsgRequiredField", name));
}

void ScriptedMessages::ShowTooltipMessage(const TControl& beside, std::string_view text, int width) {
  log_.Add(CallKind::Message, width == 0 ? CallText("ShowTooltipMessage", beside.Name(), text)
                                         : CallText("ShowTooltipMessage", beside.Name(), text, width));
}

void ScriptedMessages::ShowError(const std::exception& error) {
  if (dynamic_cast<const StatementCancelled*>(&error) != nullptr) return;
  log_.Add(CallKind::Message, CallText("ShowError", std::string_view(error.what())));
}

void ScriptedWaiting::ShowWaitting(TForm* owner, std::string_view text) {
  log_.Add(CallKind::Waiting, "ShowWaitting(" + WindowName(owner) + ", " + InQuotes(text) + ")");
  shown_ = true;
  Acknowledged = false;
  owner_ = owner;
  text_ = std::string(text);
}

void ScriptedWaiting::HideWaitting(TForm* owner, int reserved) {
  log_.Add(CallKind::Waiting, "HideWaitting(" + WindowName(owner) + ", " + std::to_string(reserved) + ")");
  if (!shown_) {
    log_.AddMisuse("the waiting indicator is hidden by " + WindowName(owner) + " while it is not shown");
  } else if (owner != owner_) {
    log_.AddMisuse("the waiting indicator is hidden by " + WindowName(owner) + " but shown by " +
                   WindowName(owner_));
  }
  shown_ = false;
}

void ScriptedSettings::SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                                       std::string_view text) {
  log_.Add(CallKind::Setting, CallText("SaveSettingItem", softwarePart, item, on, number, text));
}

std::string ScriptedSettings::ReadSection(std::string_view section) const {
  return FindSection(section).value_or("");
}

void ScriptedSettings::WriteSection(std::string_view section, std::string_view text) {
  log_.Add(CallKind::Setting, CallText("WriteSection", section, text));
  GiveSection(section, std::string(text));
}

void ScriptedSettings::GiveSection(std::string_view section, std::string text) {
  sections_[LowerAscii(section)] = std::move(text);
}

std::optional<std::string> ScriptedSettings::FindSection(std::string_view section) const {
  const auto found = sections_.find(LowerAscii(section));
  return found == sections_.end() ? std::nullopt : std::optional(found->second);
}

// A question like a look-up, not a document that opens.
bool ScriptedDocuments::DontSavedVouchers(std::string_view kind) {
  log_.Add(CallKind::Lookup, CallText("DontSavedVouchers", kind));
  return UnsavedVouchers.contains(kind);
}

void ScriptedPrinting::Preview(const PrintJob& job) {
  log_.Add(CallKind::Print, CallText("Preview", job.title));
  PrintedReport report{job.title, job.lines, job.parameters, job.options, {}, {}, {}, false};
  if (job.table == nullptr) {
    log_.AddMisuse("a print job without a table");
  } else {
    for (const ReportColumn& column : job.table->Columns()) report.columns.push_back(column.caption);
    for (std::size_t row = 0; row < job.table->RowCount(); ++row) {
      std::vector<std::string>& cells = report.rows.emplace_back();
      for (std::size_t i = 0; i < report.columns.size(); ++i) cells.push_back(job.table->CellText(row, i));
    }
    for (std::size_t i = 0; job.table->HasFooter() && i < report.columns.size(); ++i) {
      report.footers.push_back(job.table->FooterText(i));
    }
    report.rowNumbers = job.table->HasRowNumbers();
  }
  Jobs.push_back(std::move(report));
  if (WhileOpen) WhileOpen();
}

void ScriptedLookups::GiveTag(TTag tag) { PutByCode(tags_, std::move(tag)); }
void ScriptedLookups::GiveCategory(TCategory category) { PutByCode(categories_, std::move(category)); }

void ScriptedLookups::FailIfTold(const std::string& call) {
  log_.Add(CallKind::Lookup, call);
  if (++asked_ == failAt_) throw DatabaseError(failAtMessage_, call);
  if (failure_) {
    const std::string message = *std::exchange(failure_, std::nullopt);
    throw DatabaseError(message, call);
  }
}

void ScriptedLookups::Give(EntityType type, std::int64_t code, Entity entity) {
  entities_[{type, code}] = std::move(entity);
}

std::optional<std::vector<std::string>> ScriptedLookups::LookupDBs(EntityType type, std::int64_t code,
                                                                   std::string_view fields) {
  const std::string call =
      "LookupDBs(" + EntityName(type) + ", " + std::to_string(code) + ", " + InQuotes(fields) + ")";
  FailIfTold(call);
  std::optional<Entity> entity;
  if (const auto given = entities_.find({type, code}); given != entities_.end()) {
    entity = given->second;
  } else if (Otherwise) {
    entity = Otherwise(type, code);
  }
  if (!entity) return std::nullopt;
  std::vector<std::string> values;
  for (const std::string& field : Split(fields, ';')) {
    const auto value = entity->find(field);
    if (value == entity->end()) log_.AddMisuse(call + " asks for " + field + ", which is not given");
    values.push_back(value == entity->end() ? std::string() : value->second);
  }
  return values;
}

std::optional<std::int64_t> ScriptedLookups::SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                                          std::string_view filter) {
  log_.Add(CallKind::Lookup, "SelectEntity(" + WindowName(owner) + ", " + EntityName(type) + ", " +
                                 std::to_string(current) + ", " + InQuotes(filter) + ")");
  if (picks_.empty()) {
    log_.AddMisuse("a picker opens, and nothing says what is chosen in it");
    return std::nullopt;
  }
  const auto pick = picks_.front();
  picks_.pop_front();
  return pick;
}

std::string ScriptedLookups::ReturnCategoryName(std::string_view categoryCode) {
  log_.Add(CallKind::Lookup, CallText("ReturnCategoryName", categoryCode));
  for (const TCategory& category : categories_) {
    if (category.Code == categoryCode) return category.Name;
  }
  return {};
}

std::vector<TTag> ScriptedLookups::Tags() {
  FailIfTold("Tags()");
  return tags_;
}

std::vector<TCategory> ScriptedLookups::Categories() {
  FailIfTold("Categories()");
  return categories_;
}

std::optional<std::vector<std::string>> ScriptedLookups::SelectCategories(
    TForm* owner, const std::vector<std::string>& chosen) {
  std::string codes;
  for (const std::string& code : chosen) codes += (codes.empty() ? "" : ",") + code;
  log_.Add(CallKind::Lookup, "SelectCategories(" + WindowName(owner) + ", " + InQuotes(codes) + ")");
  if (treePicks_.empty()) {
    log_.AddMisuse("the category tree opens, and nothing says what is chosen in it");
    return std::nullopt;
  }
  auto pick = std::move(treePicks_.front());
  treePicks_.pop_front();
  return pick;
}

std::string EntityName(EntityType type) {
  switch (type) {
    case EntityType::None:
      return "None";
    case EntityType::Store:
      return "Store";
    case EntityType::Person:
      return "Person";
    case EntityType::Good:
      return "Good";
    case EntityType::GoodGroup:
      return "GoodGroup";
    case EntityType::Category:
      return "Category";
    case EntityType::Unit:
      return "Unit";
  }
  return "EntityType " + std::to_string(static_cast<int>(type));
}

}  // namespace goods
