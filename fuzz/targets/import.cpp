// The files of an import, one behind the other with a line "--" between: goods, stores, persons, movements. A
// company or a CompanyError, and no file left behind by a refusal.
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

#include "company/company.h"
#include "company/files/file_error.h"
#include "company/interchange/import_company.h"
#include "fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const goods::fuzz::Folder folder;
  static constexpr const char* kFiles[] = {"goods.csv", "stores.csv", "persons.csv", "movements.csv"};
  std::string_view text = goods::fuzz::AsText(data, size);
  for (const char* name : kFiles) {
    const std::size_t end = text.find("\n--\n");
    std::ofstream(folder.Path(name), std::ios::binary) << text.substr(0, end == text.npos ? end : end + 1);
    text = end == text.npos ? std::string_view() : text.substr(end + 4);
  }
  const std::string target = folder.Path("company");
  try {
    goods::ImportCompany(target, folder.Path(""));
    std::filesystem::remove(target);
  } catch (const goods::FileError&) {
    goods::fuzz::Holds(!std::filesystem::exists(target), "a refused import leaves no company");
  } catch (const goods::CompanyError&) {
    goods::fuzz::Holds(!std::filesystem::exists(target), "a refused import leaves no company");
  }
  std::size_t names = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path(""))) ++names;
  goods::fuzz::Holds(names == 4, "an import leaves nothing beside its files");
  return 0;
}
