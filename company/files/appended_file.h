// AppendedFile: a log that only ever holds whole entries.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "company/files/file_error.h"
#include "company/files/file_layer.h"
#include "company/files/target_path.h"

namespace goods {

// Entries are added at the end of the file, which is made when it is not there. An entry that does not fit on
// the disk is taken back. Targets and links follow the same rules as a WholeFile's. One object is used by one
// thread at a time; other programs may append to the same file.
class AppendedFile {
 public:
  // forbidden: see WholeFileOptions. layer null: FileLayer::System(). Throws FileError.
  explicit AppendedFile(std::string path, const std::vector<std::string>& forbidden = {},
                        FileLayer* layer = nullptr);

  // Throws FileError when the open file is one of these; see WholeFileOptions::forbidden.
  void Forbid(const std::vector<std::string>& files) const;

  // Throws FileError when the entry was not written; the entries before it stand whole.
  void Append(std::string_view entry);

 private:
  FileLayer& layer_;
  std::string path_;
  Target target_;
  FileHandle handle_;
};

}  // namespace goods
