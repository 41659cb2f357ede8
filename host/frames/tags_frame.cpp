#include "host/frames/tags_frame.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"

namespace goods {

std::vector<std::string> TagCodesOf(std::string_view text) {
  std::vector<std::string> codes;
  for (const std::string& part : Split(text, ',')) {
    if (const std::string_view code = Trim(part); !code.empty()) codes.emplace_back(code);
  }
  return codes;
}

std::vector<TToken> TagTokens(ILookups& lookups) {
  std::vector<TToken> tokens;
  for (const TTag& tag : lookups.Tags()) tokens.push_back({tag.Code, tag.Name, tag.Background});
  return tokens;
}

TTags::TTags(TComponent* owner, std::string name, IConnection& connection)
    : TPanel(owner, std::move(name)), Tags_QRY(this, "Tags_QRY", connection) {
  Tags_EDT.SetAccessibleName("برچسب های کالا");
  Tags_EDT.SetReadOnly(true);
  Tags_EDT.OnKeyDown = [this](TKey& key) {
    if (key.Is(Key::Enter)) return key.Consume();  // it is the editor's, not the window's
    if (!key.Is(Key::Down) || Grid == nullptr) return;
    key.Consume();
    Grid->SetFocus();
  };
  Place(Tags_EDT, 1);
}

void TTags::OpenTags(ILookups& lookups) { Tags_EDT.SetChoices(TagTokens(lookups)); }

void TTags::LoadTags() {
  const auto field = Tags_QRY.FindField("tags");
  if (Tags_QRY.IsEmpty() || !field) return;
  std::vector<std::string> codes;
  for (std::size_t row = 0; row < Tags_QRY.RecordCount(); ++row) {
    for (std::string& code : TagCodesOf(Tags_QRY.Cell(row, *field).AsText())) {
      if (std::find(codes.begin(), codes.end(), code) == codes.end()) codes.push_back(std::move(code));
    }
  }
  Tags_EDT.SetCodes(codes);
}

void TTags::Rearrange() {
  const std::vector<std::string> shown = Tags_EDT.Codes();
  const auto isShown = [&](const std::string& code) {
    return std::find(shown.begin(), shown.end(), code) != shown.end();
  };
  std::vector<std::string> ordered;
  for (const TToken& choice : Tags_EDT.Choices()) {
    if (isShown(choice.Code)) ordered.push_back(choice.Code);
  }
  for (const std::string& code : shown) {
    if (std::find(ordered.begin(), ordered.end(), code) == ordered.end()) ordered.push_back(code);
  }
  Tags_EDT.SetCodes(ordered);
}

TTags_search_FRM::TTags_search_FRM(TComponent* owner, std::string name, std::string caption)
    : TPanel(owner, std::move(name), Flow::Row), Tags_LBL(this, "Tags_LBL", std::move(caption)) {
  Search.Title = "برچسب";
  Search.FieldName = "tags";
  Tags_LBL.FocusControl = &Tags_EDT;
  Tags_EDT.SetAccessibleName(Search.Title);
  Tags_EDT.SetPlaceholder("نام برچسب");
  Tags_EDT.OnChange = [this] { TagsChanged(); };
  Tags_Reverst_CHK.SetHint("همه به جز مورد انتخاب شده");
  Tags_Reverst_CHK.OnClick = [this] {
    if (HasTags()) TagsChanged();
  };
  Place(Tags_LBL);
  Place(Tags_Reverst_CHK);
  Place(Tags_EDT, 1);
}

void TTags_search_FRM::OpenTags(ILookups& lookups) { Tags_EDT.SetChoices(TagTokens(lookups)); }

std::string TTags_search_FRM::Tags() const {
  const std::string codes = Tags_EDT.CodesText();
  return "," + codes + ",";
}

void TTags_search_FRM::Clear() {
  Tags_EDT.Clear();
  Tags_Reverst_CHK.SetChecked(false);
}

void TTags_search_FRM::TagsChanged() {
  Search.Active = HasTags();
  Search.Exclude = Tags_Reverst_CHK.Checked();
  Search.Value = HasTags() ? Tags() : std::string();
  Search.NotifyChange();
  if (OnChange) OnChange();
}

}  // namespace goods
