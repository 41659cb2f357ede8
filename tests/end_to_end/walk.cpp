#include "tests/end_to_end/walk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <iostream>

#include "desktop/documents/document_window.h"
#include "desktop/print/preview_window.h"
#include "desktop/views/grid_view.h"
#include "host/components/standard.h"

namespace goods {
namespace {

// Movements whose documents are shown with rows, purchases first.
constexpr std::int64_t kWithDocument[] = {2, 1, 4, 5, 6, 7, 21, 22, 8, 9, 11, 23};

void Require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

std::size_t CountOf(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

GridWidget& ViewOf(QWidget& window, const TSmartDBGrid_QRT& table) {
  auto* view = dynamic_cast<GridWidget*>(dynamic_cast<FormView&>(window).WidgetOf(table));
  Require(view != nullptr, "the grid has no view");
  return *view;
}

// Views follow their components from the message loop, so what a key unfolds is there a moment later.
QWidget& Usable(QWidget& window, const char* name) {
  const auto usable = [&] {
    for (const QWidget* child : window.findChildren<QWidget*>(name)) {
      if (child->isVisible() && child->isEnabled()) return true;
    }
    return false;
  };
  Require(WaitUntil(usable), std::string("nobody can reach ") + name);
  return Child(window, name);
}

bool InOrder(const TADOQuery& rows, std::size_t field, bool descending) {
  for (std::size_t row = 1; row < rows.RecordCount(); ++row) {
    const Decimal above = rows.Cell(row - 1, field).AsDecimal();
    const Decimal below = rows.Cell(row, field).AsDecimal();
    if (descending ? above < below : below < above) return false;
  }
  return true;
}

}  // namespace

void Click(QWidget& window, const char* name) {
  QWidget& widget = Usable(window, name);
  auto* button = qobject_cast<QAbstractButton*>(&widget);
  if (button == nullptr) button = widget.findChild<QAbstractButton*>();
  Require(button != nullptr, std::string("cannot be clicked: ") + name);
  button->click();
}

void Tick(QWidget& window, const char* name) {
  auto& box = Component<TCheckBox>(window, name);
  if (!box.Checked()) Click(window, name);
  Require(box.Checked(), std::string("cannot be ticked: ") + name);
}

void Enter(QWidget& window, const char* edit, const char* text) {
  Usable(window, edit).setFocus();
  PressKey(window, Qt::Key_A, Qt::ControlModifier);
  TypeText(window, edit, text);
  PressKey(window, Qt::Key_Return);
}

TSmartDBGrid_QRT& GridOf(QWidget& window, const char* name) {
  return Component<TSmartDBGrid_QRT>(window, name);
}

void GoTo(QWidget& window, const char* grid, const char* field, std::int64_t number) {
  const Value value(number);
  Require(GridOf(window, grid).DataSet()->Locate(field, std::span(&value, 1)),
          std::string("no row has ") + field + " " + std::to_string(number));
}

void ClickRow(QWidget& window, const char* grid, std::size_t row) {
  TSmartDBGrid_QRT& table = GridOf(window, grid);
  GridWidget& view = ViewOf(window, table);
  Require(row < table.DataSet()->RecordCount(), std::string("too few rows: ") + grid);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                    view.CellRect(row, *table.VisibleColumns().front()).center());
}

void ByProgram(QWidget& window, const std::function<void()>& action) {
  dynamic_cast<FormView&>(window).Run(action);
}

void Walk::SetUp() {
  host_ = &HostFor("admin");
  host_->Messages().SetUnattended([](const ShownMessage&) { return true; });
}

void Walk::TearDown() {
  DesktopTest::TearDown();
  if (HasFailure())
    std::cout << account_.substr(account_.size() - std::min<std::size_t>(account_.size(), 2'000));
}

std::size_t Walk::StatementCount() const {
  const std::string log = Written(Path("statements.log"));
  return static_cast<std::size_t>(std::count(log.begin(), log.end(), '\n'));
}

// A line of the log is milliseconds, outcome and statement, with tabs between.
void Walk::Did(const std::string& what) {
  account_ += "  " + what + "\n";
  const std::string log = Written(Path("statements.log"));
  while (logRead_ < log.size()) {
    const std::size_t outcome = log.find('\t', logRead_) + 1;
    const std::size_t statement = log.find('\t', outcome) + 1;
    const std::size_t end = log.find('\n', statement);
    account_ += "    " + log.substr(statement, end - statement) + "\n      -> " +
                log.substr(outcome, statement - 1 - outcome) + "\n";
    logRead_ = end + 1;
  }
  const std::vector<ShownMessage>& messages = host_->Messages().Shown();
  for (; messagesTold_ < messages.size(); ++messagesTold_) {
    account_ += "    told: " + messages[messagesTold_].text + "\n";
  }
}

void Walk::Export(const std::string& heading, const std::function<void()>& call) {
  account_ += (account_.empty() ? "" : "\n") + heading + "\n";
  call();
  RethrowFailure();
  Require(QApplication::activeModalWidget() == nullptr, heading + " left a window behind");
}

void Walk::Inside(const std::function<void()>& open, const Steps& steps) {
  bool opened = false;
  WhileModal([&](QWidget& window) {
    opened = true;
    window.resize(1400, 800);
    Did("opens " + FormOf(window).Name());
    steps(window);
    Require(FormOf(window).ModalResult() != kModalNone, "the window is still open");
  });
  open();
  RethrowFailure();
  Require(opened, "no window opened");
  Did("closes it");
}

void Walk::CalledAgain(const std::function<void()>& call) {
  const QWidget* inFront = QApplication::activeModalWidget();
  const std::size_t messages = host_->Messages().Shown().size();
  const std::size_t statements = StatementCount();
  call();
  EXPECT_EQ(QApplication::activeModalWidget(), inFront);
  EXPECT_EQ(StatementCount(), statements);
  EXPECT_EQ(host_->Messages().Shown().size(), messages + 1);
  Did("calls the export again from inside");
}

void Walk::TypeAndWait(QWidget& window, const char* edit, const char* text) {
  const std::size_t before = StatementCount();
  TypeText(window, edit, QString::fromUtf8(text));
  Require(WaitUntil([&] { return StatementCount() > before; }),
          std::string("typing ran no statement: ") + edit);
  Did(std::string("types ") + text);
}

void Walk::SortBy(QWidget& window, const char* grid, const char* field) {
  TSmartDBGrid_QRT& table = GridOf(window, grid);
  const TGridColumn* column = table.FindColumn(field);
  Require(column != nullptr && column->Visible(), std::string("no such column is shown: ") + field);
  GridWidget& view = ViewOf(window, table);
  const auto title = [&] { return view.TitleRect(*column).center(); };
  Require(WaitUntil([&] { return view.isVisible() && view.viewport()->rect().contains(title()); }),
          std::string("out of sight: ") + field);
  // A kept window may be sorted by the column already: the second click turns the order round.
  const std::vector<TSortKey> before = table.SortKeys();
  const bool descending = before.size() == 1 && before[0].FieldName == field && !before[0].Descending;
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, title());
  Require(table.SortKeys().size() == 1 && table.SortKeys()[0].FieldName == field &&
              table.SortKeys()[0].Descending == descending,
          std::string("the rows were not sorted by ") + field);
  const TADOQuery& rows = *table.DataSet();
  EXPECT_GT(rows.RecordCount(), 1U) << field;
  EXPECT_TRUE(InOrder(rows, rows.FindField(field).value(), descending)) << field;
  Did(std::string("sorts by ") + field + (descending ? ", largest first" : ""));
}

void Walk::Print(QWidget& window) {
  const QString path = ToQt(Path(("printed" + std::to_string(++printed_) + ".pdf").c_str()));
  int pages = 0;
  bool opened = false;
  WhileModal([&](QWidget& shown) {
    opened = true;
    auto& preview = dynamic_cast<PreviewWindow&>(shown);
    preview.SaveAsPdf(path);
    preview.GoToPage(1'000'000);
    pages = preview.CurrentPage();
    PressKey(preview, Qt::Key_Escape);
  });
  PressKey(window, Qt::Key_F9);
  RethrowFailure();
  Require(opened, "no preview opened");
  const std::string pdf = Written(FromQt(path));
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_NE(pdf.rfind("%%EOF"), std::string::npos);
  EXPECT_GE(pages, 1);
  EXPECT_EQ(CountOf("/Type /Page\n", pdf), static_cast<std::size_t>(pages));
  EXPECT_GE(CountOf("/Type /Font\n", pdf), 1U);
  Did("prints it");
}

void Walk::OpenDocument(QWidget& window, const char* grid, const char* typeField) {
  TADOQuery& rows = *GridOf(window, grid).DataSet();
  Require(std::any_of(std::begin(kWithDocument), std::end(kWithDocument),
                      [&](std::int64_t type) {
                        const Value value(type);
                        return rows.Locate(typeField, std::span(&value, 1));
                      }),
          "no row has a document");
  bool opened = false;
  WhileModal([&](QWidget& shown) {
    opened = dynamic_cast<DocumentWindow*>(&shown) != nullptr;
    Require(opened, "what opened is no document");
    EXPECT_GT(dynamic_cast<QTableView&>(Child(shown, "Rows_GRD")).model()->rowCount(), 0);
    PressKey(shown, Qt::Key_Escape);
  });
  PressKey(window, Qt::Key_F2);
  RethrowFailure();
  Require(opened, "no document opened");
  Did("opens the row's document and closes it");
}

void Walk::OpenCard(QWidget& window) {
  Inside([&] { PressKey(window, Qt::Key_F2); },
         [&](QWidget& card) {
           Require(FormOf(card).Name() == "Kardex_FRM", "what opened is no stock card");
           EXPECT_GT(RowCount(card), 0U);
           OpenDocument(card, "Kardex_GRD", "Type");
           Leave(card);
         });
}

void Walk::Clear(QWidget& window, const char* edit) {
  const std::size_t before = StatementCount();
  Child(window, edit).setFocus();
  PressKey(window, Qt::Key_A, Qt::ControlModifier);
  PressKey(window, Qt::Key_Backspace);
  Require(WaitUntil([&] { return StatementCount() > before; }),
          std::string("emptying ran no statement: ") + edit);
  Did("empties what was typed");
}

void Walk::Leave(QWidget& window) { PressKey(window, Qt::Key_Escape); }

}  // namespace goods
