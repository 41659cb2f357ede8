// Steps that say what the host is like: rights, settings, rows, entities, faults.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include "host/core/text.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

template <typename Value>
const Value& Named(const std::map<std::string, Value, std::less<>>& values, const std::string& name,
                   const Place& place) {
  const auto found = values.find(name);
  if (found != values.end()) return found->second;
  std::string names;
  for (const auto& [each, value] : values) names += " " + each;
  throw CaseError(place.Text() + ": " + name + " is none of" + names);
}

void SetSetting(TSettings& settings, const std::string& name, const std::string& text, const Place& place) {
  static const std::map<std::string, bool TSettings::*, std::less<>> flags{
      {"SecondUnit", &TSettings::SecondUnit},     {"SecondUnitIsLarger", &TSettings::SecondUnitIsLarger},
      {"WholeAndPart", &TSettings::WholeAndPart}, {"GoodsDetail", &TSettings::GoodsDetail},
      {"PriceLevel", &TSettings::PriceLevel},     {"PriceHistory", &TSettings::PriceHistory},
  };
  static const std::map<std::string, int TSettings::*, std::less<>> numbers{
      {"QuantityDecimals", &TSettings::QuantityDecimals},
      {"AmountDecimals", &TSettings::AmountDecimals},
      {"PriceBasis", &TSettings::PriceBasis},
      {"BuyOrSell", &TSettings::BuyOrSell},
      {"PriceLevelCode", &TSettings::PriceLevelCode},
  };
  if (text == "on" || text == "off") {
    settings.*Named(flags, name, place) = text == "on";
  } else if (const auto number = ParseInteger(text)) {
    settings.*Named(numbers, name, place) = static_cast<int>(*number);
  } else {
    throw CaseError(place.Text() + ": a setting is on, off or a number");
  }
}

DocumentModule ModuleNamed(const std::string& name, const Place& place) {
  using enum DocumentModule;
  static const std::map<std::string, DocumentModule, std::less<>> modules{
      {"Sale", Sale},
      {"Buy", Buy},
      {"Returns", Returns},
      {"Transfer", Transfer},
      {"FixProduce", FixProduce},
      {"VarProduce", VarProduce},
      {"AdvancedProduce", AdvancedProduce},
      {"GoodAssignment", GoodAssignment},
      {"GoodReciept", GoodReciept},
      {"Voucher", Voucher},
  };
  return Named(modules, name, place);
}

void CheckFlag(const std::string& name, const Place& place) {
  static const std::map<std::string, bool, std::less<>> flags{
      {"IsSellFormShow", true},       {"IsBuyFormShow", true},
      {"IsReturnFormShow", true},     {"IsFixProduceFormShow", true},
      {"IsVarProduceFormShow", true}, {"IsAdvancedProduceFormShow", true},
      {"IsVoucherShow", true},        {"IsGoodAssignmentRecieptFormShow", true},
  };
  Named(flags, name, place);
}

// A heading cell "Name" or "Name:integer".
ColumnInfo ColumnOf(const std::string& heading, const Place& place) {
  static const std::map<std::string, ColumnType, std::less<>> types{
      {"text", ColumnType::Text}, {"integer", ColumnType::Integer}, {"decimal", ColumnType::Decimal}};
  const std::size_t colon = heading.find(':');
  if (colon == std::string::npos) return {heading, ColumnType::Text};
  return {heading.substr(0, colon), Named(types, heading.substr(colon + 1), place)};
}

void GiveRows(CaseRun& run, const Step& step, const std::string& pattern,
              const std::vector<BlockLine>& block) {
  const Table table = ReadTable(block, step.place);
  CannedRows rows;
  for (const std::string& heading : table.heading) rows.columns.push_back(ColumnOf(heading, step.place));
  rows.rows = table.rows;
  if (const std::string problem = ProblemOf(rows); !problem.empty()) {
    throw CaseError(step.place.Text() + ": " + problem);
  }
  run.Host().Connection().Answer(pattern, std::move(rows));
}

