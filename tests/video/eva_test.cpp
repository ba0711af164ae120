#include "core/image_info.h"
#include "samples/opened_sample.h"
#include "pixels/pixel_kernels.h"
#include "support/viewer_text.h"
#include "video/eva_player.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace {

// The slow, obvious form of a YJK colour; blue is rounded from quarters, halves to the even level.
uint32_t slowYjk(int k, int j, int y) {
  const int signedJ = j > 31 ? j - 64 : j, signedK = k > 31 ? k - 64 : k;
  const int quarters = 5 * y - 2 * signedJ - signedK;
  int blue = -1000;
  while (4 * (blue + 1) <= quarters) ++blue;
  const int rest = quarters - 4 * blue;
  if (rest == 3 || (rest == 2 && blue % 2 != 0)) ++blue;
  const auto level = [](int sum) { return static_cast<uint32_t>(sum < 0 ? 0 : sum > 31 ? 31 : sum) * 8; };
  return level(y + signedJ) * 65536 + level(y + signedK) * 256 + level(blue);
}

TEST(Eva, EveryEntryOfTheTables) {
  TestViewer test;
  test.open("x.EVA", evaFile(1));
  const EvaPlayer &eva = test.viewer.evaPlayer;
  ASSERT_EQ(eva.yjkColourTable.size(), 131072u);
  size_t index = 0;
  for (int k = 0; k < 64; ++k) {
    for (int j = 0; j < 64; ++j) {
      for (int y = 0; y < 32; ++y)
        ASSERT_EQ(eva.yjkColourTable[index++], slowYjk(k, j, y)) << k << " " << j << " " << y;
    }
  }
  ASSERT_EQ(eva.rgbColourTable.size(), 256u);
  ASSERT_EQ(eva.lumaTable.size(), 256u);
  ASSERT_EQ(eva.chromaTable.size(), 65536u);
  for (uint32_t byte = 0; byte < 256; ++byte) {
    const uint32_t green = byte / 32, red = byte / 4 % 8, blue = byte % 4;
    EXPECT_EQ(eva.rgbColourTable[byte], red * 32 * 65536 + green * 32 * 256 + blue * 64) << byte;
    EXPECT_EQ(eva.lumaTable[byte], byte / 8) << byte;
    for (uint32_t low = 0; low < 256; ++low) {
      ASSERT_EQ(eva.chromaTable[byte * 256 + low], byte % 8 + low % 8 * 8) << byte << " " << low;
    }
  }
}

// A group for each pair of hues and four levels of Y.
std::vector<uint8_t> everyGroup() {
  std::vector<uint8_t> bytes;
  for (int hues = 0; hues < 64 * 64; ++hues) {
    for (int y = 0; y < 32; ++y) bytes.push_back(static_cast<uint8_t>(y << 3 | (hues >> 3 * (y % 4) & 7)));
  }
  return bytes;
}

TEST(Eva, EveryGroupIsDrawnAlikeByTablesAndByTheKernel) {
  const std::vector<uint8_t> groups = everyGroup();
  std::vector<uint32_t> expected;
  for (int hues = 0; hues < 64 * 64; ++hues) {
    for (int y = 0; y < 32; ++y) expected.push_back(slowYjk(hues % 64, hues / 64, y));
  }
  TestViewer test;
  test.open("x.EVA", evaFile(1));
  std::vector<uint32_t> drawn(groups.size());
  drawYjkByTables(test.viewer.evaPlayer, groups, drawn.data());
  EXPECT_TRUE(drawn == expected);
  const PixelKernels *wide = widePixelKernels();
  if (wide == nullptr) GTEST_SKIP() << "this processor has no kernel for it";
  std::fill(drawn.begin(), drawn.end(), 0);
  wide->wholeYjk(groups.data(), groups.size() / 4, drawn.data());
  EXPECT_TRUE(drawn == expected);
}

