#include "desktop/requests/saved_view.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>

#include "company/files/input_file.h"
#include "company/files/whole_file.h"
#include "host/components/grid_groups.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kViewVersion = 1;
constexpr const char* kMark = "goods-view";
constexpr std::uint64_t kLongestViewFile = 1 << 20;
constexpr std::size_t kMostCriteria = 64;
constexpr std::size_t kMostColumns = 2000;
constexpr std::size_t kMostConditions = 200;
constexpr std::size_t kMostValues = 5000;
constexpr std::size_t kLongestText = 4000;  // bytes
constexpr std::size_t kMostKeptViews = 200;
constexpr const char* kAnyDay = "1400/01/01";

constexpr std::array<const char*, 6> kConditionNames{"equal", "not-equal", "contains",
                                                     "from",  "to",        "one-of"};

QString Qt8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[noreturn]] void Refuse(const std::string& why) {
  throw ViewError("این پرونده نمای گزارش نیست یا درست نیست: " + why);
}

std::string TextOf(const QJsonValue& value, const char* what) {
  if (!value.isString()) Refuse(std::string(what) + " باید متن باشد");
  std::string text = value.toString().toStdString();
  if (text.size() > kLongestText) Refuse(std::string(what) + " بیش از اندازه بلند است");
  if (text.find('\0') != std::string::npos) Refuse(std::string(what) + " نویسه ناروا دارد");
  return text;
}

QJsonArray ArrayOf(const QJsonValue& value, std::size_t most, const char* what) {
  if (!value.isArray() && !value.isUndefined()) Refuse(std::string(what) + " باید فهرست باشد");
  QJsonArray array = value.toArray();
  if (static_cast<std::size_t>(array.size()) > most) Refuse(std::string(what) + " بیش از اندازه است");
  return array;
}

QJsonObject ObjectOf(const QJsonValue& value, const char* what) {
  if (!value.isObject()) Refuse(std::string(what) + " درست نوشته نشده است");
  return value.toObject();
}

// The outermost level stands in the object itself, where readers of one level look for it.
QJsonObject JsonOfGroups(const TableView& table) {
  const auto level = [](const TableView::GroupLevel& each) {
    return QJsonObject{{"column", Qt8(each.column)}, {"by-month", each.byMonth}};
  };
  QJsonObject groups = level(table.groups.front());
  groups.insert("folded", table.openLevels == 0);
  if (table.groups.size() == 1) return groups;
  QJsonArray within;
  for (std::size_t i = 1; i < table.groups.size(); ++i) within.append(level(table.groups[i]));
  groups.insert("within", within);
  groups.insert("open-levels", static_cast<int>(table.openLevels));
  return groups;
}

QJsonObject JsonOf(const TableView& table) {
  QJsonArray columns;
  for (const TableView::Column& column : table.columns)
    columns.append(QJsonObject{{"name", Qt8(column.name)}, {"width", column.width}, {"shown", column.shown}});
  QJsonArray sort;
  for (const TableView::SortKey& key : table.sort)
    sort.append(QJsonObject{{"column", Qt8(key.column)}, {"descending", key.descending}});
  QJsonArray conditions;
  for (const TableView::Condition& condition : table.conditions) {
    QJsonArray values;
    for (const auto& value : condition.values)
      values.append(value ? QJsonValue(Qt8(*value)) : QJsonValue(QJsonValue::Null));
    conditions.append(QJsonObject{{"column", Qt8(condition.column)},
                                  {"kind", kConditionNames[static_cast<std::size_t>(condition.kind)]},
                                  {"values", values}});
  }
  QJsonObject json{{"columns", columns}, {"sort", sort}, {"filter", conditions}};
  if (!table.groups.empty()) json.insert("groups", JsonOfGroups(table));
  return json;
}

