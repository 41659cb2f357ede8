#include "desktop/views/status_line.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_geometry.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/read_times.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/text_label.h"
#include "desktop/views/theme.h"
#include "host/base/base_dock.h"

namespace goods {
namespace {

constexpr int kMostTableRows = 6;
constexpr int kTableRow = 28;
constexpr std::array kFigureTitles = {"ستون", "تعداد", "جمع", "میانگین", "کمترین", "بیشترین"};
constexpr const char* kTooLarge = "بیش از اندازه";

QString CountText(std::size_t count) {
  return ShownNumber(QLocale(QLocale::English).toString(static_cast<qulonglong>(count)));
}

QString FigureText(const ColumnFigures& figures, Decimal value) {
  return ShownCell(figures.column->Format().Format(value), true);
}

// In the order of kFigureTitles.
QStringList TextsOf(const ColumnFigures& figures) {
  const auto average = figures.Average();
  const bool any = figures.count > 0;
  return {TitleOf(*figures.column),
          CountText(figures.count),
          figures.tooLarge ? QString(kTooLarge) : FigureText(figures, figures.sum),
          average ? FigureText(figures, *average) : QString(),
          any ? FigureText(figures, figures.least) : QString(),
          any ? FigureText(figures, figures.most) : QString()};
}

TextLabel* Part(const char* name, QWidget* parent) {
  auto* label = new TextLabel(parent);
  label->setObjectName(name);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setFocusPolicy(Qt::NoFocus);
  return label;
}

}  // namespace

StatusLine::StatusLine(FormView& form, TBaseDock_FRM& window)
    : QWidget(&form),
      form_(form),
      window_(window),
      rows_(Part("StatusRows_LBL", this)),
      read_(Part("StatusRead_LBL", this)),
      selection_(Part("StatusSelection_LBL", this)),
      toggle_(new QToolButton(this)),
      line_(new QHBoxLayout),
      table_(new QTableWidget(0, static_cast<int>(kFigureTitles.size()), this)),
      figures_(this) {
  setObjectName("Status_PNL");
  setAccessibleName("وضعیت گزارش");
  setFocusPolicy(Qt::NoFocus);
  selection_->SetShrinkable(true);
  toggle_->setObjectName("Figures_BTN");
  toggle_->setText("Σ");
  toggle_->setCheckable(true);
  toggle_->setAutoRaise(true);
  toggle_->setFocusPolicy(Qt::NoFocus);
  toggle_->setAccessibleName("آمار ردیف‌های برگزیده");
  toggle_->setToolTip("آمار ردیف‌های برگزیده (Ctrl+T)");
  connect(toggle_, &QToolButton::toggled, this, &StatusLine::ShowFigures);
  figures_.OnDone = [this] { TellSelection(); };

  table_->setObjectName("Figures_TBL");
  table_->setAccessibleName("آمار ردیف‌های برگزیده");
  table_->setAccessibleDescription("باز و بسته با Ctrl+T");
  QStringList titles;
  for (const char* title : kFigureTitles) titles << title;
  table_->setHorizontalHeaderLabels(titles);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(Scaled(kTableRow, *this));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->hide();

  line_->setSpacing(Scaled(18, *this));
  line_->addWidget(rows_);
  line_->addWidget(read_);
  line_->addWidget(selection_, 1);
  line_->addWidget(toggle_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Scaled(4, *this));
  layout->addWidget(table_);
  layout->addLayout(line_);
}

TSmartDBGrid_QRT* StatusLine::ShownGrid() const {
  const auto seen = [this](const TControl& control) {
    const QWidget* widget = form_.WidgetOf(control);
    return widget != nullptr && widget->isVisibleTo(&form_);
  };
  if (TSmartDBGrid_QRT* printed = window_.PrintedGrid(); printed != nullptr && seen(*printed)) return printed;
  for (TComponent* component : window_.Components()) {
    auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(component);
    if (grid != nullptr && grid->DataSet() != nullptr && seen(*grid)) return grid;
  }
  return nullptr;
}

void StatusLine::AddCommands() {
  for (const WindowCommand& command : form_.WindowCommands()) {
    auto* button = new QToolButton(this);
    button->setObjectName(command.name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);  // its key reaches it from everywhere
    button->setToolTip(command.hint);
    button->setAccessibleDescription(command.hint);
    connect(button, &QToolButton::clicked, this, [this, button, run = command.run] { run(form_, *button); });
    line_->insertWidget(line_->count() - 1, button);
    commands_.push_back(button);
  }
  FollowCommands();
}

void StatusLine::FollowCommands() {
  constexpr int kWidest = 260;
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    const QString whole = form_.WindowCommands()[i].text(form_);
    if (commands_[i]->accessibleName() == whole) continue;
    commands_[i]->setAccessibleName(whole);
    // A view's name may be long, and hold what would be taken for a mark of the keyboard.
    commands_[i]->setText(
        AsPlain(commands_[i]->fontMetrics().elidedText(whole, Qt::ElideMiddle, Scaled(kWidest, *this))));
  }
}

