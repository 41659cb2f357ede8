#include "module/framework/row_facts.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "module/framework/document_opening.h"
#include "module/framework/movement_types.h"

namespace goods {
namespace {

// Names by code, an empty one for a store that is not there or could not be looked up.
class StoreNames {
 public:
  explicit StoreNames(THost& host) : host_(host) {}

  const std::string& Of(std::int64_t code) {
    const auto [entry, added] = names_.try_emplace(code);
    if (!added) return entry->second;
    try {
      const auto found = host_.Lookups().LookupDBs(EntityType::Store, code, "Name");
      if (found && !found->empty()) entry->second = found->front();
    } catch (const std::exception&) {
      // A name beside the rows is not worth a message.
    }
    return entry->second;
  }

 private:
  THost& host_;
  std::map<std::int64_t, std::string> names_;
};

}  // namespace

std::string OperationName(const Value& type) {
  const auto movement = MovementTypeOf(type);
  if (!movement) return {};
  const std::string_view label = kMovementTypes[static_cast<std::size_t>(*movement)].label;
  return std::string(label.empty() ? DocumentName(DocumentOf(*movement)) : label);
}

void DescribeMovements(THost& host, TSmartDBGrid_QRT& grid, MovementFields fields) {
  const auto stores = std::make_shared<StoreNames>(host);
  grid.OnDescribeRow = [&grid, stores, fields = std::move(fields)](std::size_t position) {
    std::vector<TSmartDBGrid_QRT::Fact> facts;
    const TADOQuery* query = grid.DataSet();
    if (query == nullptr) return facts;
    const auto cell = [&](const std::string& name) {
      const auto field = name.empty() ? std::nullopt : query->FindField(name);
      return field ? query->Cell(position, *field) : Value();
    };
    facts.push_back({"نوع عملیات", OperationName(cell(fields.type))});
    facts.push_back({"شماره سند", cell(fields.code).AsText()});
    if (const std::int64_t store = cell(fields.store).AsInteger(); store > 0)
      facts.push_back({"انبار", stores->Of(store)});
    return facts;
  };
}

}  // namespace goods
