#include "desktop/views/form_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/views/container_view.h"
#include "desktop/views/key_mapping.h"
#include "desktop/views/path_line.h"
#include "desktop/views/registry.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/status_line.h"
#include "desktop/views/theme.h"
#include "desktop/views/window_keys.h"
#include "host/base/base_dock.h"

namespace goods {
namespace {

// The line below a report; null in other windows.
StatusLine* StatusOf(const FormView& view) {
  return dynamic_cast<StatusLine*>(view.findChild<QWidget*>("Status_PNL", Qt::FindDirectChildrenOnly));
}

}  // namespace

FormView::FormView(TForm& form, std::vector<GridCommand> gridCommands, QWidget* parent)
    : QWidget(parent, Qt::Window), form_(form), gridCommands_(std::move(gridCommands)) {
  setObjectName(ToQt(form.Name()));
  setLayoutDirection(Qt::RightToLeft);
  setFocusPolicy(Qt::NoFocus);
  auto* layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetNoConstraint);  // the screen has the last word
  const int margin = Scaled(12, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  if (ControlView* root = Build(form_, this)) layout->addWidget(root->Widget(), 1);
  if (auto* report = dynamic_cast<TBaseDock_FRM*>(&form_)) {
    layout->addWidget(new StatusLine(*this, *report));
  }
  for (const auto& view : views_) view->Connected();
  for (const auto& view : views_) view->Refresh();
  AlignRows();
  formChanged_ = form_.Changed.Connect([this] {
    if (ControlView* root = ViewOf(form_)) Queue(*root);
  });
  RefreshWindow();
  path_ = {windowTitle()};
  resize(Scaled(form_.PreferredWidth, *this), Scaled(form_.PreferredHeight, *this));
  built_ = true;
  // Rows that came while the window was about to be shown are told, too.
  if (StatusLine* status = StatusOf(*this)) status->Follow();
}

FormView::~FormView() {
  hide();  // what widgets say as they disappear still finds their views
  built_ = false;
  queued_.clear();
  while (!views_.empty()) views_.pop_back();
}

void FormView::Offer(const std::vector<WindowCommand>& commands) {
  StatusLine* status = StatusOf(*this);
  if (status == nullptr) return;
  for (const WindowCommand& command : commands) {
    if (command.offered(*this)) windowCommands_.push_back(command);
  }
  status->AddCommands();
}

ControlView* FormView::ViewOf(const TControl& control) const { return byControl_.value(&control, nullptr); }

QWidget* FormView::WidgetOf(const TControl& control) const {
  const ControlView* view = ViewOf(control);
  return view == nullptr ? nullptr : view->Widget();
}

ControlView* FormView::Build(TControl& control, QWidget* parent) {
  std::unique_ptr<ControlView> made = ViewRegistry::Global().Make(*this, control, parent);
  if (made == nullptr) return nullptr;
  ControlView* view = made.get();
  views_.push_back(std::move(made));
  byControl_.insert(&control, view);
  if (QWidget* focus = view->FocusWidget()) {
    byFocusWidget_.insert(focus, view);
    focus->installEventFilter(this);
  }
  if (auto* container = dynamic_cast<ContainerView*>(view)) container->BuildContents();
  if (built_) {
    view->Connected();
    view->Refresh();
  }
  return view;
}

void FormView::Drop(const TControl* control) {
  ControlView* view = byControl_.take(control);
  if (view == nullptr) return;
  if (auto* container = dynamic_cast<ContainerView*>(view)) {
    for (const TControl* inner : container->Contents()) Drop(inner);
  }
  delete view->Widget();
  std::erase_if(views_, [view](const auto& each) { return each.get() == view; });
}

void FormView::Queue(ControlView& view) {
  if (std::find(queued_.begin(), queued_.end(), &view) == queued_.end()) queued_.push_back(&view);
  if (flushPosted_) return;
  flushPosted_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Flush(); }, Qt::QueuedConnection);
}

void FormView::Forget(ControlView& view) {
  std::erase(queued_, &view);
  byFocusWidget_.removeIf([&view](const auto& entry) { return entry.value() == &view; });
}

void FormView::Flush() {
  flushPosted_ = false;
  if (queued_.empty()) {
    if (StatusLine* status = StatusOf(*this)) status->Follow();
    return;
  }
  setUpdatesEnabled(false);
  // Containers first: what no longer stands in them is not there to be refreshed.
  const std::vector<ControlView*> before(queued_);
  std::vector<ContainerView*> containers;
  for (const auto& view : views_) {
    if (auto* container = dynamic_cast<ContainerView*>(view.get())) containers.push_back(container);
  }
  for (ContainerView* container : containers) {
    const bool there = std::any_of(views_.begin(), views_.end(),
                                   [container](const auto& view) { return view.get() == container; });
    if (there && container->ContentsDiffer()) container->BuildContents();
  }
  while (!queued_.empty()) {
    ControlView* view = queued_.front();
    queued_.erase(queued_.begin());
    view->Refresh();
  }
  AlignRows();
  RefreshWindow();
  if (StatusLine* status = StatusOf(*this)) status->Follow();
  setUpdatesEnabled(true);
  SyncFocus();
}

