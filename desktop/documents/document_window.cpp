#include "desktop/documents/document_window.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "desktop/documents/document_rows.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/form_view.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/path_line.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kHeaderPairsInLine = 3;
constexpr int kBesideColumns = 20;  // the table's border and its scroll bar

QLabel* Caption(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setProperty("role", "caption");
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QLabel* Emphasised(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont font = label->font();
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignTop);
  return label;
}

}  // namespace

DocumentWindow::DocumentWindow(const DocumentView& view, std::int64_t code, QWidget* parent)
    : QDialog(parent), table_(new QTableView(this)) {
  setObjectName("Document_FRM");
  setWindowTitle(ToQt(view.title));
  setAccessibleName(ToQt(view.title));
  setLayoutDirection(Qt::RightToLeft);

  auto* title = new QLabel(ToQt(view.title) + QString(" شماره ") + ShownText(std::to_string(code)), this);
  title->setObjectName("Title_LBL");
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.35);
  font.setWeight(QFont::DemiBold);
  title->setFont(font);

  auto* buttons = new QDialogButtonBox(this);
  auto* copy = buttons->addButton("رونوشت  Ctrl+C", QDialogButtonBox::ActionRole);
  copy->setObjectName("Copy_BTN");
  auto* close = buttons->addButton("خروج  Esc", QDialogButtonBox::RejectRole);
  close->setObjectName("Exit_BTN");
  connect(copy, &QPushButton::clicked, this, &DocumentWindow::Copy);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* copyKeys = new QShortcut(this);
  copyKeys->setKeys(OnBothLayouts(QKeySequence::keyBindings(QKeySequence::Copy)));
  connect(copyKeys, &QShortcut::activated, this, &DocumentWindow::Copy);

  MakeTable(view);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(18, 16, 18, 14);
  layout->setSpacing(12);
  if (const auto* opener = dynamic_cast<const FormView*>(parent)) {
    layout->addWidget(new PathLine(opener->Path() + QStringList(title->text()), this));
    connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this), &QShortcut::activated, this,
            &QDialog::reject);
  }
  layout->addWidget(title);
  layout->addWidget(MakeHeader(view));
  layout->addWidget(table_, 1);
  if (!view.totals.empty()) layout->addWidget(MakeTotals(view));
  layout->addWidget(buttons);
  const QMargins around = layout->contentsMargins();
  resize(std::max(960, FitColumns(*table_) + around.left() + around.right() + kBesideColumns), 560);
  table_->setFocus();
}

QWidget* DocumentWindow::MakeHeader(const DocumentView& view) {
  auto* frame = new QFrame(this);
  frame->setObjectName("Header_PNL");
  frame->setStyleSheet(
      QString("QFrame#Header_PNL { background: %1; border: 1px solid %2; border-radius: 6px; }")
          .arg(CurrentTheme().surface.name(), CurrentTheme().border.name()));
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(14, 10, 14, 10);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(8);
  int place = 0;
  for (const auto& [caption, text, money] : view.header) {
    const int line = place / kHeaderPairsInLine;
    const int column = place % kHeaderPairsInLine * 2;
    auto* value = Emphasised(text.empty() ? QString("—") : ShownText(text), frame);
    value->setWordWrap(true);
    grid->addWidget(Caption(ToQt(caption), frame), line, column, Qt::AlignTop);
    grid->addWidget(value, line, column + 1, Qt::AlignTop);
    grid->setColumnStretch(column + 1, 1);
    ++place;
  }
  return frame;
}

void DocumentWindow::MakeTable(const DocumentView& view) {
  table_->setObjectName("Rows_GRD");
  table_->setAccessibleName("ردیف‌های سند");
  table_->setModel(new DocumentRows(view, table_));
  GiveTableLook(*table_);
  if (!view.rows.empty()) table_->setCurrentIndex(table_->model()->index(0, 0));
}

QWidget* DocumentWindow::MakeTotals(const DocumentView& view) {
  auto* line = new QWidget(this);
  line->setObjectName("Totals_PNL");
  auto* layout = new QHBoxLayout(line);
  layout->setContentsMargins(4, 0, 4, 0);
  layout->setSpacing(8);
  layout->addStretch(1);
  for (const auto& [caption, text, money] : view.totals) {
    layout->addWidget(Caption(ToQt(caption), line));
    layout->addWidget(Emphasised(ShownText(text), line));
    layout->addSpacing(16);
  }
  return line;
}

QString DocumentWindow::CopiedText() const {
  const QAbstractItemModel& model = *table_->model();
  std::set<int> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) rows.insert(index.row());
  if (rows.size() < 2) {
    for (int row = 0; row < model.rowCount(); ++row) rows.insert(row);
  }
  const auto joined = [&model](auto&& cell) {
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) texts << cell(column);
    return texts.join('\t') + '\n';
  };
  QString text = joined([&](int column) { return model.headerData(column, Qt::Horizontal).toString(); });
  for (const int row : rows) {
    text += joined([&](int column) { return model.index(row, column).data().toString(); });
  }
  // The marks that keep a number together on the screen mean nothing to where it is pasted.
  return text.remove(QChar(0x2066)).remove(QChar(0x2069));
}

void DocumentWindow::Copy() const { QApplication::clipboard()->setText(CopiedText()); }

}  // namespace goods
