// Views of containers: the form itself, panels, groups, frames.
#pragma once

#include "desktop/views/container_view.h"
#include "host/components/standard.h"

class QBoxLayout;

namespace goods {

class FitArea;
class PeriodButton;
class PanelSplitter;
// The clickable title of a group, with an arrow where the group can be folded.
class GroupTitle;

class PanelView : public ContainerView {
 public:
  PanelView(FormView& form, TControl& control, QWidget* parent);

  // A page is seen while it is its page control's active one.
  bool IsShown() const override;
  void Refresh() override;
  void AlignRows() override;

 protected:
  QWidget* ContentsParent() const override { return body_; }
  void Arrange() override;

 private:
  bool IsRow() const;
  // Its caption is a tab rather than a title.
  bool IsPage() const;
  bool Titled() const;
  void ArrangeSplitter();
  // The last row of a form, where buttons stand in it: it stays in view while the rest is scrolled.
  QWidget* Foot() const;
  void ArrangeFoot(bool anyStretch);
  void RefreshSizes();

  TPanel* panel_;  // null for the form itself
  GroupTitle* title_ = nullptr;
  QWidget* body_ = nullptr;
  QBoxLayout* outer_ = nullptr;
  QBoxLayout* layout_ = nullptr;
  PeriodButton* periods_ = nullptr;    // where a range of dates stands in it
  FitArea* area_ = nullptr;            // of the form alone
  PanelSplitter* splitter_ = nullptr;  // null where nothing can be dragged
};

}  // namespace goods
