#include "desktop/app/save_view_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/app/app_look.h"
#include "desktop/requests/criteria_reader.h"
#include "desktop/views/shown_text.h"

namespace goods {

SaveViewDialog::SaveViewDialog(const ViewStore& store, const ReportSpec& report, SavedView view,
                               const std::string& today, const std::vector<std::string>& left,
                               QWidget* parent)
    : QDialog(parent),
      store_(store),
      report_(report),
      view_(std::move(view)),
      name_(new QLineEdit(ToQt(view_.name), this)),
      startPage_(new QCheckBox("در &صفحه آغاز هم نشان داده شود", this)),
      relative_(new QCheckBox(this)),
      withGood_(new QCheckBox(this)),
      note_(MutedLabel({}, this)),
      accept_(nullptr) {
  QString periodName;
  for (const NamedPeriod& period : NamedPeriods()) {
    if (!period_.empty() || !DatesAre(view_, period.word, today)) continue;
    period_ = period.word;
    periodName = period.name;
  }
  const auto good = view_.criteria.find("good");
  for (const ReportCriterion& criterion : report.criteria) {
    if (IsSubject(report, criterion) && good != view_.criteria.end()) good_ = good->second.front();
  }
  startPage_->setChecked(view_.onStartPage);
  relative_->setText("&تاریخ‌ها با گذشت روزها جابه‌جا شوند: «" + periodName +
                     "»");
  relative_->setChecked(true);
  relative_->setVisible(!period_.empty());
  withGood_->setText("&کالای " + ShownText(good_) + " هم بخشی از نما باشد");
  withGood_->setVisible(!good_.empty());
  if (const SavedView* there = store.Find(report.Name(), view_.name))
    withGood_->setChecked(there->criteria.contains("good"));
  LayOut(left);
  NameTyped();
}

void SaveViewDialog::LayOut(const std::vector<std::string>& left) {
  setObjectName("SaveView_FRM");
  setWindowTitle("ذخیره نما");
  setAccessibleName("ذخیره نما");
  setLayoutDirection(Qt::RightToLeft);
  name_->setObjectName("ViewName_EDT");
  name_->setAccessibleName("نام نما");
  name_->setMaxLength(static_cast<int>(SavedView::kLongestName));
  name_->setMinimumWidth(320);
  startPage_->setObjectName("StartPage_CHK");
  relative_->setObjectName("Relative_CHK");
  withGood_->setObjectName("WithGood_CHK");
  note_->setObjectName("ViewNote_LBL");
  note_->setWordWrap(true);
  connect(name_, &QLineEdit::textChanged, this, &SaveViewDialog::NameTyped);

  auto* buttons = new QDialogButtonBox(this);
  accept_ = buttons->addButton("ذخیره  Enter", QDialogButtonBox::AcceptRole);
  accept_->setObjectName("Select_BTN");
  accept_->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->addRow("&نام نما :", name_);
  auto* what = MutedLabel(
      "شرط‌ها، ستون‌ها و پهنای آن‌ها، ترتیب و "
      "فیلترهای جدول با این نام نگه داشته می‌شود.",
      this);
  what->setWordWrap(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(12);
  layout->addWidget(TitleLabel(ToQt(report_.description->title), this));
  layout->addWidget(what);
  layout->addLayout(form);
  for (QCheckBox* box : {relative_, withGood_, startPage_}) layout->addWidget(box);
  if (!left.empty()) {
    QString text = "این شرط‌ها نگه داشته نمی‌شود:";
    for (const std::string& each : left) text += " " + ShownText(each) + "؛";
    auto* problem = ProblemLabel(this);
    problem->setObjectName("ViewLeft_LBL");
    problem->setText(text);
    problem->setVisible(true);
    layout->addWidget(problem);
  }
  layout->addWidget(note_);
  layout->addWidget(buttons);
  name_->setFocus();
  name_->selectAll();
}

void SaveViewDialog::NameTyped() {
  const std::string name = ViewName(FromQt(name_->text()));
  const bool taken = !name.empty() && store_.Find(report_.Name(), name) != nullptr;
  accept_->setEnabled(!name.empty());
  accept_->setText(taken ? "جایگزین کردن  Enter" : "ذخیره  Enter");
  note_->setText(name.empty() ? "نامی بنویسید."
                 : taken      ? "نمایی با این نام هست؛ جای آن را می‌گیرد."
                              : "");
}

SavedView SaveViewDialog::View() const {
  SavedView view = view_;
  view.name = ViewName(FromQt(name_->text()));
  view.onStartPage = startPage_->isChecked();
  if (!period_.empty() && relative_->isChecked()) MakeRelative(view, period_);
  if (!good_.empty() && !withGood_->isChecked()) view.criteria.erase("good");
  return view;
}

}  // namespace goods
