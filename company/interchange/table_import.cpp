#include "company/interchange/table_import.h"

#include <algorithm>

#include "company/interchange/import_fields.h"
#include "company/interchange/name_map.h"
#include "company/writer/movement.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

constexpr std::string_view kHashPrefix = "$argon2id$";
constexpr std::size_t kLongestHash = 127;

bool HasTextCodes(Entity entity) {
  return entity == Entity::Good || entity == Entity::Store || entity == Entity::Person;
}

bool IsNumber(std::string_view text) {
  return ReadWhole(text, std::numeric_limits<std::int64_t>::min() + 1, 0).has_value();
}

// "#RRGGBB" as grids take it, "$00BBGGRR"; empty for anything else.
std::string GridColor(std::string_view text) {
  if (text.size() != 7 || text[0] != '#' ||
      text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string_view::npos) {
    return "";
  }
  const std::string picture(text);
  return "$00" + picture.substr(5, 2) + picture.substr(3, 2) + picture.substr(1, 2);
}

}  // namespace

std::vector<ColumnTitle> TableTitles(const CompanyTable& table) {
  std::vector<ColumnTitle> titles;
  for (const TableField& field : table.fields) titles.push_back({field.names, field.required, field.instead});
  return titles;
}

TableImport::TableImport(ImportSession& session, const CompanyTable& table)
    : session_(session), table_(table), reader_(session.source, table.names, TableTitles(table)) {}

void TableImport::Run() {
  const bool needed = table_.entity == Entity::Good && !session_.adding;
  if (!reader_.Open(needed)) {
    session_.made[static_cast<std::size_t>(table_.entity)] = true;
    return;
  }
  if (HasTextCodes(table_.entity)) GiveTextsNumbers();
  Prepare();
  while (reader_.Next()) ReadRow();
}

// Codes that are texts get the numbers behind the largest one, in the order in which they first appear.
void TableImport::GiveTextsNumbers() {
  ImportProblems unheard;
  const WorkWatcher silent;
  const ImportSource again{session_.source.folder, session_.source.names, unheard, silent};
  TableReader codes(again, table_.names, TableTitles(table_));
  if (!codes.Open(false)) return;
  const TableField& field = table_.fields[0];
  std::vector<std::string> texts;
  std::int64_t largest = session_.Book(table_.entity).Largest();
  while (codes.Next()) {
    const std::string_view text = codes.Field(0);
    if (const std::optional<std::int64_t> code = ReadWhole(text, field.low, field.high)) {
      largest = std::max(largest, *code);
    } else if (!text.empty() && !IsNumber(text) && !session_.Book(table_.entity).Find(text)) {
      texts.push_back(FoldPersian(text));
    }
  }
  for (std::string& text : texts) {
    const auto [place, added] = textCodes_.try_emplace(std::move(text), largest + 1);
    if (added) ++largest;
  }
}

void TableImport::Prepare() {
  values_.resize(table_.fields.size());
  for (std::size_t i = 0; i < table_.fields.size(); ++i) {
    if (!reader_.Has(i)) continue;
    for (const std::string& column : Split(table_.fields[i].column, ',')) {
      if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) continue;
      columns_.push_back(column);
      fieldOf_.push_back(i);
    }
  }
  const auto add = [&](std::string_view column, std::size_t field) {
    if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) return;
    columns_.emplace_back(column);
    fieldOf_.push_back(field);
  };
  // The text of a code is kept here.
  for (std::size_t i = 0; HasTextCodes(table_.entity) && i < table_.fields.size(); ++i) {
    const std::string_view column = table_.fields[i].column;
    if (!textCodes_.empty() && (column == "AbbName" || column == "kala_index")) add(column, i);
    if (!session_.adding && column == "Status") add(column, i);
  }
  for (std::size_t i = 0; table_.entity == Entity::User && i < table_.fields.size(); ++i) {
    add(table_.fields[i].column, i);
  }
  insert_ = session_.db.Prepare(InsertSql());
}