void FormView::ReleaseFocusIn(const QWidget& hiding) {
  if (QWidget* focus = focusWidget(); focus != nullptr && (focus == &hiding || hiding.isAncestorOf(focus)))
    focus->clearFocus();
}

void FormView::AlignRows() {
  for (const auto& view : views_) {
    if (auto* container = dynamic_cast<ContainerView*>(view.get())) container->AlignRows();
  }
}

void FormView::RefreshWindow() {
  const auto* report = dynamic_cast<const TBaseDock_FRM*>(&form_);
  const QString title = ShownText(report != nullptr ? report->HostTitle() : PlainCaption(form_.Caption()));
  if (windowTitle() != title) setWindowTitle(title);
}

void FormView::SetPath(QStringList titles) {
  path_ = std::move(titles);
  delete findChild<QWidget*>("Path_LBL", Qt::FindDirectChildrenOnly);
  if (path_.size() < 2) return;
  dynamic_cast<QVBoxLayout&>(*layout()).insertWidget(0, new PathLine(path_, this));
}

void FormView::FocusFirst() {
  if (form_.ActiveControl() == nullptr) Run([this] { form_.FocusNext(); });
  SyncFocus();
}

void FormView::FocusCame(const TControl& control) {
  TControl* active = form_.ActiveControl();
  if (active == &control) return;
  if (ControlView* view = active == nullptr ? nullptr : ViewOf(*active);
      view != nullptr && view->HoldsFocus()) {
    SyncFocus();
    return;
  }
  Run([&] { form_.SetActiveControl(const_cast<TControl*>(&control)); });
}

void FormView::SyncFocus() {
  const TControl* active = form_.ActiveControl();
  const ControlView* view = active == nullptr ? nullptr : ViewOf(*active);
  QWidget* wanted = view == nullptr ? nullptr : view->FocusWidget();
  if (wanted == nullptr || wanted == focusWidget()) {
    if (wanted == nullptr || wanted->hasFocus() || !isActiveWindow()) return;
    // A drop-down of the control itself has the focus.
    if (QApplication::activePopupWidget() != nullptr) return;
  }
  // A part of the control that has the keyboard, such as the bar that finds in a table, keeps it.
  if (focusWidget() != nullptr && wanted->isAncestorOf(focusWidget())) return;
  wanted->setFocus(Qt::OtherFocusReason);
}

bool FormView::HandleKey(QKeyEvent& event) {
  const TKey key = KeyFromQt(event);
  if (key.IsConsumed()) return false;
  const TControl* active = form_.ActiveControl();
  ControlView* view = active == nullptr ? nullptr : ViewOf(*active);
  if (view != nullptr && view->HoldsKey(key)) return true;
  bool consumed = true;
  const QPointer<FormView> alive(this);
  Run([&] { consumed = form_.KeyDown(key); });
  if (alive && !consumed) consumed = TakeWindowKey(*this, event);
  if (alive) SyncFocus();
  StatusLine* status = alive && !consumed ? StatusOf(*this) : nullptr;
  if (status != nullptr && status->HandleKey(event)) return true;
  return consumed || !alive;
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    if (const ControlView* view = byFocusWidget_.value(watched, nullptr)) FocusCame(view->Control());
  } else if (event->type() == QEvent::KeyPress) {
    return HandleKey(*static_cast<QKeyEvent*>(event));
  } else if (event->type() == QEvent::ShortcutOverride) {
    // Keys that the components handle are theirs before any shortcut of Qt's own.
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool functionKey = key->key() >= Qt::Key_F1 && key->key() <= Qt::Key_F12;
    if (functionKey || key->key() == Qt::Key_Escape) {
      event->accept();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

bool FormView::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) SyncFocus();
  return QWidget::event(event);
}

void FormView::keyPressEvent(QKeyEvent* event) {
  // Keys of a focused control came through the filter already and are only passing by.
  const bool already = byFocusWidget_.contains(focusWidget()) && focusWidget()->hasFocus();
  if (already || !HandleKey(*event)) QWidget::keyPressEvent(event);
}

bool FormView::focusNextPrevChild(bool next) {
  Run([&] { form_.FocusNext(!next); });
  SyncFocus();
  return true;
}

void FormView::closeEvent(QCloseEvent* event) {
  if (!form_.Showing()) {
    event->accept();
    return;
  }
  event->ignore();
  Run([this] { form_.Close(); });
}

void FormView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Run([this] { form_.FormResize(); });
}

void FormView::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), CurrentTheme().window); }

}  // namespace goods
