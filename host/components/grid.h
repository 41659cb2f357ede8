// TSmartDBGrid_QRT: the table of a report, with footers, sorting, a column chooser and multiple selection.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/control.h"
#include "host/core/color.h"
#include "host/data/display_format.h"
#include "host/data/query.h"
#include "host/services/printing.h"

namespace goods {

class GridGroups;
class TSmartDBGrid_QRT;

enum class FooterKind { None, Sum, Count };

// What a drawing event may change before a cell is drawn. Views draw the rest.
struct TCellStyle {
  std::optional<Color> Brush;
  std::optional<Color> Font;
  bool Bold = false;
  int InsetTop = 0;  // pixels at 96 dpi
  int InsetBottom = 0;
};

// A column. Setters tell the grid, which tells its view.
class TGridColumn {
 public:
  TGridColumn(TSmartDBGrid_QRT& grid, std::string fieldName, std::string caption);

  // Who the column is, whatever it shows: the field that it was made with. Layouts are kept by it.
  const std::string& Name() const { return name_; }
  const std::string& FieldName() const { return fieldName_; }
  // The same column shows another field from now on, such as a running figure within one store. A sort by the
  // column becomes a sort by that field, and fires OnSortChanged.
  TGridColumn& SetFieldName(std::string fieldName);
  // "group|title" puts a group title over the column.
  const std::string& Caption() const { return caption_; }
  TGridColumn& SetCaption(std::string caption);
  // For cell and footer; SetFooterFormat gives the footer one of its own.
  const std::string& DisplayFormatText() const { return formatText_; }
  TGridColumn& SetDisplayFormat(std::string_view format);
  TGridColumn& SetFooterFormat(std::string_view format);
  FooterKind Footer() const { return footer_; }
  TGridColumn& SetFooter(FooterKind kind);
  int Width() const { return width_; }  // pixels at 96 dpi
  TGridColumn& SetWidth(int width);
  bool AutoFit() const { return autoFit_; }  // takes the room that is left over
  TGridColumn& SetAutoFit(bool autoFit);
  // False also for money in a window that shows none; so is Customizable, and the texts are then empty.
  bool Visible() const { return visible_ && !Withheld(); }
  TGridColumn& SetVisible(bool visible);
  // Declares that its figures are prices or amounts.
  TGridColumn& SetMoney(bool money = true);
  bool Money() const { return money_; }
  // Declared as money in a window that shows none.
  bool Withheld() const;
  // Whether the column chooser offers it.
  bool Customizable() const { return customizable_ && !Withheld(); }
  TGridColumn& SetCustomizable(bool customizable);
  TextAlign Align() const { return align_; }
  TGridColumn& SetAlign(TextAlign align);
  // What its cells are, where more is known than that they are texts or numbers.
  CellKind Kind() const { return kind_; }
  TGridColumn& SetKind(CellKind kind) {
    kind_ = kind;
    return *this;
  }
  long Tag = 0;

  const DisplayFormat& Format() const { return format_; }
  const DisplayFormat& FooterFormat() const { return footerFormat_ ? *footerFormat_ : format_; }
  bool IsNumber() const { return !formatText_.empty(); }

 private:
  TSmartDBGrid_QRT& grid_;
  std::string name_;
  std::string fieldName_;
  std::string caption_;
  std::string formatText_;
  DisplayFormat format_;
  std::optional<DisplayFormat> footerFormat_;
  FooterKind footer_ = FooterKind::None;
  int width_ = 80;
  bool autoFit_ = false;
  bool visible_ = true;
  bool money_ = false;
  bool customizable_ = true;
  TextAlign align_ = TextAlign::Start;
  CellKind kind_ = CellKind::Text;

  friend class TSmartDBGrid_QRT;  // layouts keep what is asked for, whoever may see it
};

struct TSortKey {
  std::string FieldName;
  bool Descending = false;
};

class TSmartDBGrid_QRT : public TControl {
 public:
  TSmartDBGrid_QRT(TComponent* owner, std::string name);
  ~TSmartDBGrid_QRT() override;

  bool TakesFocus() const override { return true; }
  // The grid shows the visible rows of the source's query. Null or a closed query: the empty text.
  TDataSource* DataSource() const { return source_; }
  void SetDataSource(TDataSource* source);
  TADOQuery* DataSet() const { return source_ == nullptr ? nullptr : source_->DataSet(); }

