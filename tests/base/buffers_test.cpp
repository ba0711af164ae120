#include "base/buffers.h"

#include "support/bytes.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>
#include <new>

namespace {

constexpr size_t kLarge = 2 << 20;

TEST(Buffers, VideoMemoryIsZeroWhereNothingWasWritten) {
  VideoMemory memory(8);
  std::ranges::fill(memory.written(5), uint8_t{7});
  std::ranges::fill(memory.written(2), uint8_t{9}); // the other three stay known
  EXPECT_EQ(bytesOf(memory), (Bytes{9, 9, 7, 7, 7, 0, 0, 0}));
  EXPECT_EQ(memory.written(9).size(), 8u);
  memory.clearFrom(4);
  EXPECT_TRUE(memory.resize(3) && memory.resize(6) && reserve(memory, 2));
  EXPECT_EQ(bytesOf(memory), (Bytes{9, 9, 7, 0, 0, 0}));
  memory.clearFrom(0);
  EXPECT_EQ(bytesOf(memory), Bytes(6));
}

TEST(Buffers, StayAsTheyWereIfThereIsNotEnoughMemory) {
  VideoMemory memory(4);
  Bytes bytes{1};
  std::vector<uint32_t> words{2};
  const std::new_handler before = std::set_new_handler([] { throw 7; });
  const auto refused = [](const auto &reserves) {
    scarceMemory() = {.refusedBlock = 1};
    const bool reserved = reserves();
    scarceMemory() = {};
    return !reserved;
  };
  EXPECT_TRUE(refused([&] { return reserve(memory, kLarge); }) && memory.size() == 4);
  EXPECT_TRUE(refused([&] { return reserve(bytes, kLarge); }) && bytes == Bytes{1});
  EXPECT_TRUE(refused([&] { return reserve(words, kLarge); }) && words.size() == 1);
  EXPECT_THROW(refused([] { return VideoMemory(kLarge).size() > 0; }), int); // the program's own handler
  std::set_new_handler(nullptr);
  EXPECT_THROW(refused([] { return VideoMemory(kLarge).size() > 0; }), std::bad_alloc);
  std::set_new_handler(before);
  scarceMemory() = {};
  EXPECT_TRUE(reserve(words, kLarge) && words.capacity() >= kLarge);
  shrink(words);
  EXPECT_EQ(words.capacity(), 1u);
}

} // namespace
