// CategoryPicker: the tree to choose categories from.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "host/services/lookups.h"

namespace goods {

class CheckTree;

// A category stands for itself: ticking it does not tick those below it. Enter accepts, Esc gives up.
class CategoryPicker : public QDialog {
 public:
  // One whose parent is not there, and one that is its own ancestor, stand at the top.
  CategoryPicker(const std::vector<TCategory>& categories, const std::vector<std::string>& chosen,
                 QWidget* parent);

  // The codes that were ticked before in their order, then the new ones in that of the tree; none when the
  // user gave up.
  std::optional<std::vector<std::string>> Choose();

 private:
  void AddAll(const std::vector<TCategory>& categories);

  std::vector<std::string> before_;
  CheckTree* tree_;
};

}  // namespace goods
