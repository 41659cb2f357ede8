// DesktopWaiting: the waiting indicator, and the progress of statements that it shows.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/windows/held_keys.h"
#include "host/data/connection.h"
#include "host/services/waiting.h"

namespace goods {

class DesktopWindows;
class WaitingPanel;

// Shown only where the work lasts longer than kPatienceMs, so that quick statements do not flicker. While a
// statement runs, Progress lets the window paint itself now and then; of the user's input only Esc is taken
// at once, and cancels. Other keys are delivered in order when the statement has ended and the program is
// back in the message loop; what the mouse does is dropped.
class DesktopWaiting : public QObject, public IWaiting {
 public:
  // An indicator of the application's own, in the place of the panel.
  struct Indicator {
    // Shows the text and the rows read so far, or changes them; false stops the statement.
    std::function<bool(std::string_view text, std::size_t rows)> show;
    std::function<void()> hide;
  };
  static constexpr int kPatienceMs = 150;
  // When a table paints the rows that have come: a quick statement does not show its rows twice, and the
  // first screen of a long one is there within 100 ms.
  static constexpr int kFirstRowsMs = 60;
  static constexpr int kPumpMs = 50;

  explicit DesktopWaiting(DesktopWindows& windows);
  ~DesktopWaiting() override;

  void SetIndicator(Indicator indicator) { indicator_ = std::move(indicator); }

  void ShowWaitting(TForm* owner, std::string_view text) override;
  void HideWaitting(TForm* owner, int reserved) override;

  // Around each statement; they nest. A statement outside of ShowWaitting has a text of its own.
  void StatementBegins();
  void StatementEnds();
  // Rows read so far; false once the user has cancelled.
  bool Progress(std::size_t rows);
  // Whether the work has lasted long enough for its first rows to be shown.
  bool ShowsFirstRows() const;

  bool PanelVisible() const;
  // What the panel says, for tests: the text, then the rows.
  std::string ShownText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsShown() const;
  void Update(std::size_t rows);
  void TakeAway();
  // Where keys go when no widget has the keyboard.
  QWidget* KeyTarget() const;

  DesktopWindows& windows_;
  Indicator indicator_;
  bool indicated_ = false;  // the application's indicator is shown
  QPointer<WaitingPanel> panel_;
  QElapsedTimer since_;
  QElapsedTimer lastPump_;
  TForm* owner_ = nullptr;
  std::string text_;
  bool asked_ = false;  // between ShowWaitting and HideWaitting
  int statements_ = 0;
  bool cancelled_ = false;
  bool pumping_ = false;
  HeldKeys keys_;
};

// A connection whose statements report to the waiting indicator. Both must outlive it.
class WaitingConnection : public IConnection {
 public:
  WaitingConnection(IConnection& inner, DesktopWaiting& waiting) : inner_(inner), waiting_(waiting) {}
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override;
  void Execute(std::string_view statement, IStatementProgress* progress) override;

 private:
  IConnection& inner_;
  DesktopWaiting& waiting_;
};

}  // namespace goods
