// TPrintDBGridEh: prints what a grid shows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/components/grid.h"
#include "host/services/printing.h"

namespace goods {

class TPrintDBGridEh : public TComponent {
 public:
  using TComponent::TComponent;

  const TSmartDBGrid_QRT* Grid = nullptr;
  std::string Title;
  int Options = 0;
  std::vector<std::string> Parameters;

  // Adds the lines that stand above the printed grid.
  std::function<void(std::vector<std::string>& lines)> OnBeforePrint;

  // Does nothing without a grid.
  void Preview(IPrinting& printing) const;
};

}  // namespace goods
