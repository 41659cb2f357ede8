#include "desktop/views/check_tree.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/data/persian.h"

namespace goods {
namespace {

constexpr int kIdRole = Qt::UserRole;
constexpr int kFoldedRole = Qt::UserRole + 1;  // the text as it is searched
constexpr int kFewRows = 60;

bool MovesInTree(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool IsTyped(const QKeyEvent& key) {
  const bool plain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  return plain && !key.text().isEmpty() && key.text().at(0).isPrint() && key.key() != Qt::Key_Space;
}

}  // namespace

// Rows whose text holds what is sought, with what they stand in and what stands in them.
class CheckTreeFilter : public QSortFilterProxyModel {
 public:
  explicit CheckTreeFilter(QObject* parent) : QSortFilterProxyModel(parent) {
    setRecursiveFilteringEnabled(true);
    setAutoAcceptChildRows(true);
  }
  void Seek(const QString& text) {
    folded_ = ToQt(FoldPersian(FromQt(text.trimmed())));
    invalidateFilter();
  }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    return sourceModel()->index(row, 0, parent).data(kFoldedRole).toString().contains(folded_);
  }

 private:
  QString folded_;
};

// The program's own changes of the boxes are not the user's.
class CheckTree::QuietScope {
 public:
  explicit QuietScope(CheckTree& tree) : tree_(tree), before_(std::exchange(tree.quiet_, true)) {}
  ~QuietScope() { tree_.quiet_ = before_; }

 private:
  CheckTree& tree_;
  bool before_;
};

CheckTree::CheckTree(Branches branches, QWidget* parent)
    : QWidget(parent),
      branches_(branches),
      model_(new QStandardItemModel(this)),
      filter_(new CheckTreeFilter(this)),
      search_(new LineEdit(this)),
      tree_(new QTreeView(this)),
      count_(new QLabel(this)) {
  filter_->setSourceModel(model_);
  LayOut();
  connect(search_, &QLineEdit::textChanged, this, [this] { SearchNow(); });
  connect(model_, &QStandardItemModel::itemChanged, this, [this](QStandardItem* item) { ItemChanged(item); });
}

void CheckTree::LayOut() {
  search_->setObjectName("Search_EDT");
  search_->setPlaceholderText("جستجو…");
  search_->setAccessibleName("جستجو");
  search_->setClearButtonEnabled(true);
  search_->setTextMargins(6, 0, 6, 0);
  search_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  search_->installEventFilter(this);
  tree_->setObjectName("Tree_TRV");
  tree_->setModel(filter_);
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree_->setRootIsDecorated(false);
  tree_->installEventFilter(this);
  QPalette colors = tree_->palette();
  colors.setColor(QPalette::Highlight, CurrentTheme().accentSoft);
  colors.setColor(QPalette::HighlightedText, CurrentTheme().text);
  tree_->setPalette(colors);
  count_->setObjectName("Count_LBL");
  count_->setForegroundRole(QPalette::PlaceholderText);
  const auto button = [this](const char* name, const QString& text, bool checked) {
    auto* made = new QPushButton(text, this);
    made->setObjectName(name);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, checked] { CheckShown(checked); });
    return made;
  };
  auto* line = new QHBoxLayout;
  line->addWidget(button("All_BTN", "&همه", true));
  line->addWidget(button("None_BTN", "هی&چ کدام", false));
  line->addStretch(1);
  line->addWidget(count_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Scaled(8, *this));
  layout->addWidget(search_);
  layout->addWidget(tree_, 1);
  layout->addLayout(line);
  setFocusProxy(search_);
}

void CheckTree::Add(const QString& id, const QString& text, const QString& parent, bool checked) {
  const QuietScope quiet(*this);
  auto* item = new QStandardItem(ShownText(text));
  item->setData(id, kIdRole);
  item->setData(ToQt(FoldPersian(FromQt(text))), kFoldedRole);
  item->setCheckable(true);
  item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
  QStandardItem* above = items_.value(parent, nullptr);
  items_.insert(id, item);
  if (above == nullptr) {
    model_->appendRow(item);
  } else {
    above->appendRow(item);
    tree_->setRootIsDecorated(true);
    if (branches_ == Branches::FollowLeaves) above->setAutoTristate(true);
  }
}

template <typename Visit>
void CheckTree::ForEach(Visit&& visit) const {
  const auto walk = [&visit](auto&& self, QStandardItem* item) -> void {
    for (int row = 0; row < item->rowCount(); ++row) {
      visit(*item->child(row));
      self(self, item->child(row));
    }
  };
  walk(walk, model_->invisibleRootItem());
}

