// ZipWriter: a ZIP archive from front to back, without a file that could be read back or sought in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/print/byte_sink.h"

namespace goods {

// Entries are compressed as they come and go to the sink at once; their sizes stand behind them (data
// descriptors), so memory does not grow with what is written. An entry or an archive that would need more
// than 32 bits of size throws std::length_error. Names are ASCII.
class ZipWriter {
 public:
  // The sink must outlive it.
  explicit ZipWriter(ByteSink& sink);
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  void Begin(std::string name);
  // Into the entry that was begun last.
  void Write(std::string_view bytes);
  void End();
  // A whole entry.
  void Add(std::string name, std::string_view bytes);
  // The list of the entries; the archive is not one before. Once, at the end.
  void Finish();

 private:
  struct Entry {
    std::string name;
    std::uint64_t at = 0;
    std::uint64_t compressed = 0;
    std::uint64_t plain = 0;
    std::uint32_t checksum = 0;
  };
  class Deflater;

  void Deflate(std::string_view bytes, bool last);
  void Put(std::string_view bytes);

  ByteSink& sink_;
  std::unique_ptr<Deflater> deflater_;
  std::vector<Entry> entries_;
  std::uint64_t written_ = 0;
};

}  // namespace goods
