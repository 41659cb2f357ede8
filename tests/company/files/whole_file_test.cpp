#include "company/files/whole_file.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "folder_fixture.h"
#include "test_layers.h"

namespace goods {
namespace {

using std::chrono::milliseconds;
namespace fs = std::filesystem;

constexpr milliseconds kNoPatience{0};

class WholeFileTest : public FolderTest {
 protected:
  // The problem that writing is refused with; none when it is written.
  std::optional<FileProblem> ProblemOfWriting(const std::string& path, WholeFileOptions options = {}) {
    options.patience = kNoPatience;
    try {
      WriteWholeFile(path, "new", options);
    } catch (const FileError& error) {
      EXPECT_NE(std::string(error.what()).find(": "), std::string::npos);
      return error.Problem();
    }
    return std::nullopt;
  }
  unsigned Permissions(const std::string& name) {
    return static_cast<unsigned>(fs::status(Path(name)).permissions()) & 0777U;
  }
};

TEST_F(WholeFileTest, IsThereOnlyAfterCommit) {
  WholeFile file(Path("a"));
  file.Write("one ");
  file.Write("two");
  EXPECT_FALSE(fs::exists(Path("a")));
  file.Commit();
  EXPECT_EQ(Contents("a"), "one two");
  EXPECT_EQ(Names(), Listed{"a"});
}

TEST_F(WholeFileTest, ReplacesTheOldFileAtCommitAndNotBefore) {
  Put("a", "old");
  WholeFile file(Path("a"));
  file.Write(std::string(300'000, 'x'));
  EXPECT_EQ(Contents("a"), "old");
  file.Commit();
  EXPECT_EQ(Contents("a"), std::string(300'000, 'x'));
}

TEST_F(WholeFileTest, GivenUpLeavesTheOldFileAndNothingElse) {
  Put("a", "old");
  { WholeFile(Path("a")).Write("new"); }
  EXPECT_EQ(Contents("a"), "old");
  EXPECT_EQ(Names(), Listed{"a"});
}

TEST_F(WholeFileTest, TakesNamesOfAnyLengthAndSpelling) {
  for (const std::string& name :
       {std::string("file:a?mode=memory"), std::string(":memory:"), std::string("کالا و انبار"),
        std::string(250, 'n'), std::string("a\nb"), std::string("-f"), std::string(".a")}) {
    WriteWholeFile(Path(name), "text");
    EXPECT_EQ(Contents(name), "text") << name;
  }
  EXPECT_EQ(Names().size(), 7U);
  EXPECT_EQ(ProblemOfWriting(Path(std::string(256, 'n'))), FileProblem::Failed);
}

TEST_F(WholeFileTest, RefusesAnExistingFileWhenItMayNotReplace) {
  Put("a", "old");
  EXPECT_EQ(ProblemOfWriting(Path("a"), {.replace = false}), FileProblem::Exists);
  EXPECT_EQ(Contents("a"), "old");
}

TEST_F(WholeFileTest, RefusesAFileThatAppearedMeanwhileWhenItMayNotReplace) {
  WholeFile file(Path("a"), {.replace = false});
  file.Write("new");
  Put("a", "of another");
  EXPECT_THROW(file.Commit(), FileError);
  EXPECT_EQ(Contents("a"), "of another");
}

TEST_F(WholeFileTest, RefusesFoldersPipesAndDevices) {
  fs::create_directory(Path("folder"));
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ProblemOfWriting(Path("folder")), FileProblem::Folder);
  EXPECT_EQ(ProblemOfWriting(Path("folder/")), FileProblem::Folder);
  EXPECT_EQ(ProblemOfWriting(Path("pipe")), FileProblem::NotRegular);
  EXPECT_EQ(ProblemOfWriting("/dev/null"), FileProblem::NotRegular);
  EXPECT_EQ(ProblemOfWriting(""), FileProblem::Missing);
}

TEST_F(WholeFileTest, RefusesWhatBecameAFolderMeanwhile) {
  WholeFile file(Path("a"));
  fs::create_directory(Path("a"));
  EXPECT_THROW(file.Commit(), FileError);
  EXPECT_TRUE(fs::is_directory(Path("a")));
}

TEST_F(WholeFileTest, TellsAMissingFolder) {
  EXPECT_EQ(ProblemOfWriting(Path("none/a")), FileProblem::NoFolder);
  Put("a", "old");
  EXPECT_EQ(ProblemOfWriting(Path("a/b")), FileProblem::NoFolder);
}

TEST_F(WholeFileTest, ObeysTheReadOnlyMarkEvenOfAnAdministrator) {
  Put("a", "old");
  fs::permissions(Path("a"), fs::perms::owner_read | fs::perms::group_read);
  EXPECT_EQ(ProblemOfWriting(Path("a")), FileProblem::ReadOnly);
  EXPECT_EQ(Contents("a"), "old");
}

TEST_F(WholeFileTest, KeepsThePermissionsOfTheFileThatItReplaces) {
  Put("a", "old");
  fs::permissions(Path("a"), fs::perms{0640});
  WriteWholeFile(Path("a"), "new");
  EXPECT_EQ(Permissions("a"), 0640U);
}

TEST_F(WholeFileTest, IsForItsOwnerAloneWhenAsked) {
  Put("a", "old");
  fs::permissions(Path("a"), fs::perms{0666});
  for (const char* name : {"a", "b"}) {
    WholeFile file(Path(name), {.ownerOnly = true});
    EXPECT_EQ(static_cast<unsigned>(fs::status(file.TemporaryPath()).permissions()), 0600U);
    file.Commit();
    EXPECT_EQ(Permissions(name), 0600U);
  }
}

TEST_F(WholeFileTest, FollowsAnOwnLinkAndLeavesIt) {
  fs::create_directory(Path("far"));
  Put("far/real", "old");
  fs::create_symlink("far/real", Path("link"));
  fs::create_symlink(Path("far/new"), Path("dangling"));
  WriteWholeFile(Path("link"), "new");
  WriteWholeFile(Path("dangling"), "new too");
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(Contents("far/real"), "new");
  EXPECT_EQ(Contents("far/new"), "new too");
}

TEST_F(WholeFileTest, DoesNotFollowARingOfLinks) {
  fs::create_symlink("b", Path("a"));
  fs::create_symlink("a", Path("b"));
  EXPECT_EQ(ProblemOfWriting(Path("a")), FileProblem::ForeignLink);
}

// The owner of links, as if somebody else had put them there.
class ForeignLinks : public FileLayer {
 public:
  int Look(const std::string& path, bool follow, FileState& state) override {
    const int error = FileLayer::Look(path, follow, state);
    if (state.kind == FileKind::Link) state.owner = 4711;
    return error;
  }
};

TEST_F(WholeFileTest, DoesNotFollowALinkThatSomebodyElsePlanted) {
  Put("mine", "precious");
  fs::create_symlink("mine", Path("a"));
  ForeignLinks layer;
  EXPECT_EQ(ProblemOfWriting(Path("a"), {.layer = &layer}), FileProblem::ForeignLink);
  EXPECT_EQ(Contents("mine"), "precious");
}

// Somebody guesses the temporary name and puts a link there first.
class PlantingLayer : public FileLayer {
 public:
  int Create(const std::string& path, std::uint32_t permissions, int& handle) override {
    if (planted++ == 0) fs::create_symlink("mine", path);
    return FileLayer::Create(path, permissions, handle);
  }
  int planted = 0;
};

TEST_F(WholeFileTest, TakesAnotherTemporaryNameWhenALinkWasPlanted) {
  Put("mine", "precious");
  PlantingLayer layer;
  WriteWholeFile(Path("a"), "new", {.layer = &layer});
  EXPECT_EQ(layer.planted, 2);
  EXPECT_EQ(Contents("a"), "new");
  EXPECT_EQ(Contents("mine"), "precious");
}

TEST_F(WholeFileTest, NeverWritesAForbiddenFileUnderAnyName) {
  Put("company", "figures");
  Put("company-journal", "figures");
  fs::create_directory(Path("sub"));
  fs::create_symlink("company", Path("link"));
  fs::create_hard_link(Path("company"), Path("second name"));
  const WholeFileOptions options{.forbidden = {"", Path("company")}};
  for (const char* name :
       {"company", "link", "second name", "sub/../company", "company-journal", "company-wal"}) {
    EXPECT_EQ(ProblemOfWriting(Path(name), options), FileProblem::Forbidden) << name;
  }
  EXPECT_EQ(Contents("company"), "figures");
  EXPECT_EQ(ProblemOfWriting(Path("company.txt"), options), std::nullopt);
}

TEST_F(WholeFileTest, ReplacesADatabaseOnlyWhenItWritesOne) {
  const std::string database = std::string("SQLite format 3") + '\0' + std::string(100, ' ');
  Put("company", database);
  EXPECT_EQ(ProblemOfWriting(Path("company")), FileProblem::Database);
  EXPECT_EQ(Contents("company"), database);
  EXPECT_EQ(ProblemOfWriting(Path("company"), {.overDatabases = true}), std::nullopt);
  EXPECT_EQ(Contents("company"), "new");
}

TEST_F(WholeFileTest, RefusesASecondWriterAndLetsTheFirstEnd) {
  WholeFile first(Path("a"));
  first.Write("first");
  EXPECT_EQ(ProblemOfWriting(Path("a")), FileProblem::InUse);
  EXPECT_EQ(ProblemOfWriting(Path("b")), std::nullopt);
  first.Commit();
  EXPECT_EQ(Contents("a"), "first");
  EXPECT_EQ(ProblemOfWriting(Path("a")), std::nullopt);
}

TEST_F(WholeFileTest, WaitsForAnotherWriterAsLongAsItHasPatience) {
  std::optional<WholeFile> first(Path("a"));
  std::thread other([&] { WriteWholeFile(Path("a"), "second", {.patience = milliseconds(60'000)}); });
  first->Write("first");
  first->Commit();
  first.reset();
  other.join();
  EXPECT_EQ(Contents("a"), "second");
}

TEST_F(WholeFileTest, ManyWritersOfOneFileLeaveOneWholeFile) {
  std::vector<std::thread> writers;
  for (char letter = 'a'; letter < 'i'; ++letter) {
    writers.emplace_back([&, letter] {
      for (int round = 0; round < 10; ++round) {
        WriteWholeFile(Path("a"), std::string(100'000, letter), {.patience = milliseconds(60'000)});
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  const std::string contents = Contents("a");
  EXPECT_EQ(contents, std::string(100'000, contents.empty() ? '?' : contents[0]));
  EXPECT_EQ(Names(), Listed{"a"});
}

TEST_F(WholeFileTest, RemovesWhatAKilledWriterLeft) {
  Put("a", "old");
  const pid_t child = fork();
  if (child == 0) {
    WholeFile file(Path("a"));
    file.Write("half");
    raise(SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(Contents("a"), "old");
  EXPECT_EQ(Names().size(), 2U);
  WriteWholeFile(Path("a"), "new");
  EXPECT_EQ(Names(), Listed{"a"});
}

TEST_F(WholeFileTest, LeavesFilesAloneThatOnlyLookLikeItsOwn) {
  for (const char* name : {".a.txt.partial", ".a.0123456789abcdef.part", ".ab.0123456789abcdef.partial"})
    Put(name, "");
  WriteWholeFile(Path("a"), "new");
  EXPECT_EQ(Names().size(), 4U);
}

TEST_F(WholeFileTest, ALibraryMayWriteTheTemporaryFileByName) {
  WholeFile file(Path("a"));
  { std::ofstream(file.TemporaryPath(), std::ios::binary) << "by a library"; }
  file.Commit();
  EXPECT_EQ(Contents("a"), "by a library");
}

TEST_F(WholeFileTest, NoticesThatItsTemporaryFileWasReplacedOrTakenAway) {
  Put("a", "old");
  {
    WholeFile file(Path("a"));
    fs::remove(file.TemporaryPath());
    Put("b", "of another");
    fs::rename(Path("b"), file.TemporaryPath());
    EXPECT_THROW(file.Commit(), FileError);
    fs::remove(file.TemporaryPath());
  }
  WholeFile file(Path("a"));
  fs::remove(file.TemporaryPath());
  EXPECT_THROW(file.Commit(), FileError);
  EXPECT_EQ(Contents("a"), "old");
}

TEST_F(WholeFileTest, EveryFailingCallIsToldAndLeavesTheOldFileWhole) {
  Put("a", "old");
  FailingLayer counting(0, 0);
  WriteWholeFile(Path("a"), "old", {.layer = &counting});
  ASSERT_GT(counting.Calls(), 10);
  for (int call = 1; call <= counting.Calls(); ++call) {
    FailingLayer layer(call, call % 2 == 0 ? ENOSPC : EIO);
    bool told = false;
    try {
      WriteWholeFile(Path("a"), "new", {.patience = kNoPatience, .layer = &layer});
    } catch (const FileError& error) {
      told = true;
      EXPECT_EQ(error.Problem(), call % 2 == 0 ? FileProblem::NoSpace : FileProblem::Failed);
    }
    // Without locks a writer goes on; the flush of the folder comes when the new file stands.
    const std::string contents = Contents("a");
    if (told) {
      EXPECT_TRUE(contents == "old" || (contents == "new" && call >= counting.Calls() - 1))
          << call << contents;
    } else {
      EXPECT_EQ(contents, "new") << call;
    }
    EXPECT_EQ(Names(), Listed{"a"}) << call;
    Put("a", "old");
  }
}

TEST_F(WholeFileTest, AFailureIsNotForgotten) {
  FailingLayer counting(0, 0);
  { WholeFile file(Path("a"), {.layer = &counting}); }
  FailingLayer layer(counting.Calls(), ENOSPC);
  WholeFile file(Path("b"), {.layer = &layer});
  EXPECT_THROW(file.Write(std::string(100'000, 'x')), FileError);
  EXPECT_THROW(file.Write("y"), FileError);
  EXPECT_THROW(file.Commit(), FileError);
  EXPECT_FALSE(fs::exists(Path("b")));
}

TEST_F(WholeFileTest, APowerCutLeavesTheNewFileOrTheOldOneWhole) {
  using Keeps = ForgetfulLayer::Keeps;
  for (const Keeps keeps : {Keeps::Nothing, Keeps::Names, Keeps::Contents}) {
    Put("a", "old");
    ForgetfulLayer layer;
    WriteWholeFile(Path("a"), "new", {.layer = &layer});
    layer.PowerCut(keeps);
    EXPECT_EQ(Contents("a"), "new");
  }
}

TEST_F(WholeFileTest, ThePowerCutOfTheseTestsTakesWhatWasNotFlushed) {
  Put("a", "old");
  ForgetfulLayer layer;
  Put("b", "new");
  layer.Rename(Path("b"), Path("a"), true);
  layer.PowerCut(ForgetfulLayer::Keeps::Names);
  EXPECT_EQ(Contents("a"), "");
}

}  // namespace
}  // namespace goods
