#include "desktop/app/import_dialog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTableWidget>
#include <utility>

#include "company/files/file_error.h"
#include "desktop/app/app_look.h"
#include "desktop/app/import_matching.h"
#include "desktop/app/password_dialog.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kBarSteps = 1000;
constexpr int kCellRoom = 20;  // pixels that a cell keeps beside its text

QTableWidgetItem* Cell(const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  item->setToolTip(text);
  return item;
}

// A company's name as a file's.
QString FileName(QString title) {
  static const QRegularExpression kNotInNames("[/\\\\:*?\"<>|\\x00-\\x1f]");
  title = title.replace(kNotInNames, " ").simplified().left(60);
  if (title.startsWith('.')) title.remove(0, 1);
  return title.isEmpty() ? QString("company") : title;
}

}  // namespace

ImportDialog::ImportDialog(QString folder, QWidget* parent)
    : QDialog(parent),
      folder_(std::move(folder)),
      pages_(new QStackedWidget(this)),
      problem_(ProblemLabel(this)),
      work_(this) {
  LayOut();
  matching_->OnReread = [this] { Read(); };
  GoTo(kSource);
}

ImportDialog::~ImportDialog() = default;

std::optional<ImportDialog::Made> ImportDialog::Make() {
  exec();
  return made_;
}

ImportDialog::Step ImportDialog::Current() const { return static_cast<Step>(pages_->currentIndex()); }

void ImportDialog::GoTo(Step step) {
  struct Texts {
    const char* next;
    const char* back;
    QWidget* focus;
  };
  const Texts texts[] = {{"ادامه  Enter", "انصراف  Esc", source_},
                         {"ادامه  Enter", "بازگشت  Esc", matching_},
                         {"ساختن شرکت  Enter", "بازگشت  Esc", title_},
                         {nullptr, "توقف  Esc", nullptr},
                         {"جفت ستون‌ها  Enter", "بازگشت  Esc", problems_},
                         {"باز کردن شرکت  Enter", "بستن  Esc", next_}};
  problem_->setVisible(false);
  pages_->setCurrentIndex(step);
  const Texts& now = texts[step];
  next_->setVisible(now.next != nullptr);
  if (now.next != nullptr) next_->setText(now.next);
  back_->setText(now.back);
  (now.focus != nullptr ? now.focus : back_)->setFocus();
}

void ImportDialog::Next() {
  switch (Current()) {
    case kSource:
      if (const std::string from = FromQt(source_->text().trimmed()); from != from_) {
        from_ = from;
        names_ = NameMap();
        target_->clear();
      }
      Read();
      break;
    case kMatching:
      if (matching_->IsStale()) {
        Read(true);
      } else {
        GoOn();
      }
      break;
    case kTarget:
      Import();
      break;
    case kProblems:
      Read();
      break;
    case kDone:
      made_->open = true;
      accept();
      break;
    case kWorking:
      break;
  }
}

void ImportDialog::GoOn() {
  const QString problem = matching_->GoToProblem();
  if (!problem.isEmpty()) return ShowProblem(problem);
  if (target_->text().isEmpty()) ProposeTarget();
  GoTo(kTarget);
}

void ImportDialog::closeEvent(QCloseEvent* event) {
  if (Current() == kWorking) {
    work_.Stop();
    event->ignore();
  } else {
    QDialog::reject();
    event->accept();
  }
}

void ImportDialog::reject() {
  switch (Current()) {
    case kMatching:
      GoTo(kSource);
      break;
    case kTarget:
    case kProblems:
      GoTo(Current() == kTarget ? kMatching : kTarget);
      break;
    case kWorking:
      work_.Stop();
      break;
    case kSource:
    case kDone:
      QDialog::reject();
      break;
  }
}

void ImportDialog::Work(const QString& what, Step before, BackgroundWork::Body body,
                        std::function<void()> done) {
  GoTo(kWorking);
  workingOn_->setText(what);
  ShowState({});
  work_.Start(
      std::move(body), [this](const BackgroundWork::State& state) { ShowState(state); },
      [this, before, done = std::move(done)](const std::exception_ptr& failure) {
        if (failure) {
          Fail(failure, before);
        } else {
          done();
        }
      });
}

void ImportDialog::ShowState(const BackgroundWork::State& state) {
  bar_->setRange(0, state.total > 0 ? kBarSteps : 0);
  if (state.total > 0) bar_->setValue(static_cast<int>(state.done * kBarSteps / state.total));
  QString text = ShownText(state.stage);
  if (state.total > 0) text += QString("  ٪%1").arg(state.done * 100 / state.total);
  count_->setText(text);
}

void ImportDialog::Fail(const std::exception_ptr& failure, Step before) {
  GoTo(before);
  try {
    std::rethrow_exception(failure);
  } catch (const ImportRefused& refused) {
    Refuse(refused);
  } catch (const std::exception& error) {
    ShowProblem(ToQt(error.what()));
  }
}

void ImportDialog::ShowProblem(const QString& text) {
  problem_->setText(ShownText(text));
  problem_->setVisible(true);
}

