#include "desktop/views/registry.h"

#include "desktop/views/combo_view.h"
#include "desktop/views/date_edit_view.h"
#include "desktop/views/drop_down_view.h"
#include "desktop/views/edit_view.h"
#include "desktop/views/field_list_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/panel_view.h"
#include "desktop/views/standard_views.h"
#include "desktop/views/tab_views.h"
#include "desktop/views/token_editor_view.h"
#include "host/components/form.h"

namespace goods {
namespace {

template <typename Kind, typename View>
void AddKind(ViewRegistry& registry) {
  registry.Add<Kind>([](FormView& form, TControl& control, QWidget* parent) -> std::unique_ptr<ControlView> {
    return std::make_unique<View>(form, static_cast<Kind&>(control), parent);
  });
}

ViewRegistry HostKinds() {
  ViewRegistry registry;
  AddKind<TLabel, LabelView>(registry);
  AddKind<TButton, ButtonView>(registry);
  AddKind<TCheckBox, CheckBoxView>(registry);
  AddKind<TRadioButton, RadioButtonView>(registry);
  AddKind<TComboBox, ComboView>(registry);
  AddKind<TEdit, EditView>(registry);
  AddKind<TDateEdit, DateEditView>(registry);
  AddKind<TSmartDBGrid_QRT, GridControlView>(registry);
  AddKind<TFieldList, FieldListView>(registry);
  AddKind<TTabControl, TabControlView>(registry);
  AddKind<TPageControl, PageControlView>(registry);
  AddKind<TDropDownCombo, DropDownView>(registry);
  AddKind<TTokenEditor, TokenEditorView>(registry);
  AddKind<TPanel, PanelView>(registry);
  AddKind<TForm, PanelView>(registry);
  return registry;
}

}  // namespace

ViewRegistry& ViewRegistry::Global() {
  static ViewRegistry registry = HostKinds();
  return registry;
}

std::unique_ptr<ControlView> ViewRegistry::Make(FormView& form, TControl& control, QWidget* parent) const {
  for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
    if (entry->matches(control)) return entry->make(form, control, parent);
  }
  return nullptr;
}

}  // namespace goods
