#include "module/reports/stockcard/row_search_criteria.h"

#include "host/services/public_methods.h"

namespace goods {

std::string ParametersOf(const RowSearchDialogCriteria& dialog) {
  std::string parameters;
  for (const SearchCriterion& item : dialog.items) parameters = ADDParam(item.ProcParams(), parameters);
  return parameters;
}

CriteriaText TextOf(const RowSearchCriteria& criteria) {
  CriteriaText text;
  text.AddPiece(criteria.comment.ProcParams());
  text.Say(criteria.comment.FarsiText());
  if (!criteria.dialog) return text;
  text.AddPiece(ParametersOf(*criteria.dialog));
  if (!criteria.dialog->told) return text;
  for (const SearchCriterion& item : criteria.dialog->items) text.Say(item.FarsiText());
  return text;
}

}  // namespace goods
