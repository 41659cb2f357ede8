// ReportViews: saved views in the windows of reports: their menu, their use, and the last one that comes
// back.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/app/view_store.h"
#include "desktop/requests/window_view.h"
#include "desktop/windows/desktop_windows.h"
#include "host/services/messages.h"

class QMenu;

namespace goods {

class ReportViews {
 public:
  // All must outlive it. The windows offer the views from now on.
  ReportViews(DesktopWindows& windows, IMessages& messages, ISettings& settings, std::string_view company,
              std::int64_t user);

  ViewStore& Store() { return store_; }
  // Views, or what of them is on the start page, have changed.
  std::function<void()> OnChanged;

  // A report that a user opens by itself: its window comes up with that view, or with the one used last where
  // none is named. A window that another report opens with criteria of its own takes only columns and order.
  void Open(std::string_view report, std::string_view view, const std::function<void()>& open);

  // The window with all views: renaming, removing, the start page, files.
  void Manage(QWidget* parent);
  // Reads a view from a file that the user chooses, and tells what became of it.
  void TakeIn(QWidget* parent);

 private:
  struct Opening {
    std::string report;
    std::string view;
  };

  void Shown(FormView& form);
  QString ButtonText(const FormView& form) const;
  void OfferMenu(FormView& form, QWidget& button);
  void AddViews(QMenu& menu, FormView& form, const ReportSpec& report);
  void Use(FormView& form, const ReportSpec& report, const SavedView& view);
  void Empty(FormView& form, const ReportSpec& report);
  void Save(FormView& form, const ReportSpec& report);
  void Update(FormView& form, const ReportSpec& report, const std::string& name);
  bool Keep(SavedView view);
  void Tell(const std::string& text, const std::vector<std::string>& lines);
  DriveUnseen Drive();

  DesktopWindows& windows_;
  IMessages& messages_;
  ViewStore store_;
  std::optional<Opening> opening_;
  std::map<std::string, std::string, std::less<>> current_;  // by report: the view in use
};

}  // namespace goods
