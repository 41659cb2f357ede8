// The keys that every window has beside those of its report.
#pragma once

class QKeyEvent;

namespace goods {

class FormView;
class TEdit;

// Ctrl+F finds in the table that has the keyboard, or else in the one that the window prints or shows first;
// F8 lifts the conditions on its columns; F3 goes to the search box of a report; a menu entry that the
// application added has its own key (GridCommand), such as F11 for charts. To be asked when the window
// and its controls had no use for the key; true when it was used.
bool TakeWindowKey(FormView& form, const QKeyEvent& event);

// Whether F3 goes to it, so that its placeholder says so.
bool HasSearchKey(const TEdit& edit);

}  // namespace goods