std::string TableImport::InsertSql() const {
  std::string names;
  std::string parameters;
  std::string updates;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::string column = "\"" + columns_[i] + "\"";
    names += (i == 0 ? "" : ", ") + column;
    parameters += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
    if (fieldOf_[i] >= table_.keys)
      updates += (updates.empty() ? "" : ", ") + column + " = excluded." + column;
  }
  std::string keys;
  for (std::size_t i = 0; i < table_.keys; ++i) {
    keys += (i == 0 ? "\"" : ", \"") + std::string(table_.fields[i].column) + "\"";
  }
  // A good is called what it is called, unless the file says otherwise.
  const bool named = table_.entity == Entity::Good && !Split(names, ',').empty() &&
                     names.find("\"kala_name\"") == std::string::npos;
  if (named) {
    const auto name = std::find(columns_.begin(), columns_.end(), "Name") - columns_.begin();
    names += ", kala_name";
    parameters += ", ?" + std::to_string(name + 1);
  }
  return "INSERT INTO \"" + std::string(table_.table) + "\"(" + names + ") VALUES(" + parameters +
         ") ON CONFLICT(" + keys + ") DO " + (updates.empty() ? "NOTHING" : "UPDATE SET " + updates);
}

std::string TableImport::Label(std::size_t field) const {
  const std::vector<std::string> names = Split(table_.fields[field].names, '|');
  std::string persian = names.size() > 1 ? names[1] : names[0];
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (static_cast<unsigned char>(names[i][0]) >= 0x80) {
      return names[i] == "نام" ? "نام " + std::string(table_.what) : names[i];
    }
  }
  return persian;
}

bool TableImport::Refuse(const std::string& reason) {
  reader_.Refuse(reason);
  return false;
}

void TableImport::ReadRow() {
  codeText_.clear();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    values_[i] = Value();
    ReadField(i, values_[i]);
  }
  if (table_.entity == Entity::Good) FinishGood();
  if (table_.entity == Entity::User) FinishUser();
  if (reader_.Refused() || Repeated()) return;
  NoteEntity();
  if (session_.source.problems.Total() > 0) return;
  Bind();
  insert_.Run();
}

bool TableImport::ReadField(std::size_t field, Value& value) {
  const TableField& spec = table_.fields[field];
  const std::string_view text = reader_.Field(field);
  switch (spec.kind) {
    case FieldKind::Code:
      return ReadCode(field, text, value);
    case FieldKind::Text:
      return ReadText(field, text, value);
    case FieldKind::Name:
      return ReadName(field, text, value);
    case FieldKind::Colour:
      return ReadColor(field, text, value);
    case FieldKind::Link:
    case FieldKind::Login:
      return ReadLink(field, text, value);
    case FieldKind::Flag: {
      const std::optional<bool> flag = ReadFlag(text);
      if (!flag) return Refuse(Label(field) + " " + Quoted(text) + " بله یا خیر نیست");
      value.type = Value::Type::Whole;
      value.whole = *flag ? 1 : 0;
      return true;
    }
    case FieldKind::Whole: {
      const bool none = text.empty() && !spec.required;
      const std::optional<std::int64_t> number = none ? 0 : ReadWhole(text, spec.low, spec.high);
      if (!number) {
        return Refuse(Label(field) + " " + Quoted(text) + " عددی از " + std::to_string(spec.low) + " تا " +
                      std::to_string(spec.high) + " نیست");
      }
      value.type = Value::Type::Whole;
      value.whole = none ? spec.low : *number;
      return true;
    }
    case FieldKind::Number:
    case FieldKind::Ratio: {
      value.type = Value::Type::Number;
      if (text.empty()) {
        if (spec.kind == FieldKind::Ratio) value.type = Value::Type::Null;
        return true;
      }
      const std::optional<Decimal> number = ReadNumber(text, spec.high);
      if (spec.kind == FieldKind::Ratio && (!number || *number <= Decimal())) {
        return Refuse(Label(field) + " " + Quoted(text) + " عددی بزرگتر از صفر نیست");
      }
      if (!number) return Refuse(Label(field) + " " + Quoted(text) + " عددی پذیرفتنی نیست");
      value.number = *number;
      return true;
    }
  }
  return false;
}

