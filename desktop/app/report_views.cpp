#include "desktop/app/report_views.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <utility>

#include "desktop/app/save_view_dialog.h"
#include "desktop/app/views_dialog.h"
#include "desktop/requests/criteria_reader.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/numbered_menu.h"
#include "desktop/views/shown_text.h"
#include "host/base/base_dock.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kMostDigits = 9;
constexpr const char* kNotKept =
    "نما ذخیره نشد: پوشه تنظیمات نوشته نمی‌شود "
    "یا نماها بیش از اندازه‌اند.";

TBaseDock_FRM& WindowOf(FormView& form) { return dynamic_cast<TBaseDock_FRM&>(form.Form()); }

const ReportSpec* SpecOf(const FormView& form) {
  const auto* window = dynamic_cast<const TBaseDock_FRM*>(&form.Form());
  return window == nullptr ? nullptr : ViewableReport(*window);
}

QString MenuText(const std::string& name) { return AsPlain(ShownText(name)); }

}  // namespace

ReportViews::ReportViews(DesktopWindows& windows, IMessages& messages, ISettings& settings,
                         std::string_view company, std::int64_t user)
    : windows_(windows), messages_(messages), store_(settings, company, user) {
  windows_.SetWindowCommands({{.name = "Views_BTN",
                               .key = Qt::Key_F6,
                               .hint = "نماهای ذخیره‌شده این گزارش (F6)",
                               .offered = [](const FormView& form) { return SpecOf(form) != nullptr; },
                               .text = [this](const FormView& form) { return ButtonText(form); },
                               .run = [this](FormView& form, QWidget& button) { OfferMenu(form, button); }}});
  windows_.SetShown([this](FormView& form) { Shown(form); });
}

QString ReportViews::ButtonText(const FormView& form) const {
  const ReportSpec* report = SpecOf(form);
  const auto current = report == nullptr ? current_.end() : current_.find(report->Name());
  return current == current_.end() ? QString("نماها  F6") : "نما: " + ShownText(current->second) + "  F6";
}

DriveUnseen ReportViews::Drive() {
  return [this](const std::function<void()>& click, const std::function<void(TForm&)>& steps) {
    windows_.DriveUnseen(click, steps);
  };
}

void ReportViews::Open(std::string_view report, std::string_view view, const std::function<void()>& open) {
  opening_ = Opening{std::string(report), std::string(view)};
  struct Closing {
    std::optional<Opening>& opening;
    ~Closing() { opening.reset(); }
  } const scope{opening_};
  open();
}

void ReportViews::Shown(FormView& form) {
  const ReportSpec* report = SpecOf(form);
  if (report == nullptr) return;
  const bool byUser = opening_ && opening_->report == report->Name();
  const std::string name = byUser && !opening_->view.empty() ? opening_->view : store_.LastOf(report->Name());
  if (byUser) opening_.reset();
  current_.erase(std::string(report->Name()));
  if (name.empty()) return;
  // Once its loop runs, behind what the window itself does as it is shown.
  QTimer::singleShot(0, &form, [this, &form, report, name, byUser] {
    const SavedView* view = store_.Find(report->Name(), name);
    if (view == nullptr) return;
    if (byUser) return Use(form, *report, SavedView(*view));
    TSmartDBGrid_QRT* grid = WindowOf(form).PrintedGrid();
    form.Run([&] {
      if (grid != nullptr) ApplyLayout(*grid, view->table);
    });
  });
}

void ReportViews::Use(FormView& form, const ReportSpec& report, const SavedView& view) {
  std::vector<std::string> problems;
  const QPointer<FormView> alive(&form);
  form.Run([&] {
    ApplyView(WindowOf(form), report, view, windows_.NowDate(), Drive(), problems);
    current_[view.report] = view.name;
    store_.SetLast(view.report, view.name);
  });
  if (!alive) return;
  form.Flush();
  Tell("از نمای «" + view.name + "» این‌ها به کار نرفت:", problems);
}

void ReportViews::Empty(FormView& form, const ReportSpec& report) {
  SavedView none;
  none.report = std::string(report.Name());
  if (const TSmartDBGrid_QRT* grid = WindowOf(form).PrintedGrid())
    none.table.columns = TableViewOf(*grid).columns;
  std::vector<std::string> problems;
  const QPointer<FormView> alive(&form);
  form.Run([&] {
    ApplyView(WindowOf(form), report, none, windows_.NowDate(), Drive(), problems);
    current_.erase(none.report);
    store_.SetLast(none.report, "");
  });
  if (alive) form.Flush();
}

bool ReportViews::Keep(SavedView view) {
  const std::string name = view.name;
  const std::string report = view.report;
  if (!store_.Put(std::move(view))) {
    messages_.ShowSmartMessage(kNotKept, "", MessageIcon::Error);
    return false;
  }
  current_[report] = name;
  store_.SetLast(report, name);
  if (OnChanged) OnChanged();
  return true;
}

void ReportViews::Save(FormView& form, const ReportSpec& report) {
  form.Run([&] {
    std::vector<std::string> left;
    SavedView view = TakeView(WindowOf(form), report, Drive(), left);
    const auto current = current_.find(report.Name());
    view.name = current == current_.end() ? std::string() : current->second;
    if (const SavedView* there = store_.Find(report.Name(), view.name)) view.onStartPage = there->onStartPage;
    SaveViewDialog dialog(store_, report, std::move(view), windows_.NowDate(), left, &form);
    if (dialog.exec() == QDialog::Accepted && Keep(dialog.View())) form.Flush();
  });
}

