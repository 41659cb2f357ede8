#include "desktop/views/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <utility>

#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kEditWidth = 260;
constexpr int kPortionMs = 8;              // a sixtieth of a second, with room for what else there is to do
constexpr std::size_t kPortionRows = 512;  // between two looks at the clock

QString ShownCount(std::size_t count) { return ShownDigits(QString::number(count)); }

}  // namespace

FindBar::FindBar(TSmartDBGrid_QRT& grid, QWidget* parent)
    : QWidget(parent), grid_(grid), edit_(new LineEdit(this)), count_(new QLabel(this)) {
  setObjectName("FindBar");
  setLayoutDirection(Qt::RightToLeft);
  setFocusProxy(edit_);
  edit_->setObjectName("Find_EDT");
  edit_->setPlaceholderText("یافتن در جدول");
  edit_->setAccessibleName("یافتن در جدول");
  edit_->setMinimumWidth(Scaled(kEditWidth, *this));
  edit_->installEventFilter(this);
  count_->setObjectName("FindCount_LBL");
  connect(edit_, &QLineEdit::textChanged, this, [this] { Look(); });

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(Scaled(6, *this), Scaled(4, *this), Scaled(6, *this), Scaled(4, *this));
  layout->setSpacing(Scaled(6, *this));
  layout->addWidget(edit_);
  layout->addWidget(AddButton("FindPrevious_BTN", "▲", "قبلی (Shift+Enter)", Step::Previous));
  layout->addWidget(AddButton("FindNext_BTN", "▼", "بعدی (Enter)", Step::Next));
  layout->addWidget(count_);
  layout->addStretch(1);
  layout->addWidget(AddButton("FindClose_BTN", "✕", "بستن (Esc)", Step::None));
  work_.setInterval(0);
  connect(&work_, &QTimer::timeout, this, [this] { LookOn(); });
  hide();
}

FindBar::~FindBar() = default;

QToolButton* FindBar::AddButton(const QString& name, const QString& text, const QString& tip, Step step) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  connect(button, &QToolButton::clicked, this, [this, step] {
    if (step == Step::None) return Close();
    Go(step);
  });
  return button;
}

void FindBar::Open() {
  if (!IsOpen()) {
    show();
    if (OnHeight) OnHeight();
    Look();
  }
  edit_->selectAll();
  edit_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::Close() {
  if (!IsOpen()) return;
  finder_.reset();
  work_.stop();
  hide();
  if (OnMarks) OnMarks();
  if (OnHeight) OnHeight();
  if (OnClosed) OnClosed();
}

std::size_t FindBar::CurrentRow() const {
  const TADOQuery* query = grid_.DataSet();
  return query == nullptr ? 0 : query->RecNo().value_or(0);
}

void FindBar::RowsChanged() {
  if (IsOpen()) Look();
}

void FindBar::Look() {
  wanted_ = Step::None;
  fresh_ = true;
  const QString text = edit_->text();
  finder_ = text.isEmpty() ? nullptr : std::make_unique<GridFinder>(grid_, FromQt(text), CurrentRow());
  if (finder_ != nullptr && !finder_->Done()) {
    work_.start();
    LookOn();
  } else {
    work_.stop();
    ShowCount();
  }
  if (OnMarks) OnMarks();
}

void FindBar::LookOn() {
  QElapsedTimer clock;
  clock.start();
  while (finder_->Work(kPortionRows)) {
    if (clock.elapsed() >= kPortionMs) break;
  }
  if (finder_->Done()) work_.stop();
  TakeStep();
  ShowCount();
}

bool FindBar::Marks(std::size_t row, const TGridColumn& column) {
  return finder_ != nullptr && finder_->CellHolds(row, column);
}

void FindBar::Go(Step step) {
  if (finder_ == nullptr) return;
  wanted_ = step;
  TakeStep();
  ShowCount();
}

void FindBar::TakeStep() {
  if (wanted_ == Step::None || finder_ == nullptr) return;
  const std::size_t current = CurrentRow();
  std::optional<std::size_t> row;
  if (wanted_ == Step::Previous) {
    row = finder_->Previous(current);
  } else {
    row = fresh_ && finder_->RowHolds(current) ? current : finder_->Next(current);
  }
  if (!row) {
    if (finder_->Done()) wanted_ = Step::None;
    return;
  }
  wanted_ = Step::None;
  fresh_ = false;
  if (OnGoTo) OnGoTo(*row);
}

void FindBar::ShowCount() {
  const bool any = finder_ != nullptr && finder_->Hits() > 0;
  const bool none = finder_ != nullptr && finder_->Done() && !any;
  QString text;
  if (none) {
    text = "یافت نشد";
  } else if (finder_ != nullptr && !finder_->Done()) {
    text = ShownCount(finder_->Hits()) + " ردیف تا اینجا…";
  } else if (any) {
    const auto place = finder_->PlaceOf(CurrentRow());
    text = (place ? ShownCount(*place) + " از " : QString()) + ShownCount(finder_->Hits()) + " ردیف";
  }
  count_->setText(text);
  count_->setForegroundRole(none ? QPalette::WindowText : QPalette::PlaceholderText);
  if (edit_->property(kProblemProperty).toBool() == none) return;
  edit_->setProperty(kProblemProperty, none);
  edit_->update();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == edit_ && event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (watched != edit_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  const bool shift = key->modifiers().testFlag(Qt::ShiftModifier);
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Go(shift ? Step::Previous : Step::Next);
      return true;
    case Qt::Key_Down:
      Go(Step::Next);
      return true;
    case Qt::Key_Up:
      Go(Step::Previous);
      return true;
    case Qt::Key_Escape:
      Close();
      return true;
    default:
      return false;
  }
}

void FindBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), CurrentTheme().header);
  painter.fillRect(QRect(0, height() - 1, width(), 1), CurrentTheme().border);
}

}  // namespace goods
