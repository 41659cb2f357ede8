#include <iostream>
#include <memory>
#include <string>

#include "command.h"
#include "company/interchange/import_company.h"

namespace goods {

Command MakeImportCommand(CLI::App& program) {
  struct Line {
    std::string file;
    std::string folder;
    ImportOptions options;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* import = program.add_subcommand("import", "Write a company from CSV files; see docs/import.md");
  import->add_option("FILE", line->file, "The company file to write")->required();
  import
      ->add_option("--from", line->folder,
                   "The folder with goods.csv, stores.csv, persons.csv, movements.csv")
      ->required();
  import->add_option("--title", line->options.title, "The company's name; the folder's name when not given");
  import->add_flag("--force", line->options.replace, "Replace an existing file");
  return {import, [line] {
            const ImportCounts counts = ImportCompany(line->file, line->folder, line->options);
            std::cout << counts.goods << " goods, " << counts.stores << " stores, " << counts.persons
                      << " persons, " << counts.movements << " movements\n";
            return kDone;
          }};
}

}  // namespace goods
