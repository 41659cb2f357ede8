#include "desktop/app/help_viewer.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/app/help_book.h"
#include "desktop/app/help_text.h"
#include "desktop/views/letter_keys.h"

namespace goods {
namespace {

constexpr QSize kSize{1120, 760};
constexpr int kListWidth = 230;

}  // namespace

HelpViewer::HelpViewer(QWidget* parent)
    : QDialog(parent, Qt::Window),
      pages_(new QListWidget(this)),
      text_(new HelpText(this)),
      search_(new QLineEdit(this)),
      notFound_(ProblemLabel(this)) {
  setObjectName("Help_FRM");
  setLayoutDirection(Qt::RightToLeft);
  resize(kSize);
  pages_->setObjectName("Pages_LST");
  pages_->setAccessibleName("صفحه‌های راهنما");
  text_->setObjectName("Page_TXT");
  text_->setAccessibleName("متن راهنما");
  search_->setObjectName("Search_EDT");
  search_->setPlaceholderText("جستجو در این صفحه (Ctrl+F)");
  search_->setClearButtonEnabled(true);
  search_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  for (const HelpPage& page : HelpPages()) {
    auto* item = new QListWidgetItem(page.title, pages_);
    item->setData(Qt::UserRole, page.file);
  }

  auto* close = new QPushButton("بستن  Esc", this);
  close->setObjectName("Exit_BTN");
  close->setAutoDefault(false);
  auto* line = new QHBoxLayout;
  line->addWidget(search_, 1);
  line->addWidget(notFound_);
  line->addWidget(close);
  auto* split = new QSplitter(this);
  split->addWidget(pages_);
  split->addWidget(text_);
  split->setStretchFactor(1, 1);
  split->setSizes({kListWidth, kSize.width() - kListWidth});
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(split, 1);
  layout->addLayout(line);

  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(pages_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (item != nullptr) ShowPage(item->data(Qt::UserRole).toString());
  });
  connect(text_, &QTextBrowser::sourceChanged, this,
          [this](const QUrl& source) { PageChanged(source.fileName()); });
  connect(search_, &QLineEdit::textChanged, this, [this] { Search(false, true); });
  MakeKeys();
}

void HelpViewer::MakeKeys() {
  const auto key = [this](const QKeySequence& keys, auto action) {
    auto* shortcut = new QShortcut(this);
    shortcut->setKeys(OnBothLayouts(keys));
    connect(shortcut, &QShortcut::activated, this, action);
  };
  key(QKeySequence(QKeySequence::Find), [this] {
    search_->setFocus();
    search_->selectAll();
  });
  key(Qt::Key_F3, [this] { Search(false, false); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { Search(true, false); });
  // In a window that reads from right to left, back is where the reading came from.
  key(Qt::ALT | Qt::Key_Right, [this] { text_->backward(); });
  key(Qt::ALT | Qt::Key_Left, [this] { text_->forward(); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { Search(false, false); });
}

void HelpViewer::ShowPage(const QString& file) {
  if (page_ != file) text_->setSource(HelpUrl(file), QTextDocument::MarkdownResource);
}

void HelpViewer::PageChanged(const QString& file) {
  page_ = file;
  notFound_->hide();
  for (int row = 0; row < pages_->count(); ++row) {
    const QListWidgetItem& item = *pages_->item(row);
    if (item.data(Qt::UserRole).toString() != page_) continue;
    pages_->setCurrentRow(row);
    setWindowTitle("راهنما — " + item.text());
  }
}

void HelpViewer::Search(bool backwards, bool stay) {
  const bool found = text_->Find(search_->text(), backwards, stay);
  notFound_->setText(found ? QString() : "در این صفحه نیست");
  notFound_->setVisible(!found);
}

void OpenHelp(QWidget& over, const QString& file) {
  auto* viewer = over.findChild<HelpViewer*>("Help_FRM", Qt::FindDirectChildrenOnly);
  if (viewer == nullptr) viewer = new HelpViewer(&over);
  viewer->ShowPage(file);
  viewer->show();
  viewer->raise();
  viewer->activateWindow();
  viewer->findChild<QWidget*>("Page_TXT")->setFocus();
}

}  // namespace goods
