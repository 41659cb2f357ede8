// The pages of ImportDialog: what stands on them.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/app/import_dialog.h"
#include "desktop/app/import_matching.h"
#include "desktop/app/keyboard_hint.h"
#include "desktop/app/password_dialog.h"
#include "desktop/documents/plain_table.h"
#include "desktop/views/file_dialogs.h"

namespace goods {
namespace {

QLineEdit* Edit(const char* name, const QString& accessible, Qt::LayoutDirection direction, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(name);
  edit->setAccessibleName(accessible);
  edit->setLayoutDirection(direction);
  edit->setTextMargins(6, 0, 6, 0);
  return edit;
}

}  // namespace

void ImportDialog::LayOut() {
  setObjectName("Import_FRM");
  setWindowTitle("شرکت تازه از پرونده‌ها");
  setAccessibleName("شرکت تازه از پرونده‌ها");
  setLayoutDirection(Qt::RightToLeft);
  pages_->addWidget(SourcePage());
  pages_->addWidget(MatchingPage());
  pages_->addWidget(TargetPage());
  pages_->addWidget(WorkingPage());
  pages_->addWidget(ProblemsPage());
  pages_->addWidget(DonePage());

  auto* buttons = new QDialogButtonBox(this);
  next_ = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
  next_->setObjectName("Next_BTN");
  next_->setDefault(true);
  back_ = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
  back_->setObjectName("Exit_BTN");
  back_->setAutoDefault(false);
  connect(next_, &QPushButton::clicked, this, &ImportDialog::Next);
  connect(buttons, &QDialogButtonBox::rejected, this, &ImportDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(pages_, 1);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(1000, 724);
}

QWidget* ImportDialog::Page(const QString& title, const QString& note, QVBoxLayout*& layout) {
  auto* page = new QWidget(this);
  layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel(title, page));
  auto* text = MutedLabel(note, page);
  text->setWordWrap(true);
  layout->addWidget(text);
  return page;
}

QPushButton* ImportDialog::AddBrowse(const char* name, const QString& text, Qt::Key key,
                                     std::function<void()> browse) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, std::move(browse));
  auto* shortcut = new QShortcut(key, this);
  connect(shortcut, &QShortcut::activated, button, [button] {
    if (button->isVisible()) button->click();
  });
  return button;
}

QWidget* ImportDialog::SourcePage() {
  QVBoxLayout* layout = nullptr;
  QWidget* page = Page(
      "داده‌ها کجاست؟",
      "پوشه‌ای با پرونده‌های CSV یا صفحه‌گسترده (XLSX، ODS)، یا یک "
      "صفحه‌گسترده "
      "که "
      "هر برگ آن یک جدول است. "
      "دست کم کالاها و گردش‌ها لازم است. پرونده‌ها فقط خوانده "
      "می‌شوند.",
      layout);
  source_ = Edit("Source_EDT", "پوشه یا صفحه‌گسترده", Qt::LeftToRight, page);
  const auto take = [this](const QString& path) {
    if (!path.isEmpty()) source_->setText(path);
    source_->setFocus();
  };
  auto* line = new QHBoxLayout;
  line->addWidget(source_, 1);
  line->addWidget(AddBrowse("Folder_BTN", "پوشه…  F3", Qt::Key_F3, [this, take] {
    take(AskForFolder(this, "پوشه داده‌ها", source_->text()));
  }));
  line->addWidget(AddBrowse("Workbook_BTN", "صفحه‌گسترده…  F4", Qt::Key_F4, [this, take] {
    take(AskForFileToOpen(this, "صفحه‌گسترده", source_->text(),
                          "صفحه‌گسترده (*.xlsx *.ods)"));
  }));
  layout->addLayout(line);
  layout->addStretch(1);
  return page;
}

QWidget* ImportDialog::MatchingPage() {
  QVBoxLayout* layout = nullptr;
  QWidget* page = Page("کدام ستون، کدام است؟",
                       "آنچه شناخته شد جفت شده است؛ آنچه نادرست است عوض کنید. "
                       "ستون‌های "
                       "ستاره‌دار "
                       "لازم‌اند.",
                       layout);
  matching_ = new ImportMatching(page);
  layout->addWidget(matching_, 1);
  return page;
}

