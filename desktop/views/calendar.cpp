#include "desktop/views/calendar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kCellSide = 34;
constexpr int kDaysInWeek = 7;
constexpr int kMonths = 12;
constexpr int kWeeks = 6;
constexpr int kTitleRows = 2;  // the month's name, the names of the days
constexpr int kFriday = 6;

constexpr std::array<const char*, kMonths> kMonthNames{
    "فروردین", "اردیبهشت", "خرداد", "تیر", "مرداد", "شهریور", "مهر", "آبان", "آذر", "دی", "بهمن", "اسفند"};
constexpr std::array<const char*, kDaysInWeek> kDayNames{"ش", "ی", "د", "س", "چ", "پ", "ج"};

const JalaliDate kFirst{kFirstJalaliYear, 1, 1};

JalaliDate LastDate() { return {kLastJalaliYear, kMonths, JalaliMonthLength(kLastJalaliYear, kMonths)}; }

}  // namespace

const char* JalaliMonthName(int month) { return kMonthNames[static_cast<std::size_t>(month - 1)]; }

CalendarView::CalendarView(std::optional<JalaliDate> today, JalaliDate current, QWidget* parent)
    : QWidget(parent), today_(today), current_(current), side_(Scaled(kCellSide, *this)) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAccessibleName("تقویم");
}

QSize CalendarView::sizeHint() const { return {side_ * kDaysInWeek, side_ * (kTitleRows + kWeeks + 1)}; }

void CalendarView::SetCurrent(JalaliDate date) {
  current_ = std::clamp(date, kFirst, LastDate());
  setAccessibleDescription(ToQt(FormatJalali(current_)));
  update();
}

void CalendarView::MoveDays(int days) {
  const std::int64_t wanted = DaysFromJalali(current_) + days;
  SetCurrent(JalaliFromDays(std::clamp(wanted, DaysFromJalali(kFirst), DaysFromJalali(LastDate()))));
}

void CalendarView::MoveMonths(int months) {
  const int index = current_.year * kMonths + current_.month - 1 + months;
  JalaliDate date{index / kMonths, index % kMonths + 1, current_.day};
  if (date.year < kFirstJalaliYear || date.year > kLastJalaliYear) return;
  date.day = std::min(date.day, JalaliMonthLength(date.year, date.month));
  SetCurrent(date);
}

QRect CalendarView::TitleRect() const { return {0, 0, width(), side_}; }

// In reading direction the next month is at the left.
QRect CalendarView::StepRect(bool forward) const { return {forward ? 0 : width() - side_, 0, side_, side_}; }

QRect CalendarView::TodayRect() const { return {0, side_ * (kTitleRows + kWeeks), width(), side_}; }

QRect CalendarView::DayRect(int day) const {
  const int first = JalaliWeekday({current_.year, current_.month, 1});
  const int place = first + day - 1;
  const int column = place % kDaysInWeek;
  return {width() - side_ * (column + 1), side_ * (kTitleRows + place / kDaysInWeek), side_, side_};
}

int CalendarView::DayAt(const QPoint& point) const {
  for (int day = 1; day <= JalaliMonthLength(current_.year, current_.month); ++day) {
    if (DayRect(day).contains(point)) return day;
  }
  return 0;
}

void CalendarView::PaintTitle(QPainter& painter) const {
  const Theme& theme = CurrentTheme();
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(theme.text);
  const QString title =
      QString::fromUtf8(JalaliMonthName(current_.month)) + ' ' + ShownDigits(QString::number(current_.year));
  painter.setLayoutDirection(Qt::RightToLeft);
  painter.drawText(TitleRect(), Qt::AlignCenter, title);
  for (const bool forward : {true, false}) {
    const QPointF center = QRectF(StepRect(forward)).center();
    DrawArrow(painter, QRectF(center.x() - 5, center.y() - 5, 10, 10), theme.accent, forward ? 90 : -90);
  }
  painter.setFont(font());
  painter.setPen(theme.mutedText);
  for (int column = 0; column < kDaysInWeek; ++column) {
    const QRect cell(width() - side_ * (column + 1), side_, side_, side_);
    painter.drawText(cell, Qt::AlignCenter, QString::fromUtf8(kDayNames[static_cast<std::size_t>(column)]));
  }
}