QJsonObject JsonOf(const SavedView& view) {
  QJsonObject criteria;
  for (const auto& [option, values] : view.criteria) {
    QJsonArray list;
    for (const std::string& value : values) list.append(Qt8(value));
    criteria.insert(Qt8(option), list);
  }
  QJsonArray exclude;
  for (const std::string& option : view.exclude) exclude.append(Qt8(option));
  QJsonObject json{{kMark, kViewVersion},           {"name", Qt8(view.name)}, {"report", Qt8(view.report)},
                   {"criteria", criteria},          {"exclude", exclude},     {"table", JsonOf(view.table)},
                   {"start-page", view.onStartPage}};
  if (!view.period.empty()) json.insert("period", Qt8(view.period));
  return json;
}

// Reads one view; what it does not know it notes.
class ViewReader {
 public:
  explicit ViewReader(std::vector<std::string>& ignored) : ignored_(ignored) {}

  SavedView Read(const QJsonObject& json) {
    if (!json.contains(kMark)) Refuse("نشانه نما را ندارد");
    if (const int version = json.value(kMark).toInt(); version != kViewVersion)
      Refuse("از نسخه دیگری از برنامه است");
    SavedView view;
    view.name = ViewName(TextOf(json.value("name"), "نام"));
    if (view.name.empty()) Refuse("نام ندارد");
    view.report = TextOf(json.value("report"), "گزارش");
    const ReportSpec* report = FindSpec(view.report);
    if (report == nullptr) Refuse("گزارشی با این نام نیست: " + view.report);
    view.report = std::string(report->Name());
    view.onStartPage = json.value("start-page").toBool();
    ReadCriteria(json, *report, view);
    if (json.contains("table")) ReadTable(ObjectOf(json.value("table"), "جدول"), view.table);
    Note(json, {kMark, "name", "report", "criteria", "exclude", "period", "table", "start-page"});
    return view;
  }

 private:
  void Note(const QJsonObject& json, std::initializer_list<const char*> known) {
    for (const QString& key : json.keys()) {
      const bool there =
          std::any_of(known.begin(), known.end(), [&](const char* each) { return key == each; });
      if (!there) ignored_.push_back("«" + key.left(60).toStdString() + "»");
    }
  }

  void ReadCriteria(const QJsonObject& json, const ReportSpec& report, SavedView& view) {
    const QJsonObject criteria =
        json.contains("criteria") ? ObjectOf(json.value("criteria"), "شرط‌ها") : QJsonObject();
    if (static_cast<std::size_t>(criteria.size()) > kMostCriteria)
      Refuse("شرط‌ها بیش از اندازه است");
    for (const QString& key : criteria.keys()) {
      const std::string option = key.toStdString();
      if (FindCriterion(report, option == "to" ? "from" : option) == nullptr) {
        ignored_.push_back("شرط «" + key.left(60).toStdString() + "»");
        continue;
      }
      std::vector<std::string> values;
      for (const QJsonValue value : ArrayOf(criteria.value(key), kMostCriteria, "شرط"))
        values.push_back(TextOf(value, "شرط"));
      if (!values.empty()) view.criteria[option] = std::move(values);
    }
    for (const QJsonValue value :
         ArrayOf(json.value("exclude"), kMostCriteria, "شرط‌های وارونه"))
      view.exclude.insert(TextOf(value, "شرط وارونه"));
    if (json.contains("period")) view.period = TextOf(json.value("period"), "بازه");
    if (view.exclude.erase("period") > 0) view.exclude.insert("from");
    std::erase_if(view.exclude, [&](const std::string& option) {
      return !view.criteria.contains(option) && !(option == "from" && !view.period.empty());
    });
    try {
      CheckAsked(report, RequestOf(view, kAnyDay));
    } catch (const UsageError& error) {
      Refuse(error.what());
    }
  }

