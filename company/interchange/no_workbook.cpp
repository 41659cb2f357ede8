// In place of workbook.cpp where the build leaves workbooks out (GOODS_WORKBOOKS).
#include "company/company.h"
#include "company/interchange/workbook.h"

namespace goods {

struct SheetCells {};

Workbook::Workbook(const std::string& path) {
  throw CompanyError("این برنامه صفحه گسترده نمی خواند؛ آن را به CSV برگردانید: " + path);
}

Workbook::~Workbook() = default;

std::unique_ptr<RowSource> Workbook::Open(std::size_t /*sheet*/) const { return nullptr; }

}  // namespace goods
