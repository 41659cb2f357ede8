// A window with a table of made-up stock-card rows, which has the keyboard.
#pragma once

#include <QTest>
#include <cstddef>

#include <gtest/gtest.h>

#include "desktop/views/grid_view.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {

class GridTest : public ::testing::Test {
 protected:
  void Open(std::size_t rows) {
    form.Fill(rows);
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    form.Kardex_GRD.SetFocus();
    Settle();
  }
  GridWidget& Table() { return dynamic_cast<GridWidget&>(*view.WidgetOf(form.Kardex_GRD)); }
  const TGridColumn& Column(const char* field) { return *form.Kardex_GRD.FindColumn(field); }

  TestHost host;
  TCard_FRM form{host};
  FormView view{form};
};

}  // namespace goods::testing
