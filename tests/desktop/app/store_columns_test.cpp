// The stock per store with 50 stores on the desktop: groups of columns that are hidden, moved and scrolled.
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "company/demo/demo_company.h"
#include "desktop/views/grid_view.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr const char* kGrid = "GoodsAsset_Store_GRD";

// Second unit, whole and part: four columns for each store.
class StoreColumns : public testing::Test {
 protected:
  StoreColumns() {
    DemoOptions options;
    options.goods = 12;
    options.stores = 50;
    options.movements = 600;
    const std::string path = FromQt(folder_.filePath("stores.goods"));
    MakeDemoCompany(path, options);
    company_ = OpenCompany(path);
    module_ = std::make_unique<ModuleLibrary>(GOODS_MODULE_FILE);
    host_ = std::make_unique<DesktopHost>(*company_, company_->SignIn("admin", "admin").value(), settings_,
                                          *module_, nullptr);
    module_->Attach(*host_);
    TSettings& settings = host_->Settings().Settings();
    settings.SecondUnit = settings.SecondUnitIsLarger = settings.WholeAndPart = true;
  }
  ~StoreColumns() override { module_->Detach(); }
  void TearDown() override { EXPECT_NO_THROW(RethrowFailure()); }

  void Open(std::function<void(QWidget&)> steps) {
    WhileModal([steps](QWidget& window) {
      window.resize(1366, 768);
      PressKey(window, Qt::Key_F2, Qt::ControlModifier);
      Wait(100);
      steps(window);
    });
    module_->Call("Open_GoodsAsset_Store");
  }

 private:
  QTemporaryDir folder_;
  std::unique_ptr<ICompany> company_;
  DesktopSettings settings_{folder_.filePath("settings")};
  std::unique_ptr<ModuleLibrary> module_;
  std::unique_ptr<DesktopHost> host_;
};

GridWidget& Table(QWidget& window) { return dynamic_cast<GridWidget&>(Child(window, kGrid)); }

QString GroupAt(const GridWidget& table, std::size_t index) { return table.Geometry().Groups()[index].title; }

// Each group covers exactly its columns' titles.
void ExpectGroupsOverTheirColumns(const GridWidget& table) {
  const GridGeometry& geometry = table.Geometry();
  for (const GridGroup& group : geometry.Groups()) {
    const QRect first = table.TitleRect(*geometry.Spans()[group.first].column);
    const QRect last = table.TitleRect(*geometry.Spans()[group.last].column);
    EXPECT_EQ(table.GroupRect(group).right(), first.right()) << FromQt(group.title);
    EXPECT_EQ(table.GroupRect(group).left(), last.left()) << FromQt(group.title);
  }
}

TEST_F(StoreColumns, GroupsFollowTheirColumnsWhenThoseAreHiddenAndMoved) {
  Open([](QWidget& window) {
    auto& grid = Component<TSmartDBGrid_QRT>(window, kGrid);
    GridWidget& table = Table(window);
    ASSERT_GE(grid.VisibleColumns().size(), 200U);
    ExpectGroupsOverTheirColumns(table);
    const std::size_t groups = table.Geometry().Groups().size();
    const int wide = table.GroupRect(table.Geometry().Groups()[0]).width();
    const QString first = GroupAt(table, 0);
    const QString second = GroupAt(table, 1);

    TGridColumn& hidden = *grid.FindColumn("S1-3");
    hidden.SetVisible(false);
    Wait(50);
    EXPECT_EQ(table.GroupRect(table.Geometry().Groups()[0]).width(), wide - hidden.Width());
    ExpectGroupsOverTheirColumns(table);

    for (const char* field : {"S1-1", "S1-2", "S1-Cost"}) grid.FindColumn(field)->SetVisible(false);
    Wait(50);
    EXPECT_EQ(table.Geometry().Groups().size(), groups - 1);
    EXPECT_EQ(GroupAt(table, 0), second);
    for (const char* field : {"S1-1", "S1-2", "S1-3", "S1-Cost"}) grid.FindColumn(field)->SetVisible(true);
    Wait(50);
    EXPECT_EQ(GroupAt(table, 0), first);

    // The second store is dragged before the first by its title.
    const GridGroup from = table.Geometry().Groups()[1];
    const QPoint press = table.GroupRect(from).center();
    const QPoint drop = table.GroupRect(table.Geometry().Groups()[0]).topRight() + QPoint(-4, 4);
    const auto mouse = [&](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
      QMouseEvent event(type, at, table.viewport()->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
      QApplication::sendEvent(table.viewport(), &event);
    };
    mouse(QEvent::MouseButtonPress, press, Qt::LeftButton);
    mouse(QEvent::MouseMove, (press + drop) / 2, Qt::LeftButton);
    mouse(QEvent::MouseMove, drop, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, drop, Qt::NoButton);
    Wait(50);
    EXPECT_EQ(GroupAt(table, 0), second);
    EXPECT_EQ(GroupAt(table, 1), first);
    EXPECT_EQ(table.Geometry().Groups().size(), groups);
    ExpectGroupsOverTheirColumns(table);
  });
}

TEST_F(StoreColumns, CodeAndNameStayInSightAfterScrollingPast200Columns) {
  Open([](QWidget& window) {
    auto& grid = Component<TSmartDBGrid_QRT>(window, kGrid);
    GridWidget& table = Table(window);
    const TGridColumn& code = *grid.FindColumn("GoodCode");
    const TGridColumn& name = *grid.FindColumn("GoodName");
    const QRect codeBefore = table.TitleRect(code);
    const QRect nameBefore = table.TitleRect(name);
    table.horizontalScrollBar()->setValue(table.horizontalScrollBar()->maximum());
    Wait(50);
    EXPECT_GT(table.horizontalScrollBar()->value(), 18'000);
    EXPECT_EQ(table.TitleRect(code), codeBefore);
    EXPECT_EQ(table.TitleRect(name), nameBefore);
    EXPECT_EQ(nameBefore.right() + 1, codeBefore.left());
    const TGridColumn& last = *grid.VisibleColumns().back();
    const QRect end = table.TitleRect(last);
    EXPECT_EQ(end.left(), 0);
    EXPECT_LT(end.right(), nameBefore.left());
    ExpectGroupsOverTheirColumns(table);
    table.horizontalScrollBar()->setValue(0);
    EXPECT_EQ(table.TitleRect(code), codeBefore);
  });
}

}  // namespace
}  // namespace goods
