#include "desktop/views/drop_down_view.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "desktop/views/window_overlay.h"

namespace goods {

// The closed face of the combo.
class DropField : public QAbstractButton {
 public:
  explicit DropField(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  void Show(const QString& shown, bool open) {
    if (shown == shown_ && open == open_) return;
    shown_ = shown;
    open_ = open;
    setAccessibleDescription(shown);
    updateGeometry();
    update();
  }

  QSize sizeHint() const override {
    const int text = fontMetrics().horizontalAdvance(shown_);
    return {text + 2 * Scaled(kPadding, *this) + Scaled(kArrowRoom, *this),
            LineHeight(font()) + Scaled(kHeightExtra, *this)};
  }
  QSize minimumSizeHint() const override { return {Scaled(kLeastWidth, *this), sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.subControls = QStyle::SC_All;
    option.state.setFlag(QStyle::State_On, open_);
    if (open_) option.state.setFlag(QStyle::State_HasFocus);
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    const int padding = Scaled(kPadding, *this);
    const int arrow = Scaled(kArrowRoom, *this);
    const QRect box =
        rightToLeft ? rect().adjusted(arrow, 0, -padding, 0) : rect().adjusted(padding, 0, -arrow, 0);
    painter.setPen(palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::Text));
    cut_ = DrawCell(painter, box, shown_, TextAlign::Start, rightToLeft);
  }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && cut_) {
      QToolTip::showText(mapToGlobal(rect().bottomLeft()), shown_, this);
      return true;
    }
    return QAbstractButton::event(event);
  }

 private:
  static constexpr int kPadding = 10;
  static constexpr int kArrowRoom = 26;
  static constexpr int kHeightExtra = 12;
  static constexpr int kLeastWidth = 90;

  QString shown_;
  bool open_ = false;
  bool cut_ = false;
};

namespace {

constexpr int kPanelMargin = 12;

}  // namespace

DropDownView::DropDownView(FormView& form, TDropDownCombo& combo, QWidget* parent)
    : ContainerView(form, combo), combo_(combo), field_(new DropField(parent)) {
  SetWidget(field_);
  overlay_ = new WindowOverlay(*field_, form);
  overlay_->setObjectName(field_->objectName() + "_DropDown");
  holder_ = new QWidget;
  auto* layout = new QVBoxLayout(holder_);
  const int margin = Scaled(kPanelMargin, *field_);
  layout->setContentsMargins(margin, margin, margin, margin);
  overlay_->SetContents(holder_);
  overlay_->OnPressOutside = [this] { Act([this] { combo_.SetDroppedDown(false); }); };
  connect(field_, &QAbstractButton::clicked, this, [this] { Act([this] { combo_.Click(); }); });
  formChanged_ = form.Form().Changed.Connect([this] { FocusMoved(); });
}

DropDownView::~DropDownView() { delete overlay_; }

WindowOverlay& DropDownView::Overlay() const { return *overlay_; }

QWidget* DropDownView::FocusWidget() const { return field_; }

void DropDownView::Arrange() {
  for (const TControl* each : Contents()) {
    if (QWidget* widget = Form().WidgetOf(*each)) holder_->layout()->addWidget(widget);
  }
}

void DropDownView::FocusMoved() {
  const TControl* active = Form().Form().ActiveControl();
  if (!combo_.DroppedDown() || active == nullptr || StandsIn(active, combo_)) return;
  Form().Run([this] { combo_.SetDroppedDown(false); });
}

void DropDownView::Refresh() {
  ContainerView::Refresh();
  const bool open = combo_.DroppedDown() && combo_.Visible();
  field_->Show(ShownText(combo_.Text()), open);
  field_->setMinimumWidth(combo_.Width() > 0 ? Scaled(combo_.Width(), *field_) : 0);
  if (open == overlay_->IsOpen()) return;
  if (open) {
    for (const TControl* each : Contents()) {
      if (ControlView* view = Form().ViewOf(*each)) view->Refresh();
    }
    overlay_->Open();
  } else {
    Form().ReleaseFocusIn(*overlay_);
    overlay_->Close();
  }
}

}  // namespace goods
