// DesktopWindows: the windowing service on Qt.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/views/form_view.h"
#include "host/services/windows.h"

namespace goods {

// Lives as long as the QApplication. The size and place of each window are kept under its section in
// QSettings, as far as the application has an organisation name.
class DesktopWindows : public QObject, public IWindows {
 public:
  DesktopWindows();
  ~DesktopWindows() override;

  // What the menu of every table offers beside the columns and copy.
  void SetGridCommands(std::vector<GridCommand> commands) { gridCommands_ = std::move(commands); }

  void RunModal(TForm& form) override;
  void PostMessage(TForm& form, int code) override;
  void ProcessMessages(const std::function<bool()>& until) override;
  std::uint64_t TickCount() const override;
  TForm* ActiveWindow() const override;
  void ActivateKeyboardLayout(std::string_view layout) override;
  std::string NowDate() const override;

  // The view of a window that is open; null when it is not.
  FormView* ViewOf(const TForm& form) const;
  FormView* ActiveView() const;
  // The widget of a component of an open window.
  QWidget* WidgetOf(const TControl& control) const;
  // What a dialog of the host's own should stand over: the active window's view, else the application's
  // window.
  QWidget* DialogParent() const;
  // The layout that was asked for last; empty before. X11 and Wayland offer no way of switching, so edits
  // only tell their input method which letters are wanted.
  const std::string& KeyboardLayout() const { return layout_; }

  // While a statement runs, posted messages wait, so that no handler starts within another's statement.
  void HoldMessages(bool hold);
  // Closes every window, the front one first; the loops end, and no new one begins.
  void Quit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Posted;
  void Deliver(const std::shared_ptr<Posted>& message);
  void ApplyLayout(QWidget& view) const;
  // False where no place was kept.
  bool RestorePlace(FormView& view) const;
  void KeepPlace(const FormView& view) const;

  std::vector<GridCommand> gridCommands_;
  std::vector<FormView*> views_;  // the front one last
  std::vector<std::shared_ptr<Posted>> held_;
  QElapsedTimer clock_;
  std::string layout_;
  bool holding_ = false;
  bool delivering_ = false;
  bool quitting_ = false;
};

}  // namespace goods
