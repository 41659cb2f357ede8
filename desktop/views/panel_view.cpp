#include "desktop/views/panel_view.h"

#include <QBoxLayout>
#include <QPainter>
#include <algorithm>

#include "desktop/views/fit_area.h"
#include "desktop/views/form_view.h"
#include "desktop/views/group_title.h"
#include "desktop/views/panel_splitter.h"
#include "desktop/views/period_button.h"
#include "desktop/views/row_layout.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/drop_down.h"
#include "host/components/grid.h"
#include "host/components/tabs.h"

namespace goods {
namespace {

constexpr int kSpacing = 8;
constexpr int kTitleSpacing = 4;
constexpr int kRowSpacing = 6;
constexpr int kPairSpacing = 18;
constexpr int kFramePadding = 10;
constexpr int kSignSize = 18;
constexpr int kSignRoom = 40;

enum class PanelLook { Plain, Framed, Warning };

// A container's widget; paints the frame of a framed one, and the sign of a warning.
class PanelWidget : public QWidget {
 public:
  PanelWidget(QWidget* parent, PanelLook look) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (look_ == PanelLook::Plain) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme& theme = CurrentTheme();
    const bool warning = look_ == PanelLook::Warning;
    painter.setPen(warning ? theme.warning : theme.border);
    painter.setBrush(warning ? theme.warningSoft : theme.surface);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 7, 7);
    if (warning) PaintSign(painter);
  }

