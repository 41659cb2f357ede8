#include "desktop/views/token_editor_view.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"
#include "desktop/views/token_field.h"
#include "desktop/views/window_overlay.h"

namespace goods {
namespace {

constexpr int kCodeRole = Qt::UserRole;
constexpr int kColorRole = Qt::UserRole + 1;
constexpr int kRowsShown = 8;
constexpr int kTokenRowExtra = 12;
constexpr int kTokenPadding = 10;
constexpr int kSwatch = 12;

// A choice: its colour, where it has one, and its text.
class ChoiceRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Theme& theme = CurrentTheme();
    const bool marked = option.state.testFlag(QStyle::State_Selected);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (marked || hovered) {
      painter->setPen(Qt::NoPen);
      painter->setBrush(marked ? theme.accentSoft : theme.buttonHover);
      painter->drawRoundedRect(QRectF(option.rect).adjusted(2, 1, -2, -1), 4, 4);
    }
    const bool rightToLeft = option.direction == Qt::RightToLeft;
    const QWidget& widget = *option.widget;
    QRect box = option.rect.adjusted(Scaled(kTokenPadding, widget), 0, -Scaled(kTokenPadding, widget), 0);
    if (const QVariant color = index.data(kColorRole); color.isValid()) {
      const int side = Scaled(kSwatch, widget);
      const QRectF swatch(rightToLeft ? box.right() + 1 - side : box.left(),
                          box.center().y() - side / 2.0 + 1, side, side);
      const QColor fill = color.value<QColor>();
      painter->setPen(Mixed(fill, theme.text, 0.3));
      painter->setBrush(fill);
      painter->drawRoundedRect(swatch.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
      const int room = side + Scaled(kTokenPadding, widget) / 2 + 2;
      box = rightToLeft ? box.adjusted(0, 0, -room, 0) : box.adjusted(room, 0, 0, 0);
    }
    painter->setFont(option.font);
    painter->setPen(theme.text);
    DrawCell(*painter, box, index.data().toString(), TextAlign::Start, rightToLeft);
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
    return {text + Scaled(3 * kTokenPadding + kSwatch, *option.widget),
            LineHeight(option.font) + Scaled(kTokenRowExtra, *option.widget)};
  }
};

// As high as its rows, up to a few of them.
class ChoiceList : public QListWidget {
 public:
  ChoiceList() {
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new ChoiceRows(this));
    viewport()->setAutoFillBackground(false);
  }
  QSize sizeHint() const override {
    const int rows = std::clamp(count(), 1, kRowsShown);
    const int bar = count() > kRowsShown ? verticalScrollBar()->sizeHint().width() : 0;
    return {sizeHintForColumn(0) + bar, rows * std::max(1, sizeHintForRow(0))};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

TokenEditorView::TokenEditorView(FormView& form, TTokenEditor& editor, QWidget* parent)
    : ControlView(form, editor), editor_(editor), field_(new TokenField(parent)), list_(new ChoiceList) {
  SetWidget(field_);
  overlay_ = new WindowOverlay(*field_, form);
  overlay_->setObjectName(field_->objectName() + "_List");
  overlay_->SetContents(list_);
  overlay_->OnPressOutside = [this] { CloseList(); };
  field_->Line().setObjectName(field_->objectName() + "_Edit");
  connect(&field_->Line(), &QLineEdit::textEdited, this, [this](const QString& text) {
    Act([&] { editor_.TypeText(FromQt(text)); });
    if (text.isEmpty()) {
      CloseList();
    } else {
      OpenList();
    }
  });
  connect(list_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { AddRow(list_->row(item)); });
  field_->OnRemove = [this](const std::string& code) { Act([&] { editor_.Remove(code); }); };
  field_->OnPressed = [this] { OpenList(); };
  field_->OnDown = [this] { OpenList(); };
}

TokenEditorView::~TokenEditorView() { delete overlay_; }

QWidget* TokenEditorView::FocusWidget() const { return &field_->Line(); }

// After the form's own filter, so that the list has its keys first while it is open.
void TokenEditorView::Connected() {
  field_->Line().removeEventFilter(this);
  field_->Line().installEventFilter(this);
}

bool TokenEditorView::ListIsOpen() const { return overlay_ != nullptr && overlay_->IsOpen(); }

void TokenEditorView::FillList() {
  const QString before =
      list_->currentItem() == nullptr ? QString() : list_->currentItem()->data(kCodeRole).toString();
  list_->clear();
  for (const TToken& choice : editor_.Matches()) {
    auto* item = new QListWidgetItem(ShownText(choice.Text), list_);
    item->setData(kCodeRole, ToQt(choice.Code));
    if (choice.Background) item->setData(kColorRole, QColor::fromRgb(*choice.Background));
    if (item->data(kCodeRole).toString() == before) list_->setCurrentItem(item);
  }
  if (list_->currentRow() < 0) list_->setCurrentRow(0);
}

void TokenEditorView::OpenList() {
  if (editor_.ReadOnly() || !editor_.Enabled()) return;
  FillList();
  if (list_->count() == 0) return CloseList();
  list_->updateGeometry();
  overlay_->Open();
}

void TokenEditorView::CloseList() {
  if (overlay_ != nullptr) overlay_->Close();
  list_->setCurrentRow(-1);
}

void TokenEditorView::AddRow(int row) {
  const QListWidgetItem* item = list_->item(row);
  if (item == nullptr) return;
  const std::string code = FromQt(item->data(kCodeRole).toString());
  CloseList();
  Act([&] {
    editor_.TypeText("");
    editor_.Add(code);
  });
}

bool TokenEditorView::ListKey(int key) {
  const int step = key == Qt::Key_Down       ? 1
                   : key == Qt::Key_Up       ? -1
                   : key == Qt::Key_PageDown ? kRowsShown
                   : key == Qt::Key_PageUp   ? -kRowsShown
                                             : 0;
  if (step != 0) {
    list_->setCurrentRow(std::clamp(list_->currentRow() + step, 0, list_->count() - 1));
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    AddRow(list_->currentRow());
  } else if (key == Qt::Key_Escape) {
    CloseList();
  } else {
    return false;
  }
  return true;
}

bool TokenEditorView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (ListIsOpen() && plain && ListKey(key->key())) return true;
  } else if (event->type() == QEvent::MouseButtonPress) {
    OpenList();
  } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    if (event->type() == QEvent::FocusOut) CloseList();
    field_->update();
  }
  return ControlView::eventFilter(watched, event);
}

void TokenEditorView::Refresh() {
  ControlView::Refresh();
  field_->Show(editor_.Tokens(), editor_.ReadOnly());
  QLineEdit& line = field_->Line();
  if (const QString text = ToQt(editor_.Text()); line.text() != text) line.setText(text);
  const bool hinted = editor_.Tokens().empty() && !editor_.ReadOnly();
  const QString placeholder = hinted ? ShownText(editor_.Placeholder()) : QString();
  if (line.placeholderText() != placeholder) line.setPlaceholderText(placeholder);
  QStringList texts;
  for (const TToken& token : editor_.Tokens()) texts << ShownText(token.Text);
  line.setAccessibleDescription(texts.join("، "));
  const bool problem = !editor_.Problem().empty();
  if (field_->property(kProblemProperty).toBool() != problem) {
    field_->setProperty(kProblemProperty, problem);
    field_->update();
  }
  if (problem) field_->setToolTip(ShownText(editor_.Problem()));
  field_->setMinimumWidth(Scaled(editor_.Width(), *field_));
  if (ListIsOpen()) OpenList();
}

}  // namespace goods