void ImportDialog::Read(bool goOn) {
  const auto preview = std::make_shared<ImportPreview>();
  Work(
      "خواندن پرونده‌ها", kSource,
      [this, preview](const WorkWatcher& watcher) { *preview = PreviewImport(from_, names_, watcher); },
      [this, preview, goOn] {
        ShowPreview(std::move(*preview));
        if (goOn) GoOn();
      });
}

void ImportDialog::ShowPreview(ImportPreview preview) {
  preview_ = std::move(preview);
  GoTo(kMatching);
  matching_->Show(preview_, names_);
}

void ImportDialog::ProposeTarget() {
  title_->setText(ToQt(preview_.title));
  target_->setText(QDir::toNativeSeparators(QDir(folder_).filePath(FileName(title_->text()) + ".goods")));
}

void ImportDialog::Import() {
  const bool typed = !password_->First().text().isEmpty() || !password_->Second().text().isEmpty();
  const QString wrong = typed ? password_->Problem() : QString();
  if (title_->text().trimmed().isEmpty()) return ShowProblem("نام شرکت را بنویسید.");
  if (target_->text().trimmed().isEmpty()) return ShowProblem("پرونده شرکت را بنویسید.");
  if (!wrong.isEmpty()) return ShowProblem(wrong);
  const std::string path = FromQt(QDir::cleanPath(target_->text().trimmed()));
  ImportOptions options;
  options.title = FromQt(title_->text().trimmed());
  options.replace = replace_->isChecked();
  options.names = names_;
  options.unsignedQuantities = matching_->UnsignedQuantities();
  options.firstPassword = password_->Password();
  const auto counts = std::make_shared<ImportCounts>();
  Work(
      "ساختن شرکت", kTarget,
      [this, path, options, counts](const WorkWatcher& watcher) mutable {
        options.watcher = watcher;
        *counts = ImportCompany(path, from_, options);
      },
      [this, counts] { Succeed(*counts); });
}

void ImportDialog::Succeed(const ImportCounts& counts) {
  made_ = Made{QDir::cleanPath(target_->text().trimmed()), ToQt(counts.firstLogin), false};
  summary_->setText(ShownText(QString("%1 کالا، %2 انبار، %3 شخص، %4 گردش")
                                  .arg(counts.goods)
                                  .arg(counts.stores)
                                  .arg(counts.persons)
                                  .arg(counts.movements)) +
                    "\n" + QChar(0x2068) + QDir::toNativeSeparators(made_->path) + QChar(0x2069));
  QString note;
  if (!counts.firstLogin.empty()) note = "با نام «" + ToQt(counts.firstLogin) + "» وارد شوید.";
  if (!counts.firstPassword.empty()) {
    note +=
        " گذرواژه‌اش این است و دوباره نشان داده نمی‌شود؛ پس از "
        "ورود "
        "عوضش "
        "کنید:";
  }
  if (!counts.withoutPassword.empty()) {
    QStringList logins;
    for (const std::string& login : counts.withoutPassword) logins << ToQt(login);
    note += "\nاین کاربران تا گذرواژه‌ای نگیرند وارد نمی‌شوند: " +
            logins.join("، ");
  }
  passwordNote_->setText(note);
  shownPassword_->setText(ToQt(counts.firstPassword));
  shownPassword_->setVisible(!counts.firstPassword.empty());
  password_->Clear();
  GoTo(kDone);
}

void ImportDialog::Refuse(const ImportRefused& refused) {
  const auto listed = std::make_shared<std::vector<ImportProblem>>(refused.Problems());
  const auto rows = std::make_shared<std::vector<std::string>>();
  const std::size_t more = refused.Total() - listed->size();
  Work(
      "خواندن سطرهای نادرست", kTarget,
      [this, listed, rows](const WorkWatcher& watcher) {
        *rows = ReadProblemRows(from_, names_, *listed, watcher);
      },
      [this, listed, rows, more] {
        problems_->setRowCount(0);
        for (std::size_t i = 0; i < listed->size(); ++i) {
          const ImportProblem& problem = (*listed)[i];
          const int row = problems_->rowCount();
          problems_->insertRow(row);
          problems_->setItem(row, 0, Cell(ToQt(problem.file)));
          problems_->setItem(row, 1,
                             Cell(problem.line > 0 ? ShownText(std::to_string(problem.line)) : QString()));
          problems_->setItem(row, 2, Cell(ToQt(problem.reason)));
          problems_->setItem(row, 3, Cell(ToQt((*rows)[i])));
        }
        problems_->resizeColumnsToContents();
        for (int column = 0; column < 3; ++column) {
          problems_->setColumnWidth(column, problems_->columnWidth(column) + kCellRoom);
        }
        problems_->horizontalHeader()->setStretchLastSection(true);
        problems_->setCurrentCell(0, 2);
        problemsCount_->setText(
            ShownText(std::to_string(listed->size() + more) + " خطا" +
                      (more > 0 ? "؛ " + std::to_string(listed->size()) + " خطای نخست:" : std::string(":"))));
        GoTo(kProblems);
      });
}

}  // namespace goods
