#include "desktop/windows/desktop_windows.h"

#include <QApplication>
#include <QDate>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <utility>

#include "desktop/views/keyboard_marks.h"
#include "desktop/views/screen_fit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/base/base_dock.h"
#include "host/components/standard.h"
#include "host/core/jalali.h"

namespace goods {
namespace {

constexpr int kPollMs = 15;
// A handler that posts to its own window, as a delayed search does, must not keep the processor busy.
constexpr int kRepostMs = 10;

QString PlaceKey(const FormView& view) { return "windows/" + ToQt(view.Form().Section()); }

// Visits what the user can make wider or higher by dragging a border of a splitter, with its size.
template <typename Visit>
void VisitBorders(TControl& container, const Visit& visit) {
  const auto* panel = dynamic_cast<const TPanel*>(&container);
  const bool splits = panel != nullptr && panel->Splitter;
  for (TControl* each : container.Controls()) {
    if (splits && each->Stretch() == 0) visit(*each, panel->Direction() == Flow::Row);
    VisitBorders(*each, visit);
  }
}

QVariantMap BordersOf(TForm& form) {
  QVariantMap sizes;
  VisitBorders(form, [&](const TControl& control, bool wide) {
    if (const int size = wide ? control.Width() : control.Height(); size > 0)
      sizes.insert(ComponentPath(control), size);
  });
  return sizes;
}

// As far as the window has such borders; sizes that no screen has are passed over.
void SetBorders(TForm& form, const QVariantMap& sizes) {
  constexpr int kLeast = 40;
  constexpr int kMost = 4000;
  VisitBorders(form, [&](TControl& control, bool wide) {
    const int size = sizes.value(ComponentPath(control)).toInt();
    if (size < kLeast || size > kMost) return;
    wide ? control.SetWidth(size) : control.SetHeight(size);
  });
}

QString BordersKey(const TForm& form) { return "borders/" + ToQt(form.Section()); }

bool KeepsPlaces() { return !QCoreApplication::organizationName().isEmpty(); }

}  // namespace

// Stands among the form's components, so that the form's end lets it know: it has no owner then.
struct DesktopWindows::Posted {
  Posted(TForm& to, int messageCode) : form(to), code(messageCode), mark(&to, "") {}
  TForm& form;
  int code;
  TComponent mark;
  bool Alive() const { return mark.Owner() != nullptr; }
};

DesktopWindows::DesktopWindows() {
  clock_.start();
  QCoreApplication::instance()->installEventFilter(this);
}

DesktopWindows::~DesktopWindows() = default;

bool DesktopWindows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Quit && watched == QCoreApplication::instance()) Quit();
  return QObject::eventFilter(watched, event);
}

void DesktopWindows::Quit() {
  quitting_ = true;
  CloseAll();
}

void DesktopWindows::CloseAll() {
  const std::vector<FormView*> open(views_.rbegin(), views_.rend());
  for (FormView* view : open) view->Run([view] { view->Form().Close(); });
}

bool DesktopWindows::RestorePlace(FormView& view) const {
  if (placeStore_.read) return view.restoreGeometry(placeStore_.read(PlaceKey(view)));
  return KeepsPlaces() && view.restoreGeometry(QSettings().value(PlaceKey(view)).toByteArray());
}

void DesktopWindows::KeepPlace(const FormView& view) const {
  if (placeStore_.write) {
    placeStore_.write(PlaceKey(view), view.saveGeometry());
  } else if (KeepsPlaces()) {
    QSettings().setValue(PlaceKey(view), view.saveGeometry());
  }
}

QVariantMap DesktopWindows::KeptBorders(const TForm& form) const {
  if (!placeStore_.read) return KeepsPlaces() ? QSettings().value(BordersKey(form)).toMap() : QVariantMap();
  const QByteArray kept = placeStore_.read(BordersKey(form));
  return QJsonDocument::fromJson(kept).object().toVariantMap();
}

