#include <utility>

#include "host/data/query.h"

namespace goods {

TDataSource::TDataSource(TComponent* owner, std::string name, TADOQuery* dataSet)
    : TComponent(owner, std::move(name)) {
  SetDataSet(dataSet);
}

void TDataSource::SetDataSet(TADOQuery* dataSet) {
  if (dataSet == dataSet_) return;
  changed_.Disconnect();
  scrolled_.Disconnect();
  dataSet_ = dataSet;
  if (dataSet_ != nullptr) {
    changed_ = dataSet_->Changed.Connect([this, dataSet] {
      const bool scrollFollows = dataSet->scrollFollows_;
      const std::weak_ptr<int> alive = alive_;
      Changed();
      if (!alive.expired() && !scrollFollows) DataChanged();
    });
    scrolled_ = dataSet_->Scrolled.Connect([this] {
      const std::weak_ptr<int> alive = alive_;
      Scrolled();
      if (!alive.expired()) DataChanged();
    });
  }
  const std::weak_ptr<int> alive = alive_;
  Changed();
  if (alive.expired()) return;
  Scrolled();
  if (!alive.expired()) DataChanged();
}

void TDataSource::DataChanged() const {
  const auto handler = OnDataChange;  // it may set another one
  if (handler) handler();
}

}  // namespace goods
