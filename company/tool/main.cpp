// goods-company: makes company files.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "company/demo/demo_company.h"

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

  CLI11_PARSE(app, argc, argv);
  try {
    goods::MakeDemoCompany(file, options);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
