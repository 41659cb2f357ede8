// DesktopWindows: the windowing service on Qt.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/views/form_view.h"
#include "host/services/windows.h"

namespace goods {

// Lives as long as the QApplication. The size and place of each window are kept under its section in
// QSettings, as far as the application has an organisation name.
class DesktopWindows : public QObject, public IWindows {
 public:
  // Where the application puts report windows, if it does.
  struct Place {
    // True when the view stands in a layout of the application's: it is then not modal.
    std::function<bool(FormView& view)> take;
    // The report is closed: the view leaves that layout.
    std::function<void(FormView& view)> giveBack;
  };
  // Where sizes and places are kept, instead of in QSettings.
  struct PlaceStore {
    std::function<QByteArray(const QString& key)> read;
    std::function<void(const QString& key, const QByteArray& state)> write;
  };

  DesktopWindows();
  ~DesktopWindows() override;

  // What the menu of every table offers beside the columns and copy.
  void SetGridCommands(std::vector<GridCommand> commands) { gridCommands_ = std::move(commands); }

  // What every report's window offers.
  void SetWindowCommands(std::vector<WindowCommand> commands) { windowCommands_ = std::move(commands); }
  // Called for each window when it is on the screen, before its loop begins.
  void SetShown(std::function<void(FormView& view)> shown) { shown_ = std::move(shown); }

  // Answers in the user's place. While a scope lives, windows that reports open are handed to its attendant
  // instead of being shown, and then closed as given up where they are left open; behind it those of the
  // scope before are.
  using Attendant = std::function<void(TForm& form)>;
  class Attended {
   public:
    Attended(DesktopWindows& windows, Attendant attendant);
    Attended(const Attended&) = delete;
    Attended& operator=(const Attended&) = delete;
    ~Attended();
    void End();

   private:
    DesktopWindows& windows_;
    Attendant before_;
    bool ended_ = false;
  };

  // Clicks what opens a window and hands that one window to steps instead of showing it. What the steps throw
  // comes out.
  void DriveUnseen(const std::function<void()>& click, const std::function<void(TForm& form)>& steps);

  void SetPlace(Place place) { place_ = std::move(place); }
  void SetPlaceStore(PlaceStore store) { placeStore_ = std::move(store); }

  // A report that may stand beside another, in a menu of the user's; reason is why it may not be opened.
  struct Offered {
    QString title;
    QString reason;
    std::function<void()> open;
  };
  // Asked each time; null: none is offered. Ctrl+N in a report offers them, and the one that is chosen stands
  // beside it: neither waits for the other, and where the screen has the room each takes half of it. There
  // are two at most, Ctrl+N then goes to the other one; closing the first closes the one beside it.
  void SetOffered(std::function<std::vector<Offered>()> offered) { offered_ = std::move(offered); }

  void RunModal(TForm& form) override;
  void PostMessage(TForm& form, int code) override;
  void ProcessMessages(const std::function<bool()>& until) override;
  std::uint64_t TickCount() const override;
  TForm* ActiveWindow() const override;
  void ActivateKeyboardLayout(std::string_view layout) override;
  std::string NowDate() const override;

  // The view of a window that is open; null when it is not.
  FormView* ViewOf(const TForm& form) const;
  // That of the keyboard, else the front one; null where none is open.
  FormView* ActiveView() const;
  // The widget of a component of an open window.
  QWidget* WidgetOf(const TControl& control) const;
  // What a dialog of the host's own should stand over: the view that the keyboard is in, else the front one,
  // else the application's window.
  QWidget* DialogParent() const;
  // The layout that was asked for last; empty before. X11 and Wayland offer no way of switching, so edits
  // only tell their input method which letters are wanted.
  const std::string& KeyboardLayout() const { return layout_; }

  // While a statement runs, posted messages wait, so that no handler starts within another's statement.
  void HoldMessages(bool hold);
  // Closes every window, the front one first.
  void CloseAll();
  // The same; the loops end, and no new one begins.
  void Quit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Posted;
  struct Showing;
  void Enter(Showing& showing);
  void Leave(Showing& showing);
  void Deliver(const std::shared_ptr<Posted>& message);
  const FormView* Opener(const TForm& form) const;
  void OfferBeside(FormView& view);
  void PlaceBeside(FormView& view);
  void CloseBeside(const FormView& view);
  void ApplyLayout(QWidget& view) const;
  void ShowWindow(FormView& view) const;
  // False where no place was kept.
  bool RestorePlace(FormView& view) const;
  void KeepPlace(const FormView& view) const;
  QVariantMap KeptBorders(const TForm& form) const;
  void KeepBorders(const TForm& form, const QVariantMap& borders) const;

  std::vector<GridCommand> gridCommands_;
  std::vector<WindowCommand> windowCommands_;
  std::function<void(FormView& view)> shown_;
  Place place_;
  Attendant attendant_;
  PlaceStore placeStore_;
  std::vector<FormView*> views_;  // the front one last
  std::function<std::vector<Offered>()> offered_;
  FormView* opensBeside_ = nullptr;  // the next window stands beside it
  FormView* beside_ = nullptr;       // the second of two, its parent the first
  std::vector<std::shared_ptr<Posted>> held_;
  QElapsedTimer clock_;
  std::string layout_;
  bool holding_ = false;
  bool delivering_ = false;
  bool quitting_ = false;
};

}  // namespace goods
