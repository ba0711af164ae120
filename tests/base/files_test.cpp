#include "support/bytes.h"
#include "support/memory_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/full_disk.h"

#include <sys/stat.h>
#endif

namespace {

const FileOps &files = systemFiles();

std::string replaced(const FileOps &by, const std::string &path, const Bytes &bytes) {
  return replaceFile(by, path, [&](const PutBytes &put) { return put(bytes); });
}

// What the file gives from `offset` on, or "closed".
std::string readFrom(const std::string &path, int64_t offset) {
  const FileHandle file = files.openForReading(path.c_str());
  if (file == nullptr) return "closed";
  std::string text(9, '-');
  text.resize(files.readAt(file, offset, reinterpret_cast<uint8_t *>(text.data()), text.size()));
  text += " of " + std::to_string(files.length(file));
  files.close(file);
  return text;
}

TEST(SystemFiles, AreReadUnderNamesOfAnyScriptAndLength) {
  const TemporaryFolder folder("reads");
  const std::string path = folder.write(u8"日本の城 é.SC5", {'a', 'b', 'c'});
  EXPECT_EQ(readFrom(path, 0), "abc of 3");
  EXPECT_EQ(readFrom(path, 2), "c of 3");
  EXPECT_EQ(readFrom(path, 3), " of 3");
  const std::string deep = folder.path + std::string(150, 'd') + folder.path.back();
  std::filesystem::create_directories(deep + "folder");
  const std::string name(150, 'n');
  EXPECT_EQ(replaced(files, deep + name, {'9'}), "");
  EXPECT_EQ(readFrom(deep + name, 0), "9 of 1");
  EXPECT_EQ(files.listFolder(deep.c_str()), std::vector<std::string>{name});
  EXPECT_TRUE(files.listFolder((deep + "missing").c_str()).empty());
}

TEST(SystemFiles, WhatIsNoOrdinaryFileIsNotOpened) {
  const TemporaryFolder folder("refuses");
  std::vector<std::string> paths{folder.path + "missing.SC5", folder.path};
#ifdef _WIN32
  paths.emplace_back("NUL");
#else
  paths.insert(paths.end(), {"/dev/zero", folder.path + "pipe.SC5"}); // and no writer is waited for
  ASSERT_EQ(mkfifo(paths.back().c_str(), 0600), 0);
#endif
  for (const std::string &path : paths) EXPECT_EQ(readFrom(path, 0), "closed") << path;
}

TEST(SystemFiles, AreReplacedAsAWholeOrNotAtAll) {
  const TemporaryFolder folder("replaces");
  const std::string longName(252, 'n'), path = folder.path + "new.bmp"; // near the longest that file systems take
  for (const std::string &name : {std::string("new.bmp"), std::string("new.bmp"), longName}) {
    const Bytes content(name.size() * 1000, static_cast<uint8_t>(name.size()));
    EXPECT_EQ(replaced(files, folder.path + name, content), "") << name;
    EXPECT_EQ(folder.read(std::u8string(name.begin(), name.end())), content);
  }
  folder.write(u8"new.bmp", {1, 2});
  std::filesystem::create_directory(folder.path + "taken.bmp");
  EXPECT_NE(replaced(files, folder.path + "taken.bmp", {1}), "");
  EXPECT_NE(replaced(files, folder.path + "missing/a.bmp", {1}), "");
  EXPECT_EQ(replaceFile(files, path, [](const PutBytes &put) { return put(Bytes{7}) + "stopped"; }), "stopped");
  EXPECT_EQ(folder.read(u8"new.bmp"), (Bytes{1, 2}));
  EXPECT_EQ(folder.fileCount(), 3U);
  EXPECT_TRUE(sameFile(path, folder.path + "taken.bmp/../new.bmp"));
  EXPECT_FALSE(sameFile(path, folder.path + longName) || sameFile(path, folder.path + "missing"));
  const FileHandle open = files.openForReading(path.c_str()); // others can rewrite and delete it meanwhile
  folder.write(u8"new.bmp", {2, 3, 4});
  EXPECT_EQ(files.length(open), 3);
  EXPECT_TRUE(std::filesystem::remove(path));
  files.close(open);
}

#ifndef _WIN32
TEST(SystemFiles, LinksRightsAndDevicesStay) {
  using std::filesystem::perms, std::filesystem::status;
  const TemporaryFolder folder("posix");
  const std::string path = folder.path + "a.bmp", link = folder.path + "link.bmp";
  EXPECT_EQ(replaced(files, path, {1}), "");
  EXPECT_NE(status(path).permissions() & perms::owner_read, perms::none);
  std::filesystem::permissions(path, perms(0640));
  std::filesystem::create_symlink("a.bmp", link);
  EXPECT_EQ(replaced(files, link, {2}) + replaced(files, "/dev/null", {2}), "");
  EXPECT_TRUE(std::filesystem::is_symlink(link) && !std::filesystem::is_regular_file("/dev/null"));
  EXPECT_EQ(folder.read(u8"a.bmp"), Bytes{2});
  EXPECT_EQ(status(path).permissions(), perms(0640));
}

TEST(SystemFiles, OnAFullDiskTheOldFileStays) {
  const TemporaryFolder folder("full");
  const std::string path = folder.write(u8"a.bmp", {1, 2, 3});
  for (const size_t room : {0U, 1U, 99'999U, 100'000U}) {
    const FullDisk disk(room);
    EXPECT_EQ(replaced(files, path, Bytes(100'000, 7)).empty(), room == 100'000) << room;
    EXPECT_EQ(folder.read(u8"a.bmp").size(), room == 100'000 ? 100'000U : 3U) << room;
    EXPECT_EQ(folder.fileCount(), 1U) << room;
  }
}
#endif

} // namespace
