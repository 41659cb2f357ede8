// The tag frames: the tags of the rows at hand (TTags), and the criterion "has one of these tags"
// (TTags_search_FRM).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/grid.h"
#include "host/components/search_manager.h"
#include "host/components/standard.h"
#include "host/components/token_editor.h"
#include "host/services/lookups.h"

namespace goods {

// Tag codes as a row keeps them (",3,7,") one by one; blanks and empty parts are left out.
std::vector<std::string> TagCodesOf(std::string_view text);

// The tags as an editor offers them, in their colours.
std::vector<TToken> TagTokens(ILookups& lookups);

// Shows the tags of rows of a table. The window says which rows by the texts of its own query; the frame
// knows the table and its key.
class TTags : public TPanel {
 public:
  TTags(TComponent* owner, std::string name, IConnection& connection);

  std::string KeyField = "code";
  std::string TableName = "GoodInf";
  // The grid whose rows the tags belong to; Down moves the focus there.
  TSmartDBGrid_QRT* Grid = nullptr;

  TADOQuery Tags_QRY;
  TTokenEditor Tags_EDT{this, "Tags_EDT"};

  // The tags that there are.
  void OpenTags(ILookups& lookups);
  // The tags of the rows that Tags_QRY holds, each once; without a row what is shown stays.
  void LoadTags();
  // In the order of their codes' list rather than that of their coming.
  void Rearrange();
};

// The chosen tags as a criterion of the field tags: their codes between commas (",3,7,"), with exclude.
// Choosing the first puts it to use, taking the last one away drops it.
class TTags_search_FRM : public TPanel {
 public:
  TTags_search_FRM(TComponent* owner, std::string name, std::string caption);

  TQeratSearch Search{this, "Search"};

  void OpenTags(ILookups& lookups);
  // ",3,7,"; ",," while none is chosen.
  std::string Tags() const;
  bool HasTags() const { return !Tags_EDT.Tokens().empty(); }
  void Clear();
  std::function<void()> OnChange;

  TLabel Tags_LBL;
  TTokenEditor Tags_EDT{this, "Tags_EDT"};
  TCheckBox Tags_Reverst_CHK{this, "Tags_Reverst_CHK", "به جز"};

 private:
  void TagsChanged();
};

}  // namespace goods
