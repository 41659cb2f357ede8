// The rights that the reports ask for, in words and in names for a command line.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "company/users.h"

namespace goods {

// One right. key is its name on a command line: "stock-card", "stock-card.print", "document.sale".
// group says in Persian what it belongs to (a report, or the documents), text what it allows.
struct NamedRight {
  UserRight right;
  std::string_view key;
  std::string_view group;
  std::string_view text;
};

// Every right that a report asks for, grouped, in the order in which users are shown them.
std::span<const NamedRight> NamedRights();
const NamedRight* FindRight(std::string_view key);
const NamedRight* FindRight(UserRight right);
// The right's key, or "PART:PERMISSION" for one without.
std::string RightKey(UserRight right);
// A key, or "PART:PERMISSION"; none for anything else.
std::optional<UserRight> ParseRight(std::string_view text);

}  // namespace goods
