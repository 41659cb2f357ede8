// Memory that runs out: the program's operator new, one of whose calls fails.
#pragma once

namespace goods {

// While it lives, the n-th allocation of this thread throws std::bad_alloc; 0 fails none.
class FailingNew {
 public:
  explicit FailingNew(int failAt);
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;
  ~FailingNew();
  // The allocations of this thread since it was made.
  static int Calls();
};

}  // namespace goods
