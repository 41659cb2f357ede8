// The parts of a workbook beside its sheets and styles, and the spelling of what stands in them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

inline constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
inline constexpr std::string_view kSheetSpace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

// A sheet as the workbook's list names it.
struct XlsxSheet {
  std::string name;
  // The lines that each printed page begins with, such as "$5:$6".
  std::string pageHead;
  // The cells that its filter stands over, such as "$A$6:$F$9"; empty: there is no filter.
  std::string filtered;
};

struct XlsxPart {
  std::string name;
  std::string content;
};

// Of a workbook with so many sheets: what readers look for first.
std::string ContentTypesXml(std::size_t sheets);
// All others but sheets and styles.
std::vector<XlsxPart> XlsxPartsOf(const std::string& title, const std::vector<XlsxSheet>& sheets);
// Of sheet number, from 0.
std::string SheetPartName(std::size_t sheet);

// The title as a sheet's name: without what that may not hold, with a number behind it from the second sheet
// on, at most 31 characters.
std::string SheetName(const std::string& title, std::size_t sheet);
// "A", "Z", "AA", ... for 0, 25, 26, ...
std::string ColumnLetters(std::size_t column);

// valid UTF-8 as XML has it, in texts and attributes. What XML cannot hold is spelled _xHHHH_, as
// spreadsheets do; what is spelled so already is told apart from that.
void AppendXml(std::string& out, std::string_view text);

}  // namespace goods
