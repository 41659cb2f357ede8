// Delayed search: typed text runs a report once the user has stopped typing.
#pragma once

#include <cstdint>
#include <functional>

#include "host/components/edit.h"
#include "host/components/form.h"

namespace goods {

// The private messages that a window posts to itself at a key, by the control that was typed in.
inline constexpr int kSearchEditTyped = 9035;
inline constexpr int kValueComboTyped = 9036;
inline constexpr int kLowerEditTyped = 9037;
inline constexpr int kUpperEditTyped = 9038;

inline constexpr std::uint64_t kQuietTime = 400;  // milliseconds without a key

// A key posts a message; its handler waits, with the message loop running, until the quiet time has passed
// since the last key. Keys in the meantime restart the wait, in whichever control: a burst of typing makes
// one run. A key that arrives during a run, because the host delivers messages during a statement, waits
// until that run has ended: runs never nest.
class DelayedSearch {
 public:
  // While one lives the report runs, whoever asked for it.
  class RunScope {
   public:
    explicit RunScope(DelayedSearch& search) : search_(search) { ++search_.runs_; }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;
    ~RunScope() { search_.RunEnded(); }

   private:
    DelayedSearch& search_;
  };

  // run is called once per burst; both must outlive this object.
  DelayedSearch(TForm& window, std::function<void()> run) : window_(window), run_(std::move(run)) {}

  // A key in a control of the window.
  void Typed(int message);
  // The window's WindowMessage hands its messages on; true when it was one of these. edit may be null; its
  // caret is put back where it was when the report has run.
  bool Handle(int message, TEdit* edit);
  // Whether typed text still waits for its run.
  bool Pending() const { return pending_; }
  // The quiet time has passed, and only a half typed value keeps the wait up.
  bool IsHeld() const { return pending_ && held_; }
  // Ends the wait with a run at once; OnHurried is called when it has been made.
  void Hurry() { hurried_ = pending_; }
  // Enter in an edit whose text waits for its run hurries it, and goes no further.
  void TakeEnter(TKey& key);
  std::function<void()> OnHurried;
  // While the edit with the focus holds what is no value yet, the wait goes on, however long ago the last key
  // was; called when the quiet time has passed so.
  std::function<void()> OnHeld;
  // A key was told of.
  std::function<void()> OnTyped;
  // Ends the wait without a run; closing the window does so too.
  void Cancel() { pending_ = hurried_ = false; }

 private:
  bool Ended() const;
  bool Held() const;
  // Whether the wait is over; tells once where only a half typed value keeps it up.
  bool Ready();
  void RunEnded();

  TForm& window_;
  std::function<void()> run_;
  std::uint64_t lastKey_ = 0;
  int lastMessage_ = 0;
  int runs_ = 0;  // scopes that live
  bool pending_ = false;
  bool hurried_ = false;
  bool held_ = false;
  bool waiting_ = false;
};

}  // namespace goods
