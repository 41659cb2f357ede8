// Tabs: a strip of them (TTabControl), and pages behind them (TPageControl).
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/components/standard.h"

namespace goods {

// A strip of tabs. What stands under it does not change by itself; the window looks at TabIndex.
class TTabControl : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }

  const std::vector<std::string>& Tabs() const { return tabs_; }
  // Replaces the tabs; the first becomes chosen without an event.
  void SetTabs(std::vector<std::string> captions);
  int TabIndex() const { return tabIndex_; }  // -1 without tabs
  // Fires OnChange when the tab changes, whoever changes it. No such tab: nothing.
  void SetTabIndex(int index);
  std::function<void()> OnChange;

  // The arrow keys choose the neighbour, in reading direction.
  void DoKey(TKey& key) override;

 private:
  std::vector<std::string> tabs_;
  int tabIndex_ = -1;
};

// A page of a page control. Its caption is the tab's text, "&" marking the accelerator. An invisible one has
// no tab.
class TTabSheet : public TPanel {
 public:
  using TPanel::TPanel;

 protected:
  bool ShowsContents() const override;
};

// Pages of which one is shown. Pages are TTabSheets placed on it, in the order of their tabs.
class TPageControl : public TControl {
 public:
  using TControl::TControl;
  bool TakesFocus() const override { return true; }

  std::vector<TTabSheet*> Pages() const;
  // Null while it has no page. A page of money in a window that shows none gives way to the first visible
  // one.
  TTabSheet* ActivePage() const;
  int ActivePageIndex() const;
  // Fires OnChange when the page changes, whoever changes it. No such page: nothing. A focus inside the page
  // that is turned away goes to the tabs.
  void SetActivePageIndex(int index);
  std::function<void()> OnChange;

  void DoKey(TKey& key) override;
  // Ctrl+Tab and Ctrl+Shift+Tab turn the page from anywhere on it.
  void DoContainedKey(TKey& key) override;

 private:
  void Turn(bool forward);

  int active_ = 0;
};

}  // namespace goods
