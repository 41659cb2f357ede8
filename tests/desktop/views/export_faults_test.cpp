// A file is written whole or not at all, whatever the disk does.
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "company/files/file_layer.h"
#include "desktop/print/export.h"
#include "tests/desktop/views/export_kit.h"

namespace goods::testing {
namespace {

constexpr FileFormat kFormats[] = {FileFormat::Text, FileFormat::Csv, FileFormat::Xlsx, FileFormat::Json,
                                   FileFormat::Pdf};
constexpr std::uint64_t kStep = 65536;
constexpr std::size_t kRows = 3200;

// A disk that takes so many bytes.
class SmallDisk : public FileLayer {
 public:
  explicit SmallDisk(std::uint64_t room) : room_(room) {}
  int Write(int handle, std::string_view bytes, std::size_t& written) override {
    if (room_ == 0) return ENOSPC;
    const int error = FileLayer::Write(handle, bytes.substr(0, room_), written);
    room_ -= written;
    return error;
  }

 private:
  std::uint64_t room_;
};

class ExportFaults : public ::testing::Test {
 protected:
  ExportFaults() {
    std::vector<Value> numbers;
    std::vector<Value> names;
    for (int i = 0; i < static_cast<int>(kRows); ++i) {
      numbers.emplace_back(Decimal::FromUnits(Int128{i} * 1'234'567'891));
      names.emplace_back("کالای شماره " + std::to_string(i * 7919 % 5003) + " از انبار");
    }
    table_.Add("Name", "نام", CellKind::Text, names);
    table_.AddNumber("In", "مقدار", "#,0.####;#,0.####-;0", numbers);
    job_.title = "موجودی";
    job_.table = &table_;
  }
  std::string Path(const std::string& name) const { return (folder_.path() + "/").toStdString() + name; }
  QStringList Files() const {
    return QDir(folder_.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }
  void Write(FileFormat format, const std::string& path, FileLayer* layer = nullptr,
             std::vector<std::string> forbidden = {}) {
    WritingOptions options;
    options.today = "1403/05/12";
    options.layer = layer;
    options.forbidden = std::move(forbidden);
    WriteReport(job_, format, path, options);
  }
  // 0 when every entry of the archive is what its sums say.
  int Unzipped(const std::string& name) const {
    return QProcess::execute("unzip", {"-tqq", ToQt(Path(name))});
  }

  QTemporaryDir folder_;
  MadeTable table_;
  PrintJob job_;
};

TEST_F(ExportFaults, AFullDiskAtEach64KilobytesLeavesTheOldFile) {
  for (const FileFormat format : kFormats) {
    Write(format, Path("whole"));
    const std::uint64_t size = std::filesystem::file_size(Path("whole"));
    ASSERT_GT(size, kStep) << EndingOf(format);
    WriteWholeFile(Path("file"), "old");
    for (std::uint64_t room = 0; room < size; room += kStep) {
      SmallDisk disk(room);
      EXPECT_THROW(Write(format, Path("file"), &disk), ExportError) << EndingOf(format) << " " << room;
      EXPECT_EQ(Contents(Path("file")), "old");
      EXPECT_EQ(Files(), (QStringList{"file", "whole"}));
    }
    SmallDisk enough(size);
    Write(format, Path("file"), &enough);
    EXPECT_EQ(Contents(Path("file")).size(), static_cast<qsizetype>(size));
  }
}

// What a disk loses or turns round on the way shows in the archive's own sums.
TEST_F(ExportFaults, ASpreadsheetsArchiveIsWholeByItsOwnSums) {
  Write(FileFormat::Xlsx, Path("whole"));
  EXPECT_EQ(Unzipped("whole"), 0);
  QByteArray damaged = Contents(Path("whole"));
  damaged[damaged.size() / 2] = static_cast<char>(damaged[damaged.size() / 2] ^ 1);
  WriteWholeFile(Path("damaged"), std::string_view(damaged.data(), static_cast<std::size_t>(damaged.size())));
  EXPECT_NE(Unzipped("damaged"), 0);
}

TEST_F(ExportFaults, ASpreadsheetNeedsNoFolderForTemporaryFiles) {
  const char* before = std::getenv("TMPDIR");
  const std::string kept = before == nullptr ? "" : before;
  setenv("TMPDIR", Path("missing").c_str(), 1);
  Write(FileFormat::Xlsx, Path("file"));
  if (before == nullptr) {
    unsetenv("TMPDIR");
  } else {
    setenv("TMPDIR", kept.c_str(), 1);
  }
  EXPECT_EQ(Files(), QStringList{"file"});
  EXPECT_EQ(Unzipped("file"), 0);
}

TEST_F(ExportFaults, WhatIsNoFileToWriteIsRefusedInEveryFormat) {
  WriteWholeFile(Path("company"), "company");
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink(Path("company"), Path("link"));
  std::filesystem::create_hard_link(Path("company"), Path("same"));
  for (const FileFormat format : kFormats) {
    EXPECT_THROW(Write(format, Path("no/such/folder")), ExportError);
    EXPECT_THROW(Write(format, folder_.path().toStdString()), ExportError);
    EXPECT_THROW(Write(format, Path("pipe")), ExportError);
    for (const char* name : {"company", "link", "same", "company-wal"}) {
      EXPECT_THROW(Write(format, Path(name), nullptr, {Path("company")}), ExportError) << name;
    }
  }
  EXPECT_EQ(Contents(Path("company")), "company");
  EXPECT_EQ(Files(), (QStringList{"company", "link", "pipe", "same"}));
}

// A link of the user's own is followed and stays; the file behind it is replaced whole.
TEST_F(ExportFaults, ALinkOfTheUsersOwnIsFollowedAndStays) {
  WriteWholeFile(Path("behind"), "old");
  std::filesystem::create_symlink(Path("behind"), Path("link"));
  for (const FileFormat format : kFormats) {
    Write(format, Path("link"));
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link")));
    EXPECT_NE(Contents(Path("behind")), "old");
  }
}

// As the program sees a folder in which it may make no file.
class ReadOnlyFolder : public FileLayer {
 public:
  int Create(const std::string& /*path*/, std::uint32_t /*permissions*/, int& /*handle*/) override {
    return EACCES;
  }
};

TEST_F(ExportFaults, AFolderThatMayNotBeWrittenIsTold) {
  ReadOnlyFolder layer;
  for (const FileFormat format : kFormats) {
    EXPECT_THROW(Write(format, Path("file"), &layer), ExportError);
  }
  EXPECT_EQ(Files(), QStringList{});
}

}  // namespace
}  // namespace goods::testing
