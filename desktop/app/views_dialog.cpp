#include "desktop/app/views_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/print/file_name.h"
#include "desktop/views/shown_text.h"
#include "goods_reports.h"

namespace goods {
namespace {

constexpr const char* kViewFiles = "نمای گزارش (*.json)";

}  // namespace

QString AskForViewFile(QWidget* parent) {
  return QFileDialog::getOpenFileName(parent, "آوردن نما از پرونده", {}, kViewFiles);
}

ViewsDialog::ViewsDialog(ViewStore& store, std::string today, std::function<void(QWidget* parent)> takeIn,
                         QWidget* parent)
    : QDialog(parent),
      store_(store),
      today_(std::move(today)),
      takeIn_(std::move(takeIn)),
      list_(new QListWidget(this)),
      problem_(ProblemLabel(this)) {
  LayOut();
  Fill();
}

void ViewsDialog::LayOut() {
  setObjectName("ViewsList_FRM");
  setWindowTitle("نماهای ذخیره‌شده");
  setAccessibleName("نماهای ذخیره‌شده");
  setLayoutDirection(Qt::RightToLeft);
  list_->setObjectName("Views_LST");
  list_->setAccessibleName("نماها");
  connect(list_, &QListWidget::itemChanged, this, &ViewsDialog::Ticked);
  connect(list_, &QListWidget::currentRowChanged, this, &ViewsDialog::ShowState);

  auto* buttons = new QDialogButtonBox(this);
  ofCurrent_ = {ButtonWithKey("Rename_BTN", "تغییر نام  F2", Qt::Key_F2, *this, [this] { Rename(); }),
                ButtonWithKey("Remove_BTN", "حذف  Del", Qt::Key_Delete, *this, [this] { Remove(); }),
                ButtonWithKey("HandOut_BTN", "به پرونده…  F9", Qt::Key_F9, *this, [this] { HandOut(); })};
  for (QPushButton* button : ofCurrent_) buttons->addButton(button, QDialogButtonBox::ActionRole);
  buttons->addButton(
      ButtonWithKey("TakeIn_BTN", "از پرونده…  Ins", Qt::Key_Insert, *this, [this] { TakeIn(); }),
      QDialogButtonBox::ActionRole);
  buttons->addButton("خروج  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* note = MutedLabel(
      "نمای تیک‌دار در صفحه آغاز هم دیده می‌شود (کلید فاصله).\n"
      "پرونده نما را به همکار بدهید یا با goods-report run اجرا کنید.",
      this);
  note->setWordWrap(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel("نماهای ذخیره‌شده", this));
  layout->addWidget(note);
  layout->addWidget(list_, 1);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(680, 440);
  list_->setFocus();
}

// In the order of the reports, by name within each.
void ViewsDialog::Fill() {
  const int row = list_->currentRow();
  filling_ = true;
  list_->clear();
  lines_.clear();
  for (const ReportDescription& report : kReports) {
    for (const SavedView* view : store_.ViewsOf(report.name)) {
      auto* item = new QListWidgetItem(ShownText(view->name) + "  —  " + ToQt(report.title), list_);
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      item->setCheckState(view->onStartPage ? Qt::Checked : Qt::Unchecked);
      lines_.push_back({view->report, view->name});
    }
  }
  if (list_->count() > 0) list_->setCurrentRow(std::clamp(row, 0, list_->count() - 1));
  filling_ = false;
  ShowState();
}

const SavedView* ViewsDialog::Current() const {
  const int row = list_->currentRow();
  if (row < 0 || row >= static_cast<int>(lines_.size())) return nullptr;
  const Line& line = lines_[static_cast<std::size_t>(row)];
  return store_.Find(line.report, line.name);
}

void ViewsDialog::ShowState() {
  for (QPushButton* button : ofCurrent_) button->setEnabled(Current() != nullptr);
}

void ViewsDialog::Tell(const QString& problem) {
  problem_->setText(problem);
  problem_->setVisible(!problem.isEmpty());
}

void ViewsDialog::Ticked() {
  if (filling_) return;
  for (int row = 0; row < list_->count(); ++row) {
    const Line& line = lines_[static_cast<std::size_t>(row)];
    const SavedView* view = store_.Find(line.report, line.name);
    const bool on = list_->item(row)->checkState() == Qt::Checked;
    if (view == nullptr || view->onStartPage == on) continue;
    SavedView changed = *view;
    changed.onStartPage = on;
    Tell(store_.Put(std::move(changed)) ? QString() : QString("تغییر نوشته نشد."));
  }
}

void ViewsDialog::Rename() {
  const SavedView* view = Current();
  if (view == nullptr) return;
  QInputDialog dialog(this);
  dialog.setObjectName("RenameView_FRM");
  dialog.setLayoutDirection(Qt::RightToLeft);
  dialog.setWindowTitle("تغییر نام نما");
  dialog.setLabelText("نام تازه :");
  dialog.setOkButtonText("تایید");
  dialog.setCancelButtonText("انصراف");
  dialog.setTextValue(ToQt(view->name));
  if (dialog.exec() != QDialog::Accepted) return;
  const std::string name = ViewName(FromQt(dialog.textValue()));
  if (name.empty()) return Tell("نام نما نمی‌تواند تهی باشد.");
  const bool done = store_.Rename(view->report, std::string(view->name), name);
  Tell(done ? QString() : QString("نمای دیگری از این گزارش این نام را دارد، یا نوشته نشد."));
  Fill();
}

void ViewsDialog::Remove() {
  const SavedView* view = Current();
  if (view == nullptr) return;
  const SavedView removed = *view;
  Tell(store_.Remove(removed.report, removed.name) ? QString() : QString("نما حذف نشد."));
  Fill();
}

void ViewsDialog::HandOut() {
  const SavedView* view = Current();
  if (view == nullptr) return;
  const QString name = ToQt(ProposedFileName(view->name, today_, "json"));
  const QString path = QFileDialog::getSaveFileName(this, "نوشتن نما در پرونده", name, kViewFiles);
  if (path.isEmpty()) return;
  try {
    WriteViewFile(FromQt(path), *view);
    Tell({});
  } catch (const ViewError& error) {
    Tell(ToQt(error.what()));
  }
}

void ViewsDialog::TakeIn() {
  takeIn_(this);
  Fill();
}

}  // namespace goods
