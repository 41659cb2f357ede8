#include "desktop/views/typed_jump.h"

#include <QLabel>
#include <QTimer>

#include "desktop/views/grid_geometry.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid.h"

namespace goods {

TypedJump::TypedJump(QWidget* over) : label_(new QLabel(over)) {
  label_->setObjectName("TypedJump_LBL");
  label_->setTextFormat(Qt::PlainText);
  label_->setLayoutDirection(Qt::RightToLeft);
  label_->setAttribute(Qt::WA_TransparentForMouseEvents);
  label_->setAutoFillBackground(true);
  label_->setMargin(Scaled(6, *label_));
  label_->setFrameShape(QFrame::Box);
  label_->hide();
}

const TGridColumn* TypedJump::ColumnMeant(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  if (query == nullptr || !query->Active()) return nullptr;
  if (!grid.SortKeys().empty()) {
    const TGridColumn* sorted = grid.FindColumn(grid.SortKeys().front().FieldName);
    if (sorted != nullptr && sorted->Visible()) return sorted;
  }
  const std::vector<ColumnInfo> fields = query->Fields();
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const auto field = query->FindField(column->FieldName());
    if (field && fields[*field].type == ColumnType::Text && column->Kind() == CellKind::Text) return column;
  }
  return nullptr;
}

bool TypedJump::Type(TSmartDBGrid_QRT& grid, const QString& text) {
  const TGridColumn* column = ColumnMeant(grid);
  if (column == nullptr) return false;
  if (!Waiting()) typed_.clear();
  clock_.start();
  typed_ += text;
  const bool found = grid.DataSet()->LocatePrefix(column->FieldName(), FromQt(typed_));
  Show(*column, found);
  if (!found) typed_.chop(text.size());
  return found;
}

void TypedJump::Show(const TGridColumn& column, bool found) {
  const Theme& theme = CurrentTheme();
  QPalette colours = label_->palette();
  colours.setColor(QPalette::Window, found ? theme.accentSoft : theme.problemSoft);
  colours.setColor(QPalette::WindowText, theme.text);
  label_->setPalette(colours);
  label_->setText(TitleOf(column) + ": " + typed_ + (found ? "" : "  (نیست)"));
  label_->adjustSize();
  const QWidget* over = label_->parentWidget();
  label_->move(over->width() - label_->width() - Scaled(8, *over),
               over->height() - label_->height() - Scaled(8, *over));
  label_->show();
  label_->raise();
  QTimer::singleShot(kPauseMs, label_, [this] {
    if (!Waiting()) label_->hide();
  });
}

}  // namespace goods
