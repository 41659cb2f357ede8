// SelectedCards: the stock cards of the goods that are selected in a list, printed in one go.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "desktop/print/desktop_printing.h"
#include "desktop/print/table_snapshot.h"
#include "desktop/windows/desktop_messages.h"
#include "desktop/windows/desktop_windows.h"

namespace goods {

class TBaseDock_FRM;

// A list of goods opens the stock card of its current row, with its own store and period, and asks for the
// rights on the way; this goes through the rows as a user would, takes what each card would print, and shows
// the preview of all of them. Nothing of a card is shown meanwhile.
class SelectedCards {
 public:
  // So many rows of cards are held in memory at most; what is beyond them is left out, and told.
  static constexpr std::size_t kMostRows = 500'000;

  // All must outlive it, and the command.
  SelectedCards(DesktopWindows& windows, DesktopMessages& messages, DesktopPrinting& printing)
      : windows_(windows), messages_(messages), printing_(printing) {}

  // For the menu of the lists of goods.
  GridCommand Command();

 private:
  struct Card {
    std::string title;
    std::vector<std::string> lines;
    std::unique_ptr<TableSnapshot> table;
    Paper paper;
  };
  enum class Outcome { Taken, None, Stopped };

  void Print(TSmartDBGrid_QRT& grid, QWidget* window);
  // Opens the card of the row at that position; what it has to say instead of opening joins notes.
  Outcome Take(TSmartDBGrid_QRT& grid, std::size_t position, std::vector<Card>& cards,
               std::vector<std::string>& notes);

  DesktopWindows& windows_;
  DesktopMessages& messages_;
  DesktopPrinting& printing_;
};

}  // namespace goods