void StatusLine::Follow() {
  FollowCommands();
  const TSmartDBGrid_QRT* grid = ShownGrid();
  if (grid != grid_) {
    grid_ = grid;
    dirty_ = true;
    changed_ =
        grid == nullptr ? Subscription() : const_cast<TSmartDBGrid_QRT*>(grid)->Changed.Connect([this] {
          dirty_ = true;
          figures_.Clear();  // rows and columns may be others
        });
  }
  if (!std::exchange(dirty_, false)) return;
  if (grid == nullptr) {
    figures_.Clear();
    rows_->clear();
    read_->clear();
  } else {
    TellRows(*grid);
    figures_.Begin(*grid);
  }
  TellSelection();
}

void StatusLine::TellRows(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  QString rows;
  QString read;
  if (query != nullptr && query->Active()) {
    rows = CountText(grid.RowCount()) + " ردیف";
    if (grid.RowCount() != query->TotalCount()) rows += " از " + CountText(query->TotalCount());
    if (const auto time = query->Rows() == nullptr ? std::nullopt : ReadTimeOf(*query->Rows())) {
      const QString seconds = QString::number(static_cast<double>(time->milliseconds) / 1000, 'f', 1);
      read = ShownText("خواندن: ساعت " + time->ended.time().toString("HH:mm:ss") + "، ") +
             ShownNumber(QString(seconds).replace('.', '/')) + " ثانیه";
    }
  } else if (query != nullptr && query->Stopped()) {
    rows = "خواندن متوقف شد";
  }
  if (rows_->text() != rows) rows_->setText(rows);
  if (read_->text() != read) read_->setText(read);
}

QString StatusLine::SumsText() const {
  QStringList parts(CountText(figures_.RowCount()) + " ردیف برگزیده");
  for (const ColumnFigures& each : figures_.Columns()) {
    if (each.count == 0) continue;
    parts << "جمع " + TitleOf(*each.column) + ": " +
                 (each.tooLarge ? QString(kTooLarge) : FigureText(each, each.sum));
  }
  return parts.join("   ");
}

QString StatusLine::AllFiguresText() const {
  QStringList lines;
  for (const ColumnFigures& each : figures_.Columns()) {
    const QStringList texts = TextsOf(each);
    QStringList parts;
    for (int i = 1; i < texts.size(); ++i) {
      if (!texts[i].isEmpty()) parts << kFigureTitles[static_cast<std::size_t>(i)] + QString(" ") + texts[i];
    }
    lines << texts.front() + ": " + parts.join("، ");
  }
  return lines.join('\n');
}

void StatusLine::TellSelection() {
  const bool some = figures_.RowCount() > 0;
  const bool working = figures_.Working();
  const QString text = !some     ? QString()
                       : working ? CountText(figures_.RowCount()) + " ردیف برگزیده …"
                                 : SumsText();
  if (selection_->text() != text) selection_->setText(text);
  const QString all = some && !working ? AllFiguresText() : QString();
  selection_->setToolTip(all);
  selection_->setAccessibleDescription(all);
  if (FiguresShown()) FillTable();
}

void StatusLine::FillTable() {
  const bool ready = figures_.RowCount() > 0 && !figures_.Working();
  const auto& columns = figures_.Columns();
  const int count = ready ? static_cast<int>(columns.size()) : 0;
  table_->clearSpans();
  table_->setRowCount(std::max(1, count));
  for (int row = 0; row < count; ++row) {
    const QStringList texts = TextsOf(columns[static_cast<std::size_t>(row)]);
    for (int column = 0; column < texts.size(); ++column)
      table_->setItem(row, column, new QTableWidgetItem(texts[column]));
  }
  if (count == 0) {
    const char* why = figures_.Working()        ? "…"
                      : figures_.RowCount() > 0 ? "ستون عددی در جدول نیست."
                                                : "دو ردیف یا بیشتر را برگزینید.";
    table_->setSpan(0, 0, 1, table_->columnCount());
    table_->setItem(0, 0, new QTableWidgetItem(QString(why)));
  }
  const int rows = std::clamp(table_->rowCount(), 1, kMostTableRows);
  table_->setFixedHeight(table_->horizontalHeader()->sizeHint().height() +
                         rows * table_->verticalHeader()->defaultSectionSize() + 2 * table_->frameWidth());
}

bool StatusLine::HandleKey(const QKeyEvent& event) {
  if (LatinKey(event.key()) != Qt::Key_T || event.modifiers() != Qt::ControlModifier) return false;
  toggle_->toggle();
  return true;
}

void StatusLine::ShowFigures(bool shown) {
  if (toggle_->isChecked() != shown) toggle_->setChecked(shown);
  if (shown) FillTable();
  table_->setVisible(shown);
}

bool StatusLine::FiguresShown() const { return toggle_->isChecked(); }

}  // namespace goods
