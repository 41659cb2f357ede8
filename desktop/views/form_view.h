// FormView: the window that shows a form.
#pragma once

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/views/control_view.h"
#include "host/components/form.h"

namespace goods {

class ContainerView;
class FormView;
class TSmartDBGrid_QRT;

// A further entry of a grid's menu, such as export or print.
struct GridCommand {
  std::string caption;
  std::function<void(TSmartDBGrid_QRT& grid, QWidget* window)> run;
  // A key of Qt's that does the same in the whole window, unless that has a use of its own for it; 0 none.
  int key = 0;
  // Which grids have it; all where it is empty.
  std::function<bool(const TSmartDBGrid_QRT& grid)> offered = {};

  bool OfferedOn(const TSmartDBGrid_QRT& grid) const { return !offered || offered(grid); }
};

// What the application offers in report windows: a button in the line below the report, and its key.
struct WindowCommand {
  QString name;  // of the button
  int key = 0;   // a Qt::Key, without modifiers
  QString hint;
  // Whether this window has it, and what its button says at the moment; both are asked often.
  std::function<bool(const FormView& form)> offered;
  std::function<QString(const FormView& form)> text;
  std::function<void(FormView& form, QWidget& button)> run;
};

// Built from the form's controls by walking them; the form must outlive it. Keys reach the form first
// (KeyDown), the focus is kept the same on both sides, and what handlers throw is shown by the host.
class FormView : public QWidget {
 public:
  FormView(TForm& form, std::vector<GridCommand> gridCommands = {}, QWidget* parent = nullptr);
  ~FormView() override;

  TForm& Form() const { return form_; }
  const std::vector<GridCommand>& GridCommands() const { return gridCommands_; }

  const std::vector<WindowCommand>& WindowCommands() const { return windowCommands_; }
  // Those that this window has; once, before it is shown.
  void Offer(const std::vector<WindowCommand>& commands);

  // The view or widget of a component; null when it has none.
  ControlView* ViewOf(const TControl& control) const;
  QWidget* WidgetOf(const TControl& control) const;

  // The titles of the windows that led here, this one's at the end; of a window that nothing led to its own.
  // Shown above the contents where there are several: Alt+Left then closes the window.
  const QStringList& Path() const { return path_; }
  void SetPath(QStringList titles);

  // Ctrl+N asks for another report beside this one; null: the key does nothing.
  std::function<void()> OnBeside;

  // Brings what is queued up to date now instead of from the message loop.
  void Flush();
  // Gives the first control that can have it the focus, unless one has it.
  void FocusFirst();

  template <typename Action>
  void Run(Action&& action) {
    RunUserAction(form_.Host(), std::forward<Action>(action));
  }

  // For views.
  void Queue(ControlView& view);
  void Forget(ControlView& view);
  // Builds the view of a control, inside parent, and of all that stands in it.
  ControlView* Build(TControl& control, QWidget* parent);
  void Drop(const TControl* control);
  // Takes the keyboard away from what is about to disappear, so that it goes where the form's active control
  // is rather than to whatever comes next.
  void ReleaseFocusIn(const QWidget& hiding);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;
  // Tab goes in the order of the components, also through controls that joined later.
  bool focusNextPrevChild(bool next) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool HandleKey(QKeyEvent& event);
  void FocusCame(const TControl& control);
  void SyncFocus();
  void AlignRows();
  void RefreshWindow();

  TForm& form_;
  QStringList path_;
  std::vector<GridCommand> gridCommands_;
  std::vector<WindowCommand> windowCommands_;
  std::vector<std::unique_ptr<ControlView>> views_;
  QHash<const TControl*, ControlView*> byControl_;
  QHash<const QObject*, ControlView*> byFocusWidget_;
  std::vector<ControlView*> queued_;
  Subscription formChanged_;
  bool flushPosted_ = false;
  bool built_ = false;
};

template <typename Action>
void ControlView::Act(Action&& action) {
  const QPointer<ControlView> alive(this);
  form_.Run(std::forward<Action>(action));
  if (alive) Refresh();
}

}  // namespace goods
