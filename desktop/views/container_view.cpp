#include "desktop/views/container_view.h"

#include <algorithm>

#include "desktop/views/form_view.h"

namespace goods {

void ContainerView::BuildContents() {
  for (const TControl* old : contents_) {
    const auto& now = Control().Controls();
    if (std::find(now.begin(), now.end(), old) == now.end()) Form().Drop(old);
  }
  contents_ = Control().Controls();
  for (TControl* each : contents_) {
    if (Form().ViewOf(*each) == nullptr) Form().Build(*each, ContentsParent());
  }
  Arrange();
}

}  // namespace goods
