#include "company/interchange/code_book.h"

#include <algorithm>
#include <limits>

#include "company/interchange/import_fields.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

constexpr std::int64_t kAmbiguous = std::numeric_limits<std::int64_t>::min();

std::string Folded(std::string_view text) { return FoldPersian(Trim(text)); }

}  // namespace

bool CodeBook::Has(std::int64_t code) const {
  if (code < 0 || code >= kDense) return others_.contains(code);
  return static_cast<std::size_t>(code) < dense_.size() && dense_[static_cast<std::size_t>(code)];
}

bool CodeBook::Add(std::int64_t code) {
  largest_ = std::max(largest_, code);
  if (code < 0 || code >= kDense) return others_.insert(code).second;
  const auto place = static_cast<std::size_t>(code);
  if (place >= dense_.size()) dense_.resize(std::max(place + 1, dense_.size() * 2));
  if (dense_[place]) return false;
  dense_[place] = true;
  return true;
}

void CodeBook::AddText(std::string_view text, std::int64_t code) {
  if (Trim(text).empty()) return;
  const auto [place, added] = texts_.try_emplace(Folded(text), code);
  if (!added && place->second != code) place->second = kAmbiguous;
}

std::optional<std::int64_t> CodeBook::Find(std::string_view field) const {
  const std::optional<std::int64_t> number = ReadWhole(field, std::numeric_limits<std::int64_t>::min() + 1,
                                                       std::numeric_limits<std::int64_t>::max());
  if (number && Has(*number)) return number;
  const auto text = texts_.find(Folded(field));
  if (text == texts_.end() || text->second == kAmbiguous) return std::nullopt;
  return text->second;
}

}  // namespace goods
