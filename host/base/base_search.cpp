#include "host/base/base_search.h"

#include <utility>

#include "host/components/edit.h"
#include "host/components/token_editor.h"

namespace goods {

TBaseSearch_FRM::TBaseSearch_FRM(THost& host, std::string name) : TForm(host, std::move(name)) {
  Select_BTN.OnClick = [this] { Select_BTNClick(); };
  Del_BTN.OnClick = [this] { Del_BTNClick(); };
  EXit_BTN.OnClick = [this] { Exit_BTNClick(); };
  for (TButton* button : {&Select_BTN, &Del_BTN, &EXit_BTN}) Buttons_PNL.Place(*button);
}

TBaseSearch_FRM::~TBaseSearch_FRM() = default;

void TBaseSearch_FRM::Select_BTNClick() { SetModalResult(kModalOk); }

void TBaseSearch_FRM::Del_BTNClick() {}

void TBaseSearch_FRM::FormKeyDown(TKey& key) {
  if (key.Is(Key::Enter)) {
    // A name that is being typed among tokens is theirs to take.
    auto* tokens = dynamic_cast<TTokenEditor*>(ActiveControl());
    if (tokens != nullptr && !tokens->Text().empty()) return;
    key.Consume();
    FocusNext();
  } else if (key.Is(Key::F3)) {
    key.Consume();
    // The focus stays where it is, so what is typed there counts from now on.
    if (auto* edit = dynamic_cast<TEdit*>(ActiveControl())) edit->Accept();
    Select_BTNClick();
  } else if (key.Is(Key::Escape)) {
    key.Consume();
    Exit_BTNClick();
  }
}

}  // namespace goods
