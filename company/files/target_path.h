// Where a file that is to be written really lies, and whether it may be written there. Shared by WholeFile
// and AppendedFile, so that every file of the program follows the same rules.
#pragma once

#include <string>
#include <vector>

#include "company/files/file_layer.h"

namespace goods {

struct TargetRules {
  bool replace = true;                 // an existing file may be written
  bool overDatabases = false;          // see WholeFileOptions::overDatabases
  std::vector<std::string> forbidden;  // see WholeFileOptions::forbidden
};

struct Target {
  std::string path;    // no link as its last name
  std::string folder;  // "." for a bare name
  std::string name;    // within the folder
  FileState state;     // kind None: not there yet
};

// The path of a name within a folder, which is not the empty text.
std::string PathIn(const std::string& folder, const std::string& name);

// Follows the links that path ends in and looks at what is there. A link is followed when it belongs to the
// user, to the owner of the folder that it lies in, or to the system's administrator. Throws FileError when
// the target is a folder, a pipe, a device, marked read-only, forbidden, or there though it may not be
// replaced.
Target FindTarget(FileLayer& layer, const std::string& path, const TargetRules& rules);

// Throws when target is one of the forbidden files: the same file under any name, or the same place.
void RefuseForbidden(FileLayer& layer, const Target& target, const std::vector<std::string>& forbidden);

// Both are there and are one file, whatever they are called.
bool IsSameFile(const std::string& first, const std::string& second, FileLayer& layer = FileLayer::System());

}  // namespace goods