  void ReadTable(const QJsonObject& json, TableView& table) {
    for (const QJsonValue value : ArrayOf(json.value("columns"), kMostColumns, "ستون‌ها")) {
      const QJsonObject column = ObjectOf(value, "ستون");
      std::string name = TextOf(column.value("name"), "نام ستون");
      // A layout is lines of "name=width,shown".
      if (name.find_first_of("\n\r") != std::string::npos) Refuse("نام ستون درست نیست");
      table.columns.push_back(
          {std::move(name), column.value("width").toInt(), column.value("shown").toBool(true)});
    }
    for (const QJsonValue value : ArrayOf(json.value("sort"), kMostCriteria, "ترتیب")) {
      const QJsonObject key = ObjectOf(value, "ترتیب");
      table.sort.push_back({TextOf(key.value("column"), "نام ستون"), key.value("descending").toBool()});
    }
    for (const QJsonValue value : ArrayOf(json.value("filter"), kMostConditions, "فیلتر"))
      ReadCondition(ObjectOf(value, "فیلتر"), table);
    if (json.contains("groups")) ReadGroups(ObjectOf(json.value("groups"), "گروه‌بندی"), table);
    Note(json, {"columns", "sort", "filter", "groups"});
  }

  void ReadGroups(const QJsonObject& json, TableView& table) {
    const auto add = [&](const QJsonObject& level) {
      table.groups.push_back({TextOf(level.value("column"), "نام ستون"), level.value("by-month").toBool()});
    };
    add(json);
    for (const QJsonValue value :
         ArrayOf(json.value("within"), GridGroups::kMostLevels - 1, "گروه‌بندی"))
      add(ObjectOf(value, "گروه‌بندی"));
    const int all = static_cast<int>(table.groups.size());
    const int open = json.value("folded").toBool(true) ? 0 : all;
    table.openLevels = static_cast<std::size_t>(std::clamp(json.value("open-levels").toInt(open), 0, all));
    Note(json, {"column", "by-month", "folded", "within", "open-levels"});
  }

  void ReadCondition(const QJsonObject& json, TableView& table) {
    TableView::Condition condition;
    condition.column = TextOf(json.value("column"), "نام ستون");
    const std::string kind = TextOf(json.value("kind"), "گونه فیلتر");
    const auto known = std::find(kConditionNames.begin(), kConditionNames.end(), kind);
    if (known == kConditionNames.end()) {
      ignored_.push_back("فیلتر «" + std::string(FirstChars(kind, 60)) + "»");
      return;
    }
    condition.kind = static_cast<ConditionKind>(known - kConditionNames.begin());
    for (const QJsonValue value : ArrayOf(json.value("values"), kMostValues, "مقدارهای فیلتر"))
      condition.values.push_back(value.isNull() ? std::nullopt : std::optional(TextOf(value, "مقدار فیلتر")));
    if (condition.values.empty()) Refuse("فیلتر مقدار ندارد");
    table.conditions.push_back(std::move(condition));
  }

  std::vector<std::string>& ignored_;
};

QJsonDocument DocumentOf(std::string_view text) {
  QJsonParseError error{};
  QJsonDocument document =
      QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())), &error);
  if (error.error != QJsonParseError::NoError) Refuse("نوشتار JSON آن خوانده نمی‌شود");
  return document;
}

}  // namespace

ViewError::~ViewError() = default;

std::string ViewName(std::string_view typed) {
  QString name;
  for (const QChar each : Qt8(typed)) {
    const bool joiner = each == QChar(0x200C) || each == QChar(0x200D);  // part of Persian spelling
    const bool hidden = each.category() == QChar::Other_Control || each.category() == QChar::Other_Format;
    if (hidden && !joiner) {
      name += each.isSpace() ? QString(" ") : QString();
    } else {
      name += each;
    }
  }
  const auto isJoiner = [](QChar each) { return each == QChar(0x200C) || each == QChar(0x200D); };
  name = name.simplified();
  while (!name.isEmpty() && (isJoiner(name.back()) || name.back().isSpace())) name.chop(1);
  while (!name.isEmpty() && (isJoiner(name.front()) || name.front().isSpace())) name.remove(0, 1);
  const std::string whole = name.toStdString();
  return std::string(Trim(FirstChars(whole, SavedView::kLongestName)));
}

std::string ViewText(const SavedView& view) {
  return QJsonDocument(JsonOf(view)).toJson(QJsonDocument::Indented).toStdString();
}

