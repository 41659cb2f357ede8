// What the criteria frames share: a check box that puts the criterion to use, a list of the fields that it
// can apply to, and a box that turns it round.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/components/search_manager.h"
#include "host/components/standard.h"

namespace goods {

// One thing that a frame's criterion can apply to.
struct TSearchItem {
  std::string Title;
  std::string FieldName;
  DataKind Kind = DataKind::Number;
  bool Money = false;  // a price or an amount
};

// The frame keeps its TQeratSearch up to date; adding Search to a window's search manager joins the frame to
// it. A change that leaves the condition as it was does not notify.
class TSearchFrame : public TPanel {
 public:
  TQeratSearch Search{this, "Search"};

  // Replaces the fields that can be chosen; the first is chosen. With one only, no list is shown.
  void SetItems(std::vector<TSearchItem> items);
  const std::vector<TSearchItem>& Items() const { return items_; }
  // Change the list and keep what is chosen; the first is chosen instead of one that is gone. at is a place
  // in the list, at its end for a new item.
  void InsertItem(std::size_t at, TSearchItem item);
  void RemoveItem(std::size_t at);
  void RenameItem(std::size_t at, std::string title);

  // The frame's check box was ticked or unticked; fired before the criterion changes.
  std::function<void()> OnCheckClick;

  // Back to empty, unticked and not turned round.
  virtual void Clear() = 0;

 protected:
  TSearchFrame(TComponent* owner, std::string name, TCheckBox& check, TComboBox& kinds, TCheckBox& reverse);

  // Copies the controls' state into Search.
  virtual void FillSearch() = 0;
  // Whether it notified.
  bool ControlsChanged();
  // Places and wires the shared controls; what the frame itself adds comes after them.
  void LayOut();

 private:
  std::size_t Chosen() const;
  // Puts items_ into the list with that one chosen.
  void ShowItems(std::size_t chosen);

  TCheckBox& check_;
  TComboBox& kinds_;
  TCheckBox& reverse_;
  std::vector<TSearchItem> items_;
  bool showingItems_ = false;
};

}  // namespace goods
