// A company's file with bytes changed: opened, signed in to, read and refreshed, or refused with a
// CompanyError. The input is a list of changes: three bytes for the place, one for the length, the bytes.
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "fuzz/fuzz_input.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods {
namespace {

class Impatience : public IStatementProgress {
 public:
  bool Progress(std::size_t) override { return false; }
};

std::string Honest(const fuzz::Folder& folder) {
  DemoOptions options;
  options.goods = 4;
  options.stores = 1;
  options.movements = 30;
  const std::string path = folder.Path("honest");
  MakeDemoCompany(path, options);
  std::ifstream file(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(file)), {});
}

std::string Changed(std::string bytes, const std::uint8_t* data, std::size_t size) {
  while (size >= 4) {
    // Most of what matters is in the header and in the schema, at the beginning.
    const std::size_t place =
        (data[0] | std::size_t{data[1]} << 8 | std::size_t{data[2]} << 16) % bytes.size();
    const std::size_t count = data[3] % 16U;
    data += 4;
    size -= 4;
    for (std::size_t i = 0; i < count && i < size && place + i < bytes.size(); ++i) {
      bytes[place + i] = static_cast<char>(data[i]);
    }
    const std::size_t used = count < size ? count : size;
    data += used;
    size -= used;
  }
  return bytes;
}

void Use(const std::string& path) {
  Impatience impatience;
  const std::unique_ptr<ICompany> company = OpenCompany(path, &impatience);
  company->Title();
  company->SignIn("nobody", "x");
  company->SearchEntities(EntityKind::Good, "ا", 20);
  company->Tags();
  company->Document(DocumentKind::SaleInvoice, 1);
  const std::unique_ptr<IConnection> connection = company->OpenConnection();
  for (const char* statement :
       {"Exec Kardex_Proc 3", "Select * from GoodInf_VW", "Exec UpdateMogodiKala 0"}) {
    try {
      RowStore rows;
      connection->Open(statement, rows, &impatience);
    } catch (const DatabaseError&) {
    }
  }
}

}  // namespace
}  // namespace goods

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const goods::fuzz::Folder folder;
  static const std::string honest = goods::Honest(folder);
  const std::string path = folder.Path("changed");
  std::ofstream(path, std::ios::binary) << goods::Changed(honest, data, size);
  try {
    goods::Use(path);
  } catch (const goods::CompanyError&) {
  }
  for (const char* beside : {"-journal", "-wal", "-shm"}) std::filesystem::remove(path + beside);
  return 0;
}
