// LIKE: texts with % as a Persian reader searches.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A pattern in which "%" stands for any characters, none included. Pattern and texts are folded
// (FoldPersian), so letter case and spelling of yeh and kaf do not matter.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);
  bool Matches(std::string_view text);

 private:
  std::vector<std::string> pieces_;  // between the percent signs, at least one
  std::string folded_;               // kept for its memory
};

}  // namespace goods
