#include "desktop/views/panel_view.h"

#include <QBoxLayout>
#include <QPainter>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/group_title.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid.h"

namespace goods {
namespace {

constexpr int kSpacing = 8;
constexpr int kRowSpacing = 6;
constexpr int kPairSpacing = 18;
constexpr int kFramePadding = 10;

// A container's widget; paints the frame of a framed one.
class PanelWidget : public QWidget {
 public:
  PanelWidget(QWidget* parent, bool framed) : QWidget(parent), framed_(framed) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (!framed_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(CurrentTheme().border);
    painter.setBrush(CurrentTheme().surface);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 7, 7);
  }

 private:
  bool framed_;
};

bool IsGrid(const TControl& control) { return dynamic_cast<const TSmartDBGrid_QRT*>(&control) != nullptr; }

// A row that begins with a title or a box, so that rows below each other can be aligned.
const TControl* RowTitle(const TControl& control) {
  const auto* panel = dynamic_cast<const TPanel*>(&control);
  if (panel == nullptr || panel->Direction() != Flow::Row || panel->Framed || panel->Controls().empty())
    return nullptr;
  const TControl* first = panel->Controls().front();
  const bool title =
      dynamic_cast<const TCheckBox*>(first) != nullptr || dynamic_cast<const TLabel*>(first) != nullptr;
  return title && first->Stretch() == 0 && !first->Caption().empty() ? first : nullptr;
}

// A caption that follows the value of the caption before it.
bool BeginsPair(const TControl* before, const TControl& control) {
  const auto* value = dynamic_cast<const TLabel*>(before);
  const auto* caption = dynamic_cast<const TLabel*>(&control);
  return value != nullptr && value->Emphasis && caption != nullptr && !caption->Emphasis;
}

}  // namespace

PanelView::PanelView(FormView& form, TControl& control, QWidget* parent)
    : ControlView(form, control), panel_(dynamic_cast<TPanel*>(&control)) {
  const bool framed = panel_ != nullptr && (panel_->Framed || !panel_->Caption().empty() || panel_->Foldable);
  auto* widget = new PanelWidget(parent, framed);
  SetWidget(widget);
  auto* outer = new QVBoxLayout(widget);
  const int padding = framed ? Scaled(kFramePadding, *widget) : 0;
  outer->setContentsMargins(padding, framed ? padding / 2 : 0, padding, framed ? padding / 2 : 0);
  outer->setSpacing(Scaled(4, *widget));
  title_ = new GroupTitle(widget);
  title_->hide();
  connect(title_, &QAbstractButton::clicked, this, [this] {
    if (panel_ != nullptr && panel_->Foldable) Act([this] { panel_->SetFolded(!panel_->Folded()); });
  });
  outer->addWidget(title_);
  body_ = new QWidget(widget);
  outer->addWidget(body_, 1);
  layout_ = new QBoxLayout(IsRow() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, body_);
  const int edge = framed ? Scaled(3, *widget) : 0;
  layout_->setContentsMargins(0, edge, 0, edge);
  layout_->setSpacing(Scaled(IsRow() ? kRowSpacing : kSpacing, *widget));
  widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

bool PanelView::IsRow() const { return panel_ != nullptr && panel_->Direction() == Flow::Row; }

void PanelView::BuildContents() {
  for (const TControl* old : contents_) {
    const auto& now = Control().Controls();
    if (std::find(now.begin(), now.end(), old) == now.end()) Form().Drop(old);
  }
  contents_ = Control().Controls();
  for (TControl* each : contents_) {
    if (Form().ViewOf(*each) == nullptr) Form().Build(*each, body_);
  }
  Arrange();
}

void PanelView::Arrange() {
  while (QLayoutItem* item = layout_->takeAt(0)) delete item;
  bool anyStretch = false;
  const TControl* before = nullptr;
  for (const TControl* each : contents_) {
    QWidget* widget = Form().WidgetOf(*each);
    if (widget == nullptr) continue;
    widget->setParent(body_);
    if (IsRow() && BeginsPair(before, *each)) layout_->addSpacing(Scaled(kPairSpacing, *body_));
    before = each;
    const int stretch = each->Stretch() == 0 && IsGrid(*each) ? 1 : each->Stretch();
    anyStretch = anyStretch || stretch > 0;
    layout_->addWidget(widget, stretch);
  }
  // What stretches takes all the room; without such the controls stand together at the start.
  const bool fills = std::any_of(contents_.begin(), contents_.end(),
                                 [](const TControl* each) { return !each->Controls().empty(); });
  if (IsRow() ? !anyStretch : !anyStretch && (!fills || panel_ == nullptr)) {
    layout_->addItem(IsRow() ? new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum)
                             : new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
  }
}

void PanelView::AlignRows() {
  if (IsRow()) return;
  int widest = 0;
  std::vector<ControlView*> titles;
  for (const TControl* each : contents_) {
    const TControl* title = RowTitle(*each);
    ControlView* view =
        title == nullptr || !title->Visible() || !each->Visible() ? nullptr : Form().ViewOf(*title);
    if (view == nullptr) continue;
    titles.push_back(view);
    widest = std::max(widest, view->Widget()->sizeHint().width());
  }
  for (ControlView* title : titles) title->SetAlignedWidth(titles.size() > 1 ? widest : 0);
}

void PanelView::Refresh() {
  ControlView::Refresh();
  if (panel_ != nullptr) {
    const bool titled = !panel_->Caption().empty() || panel_->Foldable;
    title_->Show(ShownText(panel_->Caption()), panel_->Foldable, panel_->Folded());
    title_->setObjectName(Widget()->objectName() + "_Title");
    title_->setAccessibleName(ToQt(panel_->AccessibleName()));
    if (title_->isHidden() == titled) title_->setVisible(titled);
    if (body_->isHidden() != panel_->Folded()) body_->setVisible(!panel_->Folded());
    if (panel_->Width() > 0) Widget()->setMinimumWidth(Scaled(panel_->Width(), *Widget()));
    const bool folded = panel_->Folded();
    Widget()->setMinimumHeight(!folded && panel_->Height() > 0 ? Scaled(panel_->Height(), *Widget()) : 0);
    const auto vertical = panel_->Stretch() == 0 || folded ? QSizePolicy::Maximum : QSizePolicy::Preferred;
    const TControl* parent = panel_->Parent();
    const auto* parentPanel = dynamic_cast<const TPanel*>(parent);
    const bool inRow = parentPanel != nullptr && parentPanel->Direction() == Flow::Row;
    Widget()->setSizePolicy(QSizePolicy::Preferred, inRow ? QSizePolicy::Preferred : vertical);
  }
}

}  // namespace goods
