// goods-company: makes company files.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "company/demo/demo_company.h"
#include "company/import/import_company.h"

int main(int argc, char** argv) {
  CLI::App app("Makes company files for the goods reports.");
  app.require_subcommand(1);

  std::string file;
  goods::DemoOptions options;
  CLI::App* create = app.add_subcommand("create", "Write a demo company");
  create->add_option("FILE", file, "The company file to write")->required();
  create->add_option("--goods", options.goods, "Number of goods")->capture_default_str();
  create->add_option("--stores", options.stores, "Number of stores")->capture_default_str();
  create->add_option("--movements", options.movements, "Number of stock-card rows")->capture_default_str();
  create->add_option("--seed", options.seed, "The same seed gives the same file")->capture_default_str();
  create->add_flag("--force", options.replace, "Replace an existing file");

  std::string folder;
  goods::ImportOptions importOptions;
  CLI::App* import = app.add_subcommand("import", "Write a company from CSV files; see docs/import.md");
  import->add_option("FILE", file, "The company file to write")->required();
  import->add_option("--from", folder, "The folder with goods.csv, stores.csv, persons.csv, movements.csv")
      ->required();
  import->add_option("--title", importOptions.title, "The company's name; the folder's name when not given");
  import->add_flag("--force", importOptions.replace, "Replace an existing file");

  CLI11_PARSE(app, argc, argv);
  try {
    if (create->parsed()) {
      goods::MakeDemoCompany(file, options);
    } else {
      const goods::ImportCounts counts = goods::ImportCompany(file, folder, importOptions);
      std::cout << counts.goods << " goods, " << counts.stores << " stores, " << counts.persons
                << " persons, " << counts.movements << " movements\n";
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
