#include "company/server/server_address.h"

#include <algorithm>

#include "company/company.h"
#include "host/core/text.h"

namespace goods {

namespace {

struct ShortKeyword {
  const char* brief;
  const char* odbc;
};
constexpr ShortKeyword kShort[] = {{"host", "SERVER"}, {"port", "PORT"},    {"database", "DATABASE"},
                                   {"user", "UID"},    {"password", "PWD"}, {"driver", "DRIVER"},
                                   {"dsn", "DSN"}};

[[noreturn]] void Unreadable(std::string_view text) {
  throw CompanyError("نشانی سرور خوانده نشد: «" + std::string(text) +
                     "». نمونه: host=10.0.0.5;database=Sherkat;user=anbar");
}

// In braces when it holds what would end it.
std::string Quoted(const std::string& value) {
  if (value.find_first_of(";{}=[]()?*!@ ") == std::string::npos) return value;
  return "{" + ReplaceAll(value, "}", "}}") + "}";
}

// The next value, cut off the front together with the ";" behind it.
std::string TakeValue(std::string_view& text) {
  std::string value;
  if (text.starts_with('{')) {
    std::size_t at = 1;
    for (; at < text.size(); ++at) {
      if (text[at] == '}' && (at + 1 >= text.size() || text[at + 1] != '}')) break;
      if (text[at] == '}') ++at;
      value += text[at];
    }
    text.remove_prefix(std::min(at + 1, text.size()));
  } else {
    value = Trim(text.substr(0, text.find(';')));
  }
  const std::size_t end = text.find(';');
  text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  return value;
}

}  // namespace

ServerAddress::ServerAddress(std::string_view text) {
  text = Trim(text);
  if (text.empty()) Unreadable(text);
  if (text.find('=') == std::string_view::npos) {
    const std::size_t slash = text.find('/');
    std::string_view host = text.substr(0, slash);
    const std::size_t colon = host.find(':');
    if (colon != std::string_view::npos) {
      const std::optional<std::int64_t> port = ParseInteger(host.substr(colon + 1));
      if (!port || *port < 1 || *port > 65535) Unreadable(text);
      Set("PORT", std::to_string(*port));
      host = host.substr(0, colon);
    }
    if (host.empty()) Unreadable(text);
    Set("SERVER", host);
    if (slash != std::string_view::npos) Set("DATABASE", text.substr(slash + 1));
  }
  std::string_view rest = text.find('=') == std::string_view::npos ? std::string_view() : text;
  while (!Trim(rest).empty()) {
    const std::size_t equals = rest.find('=');
    if (equals == std::string_view::npos) Unreadable(text);
    const std::string keyword(Trim(rest.substr(0, equals)));
    if (keyword.empty() || keyword.find(';') != std::string::npos) Unreadable(text);
    rest.remove_prefix(equals + 1);
    Set(keyword, TakeValue(rest));
  }
  if (!Find("SERVER") && !Find("DSN") && !Find("SERVERNAME")) Unreadable(text);
  if (!Find("DRIVER") && !Find("DSN")) Set("DRIVER", "FreeTDS");
  if (Find("DRIVER") == "FreeTDS") {
    if (!Find("PORT")) Set("PORT", "1433");
    if (!Find("TDS_Version")) Set("TDS_Version", "7.4");
    if (!Find("ClientCharset")) Set("ClientCharset", "UTF-8");
  }
}

std::optional<std::string> ServerAddress::Find(std::string_view keyword) const {
  for (const auto& [known, value] : pairs_) {
    if (SameText(known, keyword)) return value;
  }
  return std::nullopt;
}

void ServerAddress::Set(std::string_view keyword, std::string_view value) {
  std::string name(keyword);
  for (const ShortKeyword& brief : kShort) {
    if (SameText(brief.brief, keyword)) name = brief.odbc;
  }
  // FreeTDS has a keyword of its own.
  std::string meant(value);
  if (SameText(keyword, "encrypt") && Find("DRIVER").value_or("FreeTDS") == "FreeTDS" && !Find("DSN")) {
    name = "Encryption";
    meant = SameText(value, "yes") ? "require" : SameText(value, "no") ? "off" : meant;
  }
  std::erase_if(pairs_, [&](const auto& pair) { return SameText(pair.first, name); });
  if (!meant.empty()) pairs_.emplace_back(name, meant);
}

std::string ServerAddress::Joined(bool password) const {
  std::string text;
  for (const auto& [keyword, value] : pairs_) {
    if (!password && SameText(keyword, "PWD")) continue;
    text += (text.empty() ? "" : ";") + keyword + "=" + (SameText(keyword, "DRIVER") ? value : Quoted(value));
  }
  return text;
}

std::string ServerAddress::ConnectionString() const { return Joined(true); }
std::string ServerAddress::Description() const { return "server:" + Joined(false); }

}  // namespace goods
