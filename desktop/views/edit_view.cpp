#include "desktop/views/edit_view.h"

#include <QLineEdit>
#include <QPointer>
#include <QStyle>

#include "desktop/views/form_view.h"
#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"
#include "desktop/views/typed_codes.h"
#include "desktop/views/window_keys.h"
#include "host/components/standard.h"
#include "host/frames/select_entity_frame.h"

namespace goods {
namespace {

constexpr int kTextWidth = 160;
constexpr int kNumberWidth = 100;
constexpr int kEditPadding = 4;
constexpr int kFrameRoom = 22;

}  // namespace

EditView::EditView(FormView& form, TEdit& edit, QWidget* parent)
    : ControlView(form, edit), edit_(edit), line_(new LineEdit(parent)) {
  SetWidget(line_);
  line_->setTextMargins(Scaled(kEditPadding, *line_), 0, Scaled(kEditPadding, *line_), 0);
  connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) { Typed(text); });
  connect(line_, &QLineEdit::cursorPositionChanged, this, [this](int, int now) { CaretMoved(now); });
}

QWidget* EditView::FocusWidget() const { return line_; }

QString EditView::Shown() const {
  const QString text = ToQt(edit_.Text());
  return edit_.Kind() == InputKind::Text ? text : ShownDigits(text);
}

void EditView::Typed(const QString& text) {
  const QPointer<EditView> alive(this);
  Act([&] {
    if (edit_.TypeText(FromQt(text))) edit_.SetCaret(line_->cursorPosition());
  });
  if (alive) TellTyped();
}

void EditView::TellTyped() {
  const auto* frame = dynamic_cast<const TSelect_Entity_Frame*>(edit_.Parent());
  if (frame == nullptr) return;
  TForm& form = Form().Form();
  if (auto* typed = dynamic_cast<ITypedCodes*>(&form.Host().Lookups()))
    typed->CodeTyped(form, frame->GetEntityType(), edit_.AsInteger());
}

void EditView::CaretMoved(int position) {
  if (line_->text() == Shown() && position != edit_.Caret()) Act([&] { edit_.SetCaret(position); });
}

void EditView::RefreshSize() {
  const int natural = edit_.Kind() == InputKind::Text ? kTextWidth : kNumberWidth;
  int width = Scaled(edit_.Width() > 0 ? edit_.Width() : natural, *line_);
  if (edit_.Kind() == InputKind::Date) {
    const int date = line_->fontMetrics().horizontalAdvance(ShownDigits("0000/00/00"));
    width = std::max(width, date + ExtraWidth() + Scaled(kFrameRoom, *line_));
  }
  if (line_->minimumWidth() != width) line_->setMinimumWidth(width);
  // A text with a line of a column to itself fills it.
  const auto* panel = dynamic_cast<const TPanel*>(edit_.Parent());
  const bool alone = panel != nullptr && panel->Direction() == Flow::Column &&
                     edit_.Kind() == InputKind::Text && edit_.Width() == 0;
  const int most = edit_.Stretch() > 0 || alone ? QWIDGETSIZE_MAX : width;
  if (line_->maximumWidth() != most) line_->setMaximumWidth(most);
}

void EditView::Refresh() {
  ControlView::Refresh();
  const bool number = edit_.Kind() != InputKind::Text;
  static_cast<LineEdit*>(line_)->PlainDigits = number;
  const Qt::LayoutDirection direction = number ? Qt::LeftToRight : Qt::RightToLeft;
  if (line_->layoutDirection() != direction || !line_->testAttribute(Qt::WA_SetLayoutDirection)) {
    line_->setLayoutDirection(direction);
    line_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  }
  if (const QString shown = Shown(); line_->text() != shown) {
    const QSignalBlocker quiet(line_);
    line_->setText(shown);
    line_->setCursorPosition(edit_.Caret());
  } else if (!line_->hasSelectedText() && line_->cursorPosition() != edit_.Caret()) {
    const QSignalBlocker quiet(line_);
    line_->setCursorPosition(edit_.Caret());
  }
  QString placeholder = ShownText(edit_.Placeholder());
  if (HasSearchKey(edit_)) placeholder += (placeholder.isEmpty() ? "جستجو (" : " (") + QString("F3)");
  if (line_->placeholderText() != placeholder) line_->setPlaceholderText(placeholder);
  const bool problem = !edit_.Problem().empty();
  if (line_->property(kProblemProperty).toBool() != problem) {
    line_->setProperty(kProblemProperty, problem);
    line_->update();
  }
  if (problem) line_->setToolTip(ShownText(edit_.Problem()));
  RefreshSize();
}

}  // namespace goods
