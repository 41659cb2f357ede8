// TADOQuery: a statement, its rows, and a cursor, a filter and an order over them. TDataSource: what a grid
// hangs on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/component.h"
#include "host/data/connection.h"
#include "host/data/row_condition.h"
#include "host/data/row_store.h"

namespace goods {

struct FilterNode;
struct SortKey;

// A filter text or a sort text that cannot be understood, or that names a field that is not there. The
// message is Persian and names the place (in characters, from 1) and the word there.
class FilterError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~FilterError() override;
};

// How a query is used:
//   1. SetSQL, then Open (rows) or ExecSQL (effect only).
//   2. Filter and sort narrow and order the rows that were read; nothing is read again and no row is copied:
//   the
//      visible rows are an index over the row store. "Position" below means a place among the visible rows.
//   3. Close gives the rows back.
// A statement that fails leaves the query closed and empty, its text, filter and sort as they were, and
// throws; so does one with a NUL in it, which never goes out. Filter and sort outlive Close and are applied
// by the next Open; where they no longer fit its columns they are dropped. Signals come when the query is
// whole again: a listener may call it, change it or destroy it, and what a listener throws reaches the caller
// with the change made.
class TADOQuery : public TComponent {
 public:
  // connection must outlive the query.
  TADOQuery(TComponent* owner, std::string name, IConnection& connection);
  ~TADOQuery() override;

  const std::string& SQL() const { return sql_; }
  void SetSQL(std::string text) { sql_ = std::move(text); }
  // Closes, then runs the text and makes the first visible row current. Listeners are told once, at the end;
  // while the statement runs they would see a closed query.
  void Open();
  // Runs the text for its effect; the rows that are open stay.
  void ExecSQL();
  void Close();
  bool Active() const { return rows_ != nullptr; }
  // Closed because the user stopped the statement of the last Open.
  bool Stopped() const { return stopped_; }
  // Closed because the statement is running.
  bool Opening() const { return opening_; }

  // The first rows of a statement that is running, narrowed and ordered as the filter, the conditions and the
  // sort have them among themselves. They are there to be painted, and for nothing else: the query is closed
  // until all have come. FirstRowsCame is told when there are some, or more; controls that are disabled do
  // not hold it back. Nobody keeps first rows where nobody listens.
  Signal<> FirstRowsCame;
  // While it lives, a query that is opening and has first rows reads as if it were open on them, without a
  // current row. For the length of one painting; the query must not be changed meanwhile.
  class FirstRowsScope {
   public:
    explicit FirstRowsScope(TADOQuery* query);  // may be null
    FirstRowsScope(const FirstRowsScope&) = delete;
    FirstRowsScope& operator=(const FirstRowsScope&) = delete;
    ~FirstRowsScope();
    bool Shown() const { return query_ != nullptr; }

   private:
    TADOQuery* query_ = nullptr;
  };

  // Rows: all that were read, and those that the filter leaves.
  std::size_t TotalCount() const { return rows_ == nullptr ? 0 : rows_->Count(); }
  std::size_t RecordCount() const;
  bool IsEmpty() const { return RecordCount() == 0; }

  // Columns: those of the statement, then the computed ones. Letter case of A to Z does not matter.
  std::vector<ColumnInfo> Fields() const;
  std::optional<std::size_t> FindField(std::string_view name) const;

  // Cells of a visible row; null beyond the last row or field. A computed column is worked out when asked.
  Value Cell(std::size_t position, std::size_t field) const;
  // Cells of the current row; null when there is no current row or no such field.
  Value FieldByName(std::string_view name) const;

  // Adds a column that is computed per row of the store. Stays over Open and Close. compute gets the number
  // of the row in the store (0-based, in the order read) and the store. Adding a name again replaces that
  // column. Filter and sort read it when they are set or the query opens; where its figures have changed
  // since, setting the same text again reads them again.
  using Compute = std::function<Value(std::size_t row, const RowStore& rows)>;
  void AddComputed(ColumnInfo column, Compute compute);

  // The cursor: the position of the current row, none when there is no visible row. Filtering and sorting
  // keep the current row while it stays visible; else the first visible row becomes current.
  std::optional<std::size_t> RecNo() const { return cursor_; }
  void MoveTo(std::size_t position);  // beyond the end: the last row
  void First() { MoveTo(0); }
  void Last();
  // The first visible row whose fields (";" between names) equal the values, as the filter's "=" compares,
  // becomes current; false, and nothing moves, when there is none or no such field. As many values as fields,
  // else std::invalid_argument is thrown.
  bool Locate(std::string_view fields, std::span<const Value> values);
  // The same for a field whose text begins with the given one, both folded (FoldPersian).
  bool LocatePrefix(std::string_view field, std::string_view text);

  // The filter language:
  //   condition  := comparison | condition AND condition | condition OR condition
  //               | NOT condition | (condition)
  //   comparison := Field (= | <> | < | <= | > | >=) value
  //               | Field [NOT] LIKE 'text with %' | Field IS [NOT] NULL
  //   value      := number | 'text' | N'text' | NULL
  //
  // NOT binds closest, then AND, then OR, at most 100 brackets and NOTs within each other; keywords in any
  // letter case; a field with odd characters stands in [ ]. A comparison is true or false, never unknown:
  // with a null cell it is false (NOT LIKE too), but "= NULL" and "<> NULL" test for null. The field decides
  // how to compare: numbers as numbers, a quoted number too; texts in the order of their bytes, which is that
  // of their characters, an unquoted number as it is written. LIKE compares folded texts (FoldPersian), so
  // neither the case of A to Z nor the spelling of yeh and kaf matters; on a number field it looks at the
  // number's shortest text; only % is special in it. A text that cannot be understood throws FilterError and
  // changes nothing. "" shows every row. Setting the same text again does nothing, unless it reads a computed
  // column.
  const std::string& Filter() const { return filter_; }
  void SetFilter(std::string text);

