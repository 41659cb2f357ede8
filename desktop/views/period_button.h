// PeriodButton: beside a range of dates, the periods that it can be set to at once.
#pragma once

#include <QToolButton>
#include <optional>

#include "host/components/edit.h"
#include "host/core/signal.h"

class QMenu;

namespace goods {

class FormView;

// The two date edits that stand in one container, the first one being where the range begins.
struct DateRange {
  TDateEdit* from;
  TDateEdit* to;
};
// None where there are fewer or more than two.
std::optional<DateRange> DateRangeIn(const TControl& container);

// Ctrl+Down in either edit does what a click does. A period that is chosen is set as if both dates had been
// typed; where the range can be used only once a box before it is ticked, the box is ticked first. It is seen
// and enabled as the second edit is, or can become so.
class PeriodButton : public QToolButton {
 public:
  PeriodButton(FormView& form, const TControl& container, const DateRange& range, QWidget* parent);

  // The button of the range that the edit belongs to; null where it has none.
  static PeriodButton* Of(FormView& form, const TControl& edit);

  // Hangs the list open below the button.
  void Offer();

 private:
  void Follow();
  // The box that stands before the edits, as far as it is not ticked and they wait for it.
  TControl* WaitingBox() const;
  void Choose(const std::string& from, const std::string& to);

  FormView& form_;
  const TControl& container_;
  DateRange range_;
  Subscription changed_;
};

}  // namespace goods
