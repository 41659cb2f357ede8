// The calls of the system that files are written with, for POSIX in file_layer_posix.cpp, for Windows in
// file_layer_win32.cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

enum class FileKind { None, Regular, Folder, Link, Other };

// What stands at a path. device and inode together are the file's identity, whatever it is called.
struct FileState {
  FileKind kind = FileKind::None;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;         // bytes
  std::uint32_t permissions = 0;  // the nine bits of owner, group and others
  std::uint32_t owner = 0;        // user id

  bool SameFile(const FileState& other) const {
    return kind != FileKind::None && other.kind != FileKind::None && device == other.device &&
           inode == other.inode;
  }
};

// Every call gives 0 or an errno, and is repeated when a signal interrupts it. A test derives from this class
// and lets calls fail or be forgotten. Paths are UTF-8; handles are file descriptors, which no child
// inherits.
class FileLayer {
 public:
  // The system itself; lives as long as the program.
  static FileLayer& System();
  // What stands between folders in a path: the first is what the program writes, all are read.
  static std::string_view Separators();
  // Whether a file that a program has open can be replaced; else Rename gives EBUSY until it is closed.
  static bool ReplacesOpenFiles();

  FileLayer() = default;
  FileLayer(const FileLayer&) = delete;
  FileLayer& operator=(const FileLayer&) = delete;
  virtual ~FileLayer();

  // Nothing there is no error: kind is None.
  virtual int Look(const std::string& path, bool followLinks, FileState& state);
  virtual int LookAt(int handle, FileState& state);
  virtual int ReadLink(const std::string& path, std::string& target);
  // The names in a folder, in no order.
  virtual int List(const std::string& folder, std::vector<std::string>& names);
  // The user whose rights the program has.
  virtual std::uint32_t User();
  // Whether that user may write the existing file.
  virtual bool MayWrite(const std::string& path);

  // A new file, for reading and writing. EEXIST when anything is there, be it a link to nothing.
  virtual int Create(const std::string& path, std::uint32_t permissions, int& handle);
  // An existing file. A pipe does not block.
  virtual int OpenToRead(const std::string& path, bool followLinks, int& handle);
  // Made when it is not there. A link as the last name is refused (ELOOP), a pipe does not block.
  virtual int OpenToAppend(const std::string& path, std::uint32_t permissions, int& handle);
  virtual int OpenFolder(const std::string& path, int& handle);
  // Takes the lock of an open file or folder unless somebody has it. It goes with the handle, or with the
  // program.
  virtual int TryLock(int handle, bool& taken);
  virtual int Read(int handle, char* into, std::size_t size, std::size_t& read);
  virtual int Write(int handle, std::string_view bytes, std::size_t& written);
  virtual int Truncate(int handle, std::uint64_t size);
  virtual int SetPermissions(int handle, std::uint32_t permissions);
  // Returns once the contents (of a folder: its names) would survive a power cut.
  virtual int Flush(int handle);
  virtual int Close(int handle);
  // Both in one folder. Without replace, EEXIST when anything is at the second.
  virtual int Rename(const std::string& from, const std::string& to, bool replace);
  virtual int Remove(const std::string& path);
};

// An open handle that closes itself.
class FileHandle {
 public:
  FileHandle() = default;
  FileHandle(FileLayer& layer, int handle) : layer_(&layer), handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept;
  FileHandle& operator=(FileHandle&& other) noexcept;
  ~FileHandle() { Close(); }
  int Get() const { return handle_; }
  bool IsOpen() const { return handle_ >= 0; }
  void Close();

 private:
  FileLayer* layer_ = nullptr;
  int handle_ = -1;
};

}  // namespace goods
