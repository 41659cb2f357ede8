#include <memory>
#include <string>

#include "command.h"
#include "company/demo/demo_company.h"
#include "progress_line.h"

namespace goods {

Command MakeCreateCommand(CLI::App& program) {
  struct Line {
    std::string file;
    DemoOptions options;
    bool quiet = false;
  };
  const auto line = std::make_shared<Line>();
  CLI::App* create = program.add_subcommand("create", "Write a demo company");
  create->add_option("FILE", line->file, "The company file to write")->required();
  create->add_option("--goods", line->options.goods, "Number of goods")->capture_default_str();
  create->add_option("--stores", line->options.stores, "Number of stores")->capture_default_str();
  create->add_option("--movements", line->options.movements, "Number of stock-card rows")
      ->capture_default_str();
  create->add_option("--seed", line->options.seed, "The same seed gives the same file")
      ->capture_default_str();
  create->add_flag("--force", line->options.replace, "Replace an existing file");
  create->add_flag("--quiet", line->quiet, "Show no progress");
  return {create, [line] {
            MakeDemoCompany(line->file, line->options, MakeProgressLine(line->quiet));
            EndProgressLine();
            return kDone;
          }};
}

}  // namespace goods