void DesktopWindows::KeepBorders(const TForm& form, const QVariantMap& borders) const {
  if (placeStore_.write) {
    placeStore_.write(BordersKey(form), QJsonDocument(QJsonObject::fromVariantMap(borders)).toJson());
  } else if (KeepsPlaces()) {
    QSettings().setValue(BordersKey(form), borders);
  }
}

void DesktopWindows::ShowWindow(FormView& view) const {
  view.setWindowModality(Qt::ApplicationModal);
  const QSize wanted = view.size();
  const bool tooLarge = !RestorePlace(view) && wanted.boundedTo(RoomFor(view)) != wanted;
  if (view.Form().Maximised || tooLarge) view.setWindowState(view.windowState() | Qt::WindowMaximized);
  view.show();
  view.raise();
  view.activateWindow();
}

DesktopWindows::Attended::Attended(DesktopWindows& windows, Attendant attendant)
    : windows_(windows), before_(std::exchange(windows.attendant_, std::move(attendant))) {}

DesktopWindows::Attended::~Attended() { End(); }

void DesktopWindows::Attended::End() {
  if (!std::exchange(ended_, true)) windows_.attendant_ = std::move(before_);
}

void DesktopWindows::DriveUnseen(const std::function<void()>& click,
                                 const std::function<void(TForm& form)>& steps) {
  std::exception_ptr error;
  Attended* scope = nullptr;
  Attended attended(*this, [&](TForm& form) {
    scope->End();  // what the steps open is shown
    try {
      steps(form);
    } catch (...) {
      error = std::current_exception();
    }
  });
  scope = &attended;
  click();
  if (error) std::rethrow_exception(error);
}

// The report that a report is opened from; dialogs of criteria lead nowhere.
const FormView* DesktopWindows::Opener(const TForm& form) const {
  const FormView* front = ActiveView();
  const auto isReport = [](const TForm& each) {
    return dynamic_cast<const TBaseDock_FRM*>(&each) != nullptr;
  };
  return front != nullptr && isReport(form) && isReport(front->Form()) ? front : nullptr;
}

