// TGroupsPanel: the list of good groups beside a report, with its search edit.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/standard.h"

namespace goods {

// The current row of the list is the group that the report is limited to; the row with the code 0 stands for
// all. The list and the edit belong to the window, under the names that it gives.
class TGroupsPanel : public TPanel {
 public:
  // groups has the fields Code and Name; both must outlive the panel.
  TGroupsPanel(TComponent* window, std::string name, std::string gridName, TDataSource& groups);

  // 0 where the report is not limited to a group.
  std::int64_t Code() const;
  std::string GroupName() const;
  // "code - name", as criteria are told.
  std::string CodeAndName() const;

  // Another row is current, or the rows are new.
  std::function<void()> OnGroupChange;

  TEdit SearchGroup_EDT;
  TSmartDBGrid_QRT Groups_GRD;

 private:
  TDataSource& groups_;
};

}  // namespace goods
