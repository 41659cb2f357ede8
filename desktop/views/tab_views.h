// Views of tab strips and page controls.
#pragma once

#include "desktop/views/container_view.h"
#include "host/components/tabs.h"

class QStackedLayout;

namespace goods {

class TabBar;

class TabControlView : public ControlView {
 public:
  TabControlView(FormView& form, TTabControl& tabs, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 private:
  TTabControl& tabs_;
  TabBar* bar_;
};

// Takes the room of its largest page, so that turning pages moves nothing.
class PageControlView : public ContainerView {
 public:
  PageControlView(FormView& form, TPageControl& pages, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 protected:
  QWidget* ContentsParent() const override { return body_; }
  void Arrange() override;

 private:
  void RefreshTabs();

  TPageControl& pages_;
  TabBar* bar_;
  QWidget* body_;
  QStackedLayout* stack_;
};

}  // namespace goods
