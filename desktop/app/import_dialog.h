// ImportDialog: a new company from files, step by step.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "company/interchange/import_company.h"
#include "company/interchange/import_preview.h"
#include "desktop/app/background_work.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTableWidget;
class QVBoxLayout;

namespace goods {

class ImportMatching;
class NewPasswordEdits;

// Where from, what is what, where to; then the import, and at its end the company, or the problems beside the
// rows. Enter goes on; Esc goes back, stops what runs, and closes the first step. Files are read and written
// on a thread of their own: the window is never still. Nothing is written unless all of it is taken.
class ImportDialog : public QDialog {
 public:
  struct Made {
    QString path;
    QString login;      // of the first user
    bool open = false;  // the user wants to work with it now
  };

  // folder: where the new company is proposed to lie.
  explicit ImportDialog(QString folder, QWidget* parent = nullptr);
  ~ImportDialog() override;

  // None when no company was made.
  std::optional<Made> Make();

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  enum Step : int { kSource, kMatching, kTarget, kWorking, kProblems, kDone };

  void LayOut();
  QWidget* SourcePage();
  QWidget* MatchingPage();
  QWidget* TargetPage();
  QWidget* WorkingPage();
  QWidget* ProblemsPage();
  QWidget* DonePage();
  QWidget* Page(const QString& title, const QString& note, QVBoxLayout*& layout);
  QPushButton* AddBrowse(const char* name, const QString& text, Qt::Key key, std::function<void()> browse);

  Step Current() const;
  void GoTo(Step step);
  void Next();
  // goOn: to the next step, where nothing stands against it.
  void Read(bool goOn = false);
  void GoOn();
  void ShowPreview(ImportPreview preview);
  void ProposeTarget();
  void Import();
  void Succeed(const ImportCounts& counts);
  void Refuse(const ImportRefused& refused);
  // Runs body while the working page is shown; then done, or back to the step before with what went wrong.
  void Work(const QString& what, Step before, BackgroundWork::Body body, std::function<void()> done);
  void ShowState(const BackgroundWork::State& state);
  void Fail(const std::exception_ptr& failure, Step before);
  void ShowProblem(const QString& text);

  QString folder_;
  NameMap names_;
  std::string from_;
  ImportPreview preview_;
  std::optional<Made> made_;
  QStackedWidget* pages_;
  QLabel* problem_;
  QPushButton* next_ = nullptr;
  QPushButton* back_ = nullptr;
  QLineEdit* source_ = nullptr;
  ImportMatching* matching_ = nullptr;
  QLineEdit* title_ = nullptr;
  QLineEdit* target_ = nullptr;
  QCheckBox* replace_ = nullptr;
  NewPasswordEdits* password_ = nullptr;
  QLabel* workingOn_ = nullptr;
  QProgressBar* bar_ = nullptr;
  QLabel* count_ = nullptr;
  QTableWidget* problems_ = nullptr;
  QLabel* problemsCount_ = nullptr;
  QLabel* summary_ = nullptr;
  QLabel* passwordNote_ = nullptr;
  QLineEdit* shownPassword_ = nullptr;
  BackgroundWork work_;  // last: nothing that it tells may be gone before it
};

}  // namespace goods
