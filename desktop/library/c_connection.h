// A company behind a connection of the program's own.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "company/company.h"
#include "desktop/library/c_text.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

// Takes the cells of one answer in their order.
struct goods_desktop_rows {
 public:
  // into is null for a statement without rows; progress may be null.
  goods_desktop_rows(goods::RowStore* into, goods::IStatementProgress* progress,
                     goods::TextEncoding encoding);

  void AddColumn(std::string name, std::int32_t type);
  void AddInteger(std::int64_t value);
  void AddDecimal(goods::Decimal value);
  void AddText(const std::string& text);
  void AddNull();
  // False when the user wants no more.
  bool EndRow();
  bool GoOn();
  void SayWhy(std::string why) { why_ = std::move(why); }

  goods::TextEncoding Encoding() const { return encoding_; }
  // What the program said, or otherwise.
  std::string Why(const char* otherwise) const { return why_.empty() ? otherwise : why_; }
  bool Stopped() const { return stopped_; }
  // After the last row. Fails where the program made a mistake that it did not heed.
  void Finish();

 private:
  using Clock = std::chrono::steady_clock;
  [[noreturn]] void Refuse(const std::string& text);
  void Define();
  goods::Column& NextCell();
  const goods::ColumnInfo& NextColumn() const { return columns_[next_]; }

  goods::RowStore* into_;
  goods::IStatementProgress* progress_;
  goods::TextEncoding encoding_;
  std::vector<goods::ColumnInfo> columns_;
  bool defined_ = false;
  std::size_t next_ = 0;  // the column of the next cell
  std::size_t rows_ = 0;
  Clock::time_point asked_ = Clock::now();
  bool stopped_ = false;
  std::string mistake_;
  std::string why_;
};

namespace goods {

// table is copied; both of its functions are there.
std::unique_ptr<ICompany> MakeOwnCompany(const goods_desktop_connection& table, TextEncoding encoding,
                                         std::string title);

}  // namespace goods
