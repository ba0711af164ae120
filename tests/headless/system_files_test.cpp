#include "state/input_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/full_disk.h"

#include <sys/stat.h>
#endif

namespace {

using Bytes = std::vector<uint8_t>;

TEST(SystemFiles, ReadsByPositionWithZerosBeyondTheEnd) {
  const TemporaryFolder folder("reads");
  InputFile file;
  ASSERT_TRUE(openInputFile(file, systemFiles(), folder.write(u8"a.SC5", {1, 2, 0xFE, 0xFF})));
  EXPECT_EQ(inputFileLength(file), 4);
  EXPECT_EQ(readByte(file, 1), 1);
  EXPECT_EQ(readSignedWord(file, 3), -2);
  EXPECT_EQ(readSignedWord(file, 4), 0xFF); // the second byte lies beyond the end
  Bytes into(4, 9);
  EXPECT_EQ(readBytes(file, 3, into), 2U);
  EXPECT_EQ(into, (Bytes{0xFE, 0xFF, 0, 0}));
  EXPECT_EQ(readBytes(file, 0, into), 0U);
  EXPECT_EQ(into, Bytes(4, 0));
  closeInputFile(file);
  EXPECT_EQ(readByte(file, 1), 0);
  EXPECT_EQ(inputFileLength(file), 0);
}

TEST(SystemFiles, OpensNamesOfAnyScript) {
  const TemporaryFolder folder("names");
  InputFile file;
  EXPECT_TRUE(openInputFile(file, systemFiles(), folder.write(u8"日本の城 é.SC5", {7})));
  EXPECT_EQ(readByte(file, 1), 7);
  closeInputFile(file);
}

TEST(SystemFiles, ListsAndOpensInFoldersOfLongNames) {
  const TemporaryFolder folder("long");
  const std::string deep = folder.path + std::string(150, 'd') + folder.path.back();
  std::error_code error;
  std::filesystem::create_directories(deep + "folder", error);
  std::string name = ".SC5";
  name.insert(0, 150, 'n');
  ASSERT_EQ(replaceFile(systemFiles(), deep + name, Bytes{9}), "");
  InputFile file;
  EXPECT_TRUE(openInputFile(file, systemFiles(), deep + name));
  EXPECT_EQ(readByte(file, 1), 9);
  closeInputFile(file);
  EXPECT_EQ(systemFiles().listFolder(deep.c_str()), std::vector<std::string>{name});
  EXPECT_TRUE(systemFiles().listFolder((deep + "missing").c_str()).empty());
}

TEST(SystemFiles, RefusesWhatIsNoOrdinaryFile) {
  const TemporaryFolder folder("refuses");
  InputFile file;
  EXPECT_FALSE(openInputFile(file, systemFiles(), folder.path + "missing.SC5"));
  EXPECT_FALSE(openInputFile(file, systemFiles(), folder.path));
#ifdef _WIN32
  EXPECT_FALSE(openInputFile(file, systemFiles(), "NUL"));
#else
  const std::string pipe = folder.path + "pipe.SC5";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(openInputFile(file, systemFiles(), pipe)); // and does not wait for a writer
  EXPECT_FALSE(openInputFile(file, systemFiles(), "/dev/zero"));
#endif
}

TEST(SystemFiles, AnOpenFileCanBeRewrittenAndDeletedByOthers) {
  const TemporaryFolder folder("shared");
  const std::string path = folder.write(u8"a.SC5", {1});
  InputFile file;
  ASSERT_TRUE(openInputFile(file, systemFiles(), path));
  folder.write(u8"a.SC5", {2, 3});
  EXPECT_EQ(readByte(file, 2), 3);
  std::error_code error;
  EXPECT_TRUE(std::filesystem::remove(path, error)) << error.message();
  closeInputFile(file);
}

TEST(SystemFiles, ReplacesWholeFilesAndLeavesNothingBeside) {
  const TemporaryFolder folder("replaces");
  const std::string longName(248, 'n'); // near the longest that file systems take
  for (const std::string &name : {std::string("new.bmp"), std::string("new.bmp"), longName + ".bmp"}) {
    const Bytes content(name.size() * 1000, static_cast<uint8_t>(name.size()));
    EXPECT_EQ(replaceFile(systemFiles(), folder.path + name, content), "") << name;
    EXPECT_EQ(folder.read(std::u8string(name.begin(), name.end())), content);
  }
  EXPECT_EQ(folder.fileCount(), 2U);
}

TEST(SystemFiles, AFailedReplacementSaysWhyAndLeavesNothing) {
  const TemporaryFolder folder("fails");
  std::error_code error;
  std::filesystem::create_directory(folder.path + "taken.bmp", error);
  EXPECT_NE(replaceFile(systemFiles(), folder.path + "taken.bmp", Bytes{1}), "");
  EXPECT_NE(replaceFile(systemFiles(), folder.path + "missing/a.bmp", Bytes{1}), "");
  EXPECT_EQ(folder.fileCount(), 1U);
}

#ifndef _WIN32
TEST(SystemFiles, OnAFullDiskTheOldFileStays) {
  const TemporaryFolder folder("full");
  const Bytes old{1, 2, 3};
  const std::string path = folder.write(u8"a.bmp", old);
  for (const size_t room : {0, 1, 4096, 99'999}) {
    const FullDisk disk(room);
    EXPECT_NE(replaceFile(systemFiles(), path, Bytes(100'000, 7)), "") << room;
    EXPECT_EQ(folder.read(u8"a.bmp"), old) << room;
    EXPECT_EQ(folder.fileCount(), 1U) << room;
  }
  const FullDisk disk(100'000);
  EXPECT_EQ(replaceFile(systemFiles(), path, Bytes(100'000, 7)), "");
}
#endif

} // namespace
