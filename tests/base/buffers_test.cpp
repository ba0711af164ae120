#include "base/buffers.h"

#include "support/test_viewer.h"

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
