// A workbook (XLSX, ODS): its rows, or a CompanyError.
#include "company/interchange/workbook.h"

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "company/company.h"
#include "fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const goods::fuzz::Folder folder;
  // The first byte chooses the kind; it is told by the ending of the name.
  const std::string_view bytes = goods::fuzz::AsText(data, size);
  const std::string path = folder.Path(size > 0 && data[0] % 2 == 1 ? "book.ods" : "book.xlsx");
  std::ofstream(path, std::ios::binary) << bytes.substr(size > 0 ? 1 : 0);
  try {
    const goods::Workbook book(path);
    for (std::size_t sheet = 0; sheet < book.Sheets().size(); ++sheet) {
      const auto rows = book.Open(sheet);
      std::vector<std::string_view> fields;
      std::size_t line = 0;
      for (;;) {
        try {
          if (!rows->Next(fields)) break;
        } catch (const goods::RowError&) {
        }
        goods::fuzz::Holds(rows->Line() > line, "rows come in the order of their sheet");
        line = rows->Line();
      }
    }
  } catch (const goods::CompanyError&) {
  }
  return 0;
}
