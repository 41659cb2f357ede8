// SQLite's calls to the system, one of which fails.
#pragma once

namespace goods {

// While it lives, the n-th call that reads, writes, locks, opens or flushes a file fails (a write as on a
// full disk), and when lasting is true every one after it; 0 fails none. One at a time; only handles opened
// while it lives are concerned.
class FaultyDisk {
 public:
  explicit FaultyDisk(int failAt, bool lasting = false);
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;
  ~FaultyDisk();
  // The calls so far.
  static int Calls();
};

}  // namespace goods
