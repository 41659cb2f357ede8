#include "desktop/views/screen_fit.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "desktop/views/fit_area.h"
#include "desktop/views/form_view.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr const char* kFitterName = "ScreenFitter";
// A window manager's frame, at 96 dpi, until the window tells its own.
constexpr QSize kUsualFrame{8, 36};

bool IsButtonRow(QLayoutItem& item) {
  if (item.widget() != nullptr) {
    const QWidget& widget = *item.widget();
    return qobject_cast<const QPushButton*>(&widget) == nullptr &&
           widget.findChild<QPushButton*>() != nullptr && widget.sizeHint().height() < widget.width();
  }
  const QLayout* layout = item.layout();
  for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
    if (qobject_cast<QPushButton*>(layout->itemAt(i)->widget()) != nullptr) return true;
  }
  return false;
}

// The last row of a dialog, where buttons stand in it; taken out of the layout.
QLayoutItem* TakeButtonRow(QLayout& layout) {
  auto* column = qobject_cast<QVBoxLayout*>(&layout);
  if (column == nullptr || column->count() < 2) return nullptr;
  const int last = column->count() - 1;
  return IsButtonRow(*column->itemAt(last)) ? column->takeAt(last) : nullptr;
}

FitArea* MakeScrollable(QDialog& dialog) {
  const QPointer<QWidget> focus(dialog.focusWidget());
  QLayout* contents = dialog.layout();
  const QMargins margins = contents->contentsMargins();
  QLayoutItem* buttons = TakeButtonRow(*contents);
  contents->setSizeConstraint(QLayout::SetDefaultConstraint);
  auto* area = new FitArea(&dialog);
  auto* body = new QWidget;
  body->setLayout(contents);
  contents->setContentsMargins(margins.left(), margins.top(), margins.right(),
                               buttons == nullptr ? margins.bottom() : 0);
  area->SetContents(body);
  auto* outer = new QVBoxLayout(&dialog);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(contents->spacing());
  outer->addWidget(area, 1);
  if (buttons != nullptr) {
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
    outer->addLayout(foot);
    if (QLayout* row = buttons->layout()) {
      foot->addLayout(row);
    } else {
      foot->addItem(buttons);
    }
  }
  dialog.setMinimumSize(0, 0);
  dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  area->show();
  if (focus) focus->setFocus();
  return area;
}

// The least size at which the window shows all that it holds.
QSize NaturalMinimum(const QWidget& window, const FitArea* area) {
  if (window.layout() == nullptr) return window.minimumSize();
  const QSize least = window.layout()->totalMinimumSize();
  return area == nullptr ? least : least - area->minimumSizeHint() + area->NaturalMinimum();
}

void MoveOntoScreen(QWidget& window) {
  const QRect available = window.screen()->availableGeometry();
  const QRect frame = window.frameGeometry();
  const int x = std::max(available.left(), std::min(frame.left(), available.right() + 1 - frame.width()));
  const int y = std::max(available.top(), std::min(frame.top(), available.bottom() + 1 - frame.height()));
  if (frame.topLeft() != QPoint(x, y)) window.move(x, y);
}

// A place that the user chose is changed only as the window is shown, or has to become another size.
void FitToScreen(QWidget& window, bool place) {
  const QSize room = RoomFor(window);
  FitArea* area = FitArea::Of(window);
  QSize natural = NaturalMinimum(window, area);
  auto* dialog = qobject_cast<QDialog*>(&window);
  const bool fits = natural.width() <= room.width() && natural.height() <= room.height();
  if (dialog != nullptr && area == nullptr && dialog->layout() != nullptr && !fits)
    area = MakeScrollable(*dialog);
  const bool form = dynamic_cast<FormView*>(&window) != nullptr;
  if (form) window.setMinimumSize(natural.boundedTo(room));
  if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) return;
  // What grew, as a message does that shows its details, grows as far as the screen goes.
  const QSize wanted = area == nullptr ? window.size() : window.size().expandedTo(natural);
  const QSize size = wanted.boundedTo(room);
  const bool resized = size != window.size();
  if (resized) window.resize(size);
  if (place || resized) MoveOntoScreen(window);
}

class ScreenFitter : public QObject {
 public:
  explicit ScreenFitter(QObject* parent) : QObject(parent) { setObjectName(kFitterName); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type != QEvent::Show && type != QEvent::LayoutRequest && type != QEvent::WindowActivate) return false;
    auto* widget = watched->isWidgetType() ? static_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr || !widget->isWindow() || (type == QEvent::LayoutRequest && !widget->isVisible()))
      return false;
    const Qt::WindowType kind = widget->windowType();
    if ((kind == Qt::Window || kind == Qt::Dialog) && !fitting_) {
      fitting_ = true;
      // Only then is the frame known.
      const bool firstActive = type == QEvent::WindowActivate && std::exchange(shown_, nullptr) == widget;
      if (type == QEvent::Show) shown_ = widget;
      if (type != QEvent::WindowActivate || firstActive) FitToScreen(*widget, type != QEvent::LayoutRequest);
      fitting_ = false;
    }
    return false;
  }

 private:
  bool fitting_ = false;
  QPointer<QWidget> shown_;  // and not active yet
};

}  // namespace

void KeepWindowsOnScreen(QApplication& application) {
  if (application.findChild<QObject*>(kFitterName, Qt::FindDirectChildrenOnly) != nullptr) return;
  application.installEventFilter(new ScreenFitter(&application));
}

QSize RoomFor(const QWidget& window) {
  QSize frame = window.frameGeometry().size() - window.size();
  if (!window.isVisible() || frame.isNull())
    frame = {Scaled(kUsualFrame.width(), window), Scaled(kUsualFrame.height(), window)};
  return (window.screen()->availableGeometry().size() - frame).expandedTo({1, 1});
}

}  // namespace goods
