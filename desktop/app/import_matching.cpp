#include "desktop/app/import_matching.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/app/app_look.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kRest = 350;  // milliseconds
constexpr const char* kTypeColumn = "movement type";
constexpr const char* kNotThere = "— ندارد —";

enum MatchColumn { kOurs, kTheirs, kExample, kMatchColumns };

// A box in a table: the wheel moves the table, not the choice of a box that the mouse happens to be over.
class CellBox : public QComboBox {
 public:
  explicit CellBox(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

QTableWidgetItem* MatchingCell(const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  item->setToolTip(text);
  return item;
}

bool ChangesMeaning(const std::string& table, const std::string& column) {
  return table == "movements" && (column == kTypeColumn || column == "quantity" || column == "direction");
}

}  // namespace

ImportMatching::ImportMatching(QWidget* parent)
    : QWidget(parent),
      tables_(new QListWidget(this)),
      fileCaption_(new QLabel("&پرونده :", this)),
      file_(new CellBox(this)),
      unsigned_(new QCheckBox(
          "مقدارها بی‌&علامت‌اند؛ ورود یا خروج از نوع گردش "
          "پیداست",
          this)),
      matching_(new QTableWidget(this)),
      rowsCaption_(MutedLabel("ده سطر نخست پرونده", this)),
      rows_(new QTableWidget(this)) {
  LayOut();
}

void ImportMatching::LayOut() {
  tables_->setObjectName("Tables_LST");
  tables_->setAccessibleName("جدول‌ها");
  GiveListLook(*tables_);
  tables_->setFixedWidth(210);
  connect(tables_, &QListWidget::currentRowChanged, this, [this] { ShowCurrent(); });

  file_->setObjectName("File_CMB");
  file_->setAccessibleName("پرونده این جدول");
  fileCaption_->setBuddy(file_);
  connect(file_, &QComboBox::activated, this, &ImportMatching::ChooseFile);
  resting_.setSingleShot(true);
  connect(&resting_, &QTimer::timeout, this, [this] { OnReread(); });
  unsigned_->setObjectName("Unsigned_CHK");
  connect(unsigned_, &QCheckBox::clicked, this, [this] { signsTold_ = true; });

  matching_->setObjectName("Matching_GRD");
  matching_->setAccessibleName("ستون‌ها");
  GiveTableLook(*matching_);
  matching_->setColumnCount(kMatchColumns);
  matching_->setSelectionMode(QAbstractItemView::NoSelection);
  matching_->setFocusPolicy(Qt::NoFocus);  // its boxes have it
  rows_->setObjectName("Rows_GRD");
  rows_->setAccessibleName("ده سطر نخست پرونده");
  GiveTableLook(*rows_);
  rows_->verticalHeader()->setDefaultSectionSize(rows_->fontMetrics().height() + 4);
  rows_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);

  auto* fileLine = new QHBoxLayout;
  fileLine->addWidget(fileCaption_);
  fileLine->addWidget(file_, 1);
  auto* right = new QVBoxLayout;
  right->setSpacing(8);
  right->addLayout(fileLine);
  auto* between = new QHBoxLayout;
  between->addWidget(rowsCaption_);
  between->addStretch(1);
  between->addWidget(unsigned_);
  right->addWidget(matching_, 1);
  right->addLayout(between);
  right->addWidget(rows_, 1);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(12);
  layout->addWidget(tables_);
  layout->addLayout(right, 1);
  setFocusProxy(tables_);
}

void ImportMatching::Show(ImportPreview& preview, NameMap& names) {
  const int current = tables_->currentRow();
  resting_.stop();
  stale_ = false;
  preview_ = &preview;
  names_ = &names;
  if (!signsTold_) unsigned_->setChecked(preview.unsignedQuantities);
  FillList();
  tables_->setCurrentRow(current < 0 || current >= tables_->count() ? 0 : current);
  ShowCurrent();
}

