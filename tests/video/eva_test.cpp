#include "core/bitmap_export.h"
#include "core/image_info.h"
#include "samples/opened_sample.h"
#include "support/viewer_text.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(eva.yjkColourTable[(31 * 64 + 31) * 32 + 31], 0xF8F880u);
  EXPECT_EQ(eva.yjkColourTable[(32 * 64 + 32) * 32], 0x0000C0u);
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
    if (slotBytes > 0) {
      ++samplesWithSound;
      EXPECT_TRUE(slotBytes == 1312 || slotBytes == 1575) << slotBytes;
    }
    for (size_t f = count; f-- > 0; ++frames) {
      HScroll1_Change(viewer, static_cast<int32_t>(f));
      EXPECT_TRUE(viewer.frameBits == sample.frames[f]) << f;
      EXPECT_EQ(viewer.window.Label4, f == 0 ? sample.status : "Frame: " + std::to_string(f));
      if (slotBytes == 0) continue;
      const size_t slot = f % (slotBytes == 1312 ? 12 : 10);
      EXPECT_TRUE(std::equal(sample.sound.begin() + static_cast<std::ptrdiff_t>(f * slotBytes),
                             sample.sound.begin() + static_cast<std::ptrdiff_t>((f + 1) * slotBytes),
                             viewer.soundImages.looping.begin() + static_cast<std::ptrdiff_t>(44 + slot * slotBytes)))
          << "sound of frame " << f;
    }
  }
  EXPECT_GE(frames, 200u);
  EXPECT_GE(samplesWithSound, 14u);
}

TEST(Eva, FrameCountRoundsHalfToEven) {
  using Row = std::tuple<const char *, size_t, int32_t>;
  for (const auto &[name, length, count] :
       {Row{"2 bytes", 2, 0}, Row{"half", 7680, 0}, Row{"half and a byte", 7681, 1}, Row{"one", 15360, 1},
        Row{"1.5", 23040, 2}, Row{"2.5", 38400, 2}, Row{"2.5 and a byte", 38401, 3}, Row{"3", 46080, 3},
        Row{"3.5", 53760, 4}, Row{"3.5 less a byte", 53759, 3}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    test.open("before.EVA", evaFile(2)); // names the rate for those that end before it
    Bytes file = evaFile(4);
    file.resize(length);
    test.open("x.EVA", file);
    EXPECT_EQ(test.viewer.evaPlayer.frameCount, count);
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, count - 1);
    EXPECT_EQ(test.viewer.frameBits[0], slowYjk(0, 0, 1)); // frame 0 also where none is counted
    EXPECT_EQ(test.viewer.window.Label4, "EVA [12fps]");
    if (count > 0) continue;
    test.platform.log.clear();
    Image1_Click(test.viewer);
    EXPECT_TRUE(test.platform.log.empty());
    EXPECT_EQ(test.viewer.evaPlayer.playing, kFalse);
  }
}

TEST(Eva, ColourKind) {
  using Row = std::tuple<const char *, uint8_t, bool>;
  for (const auto &[path, kind, rgb] : {Row{"x.EVA", 0, false}, Row{"x.EVA", 8, true}, Row{"x.EVA", 7, false},
                                        Row{"x.EVA", 0x88, false}, Row{"x.EV8", 0, true}, Row{"x.EV8", 12, true},
                                        Row{"x.ev8", 12, false}, Row{"x.eV8", 8, true}, Row{"EV8.eva", 0, false}}) {
    for (const uint8_t rate : {kRate12, kRate10}) {
      TestViewer test;
      test.open(path, evaFile(2, rate, kind));
      EXPECT_EQ(test.viewer.frameBits, Pixels(13568, rgb ? 0x400000 : 0x080808)) << path << " " << int{kind};
      EXPECT_EQ(test.viewer.window.Label3, rgb ? "256 colors" : "YJK colors") << path << " " << int{kind};
    }
  }
}

TEST(Eva, RateByte) {
  struct Row {
    const char *name;
    uint8_t earlier, rate; // earlier 0: a fresh viewer
    const char *status;
    size_t imageBytes;
  };
  const char *error = "*** Error: Not a valid .EVA file.";
  for (const Row &row :
       {Row{"12", 0, 5, "EVA [12fps]", 15788}, Row{"10", 0, 6, "EVA [10fps]", 15794}, Row{"7", 0, 7, error, 0},
        Row{"4", 0, 4, error, 0}, Row{"0", 0, 0, error, 0}, Row{"7 after 12", 5, 7, "EVA [12fps]", 15788},
        Row{"7 after 10", 6, 7, "EVA [10fps]", 15794}, Row{"12 after 10", 6, 5, "EVA [12fps]", 15788},
        Row{"10 after 12", 5, 6, "EVA [10fps]", 15794}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    if (row.earlier != 0) test.open("earlier.EVA", evaFile(2, row.earlier));
    test.open("before.SC8", Bytes{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C});
    const std::string before = pictureText(test.viewer);
    test.open("x.EVA", evaFile(1, row.rate));
    EXPECT_EQ(test.viewer.window.Label4, row.status);
    EXPECT_EQ(test.viewer.soundImages.loopingBytes, row.imageBytes);
    EXPECT_EQ(controlsOf(test.viewer), row.status == error ? kPictureControls : kVideoControls);
    EXPECT_EQ(pictureText(test.viewer) == before, row.status == error);
  }
}

TEST(Eva, SaveCopyAndImageInfo) {
  TestViewer test;
  test.open("d\\movie.EVA", evaFile(14));
  HScroll1_Change(test.viewer, 12); // luminance 13: red and green 104, blue 16.25 * 8
  menuSaveBMP_Click(test.viewer);
  const Bytes &file = memoryDisk()["d\\movie - 0012.bmp"];
  ASSERT_EQ(file.size(), 54u + 128 * 106 * 3);
  EXPECT_EQ(Bytes(file.begin() + 18, file.begin() + 26), (Bytes{128, 0, 0, 0, 106, 0, 0, 0}));
  for (size_t i = 54; i < file.size(); ++i) ASSERT_EQ(file[i], i % 3 == 0 ? 128 : 104) << i;
  menuCopyClipboard_Click(test.viewer);
  EXPECT_EQ(test.platform.clipboard, Bytes(file.begin() + 14, file.end()));
  HScroll1_Change(test.viewer, 0);
  menuSaveBMP_Click(test.viewer);
  EXPECT_TRUE(memoryDisk().contains("d\\movie - 0000.bmp"));
  EXPECT_EQ(imageInfo(test.viewer),
            "File name:\tmovie.EVA\nFolder:\td\\\nSize on disk:\t215,040 bytes\nType:\tEVA YJK video file\n"
            "Size:\t128 x 106 pixels\nDepth:\t8 bits per pixel\nColors:\tYJK colors\nPalette:\tno\nFrames:\t14\n"
            "Rate:\t12 frames a second\nLength:\t1.2 seconds\nSound:\t15,744 Hz, 8 bits, mono\n");
}

} // namespace
