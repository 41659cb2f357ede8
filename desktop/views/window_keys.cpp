#include "desktop/views/window_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/letter_keys.h"
#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/components/grid_filter.h"

namespace goods {
namespace {

bool IsSeen(const FormView& form, const TControl& control) {
  const QWidget* widget = form.WidgetOf(control);
  return widget != nullptr && widget->isVisible() && control.CanFocus();
}

template <typename Kind, typename Wanted>
Kind* FirstSeen(const FormView& form, TControl& container, const Wanted& wanted) {
  for (TControl* control : container.Controls()) {
    auto* found = dynamic_cast<Kind*>(control);
    if (found != nullptr && wanted(*found) && IsSeen(form, *found)) return found;
    if (Kind* inside = FirstSeen<Kind>(form, *control, wanted)) return inside;
  }
  return nullptr;
}

TSmartDBGrid_QRT* GridMeant(FormView& form) {
  if (auto* active = dynamic_cast<TSmartDBGrid_QRT*>(form.Form().ActiveControl())) return active;
  auto* report = dynamic_cast<TBaseDock_FRM*>(&form.Form());
  TSmartDBGrid_QRT* printed = report == nullptr ? nullptr : report->PrintedGrid();
  if (printed != nullptr && IsSeen(form, *printed)) return printed;
  return FirstSeen<TSmartDBGrid_QRT>(form, form.Form(), [](const TSmartDBGrid_QRT&) { return true; });
}

bool Find(FormView& form) {
  TSmartDBGrid_QRT* grid = GridMeant(form);
  auto* view = grid == nullptr ? nullptr : dynamic_cast<GridControlView*>(form.ViewOf(*grid));
  if (view == nullptr) return false;
  form.Run([grid] { grid->SetFocus(); });
  if (grid->Focused()) view->Grid().Find();
  return true;
}

bool LiftConditions(FormView& form) {
  TSmartDBGrid_QRT* grid = GridMeant(form);
  if (grid == nullptr) return false;
  form.Run([grid] { RemoveConditions(*grid); });
  return true;
}

bool GoToSearchBox(FormView& form) {
  auto* edit = FirstSeen<TEdit>(form, form.Form(), [](const TEdit& each) { return HasSearchKey(each); });
  if (edit == nullptr) return false;
  form.Run([edit] { edit->SetFocus(); });
  form.Flush();
  ControlView* view = form.ViewOf(*edit);
  auto* line = view == nullptr ? nullptr : dynamic_cast<QLineEdit*>(view->FocusWidget());
  if (line != nullptr) {
    line->setFocus(Qt::ShortcutFocusReason);
    line->selectAll();
  }
  return true;
}

bool RunCommandOf(FormView& form, int key) {
  for (const GridCommand& command : form.GridCommands()) {
    if (command.key == 0 || command.key != key) continue;
    TSmartDBGrid_QRT* grid = GridMeant(form);
    if (grid == nullptr || !command.OfferedOn(*grid)) return false;
    form.Run([&] { command.run(*grid, &form); });
    return true;
  }
  return false;
}

// Along the way that led here.
bool GoBack(FormView& form) {
  if (form.Path().size() < 2) return false;
  form.Run([&form] { form.Form().Close(); });
  return true;
}

}  // namespace

bool HasSearchKey(const TEdit& edit) {
  return edit.SearchBox && dynamic_cast<const TBaseDock_FRM*>(edit.Form()) != nullptr;
}

bool TakeWindowKey(FormView& form, const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const int letter = modifiers == Qt::ControlModifier ? LatinKey(event.key()) : 0;
  if (letter == Qt::Key_F) return Find(form);
  if (letter == Qt::Key_N && form.OnBeside) {
    form.OnBeside();
    return true;
  }
  if (modifiers == Qt::AltModifier && event.key() == Qt::Key_Left) return GoBack(form);
  if (modifiers == Qt::NoModifier && event.key() == Qt::Key_F3) return GoToSearchBox(form);
  if (modifiers == Qt::NoModifier && event.key() == Qt::Key_F8) return LiftConditions(form);
  for (const WindowCommand& command : form.WindowCommands()) {
    auto* button = form.findChild<QWidget*>(command.name);
    if (modifiers != Qt::NoModifier || command.key != event.key() || button == nullptr) continue;
    command.run(form, *button);
    return true;
  }
  return RunCommandOf(form, QKeyCombination(modifiers, static_cast<Qt::Key>(event.key())).toCombined());
}

}  // namespace goods
