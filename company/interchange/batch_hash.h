// What a batch of movements is recognised by.
#pragma once

#include <memory>
#include <string>

#include "company/writer/movement.h"

namespace goods {

// Batches with the same movements in the same order are equal, whatever the files looked like.
class BatchHash {
 public:
  BatchHash();
  ~BatchHash();
  // A document number that the import gave does not count.
  void Add(const Movement& movement, bool numbered);
  std::int64_t Movements() const { return movements_; }
  // As hexadecimal digits; once.
  std::string Text();

 private:
  struct State;
  std::unique_ptr<State> state_;
  std::string packed_;
  std::int64_t movements_ = 0;
};

}  // namespace goods
