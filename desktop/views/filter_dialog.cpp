#include "desktop/views/filter_dialog.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/views/form_view.h"
#include "desktop/views/grid_geometry.h"
#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_filter.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {
namespace {

constexpr int kFilterWidth = 380;
constexpr int kFilterHeight = 480;
constexpr int kGatherMs = 8;
constexpr std::size_t kGatherRows = 2048;  // between two looks at the clock
constexpr int kTypingMs = 250;
constexpr int kEntryRole = Qt::UserRole;

QString Number(std::size_t number) { return ShownDigits(QString::number(number)); }

}  // namespace

FilterDialog::FilterDialog(FormView& form, TSmartDBGrid_QRT& grid, TGridColumn& column,
                           const std::string& search)
    : QDialog(&form),
      form_(form),
      grid_(grid),
      column_(column),
      search_(new LineEdit(this)),
      all_(new QCheckBox("&همه", this)),
      list_(new QListWidget(this)),
      state_(new QLabel(this)),
      apply_(new QPushButton("&نمایش  Enter", this)),
      contains_(new QPushButton("&شامل این متن", this)),
      lift_(new QPushButton("&برداشتن فیلتر", this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("FilterDialog");
  setLayoutDirection(Qt::RightToLeft);
  setWindowTitle("فیلتر " + TitleOf(column));
  const TADOQuery* query = grid.DataSet();
  for (const RowCondition& condition : query == nullptr ? std::vector<RowCondition>() : query->Narrowing())
    if (SameText(condition.field, column.FieldName())) before_.push_back(condition);
  search_->setText(ToQt(search));
  LayOut();
  connect(search_, &QLineEdit::textChanged, this, [this] { typing_.start(); });
  typing_.setSingleShot(true);
  typing_.setInterval(kTypingMs);
  connect(&typing_, &QTimer::timeout, this, [this] { Searched(); });
  connect(&work_, &QTimer::timeout, this, [this] { GatherOn(); });
  connect(all_, &QCheckBox::clicked, this, [this] { TickAll(all_->checkState() != Qt::Unchecked); });
  connect(list_, &QListWidget::itemChanged, this, [this] {
    if (!filling_) ShowState();
  });
  connect(apply_, &QPushButton::clicked, this, [this] { Apply(); });
  connect(contains_, &QPushButton::clicked, this, [this] { ApplyContains(); });
  connect(lift_, &QPushButton::clicked, this, [this] {
    applying_ = true;
    form_.Run([this] { RemoveConditions(grid_, column_); });
    accept();
  });
  if (grid.DataSource() != nullptr) {
    rows_ = grid.DataSource()->Changed.Connect([this] {
      if (applying_) return;
      values_.reset();
      work_.stop();
      QMetaObject::invokeMethod(this, &QDialog::reject, Qt::QueuedConnection);
    });
  }
  Gather();
}

void FilterDialog::LayOut() {
  search_->setObjectName("FilterSearch_EDT");
  search_->setPlaceholderText("جستجو در مقدارها…");
  search_->setAccessibleName("جستجو در مقدارها");
  search_->installEventFilter(this);
  all_->setObjectName("FilterAll_CHK");
  list_->setObjectName("FilterValues_LST");
  list_->setAccessibleName("مقدارهای " + TitleOf(column_));
  list_->setUniformItemSizes(true);
  state_->setObjectName("FilterState_LBL");
  state_->setWordWrap(true);
  state_->setForegroundRole(QPalette::PlaceholderText);
  apply_->setObjectName("FilterApply_BTN");
  apply_->setDefault(true);
  contains_->setObjectName("FilterContains_BTN");
  contains_->setAutoDefault(false);
  lift_->setObjectName("FilterLift_BTN");
  lift_->setAutoDefault(false);
  lift_->setEnabled(!before_.empty());
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(apply_);
  buttons->addWidget(contains_);
  buttons->addStretch(1);
  buttons->addWidget(lift_);
  auto* layout = new QVBoxLayout(this);
  const int margin = Scaled(14, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(Scaled(8, *this));
  layout->addWidget(search_);
  layout->addWidget(all_);
  layout->addWidget(list_, 1);
  layout->addWidget(state_);
  layout->addLayout(buttons);
  resize(Scaled(kFilterWidth, *this), Scaled(kFilterHeight, *this));
}

// Without a search all values are listed as far as there is room; with one those that hold it.
void FilterDialog::Gather() {
  list_->clear();
  values_ = std::make_unique<ColumnValues>(grid_, column_, FromQt(search_->text().trimmed()));
  work_.start(0);
  GatherOn();
}

void FilterDialog::GatherOn() {
  if (values_ == nullptr) return work_.stop();
  QElapsedTimer clock;
  clock.start();
  while (values_->Work(kGatherRows)) {
    if (clock.elapsed() >= kGatherMs) return ShowState();
  }
  work_.stop();
  Fill();
}

bool FilterDialog::IsTicked(const ColumnValues::Entry& entry) const {
  const auto lists = [](const RowCondition& condition) {
    return condition.kind == ConditionKind::OneOf || condition.kind == ConditionKind::Equal;
  };
  const auto named = std::find_if(before_.begin(), before_.end(), lists);
  if (named == before_.end()) return true;
  return std::any_of(named->values.begin(), named->values.end(),
                     [&](const Value& value) { return column_.Format().Format(value) == entry.text; });
}

void FilterDialog::Fill() {
  filling_ = true;
  const auto& entries = values_->Entries();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const QString text =
        entries[i].text.empty() ? QString("(خالی)") : ShownCell(entries[i].text, column_.IsNumber());
    auto* item = new QListWidgetItem(text + "   (" + Number(entries[i].count) + ")", list_);
    item->setData(kEntryRole, static_cast<qulonglong>(i));
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(!search_->text().isEmpty() || IsTicked(entries[i]) ? Qt::Checked : Qt::Unchecked);
  }
  if (list_->count() > 0) list_->setCurrentRow(0);
  filling_ = false;
  ShowState();
}

void FilterDialog::Searched() { Gather(); }

void FilterDialog::TickAll(bool on) {
  filling_ = true;
  for (int i = 0; i < list_->count(); ++i) list_->item(i)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
  filling_ = false;
  ShowState();
}

void FilterDialog::ShowState() {
  int ticked = 0;
  for (int i = 0; i < list_->count(); ++i) ticked += list_->item(i)->checkState() == Qt::Checked ? 1 : 0;
  const bool done = values_ != nullptr && values_->Done();
  const QSignalBlocker quiet(all_);
  all_->setTristate(ticked > 0 && ticked < list_->count());
  all_->setCheckState(ticked == 0                ? Qt::Unchecked
                      : ticked == list_->count() ? Qt::Checked
                                                 : Qt::PartiallyChecked);
  apply_->setEnabled(done && ticked > 0);
  contains_->setEnabled(!search_->text().trimmed().isEmpty());
  const std::size_t found = values_ == nullptr ? 0 : values_->Entries().size();
  QString text = Number(found) + " مقدار";
  if (!done) {
    text += "، هنوز خوانده می‌شود…";
  } else if (values_->More()) {
    text = "بیش از " + Number(found) + " مقدار؛ برای دیدن بقیه جستجو کنید.";
  } else if (found == 0) {
    text = "مقداری پیدا نشد";
  }
  state_->setText(text);
}

void FilterDialog::Apply() {
  if (values_ == nullptr || !values_->Done() || !apply_->isEnabled()) return;
  std::vector<Value> chosen;
  bool all = search_->text().trimmed().isEmpty();
  for (int i = 0; i < list_->count(); ++i) {
    const QListWidgetItem& item = *list_->item(i);
    const bool ticked = item.checkState() == Qt::Checked;
    all = all && ticked;
    const auto& entry = values_->Entries()[item.data(kEntryRole).toULongLong()];
    if (ticked) chosen.insert(chosen.end(), entry.values.begin(), entry.values.end());
  }
  applying_ = true;
  form_.Run([&] {
    if (all) {
      RemoveConditions(grid_, column_);
    } else {
      AddCondition(grid_, ConditionOn(column_, ConditionKind::OneOf, std::move(chosen)));
    }
  });
  accept();
}

void FilterDialog::ApplyContains() {
  const std::string text = FromQt(search_->text().trimmed());
  if (text.empty()) return;
  applying_ = true;
  form_.Run([&] { AddCondition(grid_, ConditionOn(column_, ConditionKind::Contains, {text})); });
  accept();
}

// The arrows go to the list; Enter during the pause after typing counts for what has been typed.
bool FilterDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
    list_->setFocus(Qt::OtherFocusReason);
    return true;
  }
  if ((key == Qt::Key_Return || key == Qt::Key_Enter) && typing_.isActive()) {
    typing_.stop();
    Searched();
    return !(values_ != nullptr && values_->Done());
  }
  return false;
}

QDialog* ShowFilterDialog(FormView& form, TSmartDBGrid_QRT& grid, TGridColumn& column,
                          const std::string& search) {
  auto* dialog = new FilterDialog(form, grid, column, search);
  dialog->open();
  if (auto* edit = dialog->findChild<QLineEdit*>("FilterSearch_EDT")) {
    edit->setFocus();
    edit->selectAll();
  }
  return dialog;
}

}  // namespace goods
