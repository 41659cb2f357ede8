#include "desktop/windows/desktop_waiting.h"

#include <QApplication>
#include <QKeyEvent>

#include "desktop/views/read_times.h"
#include "desktop/views/shown_text.h"
#include "desktop/windows/desktop_windows.h"
#include "desktop/windows/waiting_panel.h"
#include "host/data/row_store.h"

namespace goods {
namespace {

constexpr const char* kReading = "در حال خواندن اطلاعات";

bool IsUserInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::InputMethod:
      return true;
    default:
      return false;
  }
}

// Tells the indicator of one statement, and of its end however it ends.
class ReportedStatement : public IStatementProgress {
 public:
  ReportedStatement(DesktopWaiting& waiting, IStatementProgress* further)
      : waiting_(waiting), further_(further) {
    waiting_.StatementBegins();
  }
  ~ReportedStatement() override { waiting_.StatementEnds(); }
  bool Progress(std::size_t rows) override {
    const bool goOn = further_ == nullptr || further_->Progress(rows);
    return waiting_.Progress(rows) && goOn;
  }
  std::size_t FirstRowsWanted(std::size_t rows) override {
    return further_ != nullptr && waiting_.ShowsFirstRows() ? further_->FirstRowsWanted(rows) : 0;
  }
  void FirstRows(RowStore rows) override { further_->FirstRows(std::move(rows)); }

 private:
  DesktopWaiting& waiting_;
  IStatementProgress* further_;
};

}  // namespace

DesktopWaiting::DesktopWaiting(DesktopWindows& windows)
    : windows_(windows), keys_([this] { return statements_ > 0; }, [this] { return KeyTarget(); }) {}

DesktopWaiting::~DesktopWaiting() { TakeAway(); }

void DesktopWaiting::ShowWaitting(TForm* owner, std::string_view text) {
  owner_ = owner;
  text_ = std::string(text);
  if (!asked_) since_.start();
  asked_ = true;
}

void DesktopWaiting::HideWaitting(TForm* /*owner*/, int /*reserved*/) {
  asked_ = false;
  owner_ = nullptr;
  TakeAway();
}

void DesktopWaiting::StatementBegins() {
  if (statements_++ > 0) return;
  cancelled_ = false;
  if (!asked_) since_.start();
  lastPump_.start();
}

void DesktopWaiting::StatementEnds() {
  if (--statements_ > 0) return;
  if (!asked_) TakeAway();
  keys_.DeliverLater();
}

QWidget* DesktopWaiting::KeyTarget() const {
  FormView* view = windows_.ActiveView();
  if (view == nullptr) return nullptr;
  return view->focusWidget() != nullptr ? view->focusWidget() : view;
}

void DesktopWaiting::TakeAway() {
  if (panel_ != nullptr) delete panel_.data();
  if (std::exchange(indicated_, false)) indicator_.hide();
}

bool DesktopWaiting::IsShown() const { return panel_ != nullptr || indicated_; }

void DesktopWaiting::Update(std::size_t rows) {
  if (indicator_.show) {
    indicated_ = true;
    if (!indicator_.show(asked_ ? text_ : kReading, rows)) cancelled_ = true;
    return;
  }
  if (panel_ == nullptr) {
    const FormView* owner = owner_ == nullptr ? nullptr : windows_.ViewOf(*owner_);
    QWidget* over = owner == nullptr ? windows_.DialogParent() : const_cast<FormView*>(owner);
    if (over == nullptr) return;
    panel_ = new WaitingPanel(over);
  }
  const QString text = ToQt(asked_ ? text_ : kReading);
  QString count = QLocale(QLocale::English).toString(static_cast<qulonglong>(rows));
  count = ShownNumber(std::move(count));
  panel_->Show(goods::ShownText(text), rows == 0 ? QString() : count + QString::fromUtf8(" ردیف خوانده شد"));
}

bool DesktopWaiting::ShowsFirstRows() const {
  return !cancelled_ && !pumping_ && since_.isValid() && since_.elapsed() >= kFirstRowsMs;
}

bool DesktopWaiting::Progress(std::size_t rows) {
  if (cancelled_) return false;
  if (pumping_ || !since_.isValid() || since_.elapsed() < kPatienceMs) return true;
  if (IsShown() && lastPump_.elapsed() < kPumpMs) return true;
  pumping_ = true;
  Update(rows);
  windows_.HoldMessages(true);
  qApp->installEventFilter(this);
  QCoreApplication::processEvents(QEventLoop::AllEvents, kPumpMs);
  qApp->removeEventFilter(this);
  windows_.HoldMessages(false);
  pumping_ = false;
  lastPump_.start();
  return !cancelled_;
}

bool DesktopWaiting::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (!IsUserInput(event->type())) return false;
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    cancelled_ = true;
  } else if (event->type() == QEvent::ShortcutOverride) {
    event->accept();  // the key press follows then, instead of a shortcut
  } else if (event->type() == QEvent::Close) {
    event->ignore();
  } else {
    keys_.Hold(*event);
  }
  return true;
}

bool DesktopWaiting::PanelVisible() const { return panel_ != nullptr && panel_->isVisible(); }

std::string DesktopWaiting::ShownText() const {
  return panel_ == nullptr ? std::string() : FromQt(panel_->Text() + '\n' + panel_->Rows());
}

void WaitingConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  ReportedStatement reported(waiting_, progress);
  QElapsedTimer clock;
  clock.start();
  inner_.Open(statement, into, &reported);
  KeepReadTime(into, clock.elapsed());
}

void WaitingConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  ReportedStatement reported(waiting_, progress);
  inner_.Execute(statement, &reported);
}

}  // namespace goods
