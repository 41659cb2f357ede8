#include "desktop/app/services/recent_entities.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <algorithm>
#include <charconv>

#include "host/core/text.h"

namespace goods {

// A title may be of any length and hold what no key may.
std::string RecentEntities::Section(EntityType kind) const {
  const QByteArray title(company_.data(), static_cast<qsizetype>(company_.size()));
  const QByteArray name = QCryptographicHash::hash(title, QCryptographicHash::Sha1).toHex().left(16);
  return "Recent-" + name.toStdString() + "-" + std::to_string(static_cast<int>(kind));
}

std::vector<std::int64_t> RecentEntities::Codes(EntityType kind) const {
  std::vector<std::int64_t> codes;
  for (const std::string& part : Split(settings_.ReadSection(Section(kind)), ',')) {
    std::int64_t code = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), code);
    if (error == std::errc() && end == part.data() + part.size() && codes.size() < kMost)
      codes.push_back(code);
  }
  return codes;
}

void RecentEntities::Add(EntityType kind, std::int64_t code) {
  if (kind != EntityType::Good && kind != EntityType::Store && kind != EntityType::Person) return;
  std::vector<std::int64_t> codes = Codes(kind);
  if (!codes.empty() && codes.front() == code) return;
  std::erase(codes, code);
  codes.insert(codes.begin(), code);
  std::string text;
  for (std::size_t i = 0; i < std::min(codes.size(), kMost); ++i)
    text += (i == 0 ? "" : ",") + std::to_string(codes[i]);
  settings_.WriteSection(Section(kind), text);
}

}  // namespace goods
