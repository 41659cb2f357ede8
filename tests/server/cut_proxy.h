// A network between a test and the server that can fail.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace goods {

// Listens on 127.0.0.1 and forwards to the server. A thread of its own does the work; the calls may come from
// any other.
class CutProxy {
 public:
  CutProxy(const std::string& host, int port);
  CutProxy(const CutProxy&) = delete;
  CutProxy& operator=(const CutProxy&) = delete;
  ~CutProxy();
  int Port() const { return port_; }

  void Forward() { Become(Mode::Forward, 0); }
  // The next bytes of a client end its connection, and nothing of them reaches the server.
  void CutAtRequest() { Become(Mode::CutAtRequest, 0); }
  // Connections end once this many bytes have come from the server.
  void CutAfter(std::int64_t bytes) { Become(Mode::CutAfter, bytes); }
  // Connections stay, and nothing comes through.
  void FallSilent() { Become(Mode::Silent, 0); }
  // Nobody listens any more, and what is open ends.
  void Refuse() { Become(Mode::Refuse, 0); }
  // Whether clients have sent these bytes, within one packet of the network.
  bool WasSent(std::string_view bytes) const;

 private:
  enum class Mode { Forward, CutAtRequest, CutAfter, Silent, Refuse };
  struct Pair {
    int client = -1;
    int server = -1;
  };
  void Become(Mode mode, std::int64_t bytes);
  void Work();
  void Accept();
  // Whether the pair stays.
  bool Pass(const Pair& pair, bool fromServer);

  std::string host_;
  int target_ = 0;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<Mode> mode_{Mode::Forward};
  std::atomic<std::int64_t> left_{0};
  std::atomic<bool> ended_{false};
  std::vector<Pair> pairs_;
  mutable std::mutex sentMutex_;
  std::string sent_;
  std::thread worker_;
};

}  // namespace goods