void ImportMatching::FillList() {
  showing_ = true;
  tables_->clear();
  const auto add = [this](const QString& title, const QString& below) {
    auto* item = new QListWidgetItem(title + "\n" + QChar(0x2068) + below + QChar(0x2069), tables_);
    item->setSizeHint({0, tables_->fontMetrics().lineSpacing() * 2 + 12});
    return item;
  };
  for (const TablePreview& table : preview_->tables) {
    const bool there = !table.file.empty();
    const QString below = there ? ToQt(table.file) : table.required ? QString("لازم است") : QString("نیست");
    auto* item = add(ShownText(table.title), below);
    if (!there && !table.required) item->setForeground(palette().placeholderText());
  }
  if (!preview_->unknownTypes.empty()) {
    add("نوع‌های ناشناخته", QString::number(preview_->unknownTypes.size()) +
                                                (preview_->moreUnknownTypes ? " و بیشتر" : " نوع گردش"));
  }
  showing_ = false;
}

TablePreview* ImportMatching::Current() {
  const int row = tables_->currentRow();
  if (preview_ == nullptr || row < 0 || row >= static_cast<int>(preview_->tables.size())) return nullptr;
  return &preview_->tables[static_cast<std::size_t>(row)];
}

void ImportMatching::ShowCurrent() {
  if (showing_ || preview_ == nullptr) return;
  showing_ = true;
  matching_->setRowCount(0);
  if (const TablePreview* table = Current()) {
    ShowTable(*table);
  } else if (tables_->currentRow() >= 0) {
    ShowTypes();
  }
  matching_->horizontalHeader()->setSectionResizeMode(kOurs, QHeaderView::ResizeToContents);
  matching_->horizontalHeader()->setSectionResizeMode(kTheirs, QHeaderView::Stretch);
  matching_->horizontalHeader()->setSectionResizeMode(kExample, QHeaderView::Stretch);
  showing_ = false;
}

QComboBox* ImportMatching::AddRow(const QString& what, const QString& hint, bool required) {
  const int row = matching_->rowCount();
  matching_->insertRow(row);
  auto* ours = MatchingCell(required ? what + " *" : what);
  ours->setToolTip(hint);
  matching_->setItem(row, kOurs, ours);
  auto* box = new CellBox(matching_);
  box->setObjectName("Theirs" + QString::number(row + 1) + "_CMB");
  box->setAccessibleName(what);
  box->setFrame(false);
  matching_->setCellWidget(row, kTheirs, box);
  matching_->setItem(row, kExample, MatchingCell({}));
  return box;
}

void ImportMatching::ShowTable(const TablePreview& table) {
  fileCaption_->setVisible(true);
  file_->setVisible(true);
  unsigned_->setVisible(table.name == "movements" && !table.file.empty());
  file_->clear();
  file_->addItem(kNotThere);
  for (const std::string& file : preview_->files) {
    file_->addItem(ToQt(file));
    const bool sheet = ToQt(table.file).endsWith("[" + ToQt(file) + "]");
    if (file == table.file || sheet) file_->setCurrentIndex(file_->count() - 1);
  }
  matching_->setHorizontalHeaderLabels({"ستون ما", "ستون در پرونده", "نمونه"});
  for (std::size_t i = 0; i < table.columns.size() && !table.header.empty(); ++i) {
    const ColumnPreview& column = table.columns[i];
    QComboBox* box = AddRow(ShownText(column.title), ToQt(column.name), column.required);
    box->addItem(kNotThere);
    for (const std::string& title : table.header) box->addItem(ToQt(title));
    box->setCurrentIndex(column.place ? static_cast<int>(*column.place) + 1 : 0);
    connect(box, &QComboBox::activated, this, [this, i](int item) { ChooseColumn(i, item); });
    ShowExample(static_cast<int>(i), table, column);
  }
  ShowRows(table);
}

void ImportMatching::ShowTypes() {
  for (QWidget* widget : {static_cast<QWidget*>(fileCaption_), static_cast<QWidget*>(file_),
                          static_cast<QWidget*>(unsigned_)}) {
    widget->setVisible(false);
  }
  matching_->setHorizontalHeaderLabels({"نوع در پرونده", "نوع گردش", ""});
  for (const std::string& type : preview_->unknownTypes) {
    QComboBox* box = AddRow(ToQt(type), ToQt(type), true);
    box->addItem("— نگفته —");
    for (const std::string& title : MovementTypeTitles()) box->addItem(ShownText(title));
    if (const auto known = names_->MovementType(type)) box->setCurrentIndex(ToQt(*known).toInt() + 1);
    connect(box, &QComboBox::activated, this, [this, type](int item) {
      names_->SetMovementType(type, item > 0 ? std::to_string(item - 1) : type);
    });
  }
  rowsCaption_->setVisible(false);
  rows_->setVisible(false);
}

