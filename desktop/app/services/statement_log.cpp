#include "desktop/app/services/statement_log.h"

#include <cstdio>
#include <stdexcept>

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

StatementLog::StatementLog(const std::string& path) : file_(path, std::ios::app | std::ios::binary) {
  if (!file_)
    throw std::runtime_error("در پرونده گزارش دستورها نمی‌توان نوشت: " +
                             path);
}

void StatementLog::Write(std::string_view statement, double milliseconds, std::string_view outcome) {
  char time[32];
  std::snprintf(time, sizeof time, "%.3f", milliseconds);
  file_ << time << '\t' << OneLine(outcome) << '\t' << OneLine(statement) << std::endl;
}

}  // namespace goods
