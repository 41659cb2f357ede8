#include "desktop/views/combo_view.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>
#include <functional>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

// Tells when its list opens and closes; the wheel does not change a choice in passing.
class DropBox : public QComboBox {
 public:
  using QComboBox::QComboBox;
  std::function<void(bool open)> OnDropped;

  void showPopup() override {
    QComboBox::showPopup();
    if (OnDropped) OnDropped(true);
  }
  void hidePopup() override {
    QComboBox::hidePopup();
    if (OnDropped) OnDropped(false);
  }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

// A Latin text stands where reading starts, as the others do.
QString ItemText(const TComboItem& item) {
  constexpr QChar kRightToLeftMark(0x200F);
  const QString text = ShownText(item.Text);
  return text.isEmpty() || text.isRightToLeft() ? text : kRightToLeftMark + text;
}

}  // namespace

ComboView::ComboView(FormView& form, TComboBox& combo, QWidget* parent)
    : ControlView(form, combo), combo_(combo) {
  auto* box = new DropBox(parent);
  widget_ = box;
  SetWidget(box);
  box->setFocusPolicy(Qt::StrongFocus);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  // The line edit of a typing box passes its keys and its focus on to the box.
  box->OnDropped = [this, alive = QPointer<ComboView>(this)](bool open) {
    if (alive && combo_.DroppedDown() != open) Act([this, open] { combo_.SetDroppedDown(open); });
  };
  connect(box, &QComboBox::activated, this, [this](int row) {
    Act([this, row] { combo_.SetItemIndex(offered_[static_cast<std::size_t>(row)]); });
  });
}

QWidget* ComboView::FocusWidget() const { return widget_; }

void ComboView::RefreshItems() {
  const auto& items = combo_.Items();
  offered_ = combo_.OfferedItems();
  QStringList texts;
  for (const int item : offered_) texts << ItemText(items[static_cast<std::size_t>(item)]);
  bool same = widget_->count() == texts.size();
  for (int i = 0; same && i < widget_->count(); ++i) same = widget_->itemText(i) == texts[i];
  if (same) return;
  widget_->clear();
  widget_->addItems(texts);
  widget_->setMaxVisibleItems(15);
}

void ComboView::RefreshText(int caret) {
  QLineEdit* edit = widget_->lineEdit();
  const QString text = ToQt(combo_.Text());
  if (edit->text() == text || edit->text() == ShownText(combo_.Text())) return;
  edit->setText(text);
  edit->setCursorPosition(caret);
}

void ComboView::Refresh() {
  ControlView::Refresh();
  const QSignalBlocker quiet(widget_);
  const bool typing = combo_.Style() == ComboStyle::Typing;
  if (widget_->isEditable() != typing) {
    widget_->setEditable(typing);
    if (QLineEdit* edit = widget_->lineEdit()) {
      edit->setFrame(false);
      edit->setCompleter(nullptr);
      edit->setObjectName(widget_->objectName() + "_Edit");
      connect(edit, &QLineEdit::textEdited, this,
              [this](const QString& text) { Act([&] { combo_.SetText(FromQt(text)); }); });
    }
  }
  const int caret = typing ? widget_->lineEdit()->cursorPosition() : 0;
  RefreshItems();
  const auto chosen = std::find(offered_.begin(), offered_.end(), combo_.ItemIndex());
  const int row = chosen == offered_.end() ? -1 : static_cast<int>(chosen - offered_.begin());
  if (widget_->currentIndex() != row) widget_->setCurrentIndex(row);
  if (typing) RefreshText(caret);
  widget_->setMinimumWidth(combo_.Width() > 0 ? Scaled(combo_.Width(), *widget_) : Scaled(90, *widget_));
  const bool open = widget_->view()->isVisible();
  if (combo_.DroppedDown() && !open && widget_->isVisible()) {
    widget_->showPopup();
  } else if (!combo_.DroppedDown() && open) {
    widget_->hidePopup();
  }
}

}  // namespace goods