void GiveEntities(CaseRun& run, const Step& step, EntityType type) {
  const Table table = ReadTable(step.block, step.place);
  for (const auto& row : table.rows) {
    ScriptedLookups::Entity entity;
    for (std::size_t i = 0; i < row.size(); ++i) entity[table.heading[i]] = row[i].value_or("");
    const auto code = ParseInteger(entity["Code"]);
    if (!code) throw CaseError(step.place.Text() + ": the column Code with a number is missing");
    run.Host().Lookups().Give(type, *code, std::move(entity));
  }
}

// The rows of a table of things with a Code and a Name, as texts by heading; other headings are a mistake.
std::vector<std::map<std::string, std::string>> ReadCoded(const Step& step, const std::string& third) {
  const Table table = ReadTable(step.block, step.place);
  for (const std::string& heading : table.heading) {
    if (heading != "Code" && heading != "Name" && heading != third) {
      throw CaseError(step.place.Text() + ": " + heading + " is none of Code Name " + third);
    }
  }
  std::vector<std::map<std::string, std::string>> rows;
  for (const auto& row : table.rows) {
    auto& texts = rows.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) texts[table.heading[i]] = row[i].value_or("");
    if (texts["Code"].empty()) throw CaseError(step.place.Text() + ": a row has no Code");
  }
  return rows;
}

void GiveTags(CaseRun& run, const Step& step) {
  for (auto& row : ReadCoded(step, "Colour")) {
    const std::string& text = row["Colour"];
    const auto color = text.empty() ? std::optional(kWhite) : ParseColor("#" + text);
    if (!color) throw CaseError(step.place.Text() + ": a colour is written as RRGGBB, not " + text);
    run.Host().Lookups().GiveTag({row["Code"], row["Name"], *color});
  }
}

void GiveCategories(CaseRun& run, const Step& step) {
  for (auto& row : ReadCoded(step, "Parent")) {
    run.Host().Lookups().GiveCategory({row["Code"], row["Name"], row["Parent"]});
  }
}

std::vector<std::string> CodesOf(const std::string& text) {
  return text.empty() ? std::vector<std::string>() : Split(text, ',');
}

void AddRightSteps(StepTable& table) {
  table.Add("user {n} {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Rights().SetUser({given.Number(0), given.Text(1)});
  });
  for (const bool granted : {false, true}) {
    const std::string word = granted ? "granted" : "refused";
    table.Add("right {n} {n} " + word, [granted](CaseRun& run, const Step&, const Arguments& given) {
      run.Host().Rights().Set(static_cast<int>(given.Number(0)), static_cast<int>(given.Number(1)), granted);
    });
    table.Add("all rights " + word, [granted](CaseRun& run, const Step&, const Arguments&) {
      run.Host().Rights().SetAll(granted);
    });
    table.Add(granted ? "prices shown" : "prices hidden",
              [granted](CaseRun& run, const Step&, const Arguments&) {
                run.Host().Rights().SetSeesPrices(granted);
              });
  }
}

void AddSettingSteps(StepTable& table) {
  table.Add("setting {name} {value}", [](CaseRun& run, const Step& step, const Arguments& given) {
    SetSetting(run.Host().Settings().Settings(), given.Text(0), given.Text(1), step.place);
  });
  table.Add("given settings file {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    std::ofstream file(std::filesystem::path(run.SettingsFolder()) / given.Text(0), std::ios::binary);
    for (const std::string& line : ReadTexts(step)) file << line << "\n";
  });
  table.Add("given section {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    std::string text;
    for (const std::string& line : ReadTexts(step)) text += line + "\n";
    run.Host().Settings().GiveSection(given.Text(0), std::move(text));
  });
  table.Add("given settings folder",
            [](CaseRun& run, const Step&, const Arguments&) { run.SettingsFolder(); });
  table.Add("today {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Windows().Today = given.Text(0);
  });
}

