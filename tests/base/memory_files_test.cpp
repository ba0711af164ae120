#include "base/memory_files.h"

#include "support/bytes.h"

#include <gtest/gtest.h>

namespace {

TEST(MemoryFiles, AreSharedByAllWhoOpenThem) {
  const FileOps &files = memoryFileOps();
  putMemoryFile("a.SC5", {1, 2, 3});
  const FileHandle first = files.openForReading("a.SC5");
  putMemoryFile("a.SC5", {4});
  const FileHandle second = files.openForReading("a.SC5");
  removeMemoryFile("a.SC5");
  EXPECT_EQ(files.openForReading("a.SC5"), nullptr);
  EXPECT_FALSE(files.exists("a.SC5"));
  Bytes into(4);
  EXPECT_EQ(files.length(first) * 10 + files.length(second), 31);
  EXPECT_EQ(files.readAt(first, 1, into.data(), 4) * 10 + files.readAt(second, 2, into.data(), 4), 20U);
  EXPECT_EQ(into, (Bytes{2, 3, 0, 0}));
  for (const FileHandle file : {first, second}) files.close(file);
}

TEST(MemoryFiles, TakeStreamsUpToALimit) {
  const Bytes whole = noise(200'000, 1);
  for (const size_t most : {size_t{100'000}, whole.size(), whole.size() + 1}) {
    size_t at = 0;
    const auto read = [&](std::span<uint8_t> into) {
      const size_t given = std::min({into.size(), whole.size() - at, size_t{999}});
      std::copy_n(whole.begin() + static_cast<std::ptrdiff_t>(at), given, into.begin());
      at += given;
      return given;
    };
    Bytes bytes(9);
    ASSERT_TRUE(readUpTo(most, read, bytes));
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), whole.begin(), whole.begin() + static_cast<int64_t>(at)));
    EXPECT_EQ(bytes.size(), std::min(most, whole.size()));
  }
}

} // namespace
