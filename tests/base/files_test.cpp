#include "support/bytes.h"
#include "support/memory_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

const FileOps &files = systemFiles();

std::string replaced(const std::string &path, const Bytes &bytes) {
  return replaceFile(files, path, [&](const PutBytes &put) { return put(bytes); });
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
  EXPECT_EQ(readFrom(path, 0) + ", " + readFrom(path, 2) + "," + readFrom(path, 3), "abc of 3, c of 3, of 3");
  const std::string deep = folder.path + std::string(150, 'd') + folder.path.back(), name(150, 'n');
  std::filesystem::create_directories(deep + "folder");
  EXPECT_EQ(replaced(deep + name, {'9'}), "");
  EXPECT_EQ(readFrom(deep + name, 0), "9 of 1");
  folder.write(u8".hidden.SC5", {1}); // Wine hides such names, too
  EXPECT_EQ(files.listFolder(deep.c_str()), std::vector<std::string>{name});
  EXPECT_EQ(files.listFolder(folder.path.c_str()), std::vector<std::string>{"日本の城 é.SC5"});
  std::vector<std::string> others{folder.path + "missing.SC5", folder.path};
#ifdef _WIN32
  others.emplace_back("NUL");
#else
  others.insert(others.end(), {"/dev/zero", folder.path + "pipe.SC5"}); // and no writer is waited for
  ASSERT_EQ(mkfifo(others.back().c_str(), 0600), 0);
#endif
  for (const std::string &other : others) EXPECT_EQ(readFrom(other, 0), "closed") << other;
  EXPECT_TRUE(files.listFolder(others[0].c_str()).empty());
  EXPECT_FALSE(files.listFolder("").empty()); // the current folder
}

TEST(SystemFiles, AreReplacedAsAWholeOrNotAtAll) {
  const TemporaryFolder folder("replaces");
  const std::string longName(252, 'n'), path = folder.path + "new.bmp"; // near the longest that file systems take
  EXPECT_EQ(replaced(folder.path + longName, {3}), "");
  EXPECT_EQ(replaced(path, Bytes(9)), "");
  EXPECT_EQ(replaced(path, {1, 2}), "");
  std::filesystem::create_directory(folder.path + "taken.bmp");
  EXPECT_NE(replaced(folder.path + "taken.bmp", {1}), "");
  EXPECT_NE(replaced(folder.path + "missing/a.bmp", {1}), "");
  EXPECT_EQ(replaceFile(files, path, [](const PutBytes &put) { return put(Bytes{7}) + "stopped"; }), "stopped");
  const std::string late = folder.path + "late.bmp"; // taken while it is being written
  EXPECT_NE(replaceFile(files, late, [&](auto &put) { return std::filesystem::create_directory(late), put(Bytes{7}); }),
            "");
  EXPECT_EQ(folder.read(u8"new.bmp"), (Bytes{1, 2}));
  EXPECT_EQ(folder.fileCount(), 4U);
  for (const std::string name : {"new.bmp", "missing"}) { // a name to be has an identity, too
    EXPECT_EQ(fileIdentity(folder.path + name), fileIdentity(folder.path + "taken.bmp/../" + name));
    EXPECT_NE(fileIdentity(folder.path + name), fileIdentity(folder.path + longName));
  }
  const FileHandle open = files.openForReading(path.c_str()); // others can rewrite and delete it meanwhile
  folder.write(u8"new.bmp", {2, 3, 4});
  EXPECT_EQ(files.length(open), 3);
  EXPECT_TRUE(std::filesystem::remove(path));
  files.close(open);
}

#ifndef _WIN32
TEST(SystemFiles, LinksRightsAndDevicesStay) {
  const TemporaryFolder folder("posix");
  const std::string path = folder.path + "a.bmp", link = folder.path + "link.bmp";
  EXPECT_EQ(replaced(path, {1}), "");
  EXPECT_EQ(readFrom(path, 1), " of 1"); // its owner may read it
  std::filesystem::permissions(path, std::filesystem::perms(0640));
  std::filesystem::create_symlink("a.bmp", link);
  EXPECT_EQ(replaced(link, {2}) + replaced("/dev/null", {2}), "");
  EXPECT_TRUE(std::filesystem::is_symlink(link) && !std::filesystem::is_regular_file("/dev/null"));
  EXPECT_EQ(folder.read(u8"a.bmp"), Bytes{2});
  std::filesystem::create_symlink(folder.path + "new.bmp", folder.path + "dangling.bmp");
  EXPECT_EQ(fileIdentity(folder.path + "dangling.bmp"), fileIdentity(folder.path + "new.bmp"));
  EXPECT_EQ(replaced(folder.path + "dangling.bmp", {3}), "");
  EXPECT_EQ(folder.read(u8"new.bmp"), Bytes{3});
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
  std::filesystem::create_symlink("loop.bmp", folder.path + "loop.bmp");
  EXPECT_EQ(files.listFolder(folder.path.c_str()).size(), 4U); // a.bmp, new.bmp and the links to them
  EXPECT_EQ(replaced(folder.path + "loop.bmp", {4}), "");
}

TEST(SystemFiles, OnAFullDiskTheOldFileStays) {
  const TemporaryFolder folder("full");
  const std::string path = folder.write(u8"a.bmp", {1, 2, 3});
  std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{.rlim_cur = 99'999, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_NE(replaced(path, Bytes(100'000)), "");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(folder.read(u8"a.bmp").size(), 3U);
  EXPECT_EQ(folder.fileCount(), 1U);
}
#endif

} // namespace
