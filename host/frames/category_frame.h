// TCategorysearchframe: the criterion "in one of these categories".
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/components/standard.h"
#include "host/components/token_editor.h"
#include "host/services/lookups.h"

namespace goods {

// Categories are typed by name, or chosen in the host's tree; the last one chosen is the last of the values.
// What they are a criterion of is the window's matter: it watches OnChange.
class TCategorysearchframe : public TPanel {
 public:
  TCategorysearchframe(TComponent* owner, std::string name, std::string caption);

  // Reads the categories; until then none can be typed.
  void Open(ILookups& lookups);
  // Codes, in the order of choosing.
  std::vector<std::string> Values() const { return Category_EDT.Codes(); }
  bool IsEmpty() const { return Category_EDT.Tokens().empty(); }
  // The plus key of the numeric pad, passed on by the window.
  void AddTyped() { Category_EDT.AcceptText(); }
  void select_BTNClick();
  void Clear() { Category_EDT.Clear(); }
  std::function<void()> OnChange;

  TLabel Category_LBL;
  TTokenEditor Category_EDT{this, "Category_EDT"};
  TButton select_BTN{this, "select_BTN", "..."};
};

}  // namespace goods