bool TableImport::ReadCode(std::size_t field, std::string_view text, Value& value) {
  const TableField& spec = table_.fields[field];
  value.type = Value::Type::Whole;
  if (const std::optional<std::int64_t> code = ReadWhole(text, spec.low, spec.high)) {
    value.whole = *code;
    return true;
  }
  const auto known = textCodes_.find(FoldPersian(text));
  if (known != textCodes_.end() && known->second <= spec.high) {
    codeText_ = text;
    value.whole = known->second;
    return true;
  }
  if (HasTextCodes(table_.entity) && !text.empty() && !IsNumber(text)) {
    if (const std::optional<std::int64_t> code = session_.Book(table_.entity).Find(text)) {
      value.whole = *code;
      return true;
    }
    if (known != textCodes_.end()) return Refuse("برای کد " + Quoted(text) + " شماره ای نمانده است");
  }
  return Refuse("کد " + Quoted(text) + " عددی از " + std::to_string(spec.low) + " تا " +
                std::to_string(spec.high) + " نیست");
}

bool TableImport::ReadText(std::size_t field, std::string_view text, Value& value) {
  const TableField& spec = table_.fields[field];
  value.type = Value::Type::Text;
  value.text = text;
  if (text.empty() && spec.low > 0) return Refuse(Label(field) + " خالی است");
  if (CharCount(text) > static_cast<std::size_t>(spec.high)) {
    return Refuse(Label(field) + " بلندتر از " + std::to_string(spec.high) + " نویسه است");
  }
  return true;
}

bool TableImport::ReadName(std::size_t field, std::string_view text, Value& value) {
  const TableField& spec = table_.fields[field];
  value.type = Value::Type::Whole;
  // The code column beside it counts where it is there.
  for (std::size_t i = 0; i < field; ++i) {
    if (std::string_view(table_.fields[i].column) == spec.column && reader_.Has(i)) return true;
  }
  if (!ReadText(field, text, value)) return false;
  value.text.clear();
  value.type = Value::Type::Whole;
  if (!text.empty()) value.whole = FindOrMakeNamed(session_, spec.link, text);
  return true;
}

bool TableImport::ReadColor(std::size_t field, std::string_view text, Value& value) {
  value.type = Value::Type::Whole;
  const std::string grid = GridColor(text);
  if (grid.empty()) return ReadLink(field, text, value);
  CodeBook& book = session_.Book(Entity::Colour);
  const auto [place, added] = colors_.try_emplace(grid, book.Largest() + 1);
  value.whole = place->second;
  if (!added) return true;
  book.Add(place->second);
  Statement insert =
      session_.db.Prepare("INSERT INTO colors(code, Title, ColorText, \"H-img\") VALUES(?1, ?2, ?3, ?2)");
  insert.Bind(1, place->second);
  insert.Bind(2, text);
  insert.Bind(3, std::string_view(grid));
  insert.Run();
  return true;
}

bool TableImport::ReadLink(std::size_t field, std::string_view text, Value& value) {
  const TableField& spec = table_.fields[field];
  value.type = Value::Type::Whole;
  if (text.empty() && !spec.required) return true;
  const std::optional<std::int64_t> code = session_.Book(spec.link).Find(text);
  if (!code) {
    if (!spec.required && ReadWhole(text, 0, 0)) return true;
    return Refuse(std::string(EntityName(spec.link)) + " " + Quoted(text) + " تعریف نشده است");
  }
  value.whole = *code;
  return true;
}

