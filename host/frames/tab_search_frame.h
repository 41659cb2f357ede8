// TTab_Search_Frame: a strip of tabs that stand for kinds of rows.
#pragma once

#include <string>
#include <vector>

#include "host/components/tabs.h"

namespace goods {

// What a tab lets through is the window's to say: it watches Search_TBC.
class TTab_Search_Frame : public TPanel {
 public:
  TTab_Search_Frame(TComponent* owner, std::string name) : TPanel(owner, std::move(name)) {
    Place(Search_TBC);
  }

  int TabIndex() const { return Search_TBC.TabIndex(); }
  TTabControl Search_TBC{this, "Search_TBC"};
};

}  // namespace goods
