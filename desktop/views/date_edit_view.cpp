#include "desktop/views/date_edit_view.h"

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>

#include "desktop/views/calendar.h"
#include "desktop/views/form_view.h"
#include "desktop/views/period_button.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kIconSize = 16;

QIcon CalendarIcon() {
  constexpr int kOversize = 4;  // sharp on any screen
  QPixmap pixmap(kIconSize * kOversize, kIconSize * kOversize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kOversize, kOversize);
  painter.setPen(QPen(CurrentTheme().mutedText, 1.3, Qt::SolidLine, Qt::RoundCap));
  painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 12), 2, 2);
  painter.drawLine(QPointF(1.5, 6.5), QPointF(14.5, 6.5));
  painter.drawLine(QPointF(5, 1), QPointF(5, 3.6));
  painter.drawLine(QPointF(11, 1), QPointF(11, 3.6));
  painter.setBrush(CurrentTheme().accent);
  painter.setPen(Qt::NoPen);
  painter.drawRoundedRect(QRectF(4, 9, 3, 3), 0.8, 0.8);
  return QIcon(pixmap);
}

}  // namespace

DateEditView::DateEditView(FormView& form, TDateEdit& edit, QWidget* parent) : EditView(form, edit, parent) {
  open_ = Line().addAction(CalendarIcon(), QLineEdit::LeadingPosition);
  open_->setToolTip("تقویم (Alt+Down)");
  for (QToolButton* button : Line().findChildren<QToolButton*>()) button->setAccessibleName("تقویم");
  connect(open_, &QAction::triggered, this, [this] { DropDown(); });
  Line().installEventFilter(this);
}

int DateEditView::ExtraWidth() const { return Scaled(kIconSize + 8, Line()); }

TDateEdit& DateEditView::Date() const { return static_cast<TDateEdit&>(Control()); }

bool DateEditView::HoldsImpossibleDate() const { return Date().CanFocus() && Date().HoldsImpossibleDate(); }

void DateEditView::SayWhy() {
  Act([this] {
    Date().SetProblem(kNoSuchDate);
    Form().Form().Host().Messages().ShowTooltipMessage(Date(), kNoSuchDate);
  });
}

bool DateEditView::HoldsFocus() {
  if (!HoldsImpossibleDate()) return false;
  SayWhy();
  return true;
}

// What moves the caret, edits, or asks for the calendar or the help goes on.
bool DateEditView::HoldsKey(const TKey& key) {
  if (!HoldsImpossibleDate()) return false;
  if (key.Is(Key::Escape)) {
    Act([this] { Date().GiveBackLastGoodDate(); });
    return true;
  }
  const bool functionKey = key.key >= Key::F1 && key.key <= Key::F12;
  const bool asks = key.Is(Key::F1) || key.Is(Key::F4) || key.IsAlt(Key::Down);
  const bool leaves = key.key == Key::Enter || key.key == Key::Tab || functionKey || key.alt;
  if (!leaves || asks) return false;
  SayWhy();
  return true;
}

// The mouse, or a letter of the keyboard accelerators, elsewhere in the window.
bool DateEditView::LeavesByMouse(QObject* watched, const QEvent& event) const {
  const bool leaves = event.type() == QEvent::MouseButtonPress ||
                      event.type() == QEvent::MouseButtonDblClick || event.type() == QEvent::TouchBegin ||
                      event.type() == QEvent::Shortcut;
  auto* widget = leaves ? qobject_cast<QWidget*>(watched) : nullptr;
  return widget != nullptr && widget->window() == Line().window() && widget != &Line() &&
         !Line().isAncestorOf(widget);
}

bool DateEditView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &Line()) return LeavesByMouse(watched, *event) && HoldsFocus();
  if (event->type() == QEvent::FocusIn) {
    qApp->installEventFilter(this);  // only here, so that other events do not pass by this view
  } else if (event->type() == QEvent::FocusOut) {
    qApp->removeEventFilter(this);
  } else if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool altDown = key->key() == Qt::Key_Down && key->modifiers().testFlag(Qt::AltModifier);
    if (altDown || key->key() == Qt::Key_F4) {
      DropDown();
      return true;
    }
    if (key->key() == Qt::Key_Down && key->modifiers().testFlag(Qt::ControlModifier)) {
      if (PeriodButton* periods = PeriodButton::Of(Form(), Control())) periods->Offer();
      return true;
    }
  }
  return EditView::eventFilter(watched, event);
}

void DateEditView::DropDown() {
  if (!Line().isEnabled()) return;
  auto* popup = new CalendarPopup(Form().Form().Host().Windows().NowDate(), Edit().Text(), &Line());
  popup->setObjectName(Line().objectName() + "_Calendar");
  popup->OnChosen = [this](const std::string& date) { Act([&] { Edit().SetText(date); }); };
  popup->ShowBeside(Line());
}

}  // namespace goods