// The same view as it stands now; a good, dates that move on and the start page stay as they were chosen.
void ReportViews::Update(FormView& form, const ReportSpec& report, const std::string& name) {
  form.Run([&] {
    const SavedView* before = store_.Find(report.Name(), name);
    if (before == nullptr) return;
    std::vector<std::string> left;
    SavedView view = TakeView(WindowOf(form), report, Drive(), left);
    view.name = before->name;
    view.onStartPage = before->onStartPage;
    for (const ReportCriterion& criterion : report.criteria) {
      const std::string option(criterion.option);
      if (IsSubject(report, criterion) && !before->criteria.contains(option)) view.criteria.erase(option);
    }
    if (!before->period.empty() && DatesAre(view, before->period, windows_.NowDate()))
      MakeRelative(view, before->period);
    if (Keep(std::move(view))) Tell("این شرط‌ها در نما نگه داشته نشد:", left);
  });
}

void ReportViews::Tell(const std::string& text, const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  std::string message = text;
  for (const std::string& line : lines) message += "\n" + line;
  messages_.ShowSmartMessage(message, "", MessageIcon::Information);
}

void ReportViews::AddViews(QMenu& menu, FormView& form, const ReportSpec& report) {
  const auto current = current_.find(report.Name());
  int digit = 0;
  for (const SavedView* view : store_.ViewsOf(report.Name())) {
    const QString text = MenuText(view->name);
    QAction* action = menu.addAction(++digit <= kMostDigits ? NumberedMenu::Numbered(digit, text) : text);
    action->setCheckable(true);
    action->setChecked(current != current_.end() && current->second == view->name);
    QObject::connect(
        action, &QAction::triggered, &form,
        [this, &form, &report, name = view->name] {
          if (const SavedView* chosen = store_.Find(report.Name(), name))
            Use(form, report, SavedView(*chosen));
        },
        Qt::QueuedConnection);
  }
  if (digit == 0) menu.addAction("نمایی ذخیره نشده است")->setEnabled(false);
}

void ReportViews::OfferMenu(FormView& form, QWidget& button) {
  const ReportSpec* report = SpecOf(form);
  if (report == nullptr) return;
  auto* menu = new NumberedMenu(&form);
  menu->setObjectName("Views_MNU");
  menu->setAccessibleName("نماهای ذخیره‌شده");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setLayoutDirection(Qt::RightToLeft);
  menu->setToolTipsVisible(true);
  AddViews(*menu, form, *report);
  menu->addSeparator();
  const auto add = [&](const QString& text, std::function<void()> action) {
    QObject::connect(menu->addAction(text), &QAction::triggered, &form, std::move(action),
                     Qt::QueuedConnection);
  };
  add("&ذخیره نمای کنونی…", [this, &form, report] { Save(form, *report); });
  if (const auto current = current_.find(report->Name());
      current != current_.end() && store_.Find(report->Name(), current->second) != nullptr) {
    add("&به‌روز کردن «" + MenuText(current->second) + "»",
        [this, &form, report, name = current->second] { Update(form, *report, name); });
  }
  add("بر&داشتن شرط‌ها و فیلترها", [this, &form, report] { Empty(form, *report); });
  add("&مدیریت نماها…", [this, &form] {
    Manage(&form);
    form.Flush();
  });
  for (QAction* action : menu->actions()) {
    if (!action->isEnabled() || action->isSeparator()) continue;
    menu->setActiveAction(action);
    break;
  }
  const QSize size = menu->sizeHint();
  menu->popup(button.mapToGlobal(QPoint(button.width() - size.width(), -size.height())));
}

void ReportViews::Manage(QWidget* parent) {
  ViewsDialog dialog(
      store_, windows_.NowDate(), [this](QWidget* over) { TakeIn(over); }, parent);
  dialog.exec();
  std::erase_if(current_,
                [this](const auto& entry) { return store_.Find(entry.first, entry.second) == nullptr; });
  if (OnChanged) OnChanged();
}

void ReportViews::TakeIn(QWidget* parent) {
  const QString path = AskForViewFile(parent);
  if (path.isEmpty()) return;
  try {
    std::vector<std::string> ignored;
    SavedView view = ReadViewFile(FromQt(path), ignored);
    view.onStartPage = false;
    constexpr std::size_t kRoomForNumber = 6;
    const std::string wanted(FirstChars(view.name, SavedView::kLongestName - kRoomForNumber));
    for (int number = 2; store_.Find(view.report, view.name) != nullptr; ++number)
      view.name = ViewName(wanted + " " + std::to_string(number));
    const std::string name = view.name;
    if (!store_.Put(std::move(view))) {
      messages_.ShowSmartMessage(kNotKept, "", MessageIcon::Error);
      return;
    }
    if (OnChanged) OnChanged();
    Tell("نمای «" + name + "» آمد؛ این‌ها شناخته نشد و به کار نمی‌رود:",
         ignored);
  } catch (const ViewError& error) {
    messages_.ShowSmartMessage(error.what(), "", MessageIcon::Error);
  }
}

}  // namespace goods
