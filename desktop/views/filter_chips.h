// FilterChips: the conditions that are in force on a table, each to be lifted by a click.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "host/components/grid.h"

class QToolButton;

namespace goods {

// As many lines as they need. Hidden while there are none.
class FilterChips : public QWidget {
 public:
  FilterChips(TSmartDBGrid_QRT& grid, QWidget* parent);

  // Follows the conditions and the groups; true when the room that it needs may be another.
  bool Follow();
  int HeightFor(int width) const;

  // Runs what a click causes.
  std::function<void(const std::function<void()>& action)> OnAction;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QToolButton* AddChip(const QString& name, const QString& text, std::function<void()> action);
  void AddGroupChips();
  // Places the chips from the right to the left, line by line; gives back the height. Without place it
  // measures only.
  int Flow(int width, bool place) const;

  TSmartDBGrid_QRT& grid_;
  std::vector<RowCondition> shown_;
  std::string grouping_;
  std::vector<QToolButton*> chips_;
};

}  // namespace goods
