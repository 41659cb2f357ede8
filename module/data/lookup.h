// The general-purpose query, open for the length of one lookup.
#pragma once

#include <string>
#include <utility>

#include "module/data/data_module.h"

namespace goods {

class Lookup {
 public:
  Lookup(DataModule& module, std::string statement) : query_(module.General()) {
    query_.SetSQL(std::move(statement));
    query_.Open();
  }
  Lookup(const Lookup&) = delete;
  Lookup& operator=(const Lookup&) = delete;
  ~Lookup() { query_.Close(); }

  bool IsEmpty() const { return query_.IsEmpty(); }
  // Of the first row; null without one.
  Value Field(std::string_view name) const { return query_.FieldByName(name); }

  // Calls each for every row, as the current one.
  template <typename Each>
  void ForEachRow(Each&& each) {
    for (std::size_t position = 0; position < query_.RecordCount(); ++position) {
      query_.MoveTo(position);
      each(*this);
    }
  }

 private:
  TADOQuery& query_;
};

}  // namespace goods
