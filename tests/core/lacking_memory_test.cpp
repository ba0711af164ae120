// Large pictures where memory is lacking.
#include "core/bitmap_export.h"
#include "core/colour_readout.h"
#include "core/palette_commands.h"
#include "screens/picture_bytes.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

#include <new>

namespace {

constexpr const char *kError = "*** Error: Not enough memory.";

Bytes g9bHeader(uint8_t bits, uint16_t width, uint16_t height, bool packed) {
  return joined({{'G', '9', 'B', 11, 0, bits, 0, static_cast<uint8_t>(bits == 4 ? 16 : 0)},
                 word(width),
                 word(height),
                 {static_cast<uint8_t>(packed), 0, 0, 0},
                 Bytes(bits == 4 ? 48 : 0, 7)});
}

// 200 x 2000 pixels of a video, in a file of one frame.
Bytes tallVideo() {
  Bytes file(600, 0x5A);
  file = withBytesAt(
      file, 0,
      joined({Bytes{'S', 'y', 'm', 'V', 'i', 'd', '1', '0', 0, 0, 12}, word(1), {0}, word(200), word(2000), word(7)}));
  return withBytesAt(file, 51, word(80));
}

struct Picture {
  const char *path;
  Bytes file;
  int buffers; // large ones of the loading
};

const std::vector<Picture> &pictures() {
  static const std::vector<Picture> all{
      {"stored.G9B", g9bHeader(16, 1000, 600, false), 2}, // video memory, frame
      {"packed.G9B", joined({g9bHeader(16, 1000, 600, true), Bytes(1'200'000)}), 3},
      {"entries.G9B", g9bHeader(4, 1000, 600, false), 1}, // fits into the video memory that is always there
      {"tile.SGX", joined({{64, 5}, word(1), word(1000), word(600), Bytes(8)}), 1},
      {"tall.VID", tallVideo(), 1}};
  return all;
}

// Opens it with that large block refused; 0: none.
void openRefusing(TestViewer &window, const Picture &picture, int block) {
  memoryDisk()[picture.path] = picture.file;
  scarceMemory() = {.refusedBlock = block};
  openPath(window.viewer, picture.path);
  scarceMemory().refusedBlock = 0;
}

TEST(LackingMemory, ThePictureBeforeStays) {
  for (const Picture &picture : pictures()) {
    for (int block = 1; block <= picture.buffers; ++block) {
      SCOPED_TRACE(testing::Message() << picture.path << ", block " << block);
      TestViewer window;
      window.open("before.SC8", Bytes{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C});
      const std::vector<uint32_t> before = window.viewer.frameBits;
      openRefusing(window, picture, block);
      EXPECT_EQ(window.viewer.window.Label4, kError);
      EXPECT_TRUE(window.viewer.frameBits == before);
      EXPECT_EQ(window.viewer.frameWidth, 256);
      EXPECT_EQ(window.viewer.pictureShown, kTrue);
      openRefusing(window, picture, 0); // and when there is enough again
      EXPECT_NE(window.viewer.window.Label4, kError);
      EXPECT_FALSE(window.viewer.frameBits == before);
    }
    TestViewer window;
    openRefusing(window, picture, 0);
    EXPECT_EQ(scarceMemory().largeBlocks, picture.buffers) << picture.path;
  }
}

TEST(LackingMemory, AVideoOfFewPixels) {
  TestViewer window;
  window.open("a.EVA", evaFile(2));
  window.viewer.frameBits = Pixels(); // all else has its room already
  scarceMemory() = {.beyond = 50'000, .refusedBlock = 1};
  menuReload_Click(window.viewer);
  EXPECT_EQ(scarceMemory().largeBlocks, 1);
  scarceMemory() = {};
  EXPECT_EQ(window.viewer.window.Label4, kError);
  EXPECT_FALSE(videoOpen(window.viewer));
  menuReload_Click(window.viewer);
  EXPECT_EQ(window.viewer.frameBits.size(), 128u * 106);
}

TEST(LackingMemory, SavingAndCopyingSaySo) {
  TestViewer window;
  openRefusing(window, pictures()[0], 0);
  memoryDisk()["stored.bmp"] = {1, 2, 3};
  struct Row {
    void (*command)(ViewerState &viewer);
    int blocks;
    const char *message;
  };
  for (const auto &[command, blocks, message] :
       {Row{menuSaveBMP_Click, 1, "Could not save stored.bmp\n\nThere is not enough memory."},
        Row{menuCopyClipboard_Click, 2, "Could not copy: the clipboard is in use, or memory is lacking."}}) {
    for (int block = 1; block <= blocks; ++block) {
      scarceMemory() = {.refusedBlock = block};
      command(window.viewer);
      scarceMemory() = {};
      EXPECT_EQ(window.platform.lastMessage, message);
      window.platform.lastMessage.clear();
    }
  }
  EXPECT_EQ(memoryDisk().at("stored.bmp"), (Bytes{1, 2, 3}));
  EXPECT_TRUE(window.platform.clipboard.empty());
}

TEST(LackingMemory, APaletteIsRestoredWithoutDrawing) {
  TestViewer window;
  window.open("before.SC5", Bytes{0xFE, 0, 0, 0xFF, 0x69, 0, 0, 0x1F});
  menuSavePal_Click(window.viewer);
  openRefusing(window, pictures()[2], 1); // its size and depth are already those of the picture to draw
  const std::vector<uint32_t> before = window.viewer.frameBits;
  window.viewer.window.Label4.clear();
  scarceMemory() = {.refusedBlock = 1};
  menuRestPal_Click(window.viewer);
  scarceMemory() = {};
  EXPECT_EQ(window.viewer.window.Label4, kError);
  EXPECT_TRUE(window.viewer.frameBits == before);
  EXPECT_FALSE(window.viewer.loadUnderWay);
}

TEST(LackingMemory, TheReadOutDoesWithoutTheEntry) {
  TestViewer window;
  openRefusing(window, pictures()[2], 0);
  scarceMemory() = {.refusedBlock = 1};
  moveMouse(window.viewer, 0, 0);
  EXPECT_EQ(scarceMemory().largeBlocks, 1);
  scarceMemory() = {};
  EXPECT_EQ(window.viewer.window.readout.text, "0, 0   #393939"); // 7 of 31
}

TEST(LackingMemory, VideoMemoryThatCannotBeMadeEndsTheProgramAsAnyOtherWould) {
  const auto make = [] {
    scarceMemory() = {.refusedBlock = 1};
    const VideoMemory memory(size_t{2} << 20);
  };
  EXPECT_THROW(make(), std::bad_alloc);
  const std::new_handler before = std::set_new_handler([] { throw 7; });
  EXPECT_THROW(make(), int); // the program's own word comes first
  std::set_new_handler(before);
  scarceMemory() = {};
}

} // namespace