TableImport::Value* TableImport::Of(std::string_view column) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i] == column) return &values_[fieldOf_[i]];
  }
  return nullptr;
}

void TableImport::FinishGood() {
  const Value* unit = Of("Unit2");
  const Value* ratio = Of("Meghdar_Formool");
  const bool hasUnit = unit != nullptr && unit->whole != 0;
  const bool hasRatio = ratio != nullptr && ratio->type == Value::Type::Number;
  if (!reader_.Refused() && (unit != nullptr || ratio != nullptr) && hasUnit != hasRatio) {
    reader_.Refuse("واحد دوم و نسبت آن باید با هم بیایند");
  }
  Value* status = Of("Status");
  for (std::size_t i = 0; status != nullptr && i < table_.fields.size(); ++i) {
    if (std::string_view(table_.fields[i].column) == "Status" && !reader_.Has(i)) status->whole = 1;
  }
}

void TableImport::FinishUser() {
  Value* hash = Of("PasswordHash");
  hash->type = Value::Type::Text;
  if (!hash->text.empty() && (!hash->text.starts_with(kHashPrefix) || hash->text.size() > kLongestHash)) {
    reader_.Refuse("درهم گذرواژه به شکل $argon2id$ نیست");
  }
}

bool TableImport::Repeated() {
  if (table_.entity != Entity::None) {
    if (seen_.Add(values_[0].whole)) return false;
    reader_.Refuse("کد " + std::to_string(values_[0].whole) + " تکراری است");
    return true;
  }
  std::vector<std::int64_t> key;
  for (std::size_t i = 0; i < table_.keys; ++i) key.push_back(values_[i].whole);
  if (keys_.insert(std::move(key)).second) return false;
  reader_.Refuse("این سطر تکراری است");
  return true;
}

void TableImport::NoteEntity() {
  ++session_.Count(table_.entity);
  if (table_.entity == Entity::None) return;
  const std::int64_t code = values_[0].whole;
  CodeBook& book = session_.Book(table_.entity);
  book.Add(code);
  Value* abbreviation = Of("AbbName");
  if (!codeText_.empty()) {
    book.AddText(codeText_, code);
    // The text of the code stays as the abbreviation; a good that has another keeps it as its index.
    Value* place = abbreviation;
    if (table_.entity == Entity::Good && abbreviation != nullptr && !abbreviation->text.empty()) {
      place = Of("kala_index");
    }
    if (place != nullptr && (place == abbreviation || place->text.empty())) place->text = codeText_;
  }
  if (abbreviation != nullptr) book.AddText(abbreviation->text, code);
  if (table_.entity == Entity::User) book.AddText(Of("Login")->text, code);
  if (table_.entity == Entity::Group || table_.entity == Entity::Unit) {
    session_.Names(table_.entity).try_emplace(Of("Name")->text, code);
  }
  if (table_.entity == Entity::Combination) session_.goodOfCombination[code] = Of("Kala")->whole;
  if (table_.entity != Entity::Good) return;
  const Value* ratio = Of("Meghdar_Formool");
  if (ratio == nullptr) return;
  const auto known = session_.ratios.find(code);
  const Decimal before = known == session_.ratios.end() ? Decimal() : known->second;
  if (before == ratio->number) return;
  session_.ratios[code] = ratio->number;
  if (session_.touchGood) session_.touchGood(code);
}

void TableImport::Bind() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Value& value = values_[fieldOf_[i]];
    const int parameter = static_cast<int>(i) + 1;
    switch (value.type) {
      case Value::Type::Null:
        insert_.BindNull(parameter);
        break;
      case Value::Type::Whole:
        insert_.Bind(parameter, value.whole);
        break;
      case Value::Type::Number:
        insert_.Bind(parameter, value.number);
        break;
      case Value::Type::Text:
        insert_.Bind(parameter, std::string_view(value.text));
        break;
    }
  }
}

}  // namespace goods
