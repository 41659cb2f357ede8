#include "desktop/views/standard_views.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/text_label.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

// Caption, least size and stretch are treated alike by all of them.
void SetSizes(const ControlView& view) {
  const TControl& control = view.Control();
  QWidget& widget = *view.Widget();
  widget.setMinimumWidth(std::max(view.AlignedWidth(), Scaled(control.Width(), widget)));
  widget.setMinimumHeight(control.Height() > 0 ? Scaled(control.Height(), widget) : 0);
}

constexpr int kIconButtonWidth = 34;
constexpr char16_t kRightToLeftMark = 0x200F;

}  // namespace

LabelView::LabelView(FormView& form, TLabel& label, QWidget* parent)
    : ControlView(form, label), label_(label), widget_(new TextLabel(parent)) {
  SetWidget(widget_);
  widget_->OnClicked = [this, alive = QPointer<LabelView>(this)] {
    if (!alive) return;
    Act([this] {
      label_.Click();
      if (TControl* target = label_.FocusControl; target != nullptr && target->CanFocus()) {
        target->SetFocus();
        target->Click();
      }
    });
  };
}

void LabelView::Connected() {
  ControlView* target = label_.FocusControl == nullptr ? nullptr : Form().ViewOf(*label_.FocusControl);
  if (target != nullptr && target->FocusWidget() != nullptr &&
      label_.Caption().find('&') != std::string::npos)
    widget_->setBuddy(target->FocusWidget());
}

void LabelView::Refresh() {
  ControlView::Refresh();
  // Only with a buddy does a label understand the accelerator's mark.
  const bool marked = widget_->buddy() != nullptr;
  QString text = ShownText(marked ? label_.Caption() : PlainCaption(label_.Caption()));
  // The toolkit takes the direction of the first letter, which may be that of a key's name.
  if (HasRightToLeft(text) && !text.isRightToLeft()) text.prepend(QChar(kRightToLeftMark));
  if (widget_->text() != text) widget_->setText(text);
  if (widget_->font().bold() != label_.Emphasis) {
    QFont font = widget_->font();
    font.setBold(label_.Emphasis);
    widget_->setFont(font);
  }
  SetSizes(*this);
  widget_->SetShrinkable(label_.Stretch() > 0);
  const auto* line = dynamic_cast<const TPanel*>(label_.Parent());
  widget_->SetWrapping(line == nullptr || line->Direction() == Flow::Column);
}

ButtonView::ButtonView(FormView& form, TButton& button, QWidget* parent)
    : ControlView(form, button), button_(button), widget_(new QPushButton(parent)) {
  SetWidget(widget_);
  widget_->setAutoDefault(false);
  connect(widget_, &QPushButton::clicked, this, [this] { Act([this] { button_.Click(); }); });
}

QWidget* ButtonView::FocusWidget() const { return widget_; }

void ButtonView::Refresh() {
  ControlView::Refresh();
  const QString text = ShownText(button_.Caption());
  if (widget_->text() != text) widget_->setText(text);
  SetSizes(*this);
  // "..." beside an edit is a small square.
  if (button_.Width() == 0 && text.size() <= 3) widget_->setFixedWidth(Scaled(kIconButtonWidth, *widget_));
}

CheckBoxView::CheckBoxView(FormView& form, TCheckBox& box, QWidget* parent)
    : ControlView(form, box), box_(box), widget_(new QCheckBox(parent)) {
  SetWidget(widget_);
  connect(widget_, &QCheckBox::clicked, this, [this] { Act([this] { box_.Click(); }); });
}

QWidget* CheckBoxView::FocusWidget() const { return widget_; }

void CheckBoxView::Refresh() {
  ControlView::Refresh();
  const QString caption = ShownText(box_.Caption());
  const QString text = box_.CaptionShown ? caption : QString();
  if (widget_->text() != text) widget_->setText(text);
  if (!box_.CaptionShown) widget_->setShortcut(QKeySequence::mnemonic(caption));
  if (widget_->isChecked() != box_.Checked()) widget_->setChecked(box_.Checked());
  SetSizes(*this);
}

RadioButtonView::RadioButtonView(FormView& form, TRadioButton& radio, QWidget* parent)
    : ControlView(form, radio), radio_(radio), widget_(new QRadioButton(parent)) {
  SetWidget(widget_);
  widget_->setAutoExclusive(false);  // which ones belong together is the component's affair
  connect(widget_, &QRadioButton::clicked, this, [this] { Act([this] { radio_.Click(); }); });
}

QWidget* RadioButtonView::FocusWidget() const { return widget_; }

void RadioButtonView::Refresh() {
  ControlView::Refresh();
  const QString text = ShownText(radio_.Caption());
  if (widget_->text() != text) widget_->setText(text);
  if (widget_->isChecked() != radio_.Checked()) widget_->setChecked(radio_.Checked());
  SetSizes(*this);
}

}  // namespace goods
