#include "host/frames/select_entity_frame.h"

#include <utility>

#include "host/components/form.h"

namespace goods {

TSelect_Entity_Frame::TSelect_Entity_Frame(TComponent* owner, std::string name)
    : TPanel(owner, std::move(name), Flow::Row) {
  Code_EDT.SetWidth(90);
  Name_LBL.Emphasis = true;
  Select_BTN.SetHint("انتخاب از فهرست (F4)");
  Select_BTN.SetAccessibleName("انتخاب از فهرست");
  Place(Code_EDT);
  Place(Select_BTN);
  Place(Name_LBL, 1);
  Code_EDT.OnAccept = [this] { CodeAccepted(); };
  Code_EDT.OnKeyDown = [this](TKey& key) {
    if (!key.Is(Key::F4)) return;
    key.Consume();
    SelectFromList();
  };
  Select_BTN.OnClick = [this] { SelectFromList(); };
}

void TSelect_Entity_Frame::SetCode(std::int64_t code) {
  if (code == 0 || !Code_EDT.SetText(std::to_string(code))) Code_EDT.Clear();
}

void TSelect_Entity_Frame::SelectFromList() {
  TForm* form = Form();
  if (form == nullptr || type_ == EntityType::None || !Code_EDT.CanFocus()) return;
  const auto chosen = form->Host().Lookups().SelectEntity(form, type_, CodeAsInt(), Code_EDT.Text());
  if (chosen) SetCode(*chosen);
}

void TSelect_Entity_Frame::CodeAccepted() {
  values_.clear();
  const std::int64_t code = CodeAsInt();
  TForm* form = Form();
  if (code != 0 && form != nullptr) {
    values_ = form->Host().Lookups().LookupDBs(type_, code, fields_).value_or(std::vector<std::string>());
  }
  Name_LBL.SetCaption(Exists() ? EntityName() : kNoName);
  Code_EDT.SetProblem(Exists() || code == 0 ? "" : "کدی با این شماره وجود ندارد.");
  if (OnCodeChange) OnCodeChange();
}

}  // namespace goods
