// PanelSplitter: borders that the user drags between what stands in a panel.
#pragma once

#include <QSplitter>
#include <vector>

#include "host/components/control.h"
#include "host/core/signal.h"

namespace goods {

class ControlView;

// A control without stretch has the size that it was given (Width in a row, Height in a column); dragging a
// border gives it the new one, so that a window can keep it. The others share the rest.
class PanelSplitter : public QSplitter {
 public:
  // owner is the panel's view, which outlives the splitter.
  PanelSplitter(ControlView& owner, Qt::Orientation orientation, QWidget* parent);

  void Clear();
  void Add(TControl& control, QWidget& widget, int stretch);
  // After all were added: what was given no size begins with its natural one.
  void StartSizes();
  // Gives the controls the sizes that they say. Nothing moves where they have them.
  void ApplySizes();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Part {
    TControl* control;
    int stretch;
    Subscription changed;
  };
  bool Fixed(std::size_t part) const;
  int Given(const TControl& control) const;
  void BorderMoved();

  ControlView& owner_;
  std::vector<Part> parts_;
};

// Whether a splitter gives the control its size in that direction, so that the size given is no least one.
bool SplitterGives(const TControl& control, Qt::Orientation direction);

}  // namespace goods
