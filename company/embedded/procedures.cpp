#include "company/embedded/procedures.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

#include "company/embedded/conditional_lines.h"
#include "company/embedded/criteria.h"
#include "company/embedded/embedded_sql.h"
#include "host/core/text.h"

namespace goods {

namespace {

[[noreturn]] void Broken(std::string_view name, std::string_view line) {
  throw std::logic_error("procedure " + std::string(name) + ": " + std::string(line));
}

constexpr std::string_view kDate = "date";

ColumnType TypeNamed(std::string_view procedure, std::string_view type) {
  if (type == "integer") return ColumnType::Integer;
  if (type == "decimal") return ColumnType::Decimal;
  if (type == "text") return ColumnType::Text;
  Broken(procedure, type);
}

Literal DefaultValue(std::string_view procedure, std::string_view text) {
  if (SameText(text, "null")) return NullValue{};
  if (text.size() >= 2 && text.front() == '\'' && text.back() == '\'') {
    return std::string(text.substr(1, text.size() - 2));
  }
  if (!Decimal::Parse(text)) Broken(procedure, text);
  return NumberValue{std::string(text)};
}

std::size_t EarlierColumn(const Procedure& procedure, std::string_view name) {
  for (std::size_t i = 0; i < procedure.columns.size(); ++i) {
    if (procedure.columns[i].name == name) return i;
  }
  Broken(procedure.name, name);
}

DerivedColumn ReadDerivation(const Procedure& procedure, std::string_view line) {
  DerivedColumn derived;
  if (line.empty()) return derived;
  const std::string_view kind = TakeWord(line);
  if (kind == "product") {
    derived.kind = Derivation::Product;
    derived.first = EarlierColumn(procedure, TakeWord(line));
    derived.second = EarlierColumn(procedure, TakeWord(line));
  } else if (kind == "running" && line.empty()) {
    derived.kind = Derivation::Running;
  } else if (kind == "running" && TakeWord(line) == "within") {
    derived.kind = Derivation::RunningWithin;
    derived.first = EarlierColumn(procedure, TakeWord(line));
  } else if (kind == "named" && TakeWord(line) == "by") {
    derived.kind = Derivation::Named;
    derived.names = line;
  } else {
    Broken(procedure.name, kind);
  }
  return derived;
}

// Criteria are added to criteria.
void ReadDeclaration(Procedure& procedure, std::string_view line, std::vector<Criterion>& criteria) {
  const std::string_view whole = line;
  const std::string_view kind = TakeWord(line);
  if (kind == "parameter") {
    ProcedureParameter parameter;
    parameter.name = TakeWord(line);
    const std::string_view type = TakeWord(line);
    parameter.emptyIsNull = type == kDate;
    parameter.type = parameter.emptyIsNull ? ColumnType::Text : TypeNamed(procedure.name, type);
    if (parameter.name.size() < 2 || parameter.name[0] != '@') Broken(procedure.name, whole);
    if (!line.empty()) {
      if (TakeWord(line) != "default") Broken(procedure.name, whole);
      parameter.required = false;
      parameter.value = DefaultValue(procedure.name, line);
    }
    procedure.parameters.push_back(std::move(parameter));
  } else if (kind == "column") {
    const std::string name(TakeWord(line));
    const ColumnType type = TypeNamed(procedure.name, TakeWord(line));
    procedure.derived.push_back(ReadDerivation(procedure, line));
    procedure.columns.push_back({name, type});
  } else if (kind == "criterion") {
    std::optional<Criterion> criterion = ReadCriterion(line);
    if (!criterion) Broken(procedure.name, whole);
    for (const std::string& parameter : criterion->parameters) {
      ReadDeclaration(procedure, parameter, criteria);
    }
    criteria.push_back(std::move(*criterion));
  } else if (kind == "condition") {
    std::string name(TakeWord(line));
    if (line.empty()) Broken(procedure.name, whole);
    procedure.conditions.emplace_back(std::move(name), std::string(line));
  } else if (kind == "divided") {
    if (TakeWord(line) != "by") Broken(procedure.name, whole);
    procedure.goodColumn = TakeWord(line);
    if (procedure.goodColumn.empty() || (!line.empty() && TakeWord(line) != "unless")) {
      Broken(procedure.name, whole);
    }
    procedure.undividedCalls = line;
  } else if (whole == "writes") {
    procedure.writes = true;
  } else if (whole == "native") {
    procedure.native = true;
  }
}

// The value as the parameter's kind takes it; none when it cannot be.
std::optional<Literal> Fit(const Literal& value, ColumnType type) {
  if (std::holds_alternative<NullValue>(value)) return value;
  const auto* number = std::get_if<NumberValue>(&value);
  const std::string text = number != nullptr ? number->text : std::get<std::string>(value);
  if (type == ColumnType::Text) return Literal(text);
  const std::optional<Decimal> parsed = Decimal::Parse(Trim(text));
  if (!parsed) return std::nullopt;
  if (type == ColumnType::Integer) {
    if (parsed->Rounded(0) != *parsed || !ParseInteger(parsed->ToString())) return std::nullopt;
  }
  return Literal(NumberValue{parsed->ToString()});
}

const char* KindName(ColumnType type) {
  return type == ColumnType::Integer ? "عدد درست" : type == ColumnType::Decimal ? "عدد" : "متن";
}

std::optional<std::size_t> PlaceOf(const Procedure& procedure, std::string_view parameter) {
  for (std::size_t i = 0; i < procedure.parameters.size(); ++i) {
    if (SameText(procedure.parameters[i].name, parameter)) return i;
  }
  return std::nullopt;
}

// The text with its parts in place. Parts include none themselves.
std::string WithParts(std::string_view name, std::string_view text) {
  std::string whole;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end);
    constexpr std::string_view kInclude = "-- include ";
    if (!line.starts_with(kInclude)) {
      whole += line;
      continue;
    }
    const std::string_view wanted = Trim(line.substr(kInclude.size()));
    const std::span<const ProcedureFile> parts = ProcedureParts();
    const auto part = std::find_if(parts.begin(), parts.end(),
                                   [&](const ProcedureFile& file) { return file.name == wanted; });
    if (part == parts.end()) Broken(name, line);
    whole += part->text;
  }
  return whole;
}

