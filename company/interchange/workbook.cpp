#include "company/interchange/workbook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <exception>
#include <orcus/orcus_ods.hpp>
#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>

#include "company/company.h"
#include "company/files/input_file.h"
#include "company/interchange/inline_texts.h"
#include "host/core/text.h"
#include "host/data/decimal.h"

namespace goods {

// The filled cells of a sheet, by row and column once sorted.
struct SheetCells {
  struct Cell {
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::size_t begin = 0;
    std::size_t size = 0;
  };

  void Add(std::int32_t row, std::int32_t column, std::string_view text) {
    if (text.empty()) return;
    cells.push_back({row, column, texts.size(), text.size()});
    texts += text;
  }

  void Sort() {
    std::stable_sort(cells.begin(), cells.end(), [](const Cell& a, const Cell& b) {
      return a.row != b.row ? a.row < b.row : a.column < b.column;
    });
  }

  std::vector<Cell> cells;
  std::string texts;
};

namespace {

namespace sheets = orcus::spreadsheet;
namespace iface = orcus::spreadsheet::iface;

constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30;
constexpr sheets::row_t kMostRows = 1'048'576;
constexpr sheets::col_t kMostColumns = 16'384;

std::string NumberText(double value) {
  if (!std::isfinite(value)) return "";
  std::array<char, 64> digits{};
  auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 15);
  std::string text(digits.data(), result.ptr);
  if (text.find('e') != std::string::npos) {
    std::array<char, 400> longer{};
    result = std::to_chars(longer.data(), longer.data() + longer.size(), value, std::chars_format::fixed,
                           std::abs(value) < 1 ? Decimal::kDecimals : 0);
    text.assign(longer.data(), result.ptr);
  }
  const std::optional<Decimal> number = Decimal::Parse(text);
  return number ? number->ToString() : text;
}

class Strings : public iface::import_shared_strings {
 public:
  size_t append(std::string_view text) override {
    texts_.emplace_back(text);
    return texts_.size() - 1;
  }
  size_t add(std::string_view text) override { return append(text); }
  void set_segment_font(size_t) override {}
  void set_segment_bold(bool) override {}
  void set_segment_italic(bool) override {}
  void set_segment_font_name(std::string_view) override {}
  void set_segment_font_size(double) override {}
  void set_segment_font_color(sheets::color_elem_t, sheets::color_elem_t, sheets::color_elem_t,
                              sheets::color_elem_t) override {}
  void append_segment(std::string_view text) override { segments_ += text; }
  size_t commit_segments() override {
    const size_t place = append(segments_);
    segments_.clear();
    return place;
  }
  std::string_view Text(size_t place) const {
    return place < texts_.size() ? texts_[place] : std::string_view();
  }

 private:
  std::deque<std::string> texts_;
  std::string segments_;
};

// A formula counts with the result that was stored with it.
class Formula : public iface::import_formula {
 public:
  explicit Formula(SheetCells& cells) : cells_(cells) {}
  void set_position(sheets::row_t row, sheets::col_t column) override {
    row_ = row;
    column_ = column;
  }
  void set_formula(sheets::formula_grammar_t, std::string_view) override {}
  void set_shared_formula_index(size_t) override {}
  void set_result_string(std::string_view value) override { result_ = value; }
  void set_result_value(double value) override { result_ = NumberText(value); }
  void set_result_bool(bool value) override { result_ = value ? "1" : "0"; }
  void set_result_empty() override { result_.clear(); }
  void commit() override {
    cells_.Add(row_, column_, result_);
    result_.clear();
  }

 private:
  SheetCells& cells_;
  sheets::row_t row_ = 0;
  sheets::col_t column_ = 0;
  std::string result_;
};

class Sheet : public iface::import_sheet {
 public:
  explicit Sheet(const Strings& strings) : strings_(strings), formula_(*cells_) {}
  const std::shared_ptr<SheetCells>& Cells() const { return cells_; }

  iface::import_formula* get_formula() override { return &formula_; }
  void set_auto(sheets::row_t row, sheets::col_t column, std::string_view text) override {
    cells_->Add(row, column, text);
  }
  void set_string(sheets::row_t row, sheets::col_t column, sheets::string_id_t place) override {
    cells_->Add(row, column, strings_.Text(place));
  }
  void set_value(sheets::row_t row, sheets::col_t column, double value) override {
    cells_->Add(row, column, NumberText(value));
  }
  void set_bool(sheets::row_t row, sheets::col_t column, bool value) override {
    cells_->Add(row, column, value ? "1" : "0");
  }
  void set_date_time(sheets::row_t row, sheets::col_t column, int year, int month, int day, int, int,
                     double) override {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
    cells_->Add(row, column, text.data());
  }
  void set_format(sheets::row_t, sheets::col_t, size_t) override {}
  void set_format(sheets::row_t, sheets::col_t, sheets::row_t, sheets::col_t, size_t) override {}
  void fill_down_cells(sheets::row_t row, sheets::col_t column, sheets::row_t count) override {
    const auto source = std::find_if(cells_->cells.rbegin(), cells_->cells.rend(), [&](const auto& cell) {
      return cell.row == row && cell.column == column;
    });
    if (source == cells_->cells.rend()) return;
    const std::string text = cells_->texts.substr(source->begin, source->size);
    const sheets::row_t last = std::min(kMostRows - 1, row + count);
    for (sheets::row_t below = row + 1; below <= last; ++below) cells_->Add(below, column, text);
  }
  sheets::range_size_t get_sheet_size() const override { return {kMostRows, kMostColumns}; }

