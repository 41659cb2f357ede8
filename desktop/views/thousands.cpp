#include "desktop/views/thousands.h"

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

bool g_thousandsSeparators = false;

}  // namespace

void SetThousandsSeparators(bool on) { g_thousandsSeparators = on; }
bool ThousandsSeparators() { return g_thousandsSeparators; }

QString InThousands(QString figure) {
  constexpr qsizetype kGroup = 3;
  if (figure.contains(u',') || !IsNumberLike(figure)) return figure;
  qsizetype begin = 0;
  while (begin < figure.size() && !figure[begin].isDigit()) ++begin;
  qsizetype end = begin;
  while (end < figure.size() && figure[end].isDigit()) ++end;
  for (qsizetype at = end - kGroup; at > begin; at -= kGroup) figure.insert(at, u',');
  return figure;
}

}  // namespace goods