  // The user's own narrowing beside the filter: a row is visible where the filter and every condition let it
  // through. Kept and applied as the filter is; setting one never throws: conditions on fields that the rows
  // at hand do not have are dropped. Setting the same again does nothing.
  const std::vector<RowCondition>& Narrowing() const { return narrowing_; }
  void SetNarrowing(std::vector<RowCondition> conditions);
  // The rows of the store that the filter and the conditions on other fields let through, a bit for each;
  // empty where that is every row.
  std::vector<std::uint64_t> RowsBeside(std::string_view field) const;

  // "Field", "Field ASC", "Field DESC", joined with ","; rows that compare equal keep the order read; nulls
  // come first, in either direction. Texts sort as a Persian reader expects (PersianSortKey). A bad text
  // throws FilterError and changes nothing. "" is the order read. Setting the same order again does nothing,
  // unless it reads a computed column.
  const std::string& Sort() const { return sort_; }
  void SetSort(std::string text);

  // Exact sum of a number field over the visible rows; nulls count as 0. A text field, or none of that name:
  // 0.
  Decimal Sum(std::string_view field) const;

  // While controls are disabled nobody is told of changes; the last EnableControls tells once. Calls nest;
  // one EnableControls too many does nothing.
  void DisableControls();
  void EnableControls();
  bool ControlsDisabled() const { return disabled_ > 0; }

  // Changed (of TComponent): rows, filter or order are others. Scrolled: another row is current.
  Signal<> Scrolled;

  const RowStore* Rows() const { return rows_.get(); }
  // The cell of a row of the store, whether it is visible or not; null beyond the last row or field.
  Value StoredCell(std::size_t row, std::size_t field) const;
  // The store's row numbers that are visible, in visible order.
  std::span<const std::uint32_t> VisibleRows() const { return visible_; }
  std::size_t MemoryBytes() const;

 private:
  struct ComputedColumn {
    ColumnInfo info;
    Compute compute;
  };

  // Rows as they are seen.
  struct Arrangement {
    std::unique_ptr<RowStore> rows;
    std::vector<std::uint32_t> ordered;
    std::vector<std::uint64_t> filterMask;
    std::vector<std::uint64_t> mask;
    std::vector<std::uint32_t> visible;
  };

  friend class TDataSource;
  class ColumnFinder;
  class FirstRowsKeeper;

  std::optional<std::size_t> FindComputed(std::string_view name) const;
  bool IsComputed(std::string_view field) const;
  bool ReadsComputed(const FilterNode& tree) const;
  bool ReadsComputed(const std::vector<SortKey>& keys) const;
  std::vector<std::uint64_t> MaskOf(const FilterNode& tree) const;
  // A filter's mask together with the conditions but those on that field.
  std::vector<std::uint64_t> Narrowed(std::vector<std::uint64_t> filterMask,
                                      std::string_view butOn = {}) const;
  std::vector<std::uint32_t> OrderOf(const std::vector<SortKey>& keys) const;
  std::vector<std::uint32_t> VisibleOf(const std::vector<std::uint32_t>& ordered,
                                       const std::vector<std::uint64_t>& mask) const;
  void Show(std::vector<std::uint32_t> visible);
  void ArrangeOpened();
  std::size_t FirstRowsWanted(std::size_t rows) const;
  void KeepFirstRows(RowStore rows);
  void Swap(Arrangement& other);
  void Clear();
  void Notify(bool changed, bool scrolled);

  IConnection& connection_;
  bool stopped_ = false;
  bool opening_ = false;
  std::string sql_;
  std::string filter_;
  std::string sort_;
  std::unique_ptr<RowStore> rows_;
  std::vector<ComputedColumn> computed_;
  std::unique_ptr<FilterNode> filterTree_;
  std::vector<SortKey> sortKeys_;
  std::vector<std::uint32_t> ordered_;  // every row in the sort's order; empty while that is the order read
  std::vector<RowCondition> narrowing_;
  // A bit for each row that the filter leaves, and for each that the conditions leave too; empty while there
  // is none.
  std::vector<std::uint64_t> filterMask_;
  std::vector<std::uint64_t> mask_;
  std::vector<std::uint32_t> visible_;
  std::optional<std::size_t> cursor_;
  std::unique_ptr<Arrangement> first_;  // while the statement runs
  int disabled_ = 0;
  bool changedWhileDisabled_ = false;
  bool scrolledWhileDisabled_ = false;
  bool scrollFollows_ = false;  // while Changed is told and Scrolled comes next
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

// Names the query that a grid, a search manager or a detail panel shows, so that a window can point all of
// them to another query at once.
class TDataSource : public TComponent {
 public:
  TDataSource(TComponent* owner, std::string name, TADOQuery* dataSet = nullptr);
  TADOQuery* DataSet() const { return dataSet_; }
  void SetDataSet(TADOQuery* dataSet);  // may be null; must outlive its use here

  // The query's own signals passed on, and fired once when the query itself is replaced.
  Signal<> Scrolled;
  // The current row is another one, or its rows are new; called once for each change of the query, after its
  // signals have been passed on. Set by the window.
  std::function<void()> OnDataChange;

 private:
  TADOQuery* dataSet_ = nullptr;
  void DataChanged() const;

  Subscription changed_;
  Subscription scrolled_;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

}  // namespace goods
