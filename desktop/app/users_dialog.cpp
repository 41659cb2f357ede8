#include "desktop/app/users_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "company/company.h"
#include "company/right_names.h"
#include "desktop/app/app_look.h"
#include "desktop/app/password_dialog.h"
#include "desktop/app/user_dialog.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

// clang-format off
constexpr const char* kNote =
    "مجوزها همان دم و دیدن قیمت‌ها از ورود بعدی کاربر به کار می‌آید.\n"
    "مجوز، پنجره‌های برنامه را نگه می‌دارد؛ کسی که پرونده شرکت را بخواند همه داده‌ها را می‌خواند.";
// clang-format on

// "گروه (۲)، گروه": the reports that a user may open something of.
QString RightsText(const CompanyUser& user) {
  if (user.everyRight) return "همه مجوزها";
  QStringList groups;
  for (const NamedRight& right : NamedRights()) {
    const bool held = std::find(user.rights.begin(), user.rights.end(), right.right) != user.rights.end();
    const QString group = ToQt(right.group);
    if (held && (groups.isEmpty() || groups.last() != group)) groups << group;
  }
  return groups.isEmpty() ? QString("هیچ مجوزی") : groups.join("، ");
}

// Asks before something that cannot be undone; the button that keeps things is the default.
bool Confirmed(const QString& question, const QString& yes, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName("Question_FRM");
  dialog.setWindowTitle(yes);
  dialog.setLayoutDirection(Qt::RightToLeft);
  auto* text = new QLabel(question, &dialog);
  text->setTextFormat(Qt::PlainText);
  auto* buttons = new QDialogButtonBox(&dialog);
  auto* remove = buttons->addButton(yes, QDialogButtonBox::AcceptRole);
  remove->setObjectName("Yes_BTN");
  remove->setAutoDefault(false);
  auto* keep = buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole);
  keep->setObjectName("Exit_BTN");
  keep->setDefault(true);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(16);
  layout->addWidget(text);
  layout->addWidget(buttons);
  keep->setFocus();
  return dialog.exec() == QDialog::Accepted;
}

QStandardItem* Cell(const QString& text) {
  auto* item = new QStandardItem(text);
  item->setEditable(false);
  item->setToolTip(text);
  return item;
}

}  // namespace

UsersDialog::UsersDialog(IUsers& users, std::int64_t self, QWidget* parent)
    : QDialog(parent),
      users_(users),
      self_(self),
      model_(new QStandardItemModel(this)),
      table_(new QTableView(this)),
      problem_(ProblemLabel(this)) {
  LayOut();
  Try([] {});
}

void UsersDialog::LayOut() {
  setObjectName("Users_FRM");
  setWindowTitle("کاربران");
  setAccessibleName("کاربران");
  setLayoutDirection(Qt::RightToLeft);

  table_->setObjectName("Users_GRD");
  table_->setAccessibleName("کاربران شرکت");
  table_->setModel(model_);
  GiveTableLook(*table_);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  connect(table_, &QTableView::activated, this, [this] { Change(); });

  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(ButtonWithKey("Add_BTN", "کاربر تازه  Ins", Qt::Key_Insert, *this, [this] { Add(); }),
                     QDialogButtonBox::ActionRole);
  ofCurrent_ = {
      ButtonWithKey("Change_BTN", "ویرایش  F2", Qt::Key_F2, *this, [this] { Change(); }),
      ButtonWithKey("SetPassword_BTN", "گذرواژه تازه  F8", Qt::Key_F8, *this, [this] { SetPassword(); }),
      ButtonWithKey("Remove_BTN", "حذف  Del", Qt::Key_Delete, *this, [this] { Remove(); })};
  for (QPushButton* button : ofCurrent_) buttons->addButton(button, QDialogButtonBox::ActionRole);
  buttons->addButton("خروج  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* note = MutedLabel(kNote, this);
  note->setWordWrap(true);
  note->setContentsMargins(6, 0, 6, 0);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel("کاربران", this));
  layout->addWidget(note);
  layout->addWidget(table_, 1);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(860, 500);
  table_->setFocus();
}

void UsersDialog::Fill(std::int64_t current) {
  shown_ = users_.List();
  model_->clear();
  model_->setHorizontalHeaderLabels({"نام کاربر", "نام", "قیمت‌ها", "مجوزها"});
  int row = 0;
  for (const CompanyUser& user : shown_) {
    if (user.code == current) row = model_->rowCount();
    const bool prices = user.everyRight || user.seesPrices;
    model_->appendRow({Cell(ShownText(user.login)), Cell(ShownText(user.name)),
                       Cell(prices ? "می‌بیند" : "نمی‌بیند"), Cell(RightsText(user))});
  }
  for (int column = 0; column < 3; ++column) table_->resizeColumnToContents(column);
  table_->horizontalHeader()->setStretchLastSection(true);
  if (model_->rowCount() > 0) table_->setCurrentIndex(model_->index(row, 0));
  for (QPushButton* button : ofCurrent_) button->setEnabled(Current() != nullptr);
}

const CompanyUser* UsersDialog::Current() const {
  const int row = table_->currentIndex().row();
  return row < 0 || row >= static_cast<int>(shown_.size()) ? nullptr : &shown_[static_cast<std::size_t>(row)];
}

template <typename Action>
void UsersDialog::Try(Action&& action) {
  const CompanyUser* user = Current();
  const std::int64_t code = user == nullptr ? 0 : user->code;
  problem_->setVisible(false);
  try {
    action();
    Fill(code);
  } catch (const CompanyError& error) {
    ShowProblem(ToQt(error.what()));
  }
}

void UsersDialog::Add() {
  std::int64_t added = 0;
  CompanyUser fresh;
  fresh.seesPrices = false;
  UserDialog dialog(
      fresh,
      [&](const CompanyUser& user, const std::string& password) { added = users_.Add(user, password); },
      this);
  if (dialog.exec() != QDialog::Accepted) return;
  Try([] {});
  Fill(added);
}

void UsersDialog::Change() {
  const CompanyUser* user = Current();
  if (user == nullptr) return;
  UserDialog dialog(
      *user, [&](const CompanyUser& changed, const std::string&) { users_.Change(changed); }, this);
  if (dialog.exec() == QDialog::Accepted) Try([] {});
}

void UsersDialog::SetPassword() {
  const CompanyUser* user = Current();
  if (user == nullptr) return;
  PasswordDialog dialog(
      ToQt(user->login), false,
      [&](const std::string&, const std::string& password) { users_.SetPassword(user->code, password); },
      this);
  dialog.exec();
}

void UsersDialog::Remove() {
  const CompanyUser* user = Current();
  if (user == nullptr) return;
  if (user->code == self_) {
    ShowProblem("خودتان را نمی‌توانید حذف کنید.");
    return;
  }
  if (Confirmed("کاربر «" + ShownText(user->login) + "» حذف شود؟", "حذف", this)) {
    Try([&] { users_.Remove(user->code); });
  }
}

void UsersDialog::ShowProblem(const QString& text) {
  problem_->setText(ShownText(text));
  problem_->setVisible(true);
}

}  // namespace goods
