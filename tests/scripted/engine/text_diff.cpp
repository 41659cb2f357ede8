#include "tests/scripted/engine/text_diff.h"

#include <algorithm>
#include <cstddef>

namespace goods {

std::string DiffLines(const std::vector<std::string>& expected, const std::vector<std::string>& got) {
  // common[i][j]: length of the longest common part of expected from i on and got from j on.
  std::vector<std::vector<std::size_t>> common(expected.size() + 1,
                                               std::vector<std::size_t>(got.size() + 1, 0));
  for (std::size_t i = expected.size(); i-- > 0;) {
    for (std::size_t j = got.size(); j-- > 0;) {
      common[i][j] =
          expected[i] == got[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  std::string text;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < expected.size() || j < got.size()) {
    const bool both = i < expected.size() && j < got.size();
    if (both && expected[i] == got[j]) {
      text += "    " + expected[i++] + "\n";
      ++j;
    } else if (i < expected.size() && (j == got.size() || common[i + 1][j] >= common[i][j + 1])) {
      text += "  - " + expected[i++] + "\n";
    } else {
      text += "  + " + got[j++] + "\n";
    }
  }
  return text;
}

}  // namespace goods