 private:
  // A triangle with a mark of exclamation, where reading starts.
  void PaintSign(QPainter& painter) const {
    const double side = Scaled(kSignSize, *this);
    const double room = Scaled(kSignRoom, *this);
    const double middle = layoutDirection() == Qt::RightToLeft ? width() - room / 2 : room / 2;
    painter.translate(middle, height() / 2.0);
    painter.scale(side / 2, side / 2);
    painter.setPen(QPen(CurrentTheme().warning, 0.24, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(CurrentTheme().warning);
    painter.drawPolygon(QPolygonF({QPointF(0, -0.8), QPointF(0.9, 0.75), QPointF(-0.9, 0.75)}));
    painter.setPen(QPen(CurrentTheme().warningSoft, 0.24, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, -0.3), QPointF(0, 0.2));
    painter.drawPoint(QPointF(0, 0.55));
  }

  PanelLook look_;
};

PanelLook LookOf(const TPanel& panel, bool titled) {
  if (panel.Warning) return PanelLook::Warning;
  // What hangs open has the frame of the drop-down.
  const bool hangs = dynamic_cast<const TDropDownCombo*>(panel.Parent()) != nullptr;
  return (panel.Framed || titled) && !hangs ? PanelLook::Framed : PanelLook::Plain;
}

// A table takes the room that is left over, unless it was given its size in that direction.
int StretchOf(const TControl& control, bool row) {
  const bool grid = dynamic_cast<const TSmartDBGrid_QRT*>(&control) != nullptr;
  const int given = row ? control.Width() : control.Height();
  return control.Stretch() == 0 && grid && given == 0 ? 1 : control.Stretch();
}

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
    : ContainerView(form, control), panel_(dynamic_cast<TPanel*>(&control)) {
  const PanelLook look = panel_ == nullptr ? PanelLook::Plain : LookOf(*panel_, Titled());
  const bool framed = look != PanelLook::Plain;
  auto* widget = new PanelWidget(parent, look);
  SetWidget(widget);
  outer_ = new QVBoxLayout(widget);
  const int padding = framed ? Scaled(kFramePadding, *widget) : 0;
  const int start = look == PanelLook::Warning ? Scaled(kSignRoom, *widget) : padding;
  const bool rightToLeft = widget->layoutDirection() == Qt::RightToLeft;
  outer_->setContentsMargins(rightToLeft ? padding : start, padding / 2, rightToLeft ? start : padding,
                             padding / 2);
  outer_->setSpacing(Scaled(panel_ == nullptr ? kSpacing : kTitleSpacing, *widget));
  title_ = new GroupTitle(widget);
  title_->hide();
  connect(title_, &QAbstractButton::clicked, this, [this] {
    if (panel_ != nullptr && panel_->Foldable) Act([this] { panel_->SetFolded(!panel_->Folded()); });
  });
  outer_->addWidget(title_);
  body_ = new QWidget(widget);
  if (panel_ == nullptr) {
    area_ = new FitArea(widget);
    area_->SetContents(body_);
    outer_->addWidget(area_, 1);
  } else {
    outer_->addWidget(body_, 1);
  }
  const bool splits = panel_ != nullptr && panel_->Splitter;
  layout_ = IsRow() && !splits ? new RowLayout(body_) : new QBoxLayout(QBoxLayout::TopToBottom, body_);
  const int edge = framed ? Scaled(3, *widget) : 0;
  layout_->setContentsMargins(0, edge, 0, edge);
  layout_->setSpacing(Scaled(IsRow() ? kRowSpacing : kSpacing, *widget));
  if (splits) {
    splitter_ = new PanelSplitter(*this, IsRow() ? Qt::Horizontal : Qt::Vertical, body_);
    splitter_->setObjectName(widget->objectName() + "_Splitter");
  }
  widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

bool PanelView::IsRow() const { return panel_ != nullptr && panel_->Direction() == Flow::Row; }

bool PanelView::IsPage() const { return dynamic_cast<const TTabSheet*>(panel_) != nullptr; }

bool PanelView::Titled() const {
  return panel_ != nullptr && !IsPage() && (!panel_->Caption().empty() || panel_->Foldable);
}

bool PanelView::IsShown() const {
  const auto* pages = IsPage() ? dynamic_cast<const TPageControl*>(panel_->Parent()) : nullptr;
  return ContainerView::IsShown() && (pages == nullptr || pages->ActivePage() == panel_);
}

void PanelView::ArrangeSplitter() {
  layout_->addWidget(splitter_, 1);
  splitter_->Clear();
  for (TControl* each : Contents()) {
    if (QWidget* widget = Form().WidgetOf(*each)) splitter_->Add(*each, *widget, StretchOf(*each, IsRow()));
  }
  splitter_->StartSizes();
}

QWidget* PanelView::Foot() const {
  if (area_ == nullptr || Contents().size() < 2) return nullptr;
  const auto* last = dynamic_cast<const TPanel*>(Contents().back());
  if (last == nullptr || last->Direction() != Flow::Row) return nullptr;
  const bool buttons =
      std::any_of(last->Controls().begin(), last->Controls().end(),
                  [](const TControl* each) { return dynamic_cast<const TButton*>(each) != nullptr; });
  return buttons ? Form().WidgetOf(*last) : nullptr;
}

// Where nothing in the form takes the room that is left over, it is under the last row.
void PanelView::ArrangeFoot(bool anyStretch) {
  constexpr int kTitleAndArea = 2;
  while (outer_->count() > kTitleAndArea) delete outer_->takeAt(kTitleAndArea);
  if (QWidget* foot = Foot()) {
    foot->setParent(Widget());
    outer_->addWidget(foot);
  }
  area_->setSizePolicy(QSizePolicy::Expanding, anyStretch ? QSizePolicy::Expanding : QSizePolicy::Maximum);
  outer_->setStretchFactor(area_, anyStretch ? 1 : 0);
  if (!anyStretch) outer_->addStretch(1);
}

void PanelView::Arrange() {
  while (QLayoutItem* item = layout_->takeAt(0)) delete item;
  if (splitter_ != nullptr) return ArrangeSplitter();
  const QWidget* foot = Foot();
  const auto range = IsRow() ? DateRangeIn(Control()) : std::nullopt;
  if (range && periods_ == nullptr) periods_ = new PeriodButton(Form(), Control(), *range, body_);
  bool anyStretch = false;  // no matter for a row: what stretches there may be hidden at times
  const TControl* before = nullptr;
  for (const TControl* each : Contents()) {
    QWidget* widget = Form().WidgetOf(*each);
    if (widget == nullptr || widget == foot) continue;
    widget->setParent(body_);
    if (IsRow() && BeginsPair(before, *each)) layout_->addSpacing(Scaled(kPairSpacing, *body_));
    before = each;
    const int stretch = StretchOf(*each, IsRow());
    anyStretch = anyStretch || stretch > 0;
    layout_->addWidget(widget, stretch);
    if (range && each == range->to) layout_->addWidget(periods_);
  }
  // What stretches takes all the room; without such the controls stand together at the start.
  const bool fills = std::any_of(Contents().begin(), Contents().end(),
                                 [](const TControl* each) { return !each->Controls().empty(); });
  if (area_ != nullptr) {
    ArrangeFoot(anyStretch);
  } else if (IsRow() || (!anyStretch && !fills)) {
    layout_->addItem(IsRow() ? new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum)
                             : new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
  }
}

void PanelView::AlignRows() {
  if (IsRow()) return;
  int widest = 0;
  std::vector<ControlView*> titles;
  for (const TControl* each : Contents()) {
    const TControl* title = RowTitle(*each);
    ControlView* view =
        title == nullptr || !title->Visible() || !each->Visible() ? nullptr : Form().ViewOf(*title);
    if (view == nullptr) continue;
    titles.push_back(view);
    widest = std::max(widest, view->Widget()->sizeHint().width());
  }
  for (ControlView* title : titles) title->SetAlignedWidth(titles.size() > 1 ? widest : 0);
}

void PanelView::RefreshSizes() {
  const bool folded = panel_->Folded();
  const int width = SplitterGives(*panel_, Qt::Horizontal) ? 0 : panel_->Width();
  const int height = SplitterGives(*panel_, Qt::Vertical) || folded ? 0 : panel_->Height();
  if (panel_->Width() > 0) Widget()->setMinimumWidth(Scaled(width, *Widget()));
  Widget()->setMinimumHeight(Scaled(height, *Widget()));
  const auto* parent = dynamic_cast<const TPanel*>(panel_->Parent());
  const bool inRow = parent != nullptr && (parent->Direction() == Flow::Row || parent->Splitter);
  const bool natural = (panel_->Stretch() == 0 && !IsPage()) || folded;
  // The stretch that a splitter gave stays.
  QSizePolicy policy = Widget()->sizePolicy();
  policy.setVerticalPolicy(natural && !inRow ? QSizePolicy::Maximum : QSizePolicy::Preferred);
  if (policy != Widget()->sizePolicy()) Widget()->setSizePolicy(policy);
}

void PanelView::Refresh() {
  ContainerView::Refresh();
  if (panel_ == nullptr) return;
  const bool titled = Titled();
  if (titled) title_->Show(ShownText(panel_->Caption()), panel_->Foldable, panel_->Folded());
  title_->setObjectName(Widget()->objectName() + "_Title");
  title_->setAccessibleName(ToQt(panel_->AccessibleName()));
  if (title_->isHidden() == titled) title_->setVisible(titled);
  if (body_->isHidden() != panel_->Folded()) body_->setVisible(!panel_->Folded());
  RefreshSizes();
  if (splitter_ != nullptr) splitter_->ApplySizes();
}

}  // namespace goods