 private:
  const Strings& strings_;
  std::shared_ptr<SheetCells> cells_ = std::make_shared<SheetCells>();
  Formula formula_;
};

class Settings : public iface::import_global_settings {
 public:
  void set_origin_date(int, int, int) override {}
  void set_default_formula_grammar(sheets::formula_grammar_t grammar) override { grammar_ = grammar; }
  sheets::formula_grammar_t get_default_formula_grammar() const override { return grammar_; }
  void set_character_set(orcus::character_set_t) override {}

 private:
  sheets::formula_grammar_t grammar_ = sheets::formula_grammar_t::unknown;
};

// References as sheets write them: "B12", "$B$12", "A1:B12". What is none is the first cell.
class Resolver : public iface::import_reference_resolver {
 public:
  sheets::src_address_t resolve_address(std::string_view address) override {
    address.remove_prefix(std::min(address.size(), address.find_last_of('!') + 1));
    std::int64_t column = 0;
    std::int64_t row = 0;
    for (const char c : address) {
      const char letter = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
      if (letter >= 'A' && letter <= 'Z')
        column = std::min<std::int64_t>(column * 26 + (letter - 'A') + 1, kMostColumns);
      if (c >= '0' && c <= '9') row = std::min<std::int64_t>(row * 10 + (c - '0'), kMostRows);
    }
    return {0, static_cast<sheets::row_t>(std::max<std::int64_t>(row - 1, 0)),
            static_cast<sheets::col_t>(std::max<std::int64_t>(column - 1, 0))};
  }
  sheets::src_range_t resolve_range(std::string_view range) override {
    const std::size_t colon = range.find(':');
    const sheets::src_address_t first = resolve_address(range.substr(0, colon));
    return {first, colon == std::string_view::npos ? first : resolve_address(range.substr(colon + 1))};
  }
};

class Factory : public iface::import_factory {
 public:
  iface::import_reference_resolver* get_reference_resolver(sheets::formula_ref_context_t) override {
    return &resolver_;
  }
  iface::import_global_settings* get_global_settings() override { return &settings_; }
  iface::import_shared_strings* get_shared_strings() override { return &strings_; }
  iface::import_sheet* append_sheet(sheets::sheet_t, std::string_view name) override {
    names.emplace_back(name);
    sheets_.push_back(std::make_unique<Sheet>(strings_));
    return sheets_.back().get();
  }
  iface::import_sheet* get_sheet(std::string_view name) override {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? nullptr : sheets_[static_cast<std::size_t>(found - names.begin())].get();
  }
  iface::import_sheet* get_sheet(sheets::sheet_t place) override {
    const auto index = static_cast<std::size_t>(place);
    return index < sheets_.size() ? sheets_[index].get() : nullptr;
  }
  void finalize() override {}

  std::shared_ptr<SheetCells> Cells(std::size_t place) const { return sheets_[place]->Cells(); }
  std::vector<std::string> names;

 private:
  Settings settings_;
  Resolver resolver_;
  Strings strings_;
  std::vector<std::unique_ptr<Sheet>> sheets_;
};

class SheetRows : public RowSource {
 public:
  explicit SheetRows(std::shared_ptr<SheetCells> cells) : cells_(std::move(cells)) {}

  bool Next(std::vector<std::string_view>& fields) override {
    fields.clear();
    if (next_ == cells_->cells.size()) return false;
    row_ = cells_->cells[next_].row;
    for (; next_ < cells_->cells.size() && cells_->cells[next_].row == row_; ++next_) {
      const SheetCells::Cell& cell = cells_->cells[next_];
      fields.resize(static_cast<std::size_t>(cell.column) + 1);
      fields.back() = Trim(std::string_view(cells_->texts).substr(cell.begin, cell.size));
    }
    return true;
  }
  std::size_t Line() const override { return static_cast<std::size_t>(row_) + 1; }
  std::int64_t Done() const override { return static_cast<std::int64_t>(next_); }
  std::int64_t Size() const override { return static_cast<std::int64_t>(cells_->cells.size()); }
  bool IsSheet() const override { return true; }

 private:
  std::shared_ptr<SheetCells> cells_;
  std::size_t next_ = 0;
  std::int32_t row_ = 0;
};

bool EndsWith(const std::string& path, std::string_view ending) {
  return path.size() > ending.size() &&
         SameText(std::string_view(path).substr(path.size() - ending.size()), ending);
}

}  // namespace

Workbook::Workbook(const std::string& path) {
  const bool ods = EndsWith(path, ".ods");
  std::string bytes = ReadInputFile(path, kLargestFile);
  if (!ods) bytes = WithReadableTexts(std::move(bytes));
  Factory factory;
  try {
    if (ods) {
      orcus::orcus_ods(&factory).read_stream(bytes);
    } else {
      orcus::orcus_xlsx(&factory).read_stream(bytes);
    }
  } catch (const std::exception&) {
    throw CompanyError("این فایل صفحه گسترده نیست یا آسیب دیده است: " + path);
  }
  if (factory.names.empty()) throw CompanyError("این فایل صفحه گسترده نیست یا برگه ای ندارد: " + path);
  names_ = std::move(factory.names);
  for (std::size_t i = 0; i < names_.size(); ++i) {
    sheets_.push_back(factory.Cells(i));
    sheets_.back()->Sort();
  }
}

Workbook::~Workbook() = default;

std::unique_ptr<RowSource> Workbook::Open(std::size_t sheet) const {
  return std::make_unique<SheetRows>(sheets_.at(sheet));
}

}  // namespace goods