void AddDocumentSteps(StepTable& table) {
  table.Add("module {name} busy", [](CaseRun& run, const Step& step, const Arguments& given) {
    run.Host().Documents().Loaded.insert(ModuleNamed(given.Text(0), step.place));
  });
  table.Add("module {name} free", [](CaseRun& run, const Step& step, const Arguments& given) {
    run.Host().Documents().Loaded.erase(ModuleNamed(given.Text(0), step.place));
  });
  table.Add("flag {name} on", [](CaseRun& run, const Step& step, const Arguments& given) {
    CheckFlag(given.Text(0), step.place);
    run.Host().Documents().Flags.insert(given.Text(0));
  });
  table.Add("flag {name} off", [](CaseRun& run, const Step& step, const Arguments& given) {
    CheckFlag(given.Text(0), step.place);
    run.Host().Documents().Flags.erase(given.Text(0));
  });
  table.Add("vouchers {text} unsaved", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Documents().UnsavedVouchers.insert(given.Text(0));
  });
  table.Add("vouchers {text} saved", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Documents().UnsavedVouchers.erase(given.Text(0));
  });
  table.Add("next document stays open",
            [](CaseRun& run, const Step&, const Arguments&) { run.HoldNextDocument(); });
  table.Add("next document fails {text}",
            [](CaseRun& run, const Step&, const Arguments& given) { run.FailNextDocument(given.Text(0)); });
  table.Add("next preview stays open",
            [](CaseRun& run, const Step&, const Arguments&) { run.HoldNextPreview(); });
  for (const char* pattern : {"close document", "close preview"}) {
    table.Add(pattern, [](CaseRun& run, const Step& step, const Arguments&) { run.Release(step.place); });
  }
}

void AddDatabaseSteps(StepTable& table) {
  const auto give = [](CaseRun& run, const Step& step, const Arguments& given) {
    GiveRows(run, step, given.Text(0), step.block);
  };
  const auto giveTable = [](CaseRun& run, const Step& step, const Arguments& given) {
    const auto found = run.File().tables.find(given.Text(1));
    if (found == run.File().tables.end()) {
      throw CaseError(step.place.Text() + ": there is no table " + given.Text(1));
    }
    GiveRows(run, step, given.Text(0), found->second);
  };
  table.Add("given rows for {text}", give);
  table.Add("given rows for {text} from {table}", giveTable);
  table.Add("next statement fails {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Connection().FailNext("%", given.Text(0));
  });
  table.Add("next statement like {text} fails {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Connection().FailNext(given.Text(0), given.Text(1));
  });
  table.Add("next statement cancelled",
            [](CaseRun& run, const Step&, const Arguments&) { run.Host().Connection().CancelNext(); });
  table.Add("connection lost",
            [](CaseRun& run, const Step&, const Arguments&) { run.Host().Connection().LoseAfter(0); });
  table.Add("connection lost after {n} statements", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Connection().LoseAfter(static_cast<std::size_t>(given.Number(0)));
  });
  table.Add("connection back",
            [](CaseRun& run, const Step&, const Arguments&) { run.Host().Connection().Reconnect(); });
}

void AddLookupSteps(StepTable& table) {
  const std::pair<const char*, EntityType> kinds[] = {{"given goods", EntityType::Good},
                                                      {"given stores", EntityType::Store},
                                                      {"given persons", EntityType::Person},
                                                      {"given groups", EntityType::GoodGroup}};
  for (const auto& [pattern, type] : kinds) {
    table.Add(pattern, [entity = type](CaseRun& run, const Step& step, const Arguments&) {
      GiveEntities(run, step, entity);
    });
  }
  table.Add("given tags", [](CaseRun& run, const Step& step, const Arguments&) { GiveTags(run, step); });
  table.Add("given categories",
            [](CaseRun& run, const Step& step, const Arguments&) { GiveCategories(run, step); });
  table.Add("next lookup fails {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Lookups().FailNext(given.Text(0));
  });
  table.Add("next picker chooses {n}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Lookups().AnswerPicker(given.Number(0));
  });
  table.Add("next picker gives up", [](CaseRun& run, const Step&, const Arguments&) {
    run.Host().Lookups().AnswerPicker(std::nullopt);
  });
  table.Add("next category tree chooses {text}", [](CaseRun& run, const Step&, const Arguments& given) {
    run.Host().Lookups().AnswerCategoryTree(CodesOf(given.Text(0)));
  });
  table.Add("next category tree gives up", [](CaseRun& run, const Step&, const Arguments&) {
    run.Host().Lookups().AnswerCategoryTree(std::nullopt);
  });
}

}  // namespace

void AddHostSteps(StepTable& table) {
  AddRightSteps(table);
  AddSettingSteps(table);
  AddDocumentSteps(table);
  AddDatabaseSteps(table);
  AddLookupSteps(table);
}

}  // namespace goods
