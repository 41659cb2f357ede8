#include "host/components/form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace goods {

TForm::TForm(THost& host, std::string name)
    : TControl(nullptr, std::move(name)),
      host_(host),
      section_(Name()),
      showsMoney_(host.Rights().SeesPrices()) {}

TForm::~TForm() = default;

int TForm::ShowModal() {
  if (showing_) throw std::logic_error("the window " + Name() + " is showing already");
  modalResult_ = kModalNone;
  showing_ = true;
  showsMoney_ = host_.Rights().SeesPrices();
  // Cleared also when the host's loop throws, so that a kept window can be opened again.
  struct ShowingScope {
    bool& flag;
    ~ShowingScope() { flag = false; }
  } const scope{showing_};
  RunUserAction(host_, [this] { FormShow(); });
  if (modalResult_ == kModalNone) host_.Windows().RunModal(*this);
  RunUserAction(host_, [this] { FormClose(); });
  activeControl_ = nullptr;
  return modalResult_;
}

void TForm::SetModalResult(int result) {
  modalResult_ = result;
  Changed();
}

void TForm::Close() {
  if (modalResult_ == kModalNone) SetModalResult(kModalCancel);
}

void TForm::SetActiveControl(TControl* control) {
  if (control == activeControl_) return;
  TControl* before = std::exchange(activeControl_, control);
  if (before != nullptr) before->DoExit();
  if (activeControl_ == control && control != nullptr) control->DoEnter();
  Changed();
}

void TForm::ForgetControl(const TControl& control) {
  if (activeControl_ == &control) activeControl_ = nullptr;
}

namespace {

void CollectFocusable(TControl& control, std::vector<TControl*>& found) {
  if (control.TakesFocus() && control.CanFocus()) found.push_back(&control);
  for (TControl* inner : control.Controls()) CollectFocusable(*inner, found);
}

}  // namespace

void TForm::FocusNext(bool backwards) {
  std::vector<TControl*> stops;
  CollectFocusable(*this, stops);
  if (stops.empty()) return;
  if (backwards) std::reverse(stops.begin(), stops.end());
  const auto current = std::find(stops.begin(), stops.end(), activeControl_);
  const bool last = current == stops.end() || current + 1 == stops.end();
  SetActiveControl(last ? stops.front() : *(current + 1));
}

bool TForm::KeyDown(TKey key) {
  if (activeControl_ != nullptr && activeControl_->OnKeyDown) activeControl_->OnKeyDown(key);
  for (TControl* each = activeControl_; each != nullptr && !key.IsConsumed(); each = each->Parent()) {
    each->DoContainedKey(key);
  }
  if (!key.IsConsumed()) FormKeyDown(key);
  if (!key.IsConsumed() && activeControl_ != nullptr) activeControl_->DoKey(key);
  return key.IsConsumed();
}

void TForm::WindowMessage(int /*code*/) {}
void TForm::FormCreate() {}
void TForm::FormShow() {}
void TForm::FormClose() {}
void TForm::FormResize() {}
void TForm::FormKeyDown(TKey& /*key*/) {}

}  // namespace goods
