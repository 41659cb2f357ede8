#include "desktop/app/services/statement_log.h"

#include <cstdio>
#include <exception>
#include <utility>

namespace goods {
namespace {

std::string OneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      case '\t':
        line += "\\t";
        break;
      case '\\':
        line += "\\\\";
        break;
      default:
        line += c;
    }
  }
  return line;
}

}  // namespace

StatementLog::StatementLog(const std::string& path, const std::vector<std::string>& forbidden)
    : file_(path, forbidden) {}

void StatementLog::Write(std::string_view statement, double milliseconds, std::string_view outcome) noexcept {
  try {
    char time[32];
    std::snprintf(time, sizeof time, "%.3f", milliseconds);
    file_.Append(std::string(time) + '\t' + OneLine(outcome) + '\t' + OneLine(statement) + '\n');
  } catch (const std::exception& error) {
    if (std::exchange(told_, true) || OnFailure == nullptr) return;
    try {
      OnFailure(error);
    } catch (const std::exception&) {  // nobody is there to hear it
    }
  }
}

}  // namespace goods
