// ByteSink: where a writer's bytes go, in order. SinkBuffer: the writers' way of handing over small pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace goods {

class ByteSink {
 public:
  virtual ~ByteSink();
  // Throws when the bytes could not be taken; nothing more is then written.
  virtual void Write(std::string_view bytes) = 0;
};

// Gathers what is appended to Text() and hands it on in large pieces. Finish hands on the rest.
class SinkBuffer {
 public:
  explicit SinkBuffer(ByteSink& sink) : sink_(sink) { text_.reserve(kPiece + kPiece / 4); }
  std::string& Text() { return text_; }
  // Called between rows.
  void Pass() {
    if (text_.size() >= kPiece) Finish();
  }
  void Finish() {
    sink_.Write(text_);
    text_.clear();
  }

 private:
  static constexpr std::size_t kPiece = 65536;
  ByteSink& sink_;
  std::string text_;
};

}  // namespace goods
