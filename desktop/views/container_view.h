// ContainerView: a view of a component that others stand in.
#pragma once

#include <vector>

#include "desktop/views/control_view.h"

namespace goods {

class ContainerView : public ControlView {
 public:
  using ControlView::ControlView;

  // Makes the views of what stands in the container. Called again when ContentsDiffer.
  void BuildContents();
  bool ContentsDiffer() const { return contents_ != Control().Controls(); }
  const std::vector<TControl*>& Contents() const { return contents_; }
  // Gives the titles that begin its rows one width.
  virtual void AlignRows() {}

 protected:
  // The widget that the views of the contents are made in.
  virtual QWidget* ContentsParent() const = 0;
  // Puts the widgets of the contents where they belong.
  virtual void Arrange() = 0;

 private:
  std::vector<TControl*> contents_;
};

}  // namespace goods
