// The window of the parts, shown and active, and the ways to its widgets.
#pragma once

#include <QLineEdit>
#include <QRadioButton>

#include <gtest/gtest.h>

#include "desktop/views/drop_down_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/tab_bar.h"
#include "desktop/views/token_editor_view.h"
#include "desktop/views/token_field.h"
#include "desktop/views/window_overlay.h"
#include "tests/desktop/views/parts_form.h"

namespace goods::testing {

class Parts : public ::testing::Test {
 protected:
  void SetUp() override {
    host.messages.SetUnattended([](const ShownMessage&) { return true; });
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    Settle();
  }
  template <typename Kind = QWidget>
  Kind& Widget(const TControl& control) {
    return dynamic_cast<Kind&>(*view.WidgetOf(control));
  }
  WindowOverlay& DropDown() { return dynamic_cast<DropDownView&>(*view.ViewOf(form.Level_CMB)).Overlay(); }
  TokenEditorView& Tokens() { return dynamic_cast<TokenEditorView&>(*view.ViewOf(TagEdit())); }
  TTokenEditor& TagEdit() { return form.TagSearch_FRM.Tags_EDT; }
  GridWidget& Table() { return Widget<GridWidget>(form.Goods_GRD); }
  void Focus(TControl& control) {
    control.SetFocus();
    Settle();
  }
  // A key to whatever has the keyboard.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(view.focusWidget(), key, modifiers);
    Settle();
  }
  void Click(QWidget& widget, const QPoint& at) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    Settle();
  }

  TestHost host;
  TParts_FRM form{host};
  FormView view{form};
};

}  // namespace goods::testing
