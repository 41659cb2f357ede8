#include "host/frames/select_entity_frame.h"

#include <exception>
#include <utility>

#include "host/components/form.h"

namespace goods {
namespace {

constexpr const char* kNoSuchCode = "کدی با این شماره وجود ندارد.";
constexpr const char* kNotLookedUp = "این کد جستجو نشد؛ برای تلاش دوباره Enter را بزنید.";

}  // namespace

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
    if (key.Is(Key::F4)) {
      key.Consume();
      SelectFromList();
    } else if (key.Is(Key::Enter) && !filled_) {
      Code_EDT.Accept();  // another code asks by itself
      if (!filled_) CodeAccepted();
    }
  };
  Select_BTN.OnClick = [this] { SelectFromList(); };
}

void TSelect_Entity_Frame::SetCode(std::int64_t code) {
  const std::string text = code == 0 ? std::string() : std::to_string(code);
  if (!filled_ && !text.empty() && text == Code_EDT.Text()) {
    CodeAccepted();
  } else if (!Code_EDT.SetText(text)) {
    Code_EDT.Clear();
  }
}

void TSelect_Entity_Frame::SelectFromList() {
  TForm* form = Form();
  if (form == nullptr || type_ == EntityType::None || !Code_EDT.CanFocus()) return;
  const auto chosen = form->Host().Lookups().SelectEntity(form, type_, CodeAsInt(), Code_EDT.Text());
  if (chosen) SetCode(*chosen);
}

std::vector<std::string> TSelect_Entity_Frame::LookUp() {
  const std::int64_t code = Code_EDT.AsInteger();
  TForm* form = Form();
  if (code == 0 || form == nullptr) return {};
  return form->Host().Lookups().LookupDBs(type_, code, fields_).value_or(std::vector<std::string>());
}

void TSelect_Entity_Frame::ShowOutcome(bool lookedUp) {
  Name_LBL.SetCaption(Exists() ? EntityName() : kNoName);
  if (!lookedUp) {
    Code_EDT.SetProblem(kNotLookedUp);
  } else {
    Code_EDT.SetProblem(Exists() || code_ == 0 ? "" : kNoSuchCode);
  }
}

void TSelect_Entity_Frame::CodeAccepted() {
  filled_ = false;
  values_.clear();
  code_ = 0;
  try {
    values_ = LookUp();
    code_ = Code_EDT.AsInteger();
  } catch (...) {
    const std::exception_ptr failure = std::current_exception();
    ShowOutcome(false);
    try {
      if (OnCodeChange) OnCodeChange();
    } catch (...) {  // the look-up's failure came first and says why
    }
    filled_ = false;
    std::rethrow_exception(failure);
  }
  ShowOutcome(true);
  if (OnCodeChange) OnCodeChange();
  filled_ = true;
}

}  // namespace goods
