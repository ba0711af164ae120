#include "pixels/pixel_kernels.h"
#include "support/viewer_text.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Eva, VideoAndSamplesOfEachFrame) {
  Bytes file(2 * kEvaBlock), video(size_t{128} * 106);
  for (uint32_t i = 0; i < file.size(); ++i) file[i] = static_cast<uint8_t>(i * 2654435761U >> 24);
  for (const auto &[rate, kind] : {std::pair{kRate12, 0}, {kRate12, 8}, {kRate10, 0}, {kRate10, 8}}) {
    file[15343] = static_cast<uint8_t>(kind);
    file[15359] = rate;
    TestViewer test;
    test.open("x.EVA", file);
    for (const uint32_t frame : {1, 0}) { // backwards, so that none can profit from the one before
      SCOPED_TRACE(testing::Message() << "rate " << int{rate} << ", kind " << kind << ", frame " << frame);
      HScroll1_Change(test.viewer, static_cast<int32_t>(frame));
      const std::span block = std::span(file).subspan(frame * kEvaBlock, kEvaBlock);
      Pixels expected(video.size());
      for (uint32_t i = 0; i < video.size(); ++i) {
        const uint32_t byte = video[i] = block[rate == kRate12 ? i + i / 128 * 12 + i % 128 / 11 + 1 : i];
        expected[i] = byte / 4 % 8 << 21 | byte / 32 << 13 | byte % 4 << 6;
      }
      if (kind != 8) pixelKernels().videoYjk(video.data(), video.size() / 4, expected.data());
      EXPECT_TRUE(test.viewer.frameBits == expected);
      const uint32_t samples = rate == kRate12 ? 1312 : 1575;
      for (uint32_t i = 0; i < samples; ++i) {
        ASSERT_EQ(test.viewer.soundImages.looping[44 + frame * samples + i],
                  block[rate == kRate12 && i < 106 * 12 ? i / 12 * 140 + i % 12 * 12 : 13568 + i]);
      }
    }
  }
}

TEST(Eva, RateColoursAndFrameCount) {
  constexpr uint32_t kYjk = 0x080808, kRgb = 0x400000;
  const char *at12 = "EVA [12fps]", *at10 = "EVA [10fps]", *error = "*** Error: Not a valid .EVA file.";
  using Row = std::tuple<const char *, uint8_t, uint8_t, uint8_t, size_t, const char *, uint32_t, int32_t>;
  for (const auto &[path, earlier, rate, kind, length, status, colour, count] : // earlier rate 0: a fresh viewer
       {Row{"x.EVA", 0, 7, 0, 15360, error, 0, 0}, Row{"x.EVA", 0, 4, 0, 15360, error, 0, 0},
        Row{"x.EVA", 0, 5, 0, 15359, error, 0, 0}, Row{"x.EVA", 6, 7, 0, 15360, at10, kYjk, 1},
        Row{"x.EVA", 6, 5, 0, 15360, at12, kYjk, 1}, Row{"x.EVA", 5, 6, 0, 15360, at10, kYjk, 1},
        Row{"x.EVA", 5, 4, 0, 15360, at12, kYjk, 1}, Row{"x.EVA", 0, 5, 0x88, 15360, at12, kYjk, 1},
        Row{"x.EV8", 0, 6, 0, 15360, at10, kRgb, 1}, Row{"x.ev8", 0, 5, 12, 15360, at12, kYjk, 1},
        Row{"x.eV8", 0, 5, 8, 15360, at12, kRgb, 1}, Row{"x.EVA", 5, 5, 0, 7680, at12, kYjk, 0},
        Row{"x.EVA", 5, 5, 0, 7681, at12, kYjk, 1}, Row{"x.EVA", 0, 5, 0, 38400, at12, kYjk, 2},
        Row{"x.EVA", 0, 5, 0, 38401, at12, kYjk, 3}}) {
    SCOPED_TRACE(testing::Message() << path << ", rate " << int{rate} << ", " << length << " bytes");
    TestViewer test;
    if (earlier != 0) test.open("earlier.EVA", evaFile(2, earlier));
    test.open("before.SC8", kScreen8File);
    const std::string before = pictureText(test.viewer);
    Bytes file = evaFile(4, rate, kind);
    file.resize(length);
    test.open(path, file);
    EXPECT_EQ(test.viewer.window.Label4, status);
    EXPECT_EQ(videoSigns(test.viewer), status == error ? 0 : 5);
    EXPECT_EQ(pictureText(test.viewer) == before, status == error);
    if (status == error) continue;
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, count - 1);
    EXPECT_EQ(test.viewer.frameBits[0], colour); // frame 0 also where none is counted
    EXPECT_EQ(test.viewer.colourCount, colour == kRgb ? 255 : 0);
    EXPECT_EQ(test.viewer.soundImages.loopingBytes, status == at12 ? 15788u : 15794u);
  }
}

} // namespace
