#include "desktop/views/period_button.h"

#include <QAction>
#include <vector>

#include "desktop/views/form_view.h"
#include "desktop/views/numbered_menu.h"
#include "desktop/views/quick_periods.h"
#include "desktop/views/shown_text.h"
#include "host/components/form.h"
#include "host/components/standard.h"
#include "host/services/windows.h"

namespace goods {

std::optional<DateRange> DateRangeIn(const TControl& container) {
  std::vector<TDateEdit*> edits;
  for (TControl* each : container.Controls()) {
    if (auto* edit = dynamic_cast<TDateEdit*>(each)) edits.push_back(edit);
  }
  if (edits.size() != 2) return std::nullopt;
  return DateRange{edits.front(), edits.back()};
}

PeriodButton::PeriodButton(FormView& form, const TControl& container, const DateRange& range, QWidget* parent)
    : QToolButton(parent), form_(form), container_(container), range_(range) {
  setObjectName(ComponentPath(*range.to) + "_Periods");
  setText("دوره");
  setToolTip("دوره‌های آماده: امروز، این ماه، … (Ctrl+Down)");
  setAccessibleName("دوره‌های آماده");
  setFocusPolicy(Qt::NoFocus);  // the keyboard reaches it from the edits
  connect(this, &QToolButton::clicked, this, &PeriodButton::Offer);
  changed_ = range.to->Changed.Connect([this] { Follow(); });
  Follow();
}

PeriodButton* PeriodButton::Of(FormView& form, const TControl& edit) {
  const QWidget* panel = edit.Parent() == nullptr ? nullptr : form.WidgetOf(*edit.Parent());
  if (panel == nullptr) return nullptr;
  for (QToolButton* each : panel->findChildren<QToolButton*>()) {
    auto* button = dynamic_cast<PeriodButton*>(each);
    if (button == nullptr) continue;
    if (button->range_.from == &edit || button->range_.to == &edit) return button;
  }
  return nullptr;
}

TControl* PeriodButton::WaitingBox() const {
  if (range_.to->Enabled()) return nullptr;
  for (TControl* each : container_.Controls()) {
    auto* box = dynamic_cast<TCheckBox*>(each);
    if (box != nullptr && !box->Checked() && box->Visible() && box->Enabled()) return box;
    if (each == range_.from) break;
  }
  return nullptr;
}

void PeriodButton::Follow() {
  if (isHidden() == range_.to->Visible()) setVisible(range_.to->Visible());
  setEnabled(range_.to->Enabled() || WaitingBox() != nullptr);
}

void PeriodButton::Choose(const std::string& from, const std::string& to) {
  form_.Run([&] {
    if (TControl* box = WaitingBox()) box->Click();
    range_.from->SetText(from);
    range_.to->SetText(to);
  });
}

void PeriodButton::Offer() {
  const auto today = ParseJalali(form_.Form().Host().Windows().NowDate());
  if (!isEnabled() || !isVisible() || !today) return;
  auto* menu = new NumberedMenu(this);
  menu->setObjectName("Periods_MNU");
  menu->setAccessibleName("دوره‌های آماده");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setLayoutDirection(Qt::RightToLeft);
  int digit = 0;
  for (const QuickPeriod& period : QuickPeriods(*today)) {
    const std::string from = FormatJalali(period.from);
    const std::string to = FormatJalali(period.to);
    digit = (digit + 1) % 10;  // the tenth is 0
    const QString dates = from == to ? ShownText(from) : ShownText(from) + " تا " + ShownText(to);
    QAction* action = menu->addAction(NumberedMenu::Numbered(digit, period.caption) + '\t' + dates);
    connect(action, &QAction::triggered, this, [this, from, to] { Choose(from, to); });
  }
  menu->setActiveAction(menu->actions().front());
  menu->popup(mapToGlobal(QPoint(width() - menu->sizeHint().width(), height())));
}

}  // namespace goods