void ImportMatching::ShowExample(int row, const TablePreview& table, const ColumnPreview& column) {
  QString example;
  for (const auto& cells : table.rows) {
    if (column.place && *column.place < cells.size() && example.isEmpty()) {
      example = ToQt(cells[*column.place]);
    }
  }
  matching_->item(row, kExample)->setText(example);
}

void ImportMatching::ShowRows(const TablePreview& table) {
  rowsCaption_->setVisible(true);
  rows_->setVisible(true);
  rowsCaption_->setText(table.problem.empty() ? QString("ده سطر نخست پرونده")
                                              : ShownText("بیش از این خوانده نشد؛ " + table.problem));
  rows_->clear();
  std::size_t width = table.header.size();
  for (const auto& cells : table.rows) width = std::max(width, cells.size());
  rows_->setColumnCount(static_cast<int>(width));
  rows_->setRowCount(static_cast<int>(table.rows.size()));
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    for (std::size_t column = 0; column < table.rows[row].size(); ++column) {
      rows_->setItem(static_cast<int>(row), static_cast<int>(column),
                     MatchingCell(ToQt(table.rows[row][column])));
    }
  }
  TitleRows(table);
  rows_->resizeColumnsToContents();
}

// Their title, and what it stands for below it.
void ImportMatching::TitleRows(const TablePreview& table) {
  for (int place = 0; place < rows_->columnCount(); ++place) {
    const auto at = static_cast<std::size_t>(place);
    QString title = at < table.header.size() ? ToQt(table.header[at]) : QString();
    QStringList ours;
    for (const ColumnPreview& column : table.columns) {
      if (column.place == at) ours << ShownText(column.title);
    }
    title += "\n" + (ours.isEmpty() ? QString("—") : ours.join("، "));
    rows_->setHorizontalHeaderItem(place, new QTableWidgetItem(title));
  }
}

// The keyboard goes through the files one by one: they are read once it rests.
void ImportMatching::ChooseFile(int item) {
  const TablePreview* table = Current();
  if (table == nullptr) return;
  names_->SetFile(table->name,
                  item > 0 ? preview_->files[static_cast<std::size_t>(item) - 1] : std::string());
  stale_ = true;
  resting_.start(kRest);
}

void ImportMatching::ChooseColumn(std::size_t column, int item) {
  TablePreview* table = Current();
  if (table == nullptr) return;
  ColumnPreview& chosen = table->columns[column];
  chosen.place = item > 0 ? std::optional(static_cast<std::size_t>(item) - 1) : std::nullopt;
  names_->SetColumn(table->name, chosen.name, item > 0 ? table->header[*chosen.place] : std::string());
  stale_ = stale_ || ChangesMeaning(table->name, chosen.name);
  ShowExample(static_cast<int>(column), *table, chosen);
  TitleRows(*table);
}

QString ImportMatching::GoToProblem() {
  for (std::size_t i = 0; i < preview_->tables.size(); ++i) {
    ImportPreview one;
    one.tables = {preview_->tables[i]};
    const std::vector<std::string> missing = MissingForImport(one);
    if (missing.empty()) continue;
    tables_->setCurrentRow(static_cast<int>(i));
    return ShownText(missing.front());
  }
  for (const std::string& type : preview_->unknownTypes) {
    const auto told = names_->MovementType(type);
    bool known = false;
    if (told) ToQt(*told).toInt(&known);
    if (known) continue;
    tables_->setCurrentRow(tables_->count() - 1);
    return "بگویید «" + ToQt(type) + "» چه نوع گردشی است.";
  }
  return {};
}

bool ImportMatching::UnsignedQuantities() const { return unsigned_->isChecked(); }

}  // namespace goods
