#include "host/components/field_list.h"

#include <utility>

#include "host/components/form.h"

namespace goods {

void TFieldList::SetDataSource(TDataSource* source) {
  source_ = source;
  sourceChanged_ = source == nullptr ? Subscription() : source->Changed.Connect([this] { Changed(); });
  sourceScrolled_ = source == nullptr ? Subscription() : source->Scrolled.Connect([this] { Changed(); });
  Changed();
}

void TFieldList::SetFields(std::vector<TDetailField> fields) {
  fields_ = std::move(fields);
  Changed();
}

std::vector<TFieldList::Entry> TFieldList::Entries() const {
  const TADOQuery* query = source_ == nullptr ? nullptr : source_->DataSet();
  if (query == nullptr || !query->RecNo()) return {};
  const TForm* form = Form();
  const bool money = form == nullptr || form->ShowsMoney();
  std::vector<Entry> entries;
  for (const TDetailField& field : fields_) {
    if (!query->FindField(field.FieldName) || (field.Money && !money)) continue;
    const Value value = query->FieldByName(field.FieldName);
    const bool formatted = !field.Format.empty() && !value.IsNull();
    entries.push_back(
        {field.Caption, formatted ? DisplayFormat(field.Format).Format(value.AsDecimal()) : value.AsText()});
  }
  return entries;
}

void TFieldList::SetColumns(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  Changed();
}

}  // namespace goods