QWidget* ImportDialog::TargetPage() {
  QVBoxLayout* layout = nullptr;
  QWidget* page =
      Page("شرکت تازه",
           "نخستین کاربری که همه مجوزها را دارد و گذرواژه‌ای از "
           "پرونده‌ها "
           "نیاورده "
           "است، "
           "این "
           "گذرواژه را می‌گیرد. "
           "اگر ننویسید، گذرواژه‌ای ساخته و یک بار نشان داده "
           "می‌شود.",
           layout);
  title_ = Edit("Title_EDT", "نام شرکت", Qt::RightToLeft, page);
  target_ = Edit("Target_EDT", "پرونده شرکت", Qt::LeftToRight, page);
  replace_ = new QCheckBox("اگر &هست، جایگزین شود", page);
  replace_->setObjectName("Replace_CHK");
  password_ = new NewPasswordEdits(page);
  auto* line = new QHBoxLayout;
  line->addWidget(target_, 1);
  line->addWidget(AddBrowse("Target_BTN", "جای دیگر…  F3", Qt::Key_F3, [this] {
    const QString path = AskForFileToSave(this, "پرونده شرکت", target_->text(), "پرونده شرکت (*.goods)",
                                          "goods", Replacing::LeftToCaller);
    if (!path.isEmpty()) target_->setText(path);
  }));
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(10);
  form->addRow("&نام شرکت :", title_);
  form->addRow("&پرونده :", line);
  form->addRow(QString(), replace_);
  layout->addLayout(form);
  layout->addSpacing(8);
  layout->addWidget(password_);
  layout->addWidget(new KeyboardHint({&password_->First(), &password_->Second()}, page));
  layout->addStretch(1);
  return page;
}

QWidget* ImportDialog::WorkingPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  workingOn_ = TitleLabel(QString(), page);
  workingOn_->setObjectName("WorkingOn_LBL");
  bar_ = new QProgressBar(page);
  bar_->setObjectName("Progress_BAR");
  bar_->setTextVisible(false);
  count_ = MutedLabel(QString(), page);
  count_->setObjectName("Progress_LBL");
  layout->addStretch(1);
  layout->addWidget(workingOn_);
  layout->addWidget(bar_);
  layout->addWidget(count_);
  layout->addStretch(2);
  return page;
}

QWidget* ImportDialog::ProblemsPage() {
  QVBoxLayout* layout = nullptr;
  QWidget* page = Page(
      "داده‌ها پذیرفته نشد",
      "چیزی نوشته نشده است. سطرها را در پرونده‌ها درست کنید یا "
      "جفت "
      "ستون‌ها "
      "را "
      "عوض "
      "کنید، "
      "و دوباره بخوانید.",
      layout);
  problemsCount_ = new QLabel(page);
  problemsCount_->setObjectName("ProblemsCount_LBL");
  problems_ = new QTableWidget(page);
  problems_->setObjectName("Problems_GRD");
  problems_->setAccessibleName("خطاها");
  GiveTableLook(*problems_);
  problems_->setColumnCount(4);
  problems_->setHorizontalHeaderLabels({"پرونده", "سطر", "چه نادرست است", "خود سطر"});
  problems_->setSelectionMode(QAbstractItemView::SingleSelection);
  layout->addWidget(problemsCount_);
  layout->addWidget(problems_, 1);
  return page;
}

QWidget* ImportDialog::DonePage() {
  QVBoxLayout* layout = nullptr;
  QWidget* page = Page("شرکت ساخته شد", QString(), layout);
  summary_ = new QLabel(page);
  summary_->setObjectName("Summary_LBL");
  summary_->setTextFormat(Qt::PlainText);
  summary_->setWordWrap(true);
  passwordNote_ = new QLabel(page);
  passwordNote_->setTextFormat(Qt::PlainText);
  passwordNote_->setWordWrap(true);
  shownPassword_ = Edit("ShownPassword_EDT", "گذرواژه", Qt::LeftToRight, page);
  shownPassword_->setReadOnly(true);
  shownPassword_->setMaximumWidth(260);
  layout->addWidget(summary_);
  layout->addSpacing(8);
  layout->addWidget(passwordNote_);
  layout->addWidget(shownPassword_);
  layout->addStretch(1);
  return page;
}

}  // namespace goods
