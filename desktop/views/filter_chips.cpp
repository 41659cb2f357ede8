#include "desktop/views/filter_chips.h"

#include <QPainter>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "desktop/views/keyboard_marks.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"

namespace goods {
namespace {

constexpr int kWidestChip = 420;
constexpr int kChipGap = 6;
constexpr int kChipMargin = 4;

}  // namespace

FilterChips::FilterChips(TSmartDBGrid_QRT& grid, QWidget* parent) : QWidget(parent), grid_(grid) {
  setObjectName("FilterChips");
  setLayoutDirection(Qt::RightToLeft);
  setAccessibleName("فیلترهای جدول");
  hide();
}

QToolButton* FilterChips::AddChip(const QString& name, const QString& text, std::function<void()> action) {
  auto* chip = new QToolButton(this);
  chip->setObjectName(name);
  chip->setAccessibleName(text);
  chip->setFocusPolicy(Qt::NoFocus);
  const int room = Scaled(kWidestChip, *this);
  const QString shown = chip->fontMetrics().elidedText(text, Qt::ElideRight, room);
  chip->setText(AsPlain(shown));
  chip->setToolTip(shown == text ? QString() : text);
  // A click may take the chip away, so it acts when the click is over.
  connect(
      chip, &QToolButton::clicked, this,
      [this, action = std::move(action)] {
        if (OnAction) OnAction(action);
      },
      Qt::QueuedConnection);
  chip->show();
  chips_.push_back(chip);
  return chip;
}

bool FilterChips::Follow() {
  const TADOQuery* query = grid_.DataSet();
  std::vector<RowCondition> now = query == nullptr ? std::vector<RowCondition>() : query->Narrowing();
  std::string grouping = grid_.Groups().Caption();
  if (now == shown_ && grouping == grouping_) return false;
  shown_ = std::move(now);
  grouping_ = std::move(grouping);
  for (QToolButton* chip : std::exchange(chips_, {})) {
    chip->hide();
    chip->deleteLater();
  }
  AddGroupChips();
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const QString text = ShownText(ConditionText(grid_, shown_[i])) + "  ✕";
    AddChip("FilterChip_" + QString::number(i), text, [this, condition = shown_[i]] {
      RemoveCondition(grid_, condition);
    })->setToolTip(text + "\nبرداشتن این فیلتر (در ستون آن: Alt+Down)");
  }
  if (!shown_.empty()) AddChip("FilterClear_BTN", "برداشتن همه  F8", [this] { RemoveConditions(grid_); });
  // As wide and as high as before, nobody else would place them.
  Flow(width(), true);
  setVisible(!chips_.empty());
  return true;
}

// One for each level; the other levels stay when it is lifted.
void FilterChips::AddGroupChips() {
  const std::vector<GridGroups::GroupedBy> levels = grid_.Groups().Columns();
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const QString text =
        ShownText((i == 0 ? "گروه‌بندی: " : "سپس: ") + GridGroups::CaptionOf(levels[i])) + "  ✕";
    const QString name = i == 0 ? QString("GroupChip") : "GroupChip_" + QString::number(i);
    AddChip(name, text, [this, column = levels[i].column->Name()] {
      for (const GridGroups::GroupedBy& by : grid_.Groups().Asked())
        if (by.column->Name() == column) return grid_.Groups().Remove(*by.column);
    })->setToolTip(text + "\nبرداشتن این گروه‌بندی (Ctrl+G)");
  }
}

int FilterChips::Flow(int width, bool place) const {
  const int gap = Scaled(kChipGap, *this);
  const int margin = Scaled(kChipMargin, *this);
  int x = margin;
  int y = margin;
  int line = 0;
  for (QToolButton* chip : chips_) {
    const QSize size = chip->sizeHint();
    if (x > margin && x + size.width() > width - margin) {
      x = margin;
      y += line + gap;
      line = 0;
    }
    if (place) chip->setGeometry(width - x - size.width(), y, size.width(), size.height());
    x += size.width() + gap;
    line = std::max(line, size.height());
  }
  return chips_.empty() ? 0 : y + line + margin;
}

int FilterChips::HeightFor(int width) const { return Flow(width, false); }

void FilterChips::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Flow(width(), true);
}

void FilterChips::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), CurrentTheme().warningSoft);
  painter.fillRect(QRect(0, height() - 1, width(), 1), CurrentTheme().border);
}

}  // namespace goods