// The second of two windows is modal to none, and a child of the first, which blocks all others.
void DesktopWindows::PlaceBeside(FormView& view) {
  constexpr int kLeastHalf = 640;
  beside_ = &view;
  QWidget& first = *view.parentWidget();
  view.setWindowModality(Qt::NonModal);
  QRect room = first.screen()->availableGeometry();
  if (room.width() / 2 >= Scaled(kLeastHalf, first)) {
    room.setWidth(room.width() / 2);
    const auto put = [](QWidget& window, const QRect& half) {
      const QMargins frame(window.geometry().left() - window.frameGeometry().left(),
                           window.geometry().top() - window.frameGeometry().top(),
                           window.frameGeometry().right() - window.geometry().right(),
                           window.frameGeometry().bottom() - window.geometry().bottom());
      window.setWindowState(window.windowState() & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
      window.setGeometry(half.marginsRemoved(frame));
    };
    put(first, room.translated(room.width(), 0));
    put(view, room);
  }
  view.show();
  view.raise();
  view.activateWindow();
}

void DesktopWindows::CloseBeside(const FormView& view) {
  if (beside_ == nullptr || beside_->parentWidget() != &view) return;
  FormView& second = *beside_;
  second.Run([&second] { second.Form().Close(); });
}

void DesktopWindows::OfferBeside(FormView& view) {
  if (beside_ != nullptr) {
    QWidget* other = beside_ == &view ? view.parentWidget() : beside_;
    other->raise();
    return other->activateWindow();
  }
  const std::vector<Offered> offered = offered_();
  QMenu menu(&view);
  menu.setObjectName("Beside_MNU");
  menu.setAccessibleName("گزارشی در کنار این یکی");
  menu.setLayoutDirection(Qt::RightToLeft);
  menu.setToolTipsVisible(true);
  QList<QAction*> actions;
  for (const Offered& each : offered) {
    QAction* action = menu.addAction(AsPlain(each.title));
    action->setEnabled(each.reason.isEmpty());
    action->setToolTip(each.reason);
    actions << action;
  }
  MarkEntries(menu);
  if (!actions.isEmpty()) menu.setActiveAction(actions.front());
  const int margin = Scaled(12, view);
  const QAction* chosen =
      menu.exec(view.mapToGlobal(QPoint(view.width() - margin - menu.sizeHint().width(), margin)));
  const qsizetype place = actions.indexOf(chosen);
  if (place < 0) return;
  // Nothing stands beside where the report has a message instead of a window.
  opensBeside_ = &view;
  offered[static_cast<std::size_t>(place)].open();
  opensBeside_ = nullptr;
}

// A window from before it is seen until it is gone.
struct DesktopWindows::Showing {
  Showing(FormView* beside, std::unique_ptr<FormView> made)
      : first(beside),
        view(std::move(made)),
        alive(view.get()),
        placeBefore(beside == nullptr ? QRect() : beside->normalGeometry()),
        stateBefore(beside == nullptr ? Qt::WindowStates() : beside->windowState()) {}
  FormView* first;  // the one that it stands beside; null where it stands by itself
  std::unique_ptr<FormView> view;
  FormView* alive;      // null once it is gone: who has it in a layout may take it away with the layout
  bool placed = false;  // in a layout of the application's
  QRect placeBefore;    // of the first one
  Qt::WindowStates stateBefore;
};

void DesktopWindows::Enter(Showing& showing) {
  FormView& view = *showing.view;
  const FormView* opener = showing.first == nullptr ? Opener(view.Form()) : nullptr;
  if (opener != nullptr) view.SetPath(opener->Path() + view.Path());
  views_.push_back(&view);
  ApplyLayout(view);
  showing.placed = showing.first == nullptr && place_.take && place_.take(view);
  if (!showing.placed && offered_ && dynamic_cast<TBaseDock_FRM*>(&view.Form()) != nullptr)
    view.OnBeside = [this, &view] { OfferBeside(view); };
  if (showing.first != nullptr) {
    PlaceBeside(view);
  } else if (showing.placed) {
    view.show();
  } else {
    ShowWindow(view);
  }
  view.FocusFirst();
  if (shown_) shown_(view);
}

void DesktopWindows::Leave(Showing& showing) {
  if (showing.first != nullptr) beside_ = nullptr;
  if (showing.alive == nullptr) {
    static_cast<void>(showing.view.release());
    return;
  }
  FormView& view = *showing.view;
  if (!showing.placed && showing.first == nullptr) KeepPlace(view);
  std::erase(views_, &view);
  view.hide();
  if (showing.first != nullptr && showing.first->isVisible()) {
    showing.first->setGeometry(showing.placeBefore);
    showing.first->setWindowState(showing.stateBefore);
  }
  if (showing.placed) {
    place_.giveBack(view);
    view.setParent(nullptr);
  }
  if (FormView* behind = ActiveView()) behind->activateWindow();
}

void DesktopWindows::RunModal(TForm& form) {
  if (attendant_) {
    const Attendant attend = attendant_;  // it may end while it attends
    attend(form);
    return form.Close();
  }
  FormView* first = std::exchange(opensBeside_, nullptr);
  SetBorders(form, KeptBorders(form));
  const QVariantMap borders = BordersOf(form);
  Showing showing(first,
                  std::make_unique<FormView>(form, gridCommands_, first != nullptr ? first : DialogParent()));
  showing.view->Offer(windowCommands_);
  QEventLoop loop;
  QObject::connect(showing.view.get(), &QObject::destroyed, &loop, [this, &form, &showing] {
    std::erase(views_, std::exchange(showing.alive, nullptr));
    form.Close();
  });
  const Subscription closing = form.Changed.Connect([&] {
    if (form.ModalResult() == kModalNone) return;
    if (showing.alive != nullptr) CloseBeside(*showing.alive);
    loop.quit();
  });
  Enter(showing);
  if (quitting_) form.Close();
  if (form.ModalResult() == kModalNone) loop.exec();
  if (form.ModalResult() == kModalNone) form.Close();  // the application ends
  if (const QVariantMap now = BordersOf(form); now != borders) KeepBorders(form, now);
  Leave(showing);
}

void DesktopWindows::PostMessage(TForm& form, int code) {
  const auto message = std::make_shared<Posted>(form, code);
  QTimer::singleShot(delivering_ ? kRepostMs : 0, this, [this, message] { Deliver(message); });
}

void DesktopWindows::Deliver(const std::shared_ptr<Posted>& message) {
  if (!message->Alive()) return;
  if (holding_) {
    held_.push_back(message);
    return;
  }
  const bool before = std::exchange(delivering_, true);
  RunUserAction(message->form.Host(), [&] { message->form.WindowMessage(message->code); });
  delivering_ = before;
}

void DesktopWindows::HoldMessages(bool hold) {
  holding_ = hold;
  if (hold) return;
  for (const auto& message : std::exchange(held_, {}))
    QTimer::singleShot(0, this, [this, message] { Deliver(message); });
}

void DesktopWindows::ProcessMessages(const std::function<bool()>& until) {
  // The timer wakes the loop for conditions that time alone makes true.
  QTimer wake;
  wake.start(kPollMs);
  while (!until() && !quitting_)
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

std::uint64_t DesktopWindows::TickCount() const { return static_cast<std::uint64_t>(clock_.elapsed()); }

TForm* DesktopWindows::ActiveWindow() const {
  const FormView* active = ActiveView();
  return active == nullptr ? nullptr : &active->Form();
}

// A dialog belongs to the window that it was opened over.
FormView* DesktopWindows::ActiveView() const {
  for (QWidget* each = QApplication::activeWindow(); beside_ != nullptr && each != nullptr;
       each = each->parentWidget()) {
    const auto found = std::find(views_.begin(), views_.end(), each);
    if (found != views_.end()) return *found;
  }
  return views_.empty() ? nullptr : views_.back();
}

FormView* DesktopWindows::ViewOf(const TForm& form) const {
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [&](const FormView* view) { return &view->Form() == &form; });
  return found == views_.end() ? nullptr : *found;
}

QWidget* DesktopWindows::WidgetOf(const TControl& control) const {
  const TForm* form = control.Form();
  const FormView* view = form == nullptr ? nullptr : ViewOf(*form);
  return view == nullptr ? nullptr : view->WidgetOf(control);
}

QWidget* DesktopWindows::DialogParent() const {
  const QWidget* keyboard = QApplication::focusWidget();
  for (FormView* view : views_) {
    if (keyboard != nullptr && (view == keyboard || view->isAncestorOf(keyboard))) return view;
  }
  return views_.empty() ? QApplication::activeWindow() : static_cast<QWidget*>(views_.back());
}

void DesktopWindows::ActivateKeyboardLayout(std::string_view layout) {
  layout_ = std::string(layout);
  if (FormView* view = ActiveView()) ApplyLayout(*view);
}

void DesktopWindows::ApplyLayout(QWidget& view) const {
  if (layout_.empty()) return;
  const bool english = layout_ == "00000409";
  for (QLineEdit* edit : view.findChildren<QLineEdit*>()) {
    Qt::InputMethodHints hints = edit->inputMethodHints();
    hints.setFlag(Qt::ImhPreferLatin, english);
    edit->setInputMethodHints(hints);
  }
}

std::string DesktopWindows::NowDate() const {
  const qint64 days = QDate(1970, 1, 1).daysTo(QDate::currentDate());
  return FormatJalali(JalaliFromDays(days));
}

}  // namespace goods