// Backwards, so that no frame can profit from those before it.
TEST(Eva, EveryFrameAndTheSoundOfEverySample) {
  size_t frames = 0, samplesWithSound = 0;
  for (const samples::SamplePicture &sample : allSamples()) {
    if (sample.frames.empty()) continue;
    SCOPED_TRACE(sample.name);
    TestViewer test;
    openSample(test, sample, sample.bytes);
    ViewerState &viewer = test.viewer;
    const size_t count = sample.frames.size(), slotBytes = sample.sound.size() / count;
    EXPECT_EQ(viewer.window.HScroll1.maximum, static_cast<int32_t>(count) - 1);
    EXPECT_EQ(viewer.window.HScroll1.value, 0);
    EXPECT_EQ(controlsOf(viewer), kVideoControls);
    EXPECT_EQ(menuText(viewer.window), "Close Save Copy View ");
    EXPECT_EQ(viewer.window.stretch, (Stretch{sample.width, sample.height, 2 * sample.width, 2 * sample.height}));
    samplesWithSound += slotBytes == 1312 || slotBytes == 1575;
    for (size_t f = count; f-- > 0; ++frames) {
      HScroll1_Change(viewer, static_cast<int32_t>(f));
      EXPECT_TRUE(viewer.frameBits == sample.frames[f]) << f;
      EXPECT_EQ(viewer.window.Label4, f == 0 ? sample.status : "Frame: " + std::to_string(f));
      if (slotBytes == 0) continue;
      const size_t slot = f % (slotBytes == 1312 ? 12 : 10);
      const auto heard = std::span(viewer.soundImages.looping).subspan(44 + slot * slotBytes, slotBytes);
      EXPECT_TRUE(std::ranges::equal(heard, std::span(sample.sound).subspan(f * slotBytes, slotBytes)))
          << "sound " << f;
    }
  }
  EXPECT_GE(frames, 200u);
  EXPECT_GE(samplesWithSound, 14u);
}

TEST(Eva, RateColoursAndFrameCount) {
  constexpr uint32_t kYjk = 0x080808, kRgb = 0x400000;
  const char *at12 = "EVA [12fps]", *at10 = "EVA [10fps]", *error = "*** Error: Not a valid .EVA file.";
  using Row = std::tuple<const char *, uint8_t, uint8_t, uint8_t, size_t, const char *, uint32_t, int32_t>;
  for (const auto &[path, earlier, rate, kind, length, status, colour, count] : // earlier rate 0: a fresh viewer
       {Row{"x.EVA", 0, 7, 0, 15360, error, 0, 0}, Row{"x.EVA", 0, 4, 0, 15360, error, 0, 0},
        Row{"x.EVA", 0, 5, 0, 15359, error, 0, 0}, Row{"x.EVA", 6, 7, 0, 15360, at10, kYjk, 1},
        Row{"x.EVA", 6, 5, 0, 15360, at12, kYjk, 1}, Row{"x.EVA", 5, 6, 0, 15360, at10, kYjk, 1},
        Row{"x.EVA", 0, 6, 8, 15360, at10, kRgb, 1}, Row{"x.EVA", 0, 5, 0x88, 15360, at12, kYjk, 1},
        Row{"x.EV8", 0, 6, 0, 15360, at10, kRgb, 1}, Row{"x.ev8", 0, 5, 12, 15360, at12, kYjk, 1},
        Row{"x.eV8", 0, 5, 8, 15360, at12, kRgb, 1}, Row{"x.EVA", 5, 5, 0, 7680, at12, kYjk, 0},
        Row{"x.EVA", 5, 5, 0, 7681, at12, kYjk, 1}, Row{"x.EVA", 0, 5, 0, 38400, at12, kYjk, 2},
        Row{"x.EVA", 0, 5, 0, 38401, at12, kYjk, 3}}) {
    SCOPED_TRACE(testing::Message() << path << " after " << int{earlier} << ", rate " << int{rate} << ", kind "
                                    << int{kind} << ", " << length << " bytes");
    TestViewer test;
    if (earlier != 0) test.open("earlier.EVA", evaFile(2, earlier));
    test.open("before.SC8", kScreen8File);
    const std::string before = pictureText(test.viewer);
    Bytes file = evaFile(4, rate, kind);
    file.resize(length);
    test.open(path, file);
    EXPECT_EQ(test.viewer.window.Label4, status);
    EXPECT_EQ(controlsOf(test.viewer), status == error ? kPictureControls : kVideoControls);
    EXPECT_EQ(pictureText(test.viewer) == before, status == error);
    test.platform.log.clear();
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.log.empty(), count == 0);
    if (status == error) continue;
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, count - 1);
    EXPECT_EQ(test.viewer.frameBits[0], colour); // frame 0 also where none is counted
    EXPECT_EQ(test.viewer.soundImages.loopingBytes, status == at12 ? 15788u : 15794u);
  }
}

TEST(Eva, ImageInfo) {
  TestViewer test;
  test.open("d\\movie.EVA", evaFile(14));
  EXPECT_EQ(imageInfo(test.viewer),
            "File name:\tmovie.EVA\nFolder:\td\\\nSize on disk:\t215,040 bytes\nType:\tEVA YJK video file\n"
            "Size:\t128 x 106 pixels\nDepth:\t8 bits per pixel\nColors:\tYJK colors\nPalette:\tno\nFrames:\t14\n"
            "Rate:\t12 frames a second\nLength:\t1.2 seconds\nSound:\t15,744 Hz, 8 bits, mono\n");
}

} // namespace
