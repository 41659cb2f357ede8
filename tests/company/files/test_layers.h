// File layers that fail, and one that forgets what was not flushed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "company/files/file_layer.h"

namespace goods {

// The n-th of the calls that change something, or that report on it, fails with the given error. Closing
// never fails: what it could tell was told by the flush.
class FailingLayer : public FileLayer {
 public:
  explicit FailingLayer(int failAt, int error) : failAt_(failAt), error_(error) {}
  int Calls() const { return calls_; }

  int Look(const std::string& path, bool follow, FileState& state) override {
    return Fails() ? error_ : FileLayer::Look(path, follow, state);
  }
  int LookAt(int handle, FileState& state) override {
    return Fails() ? error_ : FileLayer::LookAt(handle, state);
  }
  int List(const std::string& folder, std::vector<std::string>& names) override {
    return Fails() ? error_ : FileLayer::List(folder, names);
  }
  int Create(const std::string& path, std::uint32_t permissions, int& handle) override {
    return Fails() ? error_ : FileLayer::Create(path, permissions, handle);
  }
  int OpenFolder(const std::string& path, int& handle) override {
    return Fails() ? error_ : FileLayer::OpenFolder(path, handle);
  }
  int TryLock(int handle, bool& taken) override {
    return Fails() ? error_ : FileLayer::TryLock(handle, taken);
  }
  // Half of what was given still gets out, as on a disk that fills up.
  int Write(int handle, std::string_view bytes, std::size_t& written) override {
    if (!Fails()) return FileLayer::Write(handle, bytes, written);
    FileLayer::Write(handle, bytes.substr(0, bytes.size() / 2), written);
    return error_;
  }
  int SetPermissions(int handle, std::uint32_t permissions) override {
    return Fails() ? error_ : FileLayer::SetPermissions(handle, permissions);
  }
  int Flush(int handle) override { return Fails() ? error_ : FileLayer::Flush(handle); }
  int Rename(const std::string& from, const std::string& to, bool replace) override {
    return Fails() ? error_ : FileLayer::Rename(from, to, replace);
  }

 private:
  bool Fails() { return ++calls_ == failAt_; }

  int failAt_;
  int error_;
  int calls_ = 0;
};

// A disk whose power is cut: contents that were not flushed are gone, and so are names in a folder that was
// not flushed. One of both or both, as the disk likes; see PowerCut.
class ForgetfulLayer : public FileLayer {
 public:
  enum class Keeps { Nothing, Names, Contents };

  int Flush(int handle) override {
    FileState state;
    FileLayer::LookAt(handle, state);
    if (state.kind == FileKind::Folder) {
      renames_.clear();
    } else {
      flushed_[state.inode] = Read(handle);
    }
    return FileLayer::Flush(handle);
  }
  int Rename(const std::string& from, const std::string& to, bool replace) override {
    FileState moved;
    FileLayer::Look(from, false, moved);
    Renamed renamed{to, moved.inode, false, {}};
    int handle = -1;
    if (FileLayer::OpenToRead(to, false, handle) == 0) {
      renamed.replaced = true;
      renamed.before = Read(handle);
      FileLayer::Close(handle);
    }
    const int error = FileLayer::Rename(from, to, replace);
    if (error == 0) renames_.push_back(renamed);
    names_[moved.inode] = to;
    return error;
  }
  // What the folder looks like after the power came back. keeps: what reached the disk though nobody asked
  // for it.
  void PowerCut(Keeps keeps) {
    if (keeps != Keeps::Contents) {
      for (const auto& [inode, name] : names_) Rewrite(name, flushed_[inode]);
    }
    if (keeps != Keeps::Names) {
      for (auto renamed = renames_.rbegin(); renamed != renames_.rend(); ++renamed) {
        if (renamed->replaced) {
          Rewrite(renamed->name, renamed->before);
        } else {
          ::unlink(renamed->name.c_str());
        }
      }
    }
  }

 private:
  struct Renamed {
    std::string name;
    std::uint64_t inode;
    bool replaced;
    std::string before;
  };
  static std::string Read(int handle) {
    std::string contents;
    char block[4096];
    for (off_t at = 0;;) {
      const ssize_t read = ::pread(handle, block, sizeof block, at);
      if (read <= 0) return contents;
      contents.append(block, static_cast<std::size_t>(read));
      at += read;
    }
  }
  static void Rewrite(const std::string& name, const std::string& contents) {
    const int handle = ::open(name.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    for (std::size_t at = 0; at < contents.size();) {
      const ssize_t written = ::write(handle, contents.data() + at, contents.size() - at);
      if (written <= 0) break;
      at += static_cast<std::size_t>(written);
    }
    ::close(handle);
  }

  std::map<std::uint64_t, std::string> flushed_;
  std::map<std::uint64_t, std::string> names_;
  std::vector<Renamed> renames_;
};

}  // namespace goods
