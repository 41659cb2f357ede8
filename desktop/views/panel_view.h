// Views of containers: the form itself, panels, groups, frames.
#pragma once

#include <QFrame>
#include <vector>

#include "desktop/views/control_view.h"
#include "host/components/standard.h"

class QBoxLayout;
class QLabel;

namespace goods {

// The clickable title of a group, with an arrow where the group can be folded.
class GroupTitle;

class PanelView : public ControlView {
 public:
  PanelView(FormView& form, TControl& control, QWidget* parent);

  void Refresh() override;
  // Makes the views of what stands in the container. Called again when ContentsDiffer.
  void BuildContents();
  // Gives the titles that begin its rows one width.
  void AlignRows();
  bool ContentsDiffer() const { return contents_ != Control().Controls(); }
  const std::vector<TControl*>& Contents() const { return contents_; }

 private:
  bool IsRow() const;
  void Arrange();

  TPanel* panel_;  // null for the form itself
  GroupTitle* title_ = nullptr;
  QWidget* body_ = nullptr;
  QBoxLayout* layout_ = nullptr;
  std::vector<TControl*> contents_;
};

}  // namespace goods
