// What the parts of the data module stand on, and how a window puts together the ones that it uses.
#pragma once

#include <string>
#include <utility>

#include "host/core/component.h"
#include "host/data/query.h"
#include "host/services/host.h"

namespace goods {

// A query with a data source of the same stem.
struct TQueryWithSource {
  TQueryWithSource(TComponent* owner, const std::string& stem, IConnection& connection)
      : Query(owner, stem + "_QRY", connection), Source(owner, stem + "_DS", &Query) {}
  TADOQuery Query;
  TDataSource Source;
};

// The owner of the parts' queries, with the general-purpose query of the small look-ups. Errors of the
// database pass to the caller unchanged, from every part.
class DataModule : public TComponent {
 public:
  // owner may be null; host must outlive the module.
  DataModule(THost& host, TComponent* owner)
      : TComponent(owner, "GoodTransactions_DM"), host_(host), connection_(host.Connection()) {}

  THost& Host() { return host_; }
  IConnection& Connection() { return connection_; }
  TADOQuery& General() { return general_; }
  // A statement without a result set.
  void Execute(std::string statement) {
    general_.SetSQL(std::move(statement));
    general_.ExecSQL();
  }

 private:
  THost& host_;
  IConnection& connection_;
  TADOQuery general_{this, "General_QRY", connection_};
};

// The parts that a window uses, made with it and with nothing beside them. A part is a class of its own, made
// with the DataModule that its queries belong to.
template <typename... Parts>
class DataModuleOf : public DataModule, public Parts... {
 public:
  DataModuleOf(THost& host, TComponent* owner)
      : DataModule(host, owner), Parts(static_cast<DataModule&>(*this))... {}
};

}  // namespace goods
