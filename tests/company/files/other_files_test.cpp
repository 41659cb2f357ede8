#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "company/files/appended_file.h"
#include "company/files/input_file.h"
#include "folder_fixture.h"
#include "test_layers.h"

namespace goods {
namespace {

namespace fs = std::filesystem;

template <typename Body>
std::optional<FileProblem> Problem(Body body) {
  try {
    body();
  } catch (const FileError& error) {
    return error.Problem();
  }
  return std::nullopt;
}

class AppendedFileTest : public FolderTest {};

TEST_F(AppendedFileTest, AddsBehindWhatIsThere) {
  Put("log", "one\n");
  AppendedFile log(Path("log"));
  log.Append("two\n");
  log.Append("three\n");
  EXPECT_EQ(Contents("log"), "one\ntwo\nthree\n");
}

TEST_F(AppendedFileTest, RefusesTheForbiddenFileAndWhatIsNoFile) {
  Put("company", "figures");
  fs::create_symlink("company", Path("link"));
  fs::create_hard_link(Path("company"), Path("second name"));
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const char* name : {"company", "link", "second name", "company-journal"}) {
    EXPECT_EQ(Problem([&] { AppendedFile(Path(name), {Path("company")}); }), FileProblem::Forbidden) << name;
  }
  EXPECT_EQ(Problem([&] { AppendedFile{Path("pipe")}; }), FileProblem::NotRegular);
  EXPECT_EQ(Problem([&] { AppendedFile{folder_.string()}; }), FileProblem::Folder);
  EXPECT_EQ(Problem([&] { AppendedFile{Path("none/log")}; }), FileProblem::NoFolder);
  EXPECT_EQ(Contents("company"), "figures");
}

TEST_F(AppendedFileTest, AddsNothingToADatabase) {
  const std::string database = std::string("SQLite format 3") + '\0' + "pages";
  Put("company", database);
  EXPECT_EQ(Problem([&] { AppendedFile{Path("company")}; }), FileProblem::Database);
  EXPECT_EQ(Contents("company"), database);
}

// Takes a few bytes, then has no room.
class FullDisk : public FileLayer {
 public:
  int Write(int handle, std::string_view bytes, std::size_t& written) override {
    const std::size_t taken = std::min(room, bytes.size());
    if (taken == 0) return ENOSPC;
    room -= taken;
    return FileLayer::Write(handle, bytes.substr(0, taken), written);
  }
  std::size_t room = 0;
};

TEST_F(AppendedFileTest, AnEntryThatDoesNotFitIsTakenBackWhole) {
  FullDisk disk;
  AppendedFile log(Path("log"), {}, &disk);
  disk.room = 9;
  log.Append("first\n");
  EXPECT_EQ(Problem([&] { log.Append("second\n"); }), FileProblem::NoSpace);
  EXPECT_EQ(Contents("log"), "first\n");
  disk.room = 100;
  log.Append("third\n");
  EXPECT_EQ(Contents("log"), "first\nthird\n");
}

class InputFileTest : public FolderTest {};

TEST_F(InputFileTest, ReadsAFileAndALinkToOne) {
  Put("a", "contents");
  fs::create_symlink("a", Path("link"));
  EXPECT_EQ(ReadInputFile(Path("a"), 8), "contents");
  EXPECT_EQ(ReadInputFile(Path("link"), 8), "contents");
  CheckInputFile(Path("a"));
}

TEST_F(InputFileTest, RefusesWhatIsNoFileWithoutWaitingForIt) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  fs::create_symlink("pipe", Path("link"));
  EXPECT_EQ(Problem([&] { CheckInputFile(Path("pipe")); }), FileProblem::NotRegular);
  EXPECT_EQ(Problem([&] { CheckInputFile(Path("link")); }), FileProblem::NotRegular);
  EXPECT_EQ(Problem([&] { CheckInputFile("/dev/zero"); }), FileProblem::NotRegular);
  EXPECT_EQ(Problem([&] { CheckInputFile(folder_.string()); }), FileProblem::Folder);
  EXPECT_EQ(Problem([&] { CheckInputFile(Path("none")); }), FileProblem::Missing);
}

TEST_F(InputFileTest, RefusesMoreThanTheLimit) {
  Put("a", "contents");
  EXPECT_EQ(Problem([&] { ReadInputFile(Path("a"), 7); }), FileProblem::TooLarge);
}

}  // namespace
}  // namespace goods
