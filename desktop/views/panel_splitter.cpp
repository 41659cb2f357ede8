#include "desktop/views/panel_splitter.h"

#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/theme.h"
#include "host/components/standard.h"

namespace goods {
namespace {

constexpr int kBorderWidth = 9;
constexpr int kAllTheRest = 1 << 16;  // pixels; more than any screen has

}  // namespace

PanelSplitter::PanelSplitter(ControlView& owner, Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent), owner_(owner) {
  setChildrenCollapsible(false);
  setHandleWidth(Scaled(kBorderWidth, *this));
  // From right to left the toolkit places everything one pixel beyond the right edge.
  if (orientation == Qt::Horizontal && layoutDirection() == Qt::RightToLeft) setContentsMargins(0, 0, 1, 0);
  connect(this, &QSplitter::splitterMoved, this, [this] { BorderMoved(); });
}

void PanelSplitter::Clear() { parts_.clear(); }

void PanelSplitter::Add(TControl& control, QWidget& widget, int stretch) {
  const int place = static_cast<int>(parts_.size());
  insertWidget(place, &widget);
  setStretchFactor(place, stretch);
  parts_.push_back({&control, stretch, control.Changed.Connect([this] { owner_.Form().Queue(owner_); })});
}

int PanelSplitter::Given(const TControl& control) const {
  return orientation() == Qt::Horizontal ? control.Width() : control.Height();
}

bool PanelSplitter::Fixed(std::size_t part) const {
  return parts_[part].stretch == 0 && !widget(static_cast<int>(part))->isHidden();
}

void PanelSplitter::StartSizes() {
  QList<int> sizes;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    const int given = Given(*parts_[i].control);
    const QSize hint = widget(static_cast<int>(i))->sizeHint();
    const int natural = orientation() == Qt::Horizontal ? hint.width() : hint.height();
    sizes << (parts_[i].stretch > 0 ? kAllTheRest : given > 0 ? Scaled(given, *this) : natural);
  }
  setSizes(sizes);
}

void PanelSplitter::ApplySizes() {
  QList<int> wanted = sizes();
  if (wanted.size() != static_cast<qsizetype>(parts_.size())) return;
  int rest = 0;
  int shares = 0;
  for (const int size : wanted) rest += size;
  if (rest == 0) return;  // it has no size itself yet
  bool differs = false;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    int& size = wanted[static_cast<qsizetype>(i)];
    const int given = Given(*parts_[i].control);
    if (Fixed(i) && given > 0 && Unscaled(size, *this) != given) {
      size = Scaled(given, *this);
      differs = true;
    }
    if (parts_[i].stretch == 0) rest -= size;
    if (!widget(static_cast<int>(i))->isHidden()) shares += parts_[i].stretch;
  }
  if (!differs) return;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    if (parts_[i].stretch > 0) {
      wanted[static_cast<qsizetype>(i)] = std::max(0, rest) * parts_[i].stretch / std::max(1, shares);
    }
  }
  setSizes(wanted);
}

void PanelSplitter::BorderMoved() {
  const QList<int> now = sizes();
  owner_.Form().Run([&] {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      if (!Fixed(i)) continue;
      const int size = Unscaled(now[static_cast<qsizetype>(i)], *this);
      TControl& control = *parts_[i].control;
      orientation() == Qt::Horizontal ? control.SetWidth(size) : control.SetHeight(size);
    }
  });
}

void PanelSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  ApplySizes();
}

bool SplitterGives(const TControl& control, Qt::Orientation direction) {
  const auto* panel = dynamic_cast<const TPanel*>(control.Parent());
  return panel != nullptr && panel->Splitter &&
         (panel->Direction() == Flow::Row) == (direction == Qt::Horizontal);
}

}  // namespace goods
