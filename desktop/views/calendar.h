// A month of the Jalali calendar, right to left with Saturday first, and the popup that holds it.
#pragma once

#include <QFrame>
#include <functional>
#include <optional>
#include <string>

#include "host/core/jalali.h"

namespace goods {

// Keys: arrows move by day and week, PageUp and PageDown by month, with Ctrl by year, Home and End to the
// month's ends, T to today; Enter chooses.
class CalendarView : public QWidget {
 public:
  CalendarView(std::optional<JalaliDate> today, JalaliDate current, QWidget* parent);

  JalaliDate Current() const { return current_; }
  void SetCurrent(JalaliDate date);
  std::function<void(JalaliDate)> OnChosen;

  // The cell of a day of the month shown.
  QRect DayRect(int day) const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void MoveDays(int days);
  void MoveMonths(int months);
  int DayAt(const QPoint& point) const;
  QRect TitleRect() const;
  QRect StepRect(bool forward) const;
  QRect TodayRect() const;
  void PaintTitle(QPainter& painter) const;
  void PaintDay(QPainter& painter, int day) const;

  std::optional<JalaliDate> today_;
  JalaliDate current_;
  int hovered_ = 0;
  int side_;
};

class CalendarPopup : public QFrame {
 public:
  // today and text as Jalali texts; where text is no date the calendar opens at today.
  CalendarPopup(const std::string& today, const std::string& text, QWidget* parent);
  std::function<void(const std::string& date)> OnChosen;
  CalendarView& Calendar() { return *calendar_; }
  void ShowBeside(const QWidget& widget);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CalendarView* calendar_;
};

// "فروردین" to "اسفند"; month from 1 to 12.
const char* JalaliMonthName(int month);

}  // namespace goods
