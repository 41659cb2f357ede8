#include "module/framework/groups_panel.h"

#include <utility>

namespace goods {
namespace {

constexpr int kWidth = 210;

}  // namespace

TGroupsPanel::TGroupsPanel(TComponent* window, std::string name, std::string gridName, TDataSource& groups)
    : TPanel(window, std::move(name)),
      SearchGroup_EDT(window, "SearchGroup_EDT"),
      Groups_GRD(window, std::move(gridName)),
      groups_(groups) {
  SearchGroup_EDT.SetPlaceholder("جستجو ... (Ctrl + F11)");
  SearchGroup_EDT.SetAccessibleName("جستجوی گروه کالا");
  // The first group whose name begins with what is typed; the report follows the row.
  SearchGroup_EDT.OnChange = [this] {
    TADOQuery* query = groups_.DataSet();
    if (query != nullptr && !SearchGroup_EDT.Text().empty()) {
      query->LocatePrefix("Name", SearchGroup_EDT.Text());
    }
  };
  Groups_GRD.SetAccessibleName("گروه های کالا");
  Groups_GRD.ShowFooter = false;
  Groups_GRD.MultiSelect = false;
  Groups_GRD.AddColumn("Name", "نام گروه").SetAutoFit(true);
  Groups_GRD.SetDataSource(&groups_);
  groups_.OnDataChange = [this] {
    if (OnGroupChange) OnGroupChange();
  };
  SetWidth(kWidth);
  Place(SearchGroup_EDT);
  Place(Groups_GRD, 1);
}

std::int64_t TGroupsPanel::Code() const {
  const TADOQuery* query = groups_.DataSet();
  return query == nullptr ? 0 : query->FieldByName("Code").AsInteger();
}

std::string TGroupsPanel::GroupName() const {
  const TADOQuery* query = groups_.DataSet();
  return query == nullptr ? std::string() : query->FieldByName("Name").AsText();
}

std::string TGroupsPanel::CodeAndName() const { return std::to_string(Code()) + " - " + GroupName(); }

}  // namespace goods
