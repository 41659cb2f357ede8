#include "desktop/views/tab_views.h"

#include <QSignalBlocker>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "desktop/views/form_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/tab_bar.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

// Brings the captions of a strip up to date; true when anything changed.
bool SetCaptions(TabBar& bar, const QStringList& captions) {
  bool changed = false;
  while (bar.count() > captions.size()) {
    bar.removeTab(bar.count() - 1);
    changed = true;
  }
  for (int i = 0; i < captions.size(); ++i) {
    if (i >= bar.count()) {
      bar.addTab(captions[i]);
    } else if (bar.tabText(i) != captions[i]) {
      bar.setTabText(i, captions[i]);
    } else {
      continue;
    }
    changed = true;
  }
  return changed;
}

}  // namespace

TabControlView::TabControlView(FormView& form, TTabControl& tabs, QWidget* parent)
    : ControlView(form, tabs), tabs_(tabs), bar_(new TabBar(parent)) {
  SetWidget(bar_);
  connect(bar_, &QTabBar::currentChanged, this,
          [this](int index) { Act([this, index] { tabs_.SetTabIndex(index); }); });
}

QWidget* TabControlView::FocusWidget() const { return bar_; }

void TabControlView::Refresh() {
  ControlView::Refresh();
  const QSignalBlocker quiet(bar_);
  if (SetCaptions(*bar_, TabCaptions(Form().Form(), tabs_))) bar_->updateGeometry();
  if (bar_->currentIndex() != tabs_.TabIndex()) bar_->setCurrentIndex(tabs_.TabIndex());
  bar_->setMinimumWidth(Scaled(tabs_.Width(), *bar_));
}

PageControlView::PageControlView(FormView& form, TPageControl& pages, QWidget* parent)
    : ContainerView(form, pages), pages_(pages) {
  auto* widget = new QWidget(parent);
  SetWidget(widget);
  bar_ = new TabBar(widget);
  bar_->setObjectName(widget->objectName() + "_Tabs");
  body_ = new QWidget(widget);
  stack_ = new QStackedLayout(body_);
  auto* layout = new QVBoxLayout(widget);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Scaled(8, *widget));
  layout->addWidget(bar_);
  layout->addWidget(body_, 1);
  connect(bar_, &QTabBar::currentChanged, this,
          [this](int index) { Act([this, index] { pages_.SetActivePageIndex(index); }); });
}

QWidget* PageControlView::FocusWidget() const { return bar_; }

void PageControlView::Arrange() {
  while (QLayoutItem* item = stack_->takeAt(0)) delete item;
  for (const TTabSheet* page : pages_.Pages()) {
    if (QWidget* widget = Form().WidgetOf(*page)) stack_->addWidget(widget);
  }
}

void PageControlView::RefreshTabs() {
  const QSignalBlocker quiet(bar_);
  const std::vector<TTabSheet*> pages = pages_.Pages();
  QStringList captions = TabCaptions(Form().Form(), pages_);
  // The letter of a page without a tab would turn to it all the same.
  for (qsizetype i = 0; i < captions.size(); ++i) {
    if (!pages[static_cast<std::size_t>(i)]->Visible()) captions[i] = AsPlain(WithoutMark(captions[i]));
  }
  SetCaptions(*bar_, captions);
  for (int i = 0; i < bar_->count(); ++i) {
    const TTabSheet& page = *pages[static_cast<std::size_t>(i)];
    if (bar_->isTabVisible(i) != page.Visible()) bar_->setTabVisible(i, page.Visible());
    if (bar_->isTabEnabled(i) != page.Enabled()) bar_->setTabEnabled(i, page.Enabled());
  }
  if (bar_->currentIndex() != pages_.ActivePageIndex()) bar_->setCurrentIndex(pages_.ActivePageIndex());
}

void PageControlView::Refresh() {
  ContainerView::Refresh();
  RefreshTabs();
  const TTabSheet* active = pages_.ActivePage();
  QWidget* wanted = active == nullptr ? nullptr : Form().WidgetOf(*active);
  if (wanted != nullptr && stack_->currentWidget() != wanted) {
    if (stack_->currentWidget() != nullptr) Form().ReleaseFocusIn(*stack_->currentWidget());
    stack_->setCurrentWidget(wanted);
  }
  for (const TTabSheet* page : pages_.Pages()) {
    if (ControlView* view = Form().ViewOf(*page)) view->Refresh();
  }
  if (pages_.Width() > 0) Widget()->setMinimumWidth(Scaled(pages_.Width(), *Widget()));
  if (pages_.Height() > 0) Widget()->setMinimumHeight(Scaled(pages_.Height(), *Widget()));
}

}  // namespace goods