  // Columns in display order. References stay good until the column is removed.
  TGridColumn& AddColumn(std::string fieldName, std::string caption);
  TGridColumn& InsertColumn(std::size_t at, std::string fieldName, std::string caption);
  void MoveColumn(std::size_t from, std::size_t to);
  const std::vector<std::unique_ptr<TGridColumn>>& Columns() const { return columns_; }
  TGridColumn* FindColumn(std::string_view fieldName) const;
  std::vector<TGridColumn*> VisibleColumns() const;

  // The visible rows.
  std::size_t RowCount() const { return DataSet() == nullptr ? 0 : DataSet()->RecordCount(); }
  // What is shown: a cell by its position among the visible rows, a footer by its column.
  std::string CellText(std::size_t position, const TGridColumn& column) const;
  std::string FooterText(const TGridColumn& column) const;
  // The exact value behind it; null where there is none.
  Value FooterValue(const TGridColumn& column) const;
  TCellStyle CellStyle(std::size_t position, const TGridColumn& column) const;

  // Footers are worked out once and kept until the rows change or this is called.
  void RefreshFooters();

  // The user's sort; a click on a title sorts by it, a second click the other way round, a third lifts it.
  // With add, the column joins the keys that are there. The grid puts the text of GetSort on its query, a
  // closed one keeps it for the rows to come, then fires OnSortChanged. A column whose field the rows do not
  // have sorts nothing and bears no mark.
  void TitleClick(const TGridColumn& column, bool add = false);
  const std::vector<TSortKey>& SortKeys() const { return sort_; }
  void SetSortKeys(std::vector<TSortKey> keys);
  std::string GetSort() const;
  std::function<void()> OnSortChanged;

  // Groups of rows by a column of the user's choice. GetSort then names that column first.
  GridGroups& Groups() { return *groups_; }
  const GridGroups& Groups() const { return *groups_; }

  // Multiple selection by position; changing the rows clears it.
  bool MultiSelect = true;
  const std::set<std::size_t>& Selection() const { return selection_; }
  void SetSelection(std::set<std::size_t> positions);

  // The view's and the program's way to the current row.
  void MoveTo(std::size_t position);

  bool ShowFooter = true;
  bool ShowRowNumbers = false;
  bool RightAligned = true;  // the first column stands at the right
  // So many columns, from the first and with the hidden ones among them, stay in sight when scrolled
  // sideways.
  int FixedColumns = 0;
  // So many, counted alike, say what a row is about; files keep them in sight. 0: the fixed ones.
  int KeyColumns = 0;
  const std::string& EmptyText() const { return emptyText_; }
  void SetEmptyText(std::string text);

  void DoubleClick();
  std::function<void()> OnDblClick;

  // What a row is beyond what the columns show, such as the name of its operation: a caption and a text each.
  // Views ask for the row under the mouse and for the current one, and leave out empty texts.
  struct Fact {
    std::string caption;
    std::string text;
  };
  std::function<std::vector<Fact>(std::size_t position)> OnDescribeRow;
  std::function<void(std::size_t position, const TGridColumn& column, TCellStyle& style)> OnDrawColumnCell;

  // The grid as a table for print and files: the visible columns as they stand now, in groups where it has
  // some, and without what is folded away. Never null.
  std::unique_ptr<IReportTable> Table() const;
  // The visible rows alone, by their positions.
  std::unique_ptr<IReportTable> RowsTable() const;

  // Layout: order, visibility and width of the columns as text lines, by the columns' own names, for a
  // settings file. Names that the grid does not have are left alone; a column that the text does not name,
  // such as one that is new, stands behind all that it stood behind, or else last.
  std::string SaveLayout() const;
  void LoadLayout(std::string_view text);

 private:
  friend class TGridColumn;
  void SortFollows(std::string_view before, const std::string& now);
  // The columns by the places that they have now; those left out go where LoadLayout puts them.
  void ArrangeColumns(std::vector<std::size_t> order);
  bool CanSortBy(const std::string& field) const;
  void ApplySort();
  // Marks of fields that the rows at hand do not have go.
  void DropForeignSort();

  TDataSource* source_ = nullptr;
  Subscription sourceChanged_;
  Subscription sourceScrolled_;
  std::vector<std::unique_ptr<TGridColumn>> columns_;
  std::vector<TSortKey> sort_;
  std::unique_ptr<GridGroups> groups_;
  std::set<std::size_t> selection_;
  std::string emptyText_;
  struct KnownFooter {
    const TGridColumn* column;
    Value value;
  };
  mutable std::vector<KnownFooter> footers_;
};

}  // namespace goods
