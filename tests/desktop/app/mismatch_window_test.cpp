// The stock-card mismatch on the desktop: what the user has arranged is there the next time.
#include <QApplication>
#include <QMouseEvent>
#include <QSplitter>

#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class MismatchWindow : public DesktopTest {
 protected:
  void Open(std::function<void(QWidget&)> steps) {
    WhileModal([steps](QWidget& window) {
      window.resize(1366, 768);
      Wait(50);
      steps(window);
    });
    Module().Call("Open_DetailKardexAsset_Dismatch");
  }
};

void Drag(QWidget& handle, const QPoint& by) {
  const QPoint from = handle.rect().center();
  const auto mouse = [&](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, handle.mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&handle, &event);
  };
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
  mouse(QEvent::MouseMove, from + by, Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, from + by, Qt::NoButton);
  Wait(50);
}

TEST_F(MismatchWindow, TheWidthThatTheGroupsWereDraggedToIsKeptUntilTheNextTime) {
  HostFor("admin");
  int before = 0;
  int dragged = 0;
  Open([&](QWidget& window) {
    QWidget& groups = Child(window, "Groups_PNL");
    before = groups.width();
    auto* border = window.findChild<QSplitter*>("Body_PNL_Splitter");
    ASSERT_NE(border, nullptr);
    Drag(*border->handle(1), QPoint(-80, 0));
    dragged = groups.width();
  });
  EXPECT_GE(dragged, before + 60);
  int reopened = 0;
  Open([&](QWidget& window) { reopened = Child(window, "Groups_PNL").width(); });
  EXPECT_EQ(reopened, dragged);
}

TEST_F(MismatchWindow, TheChosenNumberOfFieldsBesideEachOtherIsKeptUntilTheNextTime) {
  HostFor("admin");
  Open([&](QWidget& window) { Component<TComboBox>(window, "TListDetail_FRAME1.View_CMB").SetItemIndex(2); });
  int reopened = 0;
  Open([&](QWidget& window) {
    reopened = Component<TComboBox>(window, "TListDetail_FRAME1.View_CMB").ItemIndex();
    const QRect choice(Child(window, "TListDetail_FRAME1.View_CMB").mapTo(&window, QPoint()),
                       Child(window, "TListDetail_FRAME1.View_CMB").size());
    const QRect exit(Child(window, "Exit_BTN").mapTo(&window, QPoint()), Child(window, "Exit_BTN").size());
    EXPECT_LT(choice.right(), exit.left());
    EXPECT_LT(choice.left(), window.width() / 10);
  });
  EXPECT_EQ(reopened, 2);
}

}  // namespace
}  // namespace goods
