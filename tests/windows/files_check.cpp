// Files, arguments and libraries as Windows has them: a program that scripts/check-windows-layer compiles
// with company/files and company/system alone, and runs. The first argument is a library to load, the second
// the word that the argument must be.
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <string>

#include <windows.h>

#include "company/files/appended_file.h"
#include "company/files/file_error.h"
#include "company/files/file_path.h"
#include "company/files/input_file.h"
#include "company/files/whole_file.h"
#include "company/system/library.h"
#include "company/system/program.h"

namespace fs = std::filesystem;

namespace goods {
namespace {

int failures = 0;

void Expect(bool holds, const std::string& what) {
  std::cout << (holds ? "ok      " : "FAILED  ") << what << "\n";
  if (!holds) ++failures;
}

std::optional<FileProblem> ProblemIn(const std::function<void()>& work) {
  try {
    work();
  } catch (const FileError& error) {
    return error.Problem();
  }
  return std::nullopt;
}

std::size_t FilesIn(const std::string& folder) {
  std::size_t count = 0;
  for (const auto& entry : fs::directory_iterator(PathOf(folder))) count += entry.exists() ? 1 : 0;
  return count;
}

// A handle as another program would have it: without letting go of the file's name.
class OpenElsewhere {
 public:
  explicit OpenElsewhere(const std::string& path)
      : handle_(CreateFileW(PathOf(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {}
  OpenElsewhere(const OpenElsewhere&) = delete;
  OpenElsewhere& operator=(const OpenElsewhere&) = delete;
  ~OpenElsewhere() { CloseHandle(handle_); }

 private:
  HANDLE handle_;
};

void CheckWholeFiles(const std::string& folder) {
  const std::string file = folder + "/کاردکس.txt";
  WriteWholeFile(file, "one");
  Expect(ReadInputFile(file, 100) == "one", "a file with a Persian name is written and read");
  {
    WholeFile half(file);
    half.Write("two");
    Expect(ReadInputFile(file, 100) == "one", "before the end the old file stands");
    Expect(ProblemIn([&] { WholeFile second(file); }) == FileProblem::InUse, "two do not write one file");
  }
  Expect(FilesIn(folder) == 1 && ReadInputFile(file, 100) == "one", "what was not finished leaves nothing");
  WriteWholeFile(file, "two\n");
  Expect(ReadInputFile(file, 100) == "two\n", "a file is replaced, its bytes as they are");
  WholeFileOptions once;
  once.replace = false;
  Expect(ProblemIn([&] { WriteWholeFile(file, "three", once); }) == FileProblem::Exists,
         "a file that is not to be replaced stays");
  {
    const OpenElsewhere reader(file);
    Expect(ProblemIn([&] { WriteWholeFile(file, "four"); }) == FileProblem::InUse,
           "a file that another program has open is refused in words");
  }
  Expect(ReadInputFile(file, 100) == "two\n" && FilesIn(folder) == 1, "and loses nothing");
  const std::string backslashes = PathOf(folder).make_preferred().string() + "\\back.txt";
  WriteWholeFile(backslashes, "five");
  Expect(fs::exists(PathOf(folder) / "back.txt") && FilesIn(folder) == 2, "either separator will do");
  SetFileAttributesW(PathOf(file).c_str(), FILE_ATTRIBUTE_READONLY);
  Expect(ProblemIn([&] { WriteWholeFile(file, "six"); }) == FileProblem::ReadOnly,
         "a file marked read-only is obeyed");
  SetFileAttributesW(PathOf(file).c_str(), FILE_ATTRIBUTE_NORMAL);
}

void CheckOddNames(const std::string& folder) {
  Expect(ProblemIn([&] { WriteWholeFile(folder + "/a.txt:stream", "x"); }).has_value() &&
             !fs::exists(PathOf(folder) / "a.txt"),
         "a name with a colon does not become a stream of another file");
  Expect(ProblemIn([&] { WriteWholeFile(folder, "x"); }) == FileProblem::Folder, "a folder is no target");
  Expect(ProblemIn([&] { WriteWholeFile(folder + "/none/x", "x"); }) == FileProblem::NoFolder,
         "a folder that is not there is told");
  Expect(ProblemIn([&] { WriteWholeFile("NUL", "x"); }).has_value(), "a device is no target");
  Expect(ProblemIn([&] { ReadInputFile(folder + "/none.txt", 10); }) == FileProblem::Missing,
         "a file that is not there is told");
}

void CheckAppending(const std::string& folder) {
  const std::string file = folder + "/log.txt";
  {
    AppendedFile log(file, {});
    log.Append("one\n");
  }
  {
    AppendedFile log(file, {});
    log.Append("two\n");
  }
  Expect(ReadInputFile(file, 100) == "one\ntwo\n", "entries are appended, their bytes as they are");
  Expect(ProblemIn([&] { const AppendedFile log(file, {folder + "\\LOG.TXT"}); }) == FileProblem::Forbidden,
         "a forbidden file is known in another spelling");
}

// What sorting beyond memory does: files that lose their name while they are open.
void CheckNamelessFiles(const std::string& folder) {
  FileLayer& layer = FileLayer::System();
  const std::string name = folder + "/run";
  int first = -1;
  Expect(layer.Create(name, 0600, first) == 0, "a temporary file is made");
  const FileHandle out(layer, first);
  int reading = -1;
  Expect(layer.OpenToRead(name, false, reading) == 0, "and opened a second time");
  const FileHandle in(layer, reading);
  Expect(layer.Remove(name) == 0, "and removed while it is open");
  std::size_t written = 0;
  layer.Write(first, "bytes", written);
  char bytes[8] = {};
  std::size_t read = 0;
  layer.Read(reading, bytes, sizeof bytes, read);
  Expect(std::string(bytes, read) == "bytes", "and still written and read");
  int again = -1;
  const int error = layer.Create(name, 0600, again);
  const FileHandle next(layer, again);
  Expect(error == 0 || error == EEXIST, "its name is free, or taken until it is closed");
}

void CheckLibrary(const std::string& library, const std::string& word) {
  Expect(word == "کالا", "an argument arrives as UTF-8");
  std::string problem;
  void* loaded = OpenLibrary(library, problem);
  Expect(loaded != nullptr && FindInLibrary(loaded, "Sleep") != nullptr, "a library is loaded");
  Expect(FindInLibrary(loaded, "None") == nullptr && FindInProgram("Sleep") != nullptr,
         "and names are found");
  CloseLibrary(loaded);
  Expect(OpenLibrary(library + ".none", problem) == nullptr && !problem.empty(), "a missing one is told");
  static const char kHere = 0;
  Expect(FileOfCode(&kHere).ends_with(".exe"), "code knows the file that it is in");
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::PrepareTerminalOutput();
  goods::ProgramArguments arguments(argc, argv);
  if (arguments.Count() != 3) return 2;
  const std::string folder = goods::MakeTemporaryFolder("goods-کالا-");
  goods::CheckWholeFiles(folder);
  goods::CheckOddNames(folder);
  goods::CheckAppending(folder);
  goods::CheckNamelessFiles(folder);
  goods::CheckLibrary(arguments.Values()[1], arguments.Values()[2]);
  std::error_code ignored;
  fs::remove_all(goods::PathOf(folder), ignored);
  std::cout << goods::failures << " failed\n";
  return goods::failures == 0 ? 0 : 1;
}
