// A statement text on a small demo company: rows, or a DatabaseError.
#include <exception>
#include <memory>
#include <string>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "fuzz/fuzz_input.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods {
namespace {

// Long work is given up at the first call, which comes after 40 ms.
class Impatience : public IStatementProgress {
 public:
  bool Progress(std::size_t) override { return false; }
};

struct Company {
  Company() {
    DemoOptions options;
    options.goods = 12;
    options.stores = 2;
    options.movements = 200;
    MakeDemoCompany(folder.Path("company"), options);
    company = OpenCompany(folder.Path("company"));
    connection = company->OpenConnection();
  }
  fuzz::Folder folder;
  std::unique_ptr<ICompany> company;
  std::unique_ptr<IConnection> connection;
};

}  // namespace
}  // namespace goods

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static goods::Company company;
  const std::string_view statement = goods::fuzz::AsText(data, size);
  goods::Impatience impatience;
  try {
    goods::RowStore rows;
    company.connection->Open(statement, rows, &impatience);
  } catch (const goods::DatabaseError& error) {
    goods::fuzz::Holds(error.Statement() == statement, "an error names its statement");
    goods::fuzz::Holds(
        std::string_view(error.what()).find_first_of("\xd8\xd9\xda\xdb") != std::string_view::npos,
        "an error speaks Persian");
  }
  return 0;
}
