#include "desktop/app/server_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

// The value of one keyword of a kept description.
QString ValueOf(const QString& description, const QString& keyword) {
  for (const QString& pair : description.mid(description.indexOf(':') + 1).split(';')) {
    const qsizetype equals = pair.indexOf('=');
    if (equals < 0 || pair.left(equals).trimmed().compare(keyword, Qt::CaseInsensitive) != 0) continue;
    QString value = pair.mid(equals + 1);
    if (value.startsWith('{') && value.endsWith('}'))
      value = value.mid(1, value.size() - 2).replace("}}", "}");
    return value;
  }
  return {};
}

// What is typed must not end its own place in the description.
std::string Braced(const QString& value) { return FromQt("{" + QString(value).replace("}", "}}") + "}"); }

}  // namespace

ServerDialog::ServerDialog(const QString& known, QWidget* parent) : QDialog(parent) {
  setObjectName("Server_FRM");
  setWindowTitle("شرکت روی سرور");
  setAccessibleName("شرکت روی سرور");
  setLayoutDirection(Qt::RightToLeft);
  auto* form = new QFormLayout;
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel("شرکت روی سرور", this));
  layout->addLayout(form);
  const QString port = ValueOf(known, "PORT");
  QString host = ValueOf(known, "SERVER");
  if (!host.isEmpty() && !port.isEmpty() && port != "1433") host += ":" + port;
  host_ = AddField("Host_EDT", "نشانی سرور :", host);
  database_ = AddField("Database_EDT", "پایگاه داده :", ValueOf(known, "DATABASE"));
  user_ = AddField("User_EDT", "نام کاربر سرور :", ValueOf(known, "UID"));
  password_ = AddField("Password_EDT", "گذرواژه :", {});
  password_->setEchoMode(QLineEdit::Password);
  for (QLineEdit* edit : {host_, database_, user_, password_}) form->addRow(edit->accessibleName(), edit);

  auto* buttons = new QDialogButtonBox(this);
  auto* open = buttons->addButton("باز کردن  Enter", QDialogButtonBox::AcceptRole);
  open->setObjectName("Open_BTN");
  open->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  const auto needed = [this, open] {
    open->setEnabled(!host_->text().trimmed().isEmpty() && !database_->text().trimmed().isEmpty());
  };
  connect(host_, &QLineEdit::textChanged, this, needed);
  connect(database_, &QLineEdit::textChanged, this, needed);
  needed();
  resize(460, sizeHint().height());
  (host.isEmpty() ? host_ : password_)->setFocus();
}

QLineEdit* ServerDialog::AddField(const char* name, const QString& caption, const QString& value) {
  auto* edit = new QLineEdit(value, this);
  edit->setObjectName(name);
  edit->setAccessibleName(caption);
  edit->setLayoutDirection(Qt::LeftToRight);
  return edit;
}

std::string ServerDialog::Description() const {
  const QString host = host_->text().trimmed();
  const qsizetype colon = host.lastIndexOf(':');
  std::string text = "server:host=" + Braced(colon < 0 ? host : host.left(colon));
  if (colon >= 0) text += ";port=" + Braced(host.mid(colon + 1));
  text += ";database=" + Braced(database_->text().trimmed());
  if (!user_->text().trimmed().isEmpty()) text += ";user=" + Braced(user_->text().trimmed());
  if (!password_->text().isEmpty()) text += ";password=" + Braced(password_->text());
  return text;
}

std::optional<std::string> ServerDialog::Ask() {
  if (exec() != QDialog::Accepted) return std::nullopt;
  return Description();
}

}  // namespace goods
