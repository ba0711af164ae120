#include "base/buffers.h"

#include "support/bytes.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"

#include <new>

namespace {

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
  constexpr size_t kLarge = 2 << 20;
  VideoMemory memory(4);
  std::vector<uint32_t> words{2};
  const std::new_handler before = std::set_new_handler([] { throw 7; });
  scarceMemory() = {.refusedBlock = 1};
  EXPECT_TRUE(!reserve(memory, kLarge) && memory.size() == 4);
  scarceMemory() = {.refusedBlock = 1};
  EXPECT_TRUE(!reserve(words, kLarge) && words.size() == 1);
  scarceMemory() = {.refusedBlock = 1};
  EXPECT_THROW(VideoMemory{kLarge}, int); // the program's own handler
  std::set_new_handler(before);
  EXPECT_TRUE(reserve(words, kLarge) && words.capacity() >= kLarge);
  shrink(words);
  EXPECT_EQ(words.capacity(), 1u);
}

} // namespace
