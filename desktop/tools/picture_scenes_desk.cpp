#include "desktop/tools/picture_scenes_desk.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <stdexcept>
#include <string>

#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "host/components/grid.h"

namespace goods {
namespace {

constexpr int kDeskSettle = 500;  // milliseconds

TSmartDBGrid_QRT& GridOf(QWidget& window, const char* name) {
  auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(dynamic_cast<FormView&>(window).Form().FindComponent(name));
  if (grid == nullptr) throw std::runtime_error(std::string("no grid ") + name);
  return *grid;
}

// The window with what hangs open over it, as it is seen: also where that reaches beyond the window.
void SaveWith(const ReportScenes& scenes, QWidget& window, QWidget& popup, const char* name) {
  const QImage under = PictureOf(window);
  const QImage over = PictureOf(popup);
  const QPoint place = window.mapFromGlobal(popup.mapToGlobal(QPoint(0, 0)));
  const QRect whole = QRect(QPoint(0, 0), window.size()) | QRect(place, popup.size());
  QPixmap picture(whole.size() * under.devicePixelRatio());
  picture.setDevicePixelRatio(under.devicePixelRatio());
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.drawImage(-whole.topLeft(), under);
  painter.drawImage(place - whole.topLeft(), over);
  painter.end();
  QLabel seen;
  seen.setPixmap(picture);
  seen.resize(whole.size());
  scenes.save(seen, name);
}

void OpenCard(const ReportScenes& scenes, std::int64_t good, const std::function<void(QWidget&)>& steps) {
  WhileModal([&, steps](QWidget& window) {
    window.resize(scenes.size);
    TypeText(window, "Good_SEF.Code_EDT", QString::number(good));
    PressKey(window, Qt::Key_Return);
    Wait(kDeskSettle);
    steps(window);
  });
  scenes.module.Call("Open_GoodKardex");
  RethrowFailure();
}

void PicturePeriods(const ReportScenes& scenes, std::int64_t good) {
  OpenCard(scenes, good, [&](QWidget& window) {
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(kDeskSettle);
    Child(window, "Date_RDSF.RangeDate_From_EDT").setFocus();
    PressKey(window, Qt::Key_Down, Qt::ControlModifier);
    Wait(kDeskSettle);
    QWidget* popup = QApplication::activePopupWidget();
    if (popup == nullptr) throw std::runtime_error("no list of periods hangs open");
    SaveWith(scenes, window, *popup, "quick-periods");
    popup->close();
  });
}

void PictureFigures(const ReportScenes& scenes, std::int64_t good) {
  OpenCard(scenes, good, [&](QWidget& window) {
    GridOf(window, "Kardex_GRD").SetFocus();
    Wait(kDeskSettle);
    for (int i = 0; i < 6; ++i) PressKey(window, Qt::Key_Up, Qt::ShiftModifier);
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
    Wait(2 * kDeskSettle);
    scenes.save(window, "selection-figures");
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
  });
}

void PicturePaper(const ReportScenes& scenes, std::int64_t good) {
  OpenCard(scenes, good, [&](QWidget& window) {
    WhileModal([&](QWidget& preview) {
      preview.resize(1200, 860);
      Wait(kDeskSettle);
      WhileModal([&](QWidget& dialog) {
        Child(dialog, "TextSize_CMB").setFocus();
        for (int i = 0; i < 5; ++i) PressKey(dialog, Qt::Key_Down);
        Wait(kDeskSettle);
        dialog.move(preview.mapToGlobal(QPoint(60, 120)));
        SaveWith(scenes, preview, dialog, "page-setup");
      });
      PressKey(preview, Qt::Key_E, Qt::ControlModifier);
    });
    PressKey(window, Qt::Key_F9);
  });
}

void PicturePath(const ReportScenes& scenes, std::int64_t good) {
  WhileModal([&](QWidget& list) {
    list.resize(scenes.size);
    Wait(kDeskSettle);
    TSmartDBGrid_QRT& grid = GridOf(list, "GoodTransactin_List_GRD");
    const Value code(good);
    if (!grid.DataSet()->Locate("Code", std::span(&code, 1)))
      throw std::runtime_error("the good is not listed");
    grid.SetFocus();
    WhileModal([&](QWidget& card) {
      card.resize(scenes.size);
      Wait(kDeskSettle);
      WhileModal([&](QWidget& document) { scenes.save(document, "drill-path"); });
      PressKey(card, Qt::Key_F2);
    });
    PressKey(list, Qt::Key_F2);
  });
  scenes.module.Call("Open_GoodAmountAsset");
  RethrowFailure();
}

}  // namespace

void PictureDesk(const ReportScenes& scenes, std::int64_t good) {
  PicturePeriods(scenes, good);
  PictureFigures(scenes, good);
  PicturePaper(scenes, good);
  PicturePath(scenes, good);
}

}  // namespace goods
