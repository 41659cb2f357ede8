#include "desktop/app/entity_picker.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "desktop/app/entity_rows.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr const char* kNothingFound = "چیزی با این نام یا کد پیدا نشد.";
constexpr int kTypingPause = 150;  // milliseconds

QString TitleOf(EntityKind kind) {
  switch (kind) {
    case EntityKind::Store:
      return "انتخاب انبار";
    case EntityKind::Person:
      return "انتخاب شخص";
    case EntityKind::Good:
      return "انتخاب کالا";
    case EntityKind::GoodGroup:
      return "انتخاب گروه کالا";
    case EntityKind::Category:
      return "انتخاب دسته";
    case EntityKind::Unit:
      return "انتخاب واحد";
    case EntityKind::None:
      break;
  }
  return {};
}

bool MovesInList(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

EntityPicker::EntityPicker(ICompany& company, EntityKind kind, std::int64_t current, const QString& text,
                           QWidget* parent, std::vector<std::int64_t> recent)
    : QDialog(parent),
      rows_(new EntityRows(company, kind, this, std::move(recent))),
      search_(new QLineEdit(this)),
      table_(new QTableView(this)),
      empty_(new QLabel(this)),
      count_(new QLabel(this)),
      list_(new QStackedLayout) {
  LayOut(kind);
  typing_.setSingleShot(true);
  typing_.setInterval(kTypingPause);
  connect(&typing_, &QTimer::timeout, this, &EntityPicker::SearchNow);
  connect(table_, &QTableView::doubleClicked, this, &EntityPicker::Accept);
  connect(rows_, &QAbstractItemModel::rowsInserted, this, &EntityPicker::ShowCount);

  const bool exists = current != 0 && company.FindEntity(kind, current).has_value();
  search_->setText(exists ? QString() : text.trimmed());
  search_->selectAll();
  SearchNow();
  MoveTo(exists ? rows_->RowOfCode(current) : 0);
  connect(search_, &QLineEdit::textChanged, &typing_, qOverload<>(&QTimer::start));
}

void EntityPicker::LayOut(EntityKind kind) {
  setObjectName("SelectEntity_FRM");
  setWindowTitle(TitleOf(kind));
  setAccessibleName(TitleOf(kind));
  setLayoutDirection(Qt::RightToLeft);
  resize(620, 520);

  search_->setObjectName("Search_EDT");
  search_->setAccessibleName("جستجو با کد یا نام");
  search_->setPlaceholderText("جستجو با کد یا نام…");
  search_->setTextMargins(6, 0, 6, 0);
  search_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute |
                        Qt::AlignVCenter);  // also before a letter is typed
  search_->installEventFilter(this);

  table_->setObjectName("Entity_GRD");
  table_->setAccessibleName(TitleOf(kind));
  table_->setModel(rows_);
  GiveTableLook(*table_);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->installEventFilter(this);
  QHeaderView* header = table_->horizontalHeader();
  for (int column = 0; column < rows_->columnCount(); ++column) header->resizeSection(column, 100);
  header->setSectionResizeMode(1, QHeaderView::Stretch);

  empty_->setObjectName("Empty_LBL");
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setForegroundRole(QPalette::PlaceholderText);
  count_->setObjectName("Count_LBL");
  count_->setForegroundRole(QPalette::PlaceholderText);

  auto* buttons = new QDialogButtonBox(this);
  auto* select = buttons->addButton("انتخاب  Enter", QDialogButtonBox::AcceptRole);
  select->setObjectName("Select_BTN");
  select->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &EntityPicker::Accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  list_->addWidget(table_);
  list_->addWidget(empty_);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(count_, 1);
  bottom->addWidget(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 12);
  layout->setSpacing(10);
  layout->addWidget(search_);
  layout->addLayout(list_, 1);
  layout->addLayout(bottom);
}

void EntityPicker::SearchNow() {
  typing_.stop();
  try {
    rows_->Search(search_->text());
    empty_->setText(kNothingFound);
  } catch (const CompanyError& error) {
    rows_->Clear();
    empty_->setText(ToQt(error.what()));
  }
  MoveTo(0);
  ShowCount();
}

void EntityPicker::ShowCount() {
  const bool any = rows_->rowCount() > 0;
  list_->setCurrentWidget(any ? static_cast<QWidget*>(table_) : empty_);
  const QString number = ShownText(std::to_string(rows_->rowCount() - rows_->RecentCount()));
  if (!any) {
    count_->clear();
  } else if (rows_->IsCut()) {
    count_->setText(number + " مورد نخست");
  } else {
    count_->setText(number + " مورد");
  }
}

void EntityPicker::MoveTo(int row) {
  if (row < 0 || row >= rows_->rowCount()) return;
  table_->setCurrentIndex(rows_->index(row, 0));
  table_->scrollTo(rows_->index(row, 0), QAbstractItemView::PositionAtCenter);
}

void EntityPicker::Accept() {
  if (typing_.isActive()) SearchNow();
  if (table_->currentIndex().isValid()) accept();
}

bool EntityPicker::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  if (watched == search_ && MovesInList(key->key())) {
    if (typing_.isActive()) SearchNow();
    QKeyEvent moved(QEvent::KeyPress, key->key(), key->modifiers());
    QCoreApplication::sendEvent(table_, &moved);
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    Accept();
    return true;
  }
  // Typing in the list goes on in the edit.
  if (watched == table_ && !key->text().isEmpty() && key->text().at(0).isPrint() &&
      (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier) {
    search_->setFocus();
    QCoreApplication::sendEvent(search_, event);
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

std::optional<std::int64_t> EntityPicker::Choose() {
  search_->setFocus();
  if (exec() != QDialog::Accepted) return std::nullopt;
  return rows_->Record(table_->currentIndex().row()).code;
}

}  // namespace goods