void CalendarView::PaintDay(QPainter& painter, int day) const {
  const Theme& theme = CurrentTheme();
  const JalaliDate date{current_.year, current_.month, day};
  const QRectF cell = QRectF(DayRect(day)).adjusted(3, 3, -3, -3);
  const bool chosen = date == current_;
  if (chosen || day == hovered_) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(chosen ? theme.accent : theme.buttonHover);
    painter.drawRoundedRect(cell, 6, 6);
  }
  if (date == today_) {
    painter.setPen(QPen(theme.accent, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cell, 6, 6);
  }
  painter.setPen(chosen ? theme.accentText : JalaliWeekday(date) == kFriday ? theme.problem : theme.text);
  painter.drawText(cell, Qt::AlignCenter, ShownDigits(QString::number(day)));
}

void CalendarView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintTitle(painter);
  for (int day = 1; day <= JalaliMonthLength(current_.year, current_.month); ++day) PaintDay(painter, day);
  if (!today_) return;
  painter.setPen(CurrentTheme().accent);
  painter.drawText(TodayRect(), Qt::AlignCenter, ShownText("امروز: " + FormatJalali(*today_)));
}

void CalendarView::keyPressEvent(QKeyEvent* event) {
  const bool byYear = event->modifiers().testFlag(Qt::ControlModifier);
  switch (LatinKey(event->key())) {
    case Qt::Key_Left:
      return MoveDays(1);
    case Qt::Key_Right:
      return MoveDays(-1);
    case Qt::Key_Up:
      return MoveDays(-kDaysInWeek);
    case Qt::Key_Down:
      return MoveDays(kDaysInWeek);
    case Qt::Key_PageUp:
      return MoveMonths(byYear ? -kMonths : -1);
    case Qt::Key_PageDown:
      return MoveMonths(byYear ? kMonths : 1);
    case Qt::Key_Home:
      return SetCurrent({current_.year, current_.month, 1});
    case Qt::Key_End:
      return SetCurrent({current_.year, current_.month, JalaliMonthLength(current_.year, current_.month)});
    case Qt::Key_T:
      return today_ ? SetCurrent(*today_) : void();
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (OnChosen) OnChosen(current_);
      return;
    default:
      event->ignore();
  }
}

void CalendarView::mouseMoveEvent(QMouseEvent* event) {
  const int day = DayAt(event->pos());
  if (day == hovered_) return;
  hovered_ = day;
  update();
}

void CalendarView::mouseReleaseEvent(QMouseEvent* event) {
  const int day = DayAt(event->pos());
  if (day > 0) {
    current_.day = day;
    if (OnChosen) OnChosen(current_);
  } else if (today_ && TodayRect().contains(event->pos())) {
    current_ = *today_;
    if (OnChosen) OnChosen(current_);
  } else if (StepRect(true).contains(event->pos())) {
    MoveMonths(1);
  } else if (StepRect(false).contains(event->pos())) {
    MoveMonths(-1);
  }
}

void CalendarView::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) MoveMonths(event->angleDelta().y() > 0 ? -1 : 1);
}

CalendarPopup::CalendarPopup(const std::string& today, const std::string& text, QWidget* parent)
    : QFrame(parent, Qt::Popup) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  const std::optional<JalaliDate> now = ParseJalali(today);
  const JalaliDate start = ParseJalali(text).value_or(now.value_or(JalaliDate{1400, 1, 1}));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 4);
  calendar_ = new CalendarView(now, start, this);
  layout->addWidget(calendar_);
  setFocusProxy(calendar_);
  calendar_->OnChosen = [this](JalaliDate date) {
    const std::function<void(const std::string&)> chosen = OnChosen;
    close();
    if (chosen) chosen(FormatJalali(date));
  };
}

void CalendarPopup::ShowBeside(const QWidget& widget) {
  adjustSize();
  const QRect screen = widget.screen()->availableGeometry();
  QPoint at = widget.mapToGlobal(QPoint(widget.width() - width(), widget.height() + 2));
  if (at.y() + height() > screen.bottom()) at.setY(widget.mapToGlobal(QPoint(0, -height() - 2)).y());
  at.setX(std::clamp(at.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
  move(at);
  show();
  calendar_->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QFrame::keyPressEvent(event);
  }
}

}  // namespace goods
