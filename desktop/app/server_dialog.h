// ServerDialog: which database on which server, and as whom.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

class QLineEdit;

namespace goods {

class ServerDialog : public QDialog {
 public:
  // known: a description that was kept ("server:host=...;database=...;user=..."), or empty; its fields are
  // filled in. The password is asked each time and kept nowhere.
  explicit ServerDialog(const QString& known, QWidget* parent = nullptr);

  // The description of the company with the password in it, only to be opened; none when the user gave up.
  std::optional<std::string> Ask();

 private:
  QLineEdit* AddField(const char* name, const QString& caption, const QString& value);
  std::string Description() const;

  QLineEdit* host_ = nullptr;
  QLineEdit* database_ = nullptr;
  QLineEdit* user_ = nullptr;
  QLineEdit* password_ = nullptr;
};

}  // namespace goods
