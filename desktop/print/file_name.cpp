#include "desktop/print/file_name.h"

#include <QRegularExpression>
#include <QString>

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kLongestTitle = 80;  // characters
constexpr const char* kNoTitle = "گزارش";

}  // namespace

std::string ProposedFileName(std::string_view title, std::string_view today, std::string_view ending) {
  // Zero-width joiners and non-joiners belong to Persian words and stay.
  static const QRegularExpression kDirectionMarks(
      "[\\x{200E}\\x{200F}\\x{202A}-\\x{202E}\\x{2066}-\\x{2069}]");
  static const QRegularExpression kForbidden("[\\x{0}-\\x{1F}\\x{7F}/\\\\:*?\"<>|]+");
  static const QRegularExpression kEnds("^[. ]+|[. ]+$");
  static const QRegularExpression kDevice("^(con|prn|aux|nul|com\\d|lpt\\d)$",
                                          QRegularExpression::CaseInsensitiveOption);
  QString name = ToQt(title);
  name.remove(kDirectionMarks).replace(kForbidden, " ");
  name = name.simplified().left(kLongestTitle);
  if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
  name.remove(kEnds);
  if (name.isEmpty()) name = kNoTitle;
  if (kDevice.match(name).hasMatch()) name += '_';
  const QString day = ToQt(today).replace('/', '-');
  if (!day.isEmpty()) name += ' ' + day;
  return FromQt(name + '.') + std::string(ending);
}

}  // namespace goods
