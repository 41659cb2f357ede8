// TFieldList: the fields of the current row, each behind its caption.
#pragma once

#include <string>
#include <vector>

#include "host/components/control.h"
#include "host/data/display_format.h"
#include "host/data/query.h"

namespace goods {

// What a field list shows, and in which format; an empty format shows the text as it stands. Money is left
// out in a window that shows none.
struct TDetailField {
  std::string FieldName;
  std::string Caption;
  std::string Format;
  bool Money = false;
};

// Follows the cursor of its source. Fields that the query does not have are left out, and so is everything
// without a current row.
class TFieldList : public TControl {
 public:
  using TControl::TControl;

  TDataSource* DataSource() const { return source_; }
  void SetDataSource(TDataSource* source);
  const std::vector<TDetailField>& Fields() const { return fields_; }
  void SetFields(std::vector<TDetailField> fields);

  struct Entry {
    std::string Caption;
    std::string Text;
  };
  std::vector<Entry> Entries() const;

  // How many fields stand beside each other; 0 leaves it to the view's width.
  int Columns() const { return columns_; }
  void SetColumns(int columns);

 private:
  TDataSource* source_ = nullptr;
  Subscription sourceChanged_;
  Subscription sourceScrolled_;
  std::vector<TDetailField> fields_;
  int columns_ = 0;
};

}  // namespace goods
