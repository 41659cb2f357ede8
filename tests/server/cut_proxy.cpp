#include "cut_proxy.h"

#include <array>
#include <stdexcept>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace goods {

namespace {

constexpr int kLookEvery = 20;  // ms

int ConnectedTo(const std::string& host, int port) {
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return -1;
  const int made = socket(AF_INET, SOCK_STREAM, 0);
  const bool connected = made >= 0 && connect(made, found->ai_addr, found->ai_addrlen) == 0;
  freeaddrinfo(found);
  if (connected) return made;
  if (made >= 0) close(made);
  return -1;
}

bool SendAll(int to, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t sent = send(to, bytes, count, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

CutProxy::CutProxy(const std::string& host, int port) : host_(host), target_(port) {
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* raw = reinterpret_cast<sockaddr*>(&address);
  if (listener_ < 0 || bind(listener_, raw, size) != 0 || listen(listener_, 16) != 0 ||
      getsockname(listener_, raw, &size) != 0) {
    throw std::runtime_error("no port for the proxy");
  }
  port_ = ntohs(address.sin_port);
  worker_ = std::thread([this] { Work(); });
}

CutProxy::~CutProxy() {
  ended_ = true;
  worker_.join();
  close(listener_);
}

void CutProxy::Become(Mode mode, std::int64_t bytes) {
  left_ = bytes;
  mode_ = mode;
}

bool CutProxy::WasSent(std::string_view bytes) const {
  const std::lock_guard lock(sentMutex_);
  return sent_.find(bytes) != std::string::npos;
}

void CutProxy::Accept() {
  const int client = accept(listener_, nullptr, nullptr);
  if (client < 0) return;
  const int server = mode_ == Mode::Refuse ? -1 : ConnectedTo(host_, target_);
  if (server < 0) {
    close(client);
  } else {
    pairs_.push_back({client, server});
  }
}

bool CutProxy::Pass(const Pair& pair, bool fromServer) {
  std::array<char, 16384> bytes{};
  const ssize_t count = recv(fromServer ? pair.server : pair.client, bytes.data(), bytes.size(), 0);
  if (count <= 0) return false;
  if (mode_ == Mode::CutAtRequest && !fromServer) return false;
  if (!fromServer) {
    const std::lock_guard lock(sentMutex_);
    sent_.append(bytes.data(), static_cast<std::size_t>(count));
  }
  if (mode_ == Mode::CutAfter && fromServer && (left_ -= count) < 0) return false;
  return SendAll(fromServer ? pair.client : pair.server, bytes.data(), static_cast<std::size_t>(count));
}

void CutProxy::Work() {
  while (!ended_) {
    std::vector<pollfd> watched{{listener_, POLLIN, 0}};
    const bool silent = mode_ == Mode::Silent;
    for (const Pair& pair : pairs_) {
      const auto events = static_cast<short>(silent ? 0 : POLLIN);
      watched.push_back({pair.client, events, 0});
      watched.push_back({pair.server, events, 0});
    }
    poll(watched.data(), watched.size(), kLookEvery);
    const std::size_t known = pairs_.size();
    std::vector<Pair> stay;
    for (std::size_t i = 0; i < known; ++i) {
      const Pair& pair = pairs_[i];
      bool good = mode_ != Mode::Refuse;
      if (!silent && good && watched[1 + 2 * i].revents != 0) good = Pass(pair, false);
      if (!silent && good && watched[2 + 2 * i].revents != 0) good = Pass(pair, true);
      if (good) {
        stay.push_back(pair);
      } else {
        close(pair.client);
        close(pair.server);
      }
    }
    pairs_ = std::move(stay);
    if (watched[0].revents != 0) Accept();
  }
  for (const Pair& pair : pairs_) {
    close(pair.client);
    close(pair.server);
  }
}

}  // namespace goods
