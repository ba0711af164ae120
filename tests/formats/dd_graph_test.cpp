#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

// Of the three kinds.
void expectDescription(const ViewerState &viewer, int32_t width, int32_t height, Flag16 isPacked) {
  EXPECT_EQ(descriptionOf(viewer), "4 bits, mode 0, 16 colours, palette -1, packed " + std::to_string(isPacked) +
                                       ", sprites 1; " + std::to_string(width) + "x" + std::to_string(height) +
                                       ", 16 colors");
  EXPECT_EQ(viewer.window.Label4, "");
  EXPECT_FALSE(viewer.window.menuDoubleHeight.checked);
}

void expectRefused(const std::string &extension, const Bytes &file) {
  UsedViewer window;
  const std::string before = pictureText(window.viewer);
  window.open("x" + extension, file);
  EXPECT_EQ(window.viewer.window.Label4, errorLine(extension));
  EXPECT_EQ(pictureText(window.viewer), before);
}

TEST(DdGraph, Screen) {
  const BloadBuilder screen{.endAddress = 0x769F, .body = withBytesAt({0x1F}, 0x7680, {0x70, 0x00, 0x77, 0x07})};
  UsedViewer window;
  window.open("x.GE5", screen.build());
  expectDescription(window.viewer, 256, 212, kFalse);
  EXPECT_EQ(window.viewer.paletteFilePos, 30344 + 32);
  EXPECT_EQ(window.viewer.frameBits[0], 0xFFFFFFu);
  EXPECT_EQ(window.viewer.frameBits[2], 0xFF0000u);
  EXPECT_EQ(bytesOf(window.viewer.vram), withBytesAt(screen.body, window.viewer.vram.size() - 1, {0})); // zero behind
  for (const BloadBuilder &header :
       {BloadBuilder{.identifier = 0xFD, .endAddress = 0x769F}, BloadBuilder{.startAddress = 1, .endAddress = 0x769F},
        BloadBuilder{.endAddress = 0x769E}, BloadBuilder{.endAddress = 0x76A0}, BloadBuilder{.endAddress = 0x69FF},
        BloadBuilder{.endAddress = 0xF69F}, BloadBuilder{.endAddress = 0x769F, .executionAddress = 0x8000}}) {
    expectRefused(".GE5", header.build());
  }
}

TEST(DdGraph, PaletteBehindTheRectangle) {
  using Row = std::tuple<int, int, int32_t>; // the palette's first byte, counted from 1
  for (const auto &[width, height, position] :
       {Row{8, 8, 37}, Row{256, 212, 27141}, Row{9, 8, 41}, Row{9, 9, 46}, Row{9, 11, 54}, Row{11, 13, 76},
        Row{13, 9, 64}, Row{255, 211, 26908}, Row{255, 212, 27035}}) {
    SCOPED_TRACE(testing::Message() << width << "x" << height);
    Bytes file = withBytesAt(joined({word(width), word(height)}), static_cast<size_t>(position) + 29, {0x77, 0x07});
    file[4] = 0xF0;
    UsedViewer window;
    window.open("x.DAT", file);
    expectDescription(window.viewer, width, height, kFalse);
    EXPECT_EQ(window.viewer.paletteFilePos, position + 32);
    EXPECT_EQ(window.viewer.palette[14], 0u);
    EXPECT_EQ(window.viewer.palette[15], 0xFFFFFFu);
    EXPECT_EQ(window.viewer.frameBits[0], 0xFFFFFFu);
    EXPECT_EQ(window.viewer.frameBits[1], 0u);
    EXPECT_EQ(window.viewer.vram[file.size() - 4], 0); // missing bytes are zero
  }
  UsedViewer window;
  window.open("x.DAT", joined({word(9), word(8), Bytes(36, 0x22)})); // without a palette
  EXPECT_EQ(window.viewer.palette[2], 0x24DA24u);
  EXPECT_EQ(window.viewer.frameBits[7], 0x24DA24u);
  EXPECT_EQ(window.viewer.frameBits[8], 0u); // half a byte at the end of a line is not drawn
  EXPECT_EQ(window.viewer.frameBits[8 * 9 - 2], 0x24DA24u);
}

TEST(DdGraph, RectangleBounds) {
  using Row = std::pair<int, int>;
  for (const auto &[width, height] : {Row{7, 8}, Row{8, 7}, Row{257, 8}, Row{8, 213}, Row{0, 0}, Row{0x8010, 8},
                                      Row{8, 0x8010}, Row{0xFFFF, 8}, Row{8, 0xFFFF}}) {
    expectRefused(".DAT", joined({word(width), word(height), Bytes(99)}));
  }
}

TEST(DdGraph, Compressed) {
  expectRefused(".CMP", {129, 8, 1, 0});
  expectRefused(".CMP", {128, 213, 1, 0});
  using Row = std::tuple<uint8_t, uint8_t>;
  for (const auto &[bytesPerLine, lines] : {Row{128, 212}, Row{0, 1}, Row{1, 0}, Row{0, 0}, Row{1, 1}}) {
    UsedViewer window;
    window.open("x.CMP", {bytesPerLine, lines, 1, 0x80, 0x80, 0xF2});
    expectDescription(window.viewer, 2 * bytesPerLine, lines, kTrue);
    EXPECT_EQ(window.viewer.palette[15], 0xFFFFFFu);
    if (window.viewer.frameBits.empty()) continue;
    EXPECT_EQ(window.viewer.frameBits[0], 0xFFFFFFu);
    EXPECT_EQ(window.viewer.frameBits[1], 0x24DA24u);
    EXPECT_EQ(window.viewer.frameBits[window.viewer.frameBits.size() - 1], bytesPerLine == 1 ? 0x24DA24u : 0u);
  }
}

TEST(DdGraph, CompressedPictureReplacesAllAndLetsTheWindowLive) {
  UsedViewer window;
  for (int i = 0; i < 99; ++i) window.platform.events.push_back({[](ViewerState &, const std::string &) {}, {}});
  window.open("x.CMP", {4, 8, 1, 0});
  EXPECT_EQ(window.platform.events.size(), 99u - 8 - 1); // a pass a line, one to show
  EXPECT_EQ(bytesOf(window.viewer.vram), Bytes(kVideoMemoryBytes));
}

} // namespace