// What runs from row to row cannot begin anew with each range of goods.
void CheckDivision(const Procedure& procedure) {
  if (procedure.goodColumn.empty()) return;
  const bool runs = std::ranges::any_of(procedure.derived, [](const DerivedColumn& column) {
    return column.kind == Derivation::Running || column.kind == Derivation::RunningWithin;
  });
  const bool placed = procedure.body.find(kGoodsPlace) != std::string::npos;
  if (runs || procedure.writes || placed == procedure.native) Broken(procedure.name, "divided by");
}

}  // namespace

Procedure ReadProcedure(std::string_view name, std::string_view text) {
  Procedure procedure;
  procedure.name = name;
  procedure.body = WithParts(name, text);
  std::vector<Criterion> criteria;
  for (std::string_view rest = procedure.body; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = Trim(rest.substr(0, end));
    if (line.starts_with("--")) ReadDeclaration(procedure, Trim(line.substr(2)), criteria);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  }
  if (!PutCriteria(procedure.body, criteria) && !criteria.empty()) Broken(name, "{criteria}");
  CheckDivision(procedure);
  return procedure;
}

const std::vector<Procedure>& Procedures() {
  static const std::vector<Procedure> procedures = [] {
    std::vector<Procedure> all;
    for (const ProcedureFile& file : ProcedureFiles()) all.push_back(ReadProcedure(file.name, file.text));
    return all;
  }();
  return procedures;
}

ProcedureCall MatchProcedure(const ExecStatement& exec, std::string_view statement) {
  ProcedureCall call;
  for (const Procedure& procedure : Procedures()) {
    if (SameText(procedure.name, exec.procedure)) call.procedure = &procedure;
  }
  if (call.procedure == nullptr) {
    throw StatementError("روال «" + exec.procedure + "» شناخته نیست", statement, exec.offset);
  }
  const std::vector<ProcedureParameter>& parameters = call.procedure->parameters;
  std::vector<bool> given(parameters.size(), false);
  for (const ProcedureParameter& parameter : parameters) call.values.push_back(parameter.value);

  bool named = false;
  for (std::size_t i = 0; i < exec.arguments.size(); ++i) {
    const Argument& argument = exec.arguments[i];
    std::size_t index = i;
    if (!argument.name.empty()) {
      named = true;
      const std::optional<std::size_t> place = PlaceOf(*call.procedure, argument.name);
      if (!place) {
        throw StatementError("روال " + call.procedure->name + " پارامتر «" + argument.name + "» ندارد",
                             statement, argument.offset);
      }
      index = *place;
    } else if (named) {
      throw StatementError("مقدار بی نام پس از پارامتر نامدار نمی آید", statement, argument.offset);
    } else if (index >= parameters.size()) {
      throw StatementError("روال " + call.procedure->name + " این همه پارامتر ندارد", statement,
                           argument.offset);
    }
    const ProcedureParameter& parameter = parameters[index];
    if (given[index]) {
      throw StatementError("پارامتر «" + parameter.name + "» دو بار آمده است", statement, argument.offset);
    }
    given[index] = true;
    std::optional<Literal> value = Fit(argument.value, parameter.type);
    if (!value) {
      throw StatementError("پارامتر «" + parameter.name + "» باید " + KindName(parameter.type) + " باشد",
                           statement, argument.offset);
    }
    const auto* text = std::get_if<std::string>(&*value);
    if (parameter.emptyIsNull && text != nullptr && Trim(*text).empty()) value = NullValue{};
    call.values[index] = *std::move(value);
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (!given[i] && parameters[i].required) {
      throw StatementError("پارامتر «" + parameters[i].name + "» داده نشده است", statement, statement.size());
    }
  }
  return call;
}

const Literal& ArgumentOf(const ProcedureCall& call, std::string_view name) {
  const std::optional<std::size_t> place = PlaceOf(*call.procedure, name);
  if (!place) Broken(call.procedure->name, name);
  return call.values[*place];
}

void BindParameters(Statement& prepared, const ProcedureCall& call) {
  const std::vector<ProcedureParameter>& parameters = call.procedure->parameters;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const int index = sqlite3_bind_parameter_index(prepared.Handle(), parameters[i].name.c_str());
    if (index == 0) continue;
    const Literal& value = call.values[i];
    if (const auto* text = std::get_if<std::string>(&value)) {
      prepared.Bind(index, std::string_view(*text));
    } else if (const auto* number = std::get_if<NumberValue>(&value)) {
      const Decimal parsed = Decimal::Parse(number->text).value_or(Decimal());
      if (parameters[i].type == ColumnType::Integer) {
        prepared.Bind(index, static_cast<std::int64_t>(parsed.Units() / Decimal::kOne));
      } else {
        prepared.Bind(index, parsed);
      }
    } else {
      prepared.BindNull(index);
    }
  }
}

void RunProcedureBody(Database& db, const ProcedureCall& call, const std::function<void()>& row) {
  const char* at = call.procedure->body.data();
  const char* end = at + call.procedure->body.size();
  while (at < end) {
    Statement prepared(db.Handle(), at, end, &at);
    if (prepared.Handle() == nullptr) continue;
    BindParameters(prepared, call);
    while (prepared.Step()) row();
  }
}

}  // namespace goods