std::string ViewsText(const std::vector<SavedView>& views) {
  QJsonArray all;
  for (const SavedView& view : views) all.append(JsonOf(view));
  return QJsonDocument(all).toJson(QJsonDocument::Compact).toStdString();
}

SavedView ParseView(std::string_view text, std::vector<std::string>& ignored) {
  if (text.size() > kLongestViewFile) Refuse("بیش از اندازه بزرگ است");
  const QJsonDocument document = DocumentOf(text);
  if (!document.isObject()) Refuse("نشانه نما را ندارد");
  return ViewReader(ignored).Read(document.object());
}

std::vector<SavedView> ParseViews(std::string_view text) {
  std::vector<SavedView> views;
  std::vector<std::string> ignored;
  try {
    for (const QJsonValue value : DocumentOf(text).array()) {
      if (views.size() >= kMostKeptViews) break;
      try {
        views.push_back(ViewReader(ignored).Read(value.toObject()));
      } catch (const ViewError&) {
        continue;
      }
    }
  } catch (const ViewError&) {
    return {};
  }
  return views;
}

SavedView ReadViewFile(const std::string& path, std::vector<std::string>& ignored) {
  std::string text;
  try {
    text = ReadInputFile(path, kLongestViewFile);
  } catch (const FileError& error) {
    throw ViewError(error.what());
  }
  return ParseView(text, ignored);
}

void WriteViewFile(const std::string& path, const SavedView& view) {
  SavedView handed = view;
  handed.onStartPage = false;  // whose page that is, its user decides
  try {
    WriteWholeFile(path, ViewText(handed));
  } catch (const FileError& error) {
    throw ViewError(error.what());
  }
}

std::span<const NamedPeriod> NamedPeriods() {
  static constexpr std::array<NamedPeriod, 10> kPeriods{{{"today", "امروز"},
                                                         {"yesterday", "دیروز"},
                                                         {"this-week", "این هفته"},
                                                         {"last-week", "هفته پیش"},
                                                         {"this-month", "این ماه"},
                                                         {"last-month", "ماه پیش"},
                                                         {"this-season", "این فصل"},
                                                         {"last-season", "فصل پیش"},
                                                         {"this-year", "سال مالی جاری"},
                                                         {"last-year", "سال مالی پیش"}}};
  return kPeriods;
}

bool DatesAre(const SavedView& view, const std::string& period, const std::string& today) {
  const auto is = [&](const char* option, const std::string& day) {
    const auto found = view.criteria.find(option);
    return found != view.criteria.end() && found->second.size() == 1 && found->second.front() == day;
  };
  const DayRange range = RelativePeriod(period, today);
  return is("from", range.from) && is("to", range.to);
}

void MakeRelative(SavedView& view, const std::string& period) {
  view.criteria.erase("from");
  view.criteria.erase("to");
  view.period = period;
}

ReportRequest RequestOf(const SavedView& view, const std::string& today) {
  ReportRequest request;
  request.name = view.report;
  request.criteria = view.criteria;
  request.exclude = view.exclude;
  request.table = view.table;
  if (!view.period.empty()) {
    const DayRange range = RelativePeriod(view.period, today);
    request.criteria["from"] = {range.from};
    request.criteria["to"] = {range.to};
  }
  return request;
}

void PutUnder(ReportRequest& request, const SavedView& view) {
  request.name = view.report;
  const bool dates =
      !request.period.empty() || request.criteria.contains("from") || request.criteria.contains("to");
  for (const auto& [option, values] : view.criteria) {
    if (dates && (option == "from" || option == "to")) continue;
    if (request.each == option || !request.criteria.emplace(option, values).second) continue;
    if (view.exclude.contains(option)) request.exclude.insert(option);
  }
  if (!dates) {
    request.period = view.period;
    if (!view.period.empty() && view.exclude.contains("from")) request.exclude.insert("from");
  }
  request.table = view.table;
}

}  // namespace goods
