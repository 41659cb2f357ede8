#include "host/data/like_pattern.h"

#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

LikePattern::LikePattern(std::string_view pattern) : pieces_(Split(FoldPersian(pattern), '%')) {}

bool LikePattern::Matches(std::string_view text) {
  FoldPersianInto(text, folded_);
  std::string_view rest = folded_;
  if (pieces_.size() == 1) return rest == pieces_.front();
  if (!rest.starts_with(pieces_.front())) return false;
  rest.remove_prefix(pieces_.front().size());
  for (std::size_t i = 1; i + 1 < pieces_.size(); ++i) {
    const std::size_t found = rest.find(pieces_[i]);
    if (found == std::string_view::npos) return false;
    rest.remove_prefix(found + pieces_[i].size());
  }
  return rest.ends_with(pieces_.back());
}

}  // namespace goods