bool CheckTree::IsLeaf(const QStandardItem& item) const { return item.rowCount() == 0; }

bool CheckTree::Counts(const QStandardItem& item) const {
  return branches_ == Branches::StandAlone || IsLeaf(item);
}

namespace {

// The state of a branch whose leaves decide it.
Qt::CheckState StateOf(const QStandardItem& branch) {
  int checked = 0;
  bool partly = false;
  for (int row = 0; row < branch.rowCount(); ++row) {
    const Qt::CheckState state = branch.child(row)->checkState();
    checked += state == Qt::Checked ? 1 : 0;
    partly = partly || state != Qt::Unchecked;
  }
  return checked == branch.rowCount() ? Qt::Checked : partly ? Qt::PartiallyChecked : Qt::Unchecked;
}

}  // namespace

void CheckTree::Finish() {
  const QuietScope quiet(*this);
  filter_->Seek(search_->text());
  const bool few = items_.size() <= kFewRows;
  ForEach([&](QStandardItem& item) {
    if (branches_ == Branches::FollowLeaves && !IsLeaf(item)) item.setCheckState(StateOf(item));
  });
  if (few) tree_->expandAll();
  ForEach([&](QStandardItem& item) {
    if (few || item.checkState() == Qt::Unchecked) return;
    for (QStandardItem* above = item.parent(); above != nullptr; above = above->parent())
      tree_->expand(filter_->mapFromSource(above->index()));
  });
  MoveToFirst();
  ShowCount();
}

bool CheckTree::IsChecked(const QString& id) const {
  const QStandardItem* item = Item(id);
  return item != nullptr && item->checkState() == Qt::Checked;
}

void CheckTree::SetChecked(const QString& id, bool checked) {
  QStandardItem* item = Item(id);
  if (item == nullptr) return;
  const QuietScope quiet(*this);
  item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

QStringList CheckTree::Checked() const {
  QStringList ids;
  ForEach([&](const QStandardItem& item) {
    if (Counts(item) && item.checkState() == Qt::Checked) ids << item.data(kIdRole).toString();
  });
  return ids;
}

void CheckTree::ItemChanged(QStandardItem* item) {
  if (quiet_) return;
  if (branches_ == Branches::FollowLeaves && !IsLeaf(*item)) {
    // Ticking a branch ticks its leaves; each of them then comes here by itself.
    const Qt::CheckState wanted = item->checkState();
    if (wanted == Qt::PartiallyChecked) return;
    for (int row = 0; row < item->rowCount(); ++row) item->child(row)->setCheckState(wanted);
    return;
  }
  if (OnCheck) OnCheck(item->data(kIdRole).toString(), item->checkState() == Qt::Checked);
  ShowCount();
  if (branches_ == Branches::StandAlone || item->parent() == nullptr) return;
  const QuietScope quiet(*this);
  item->parent()->setCheckState(StateOf(*item->parent()));
}

void CheckTree::CheckShown(bool checked) {
  std::vector<QStandardItem*> shown;
  ForEach([&](QStandardItem& item) {
    if (Counts(item) && filter_->mapFromSource(item.index()).isValid()) shown.push_back(&item);
  });
  for (QStandardItem* item : shown) item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void CheckTree::SearchNow() {
  filter_->Seek(search_->text());
  if (!search_->text().isEmpty()) tree_->expandAll();
  MoveToFirst();
}

void CheckTree::MoveToFirst() {
  if (!tree_->currentIndex().isValid()) tree_->setCurrentIndex(filter_->index(0, 0));
  tree_->scrollTo(tree_->currentIndex());
}

void CheckTree::ShowCount() {
  int all = 0;
  ForEach([&](const QStandardItem& item) { all += Counts(item) ? 1 : 0; });
  count_->setText(ShownText(QString("%1 از %2").arg(Checked().size()).arg(all)));
}

bool CheckTree::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& key = *static_cast<QKeyEvent*>(event);
  if (watched == search_ && MovesInTree(key.key())) {
    tree_->setFocus();
    QKeyEvent moved(QEvent::KeyPress, key.key(), key.modifiers());
    QCoreApplication::sendEvent(tree_, &moved);
    return true;
  }
  if (watched == tree_ && IsTyped(key)) {
    search_->setFocus();
    QCoreApplication::sendEvent(search_, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace goods
