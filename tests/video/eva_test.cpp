#include "video/video_files.h"

namespace {

TEST(Eva, RateColoursAndFrameCount) {
  constexpr uint32_t kYjk = 0x080808, kRgb = 0x400000;
  const char *at12 = "EVA [12fps]", *at10 = "EVA [10fps]";
  using Row = std::tuple<const char *, uint8_t, uint8_t, uint8_t, size_t, const char *, uint32_t, int32_t>;
  for (const auto &[path, earlier, rate, kind, length, status, colour, count] : // earlier rate 0: a fresh viewer
       {Row{"x.EVA", 6, 7, 0, 15360, at10, kYjk, 1}, Row{"x.EVA", 5, 6, 0, 15360, at10, kYjk, 1},
        Row{"x.EV8", 0, 6, 0, 15360, at10, kRgb, 1}, Row{"x.ev8", 0, 5, 12, 15360, at12, kYjk, 1},
        Row{"x.EVA", 5, 5, 0, 7680, at12, kYjk, 0}, Row{"x.EVA", 0, 5, 0, 38400, at12, kYjk, 2}}) {
    SCOPED_TRACE(testing::Message() << path << ", rate " << int{rate} << ", " << length << " bytes");
    TestViewer test;
    if (earlier != 0) test.open("earlier.EVA", evaFile(2, earlier));
    Bytes file = evaFile(4, rate, kind);
    file.resize(length);
    test.open(path, file);
    EXPECT_EQ(test.viewer.window.Label4, status);
    EXPECT_EQ(videoSigns(test.viewer), 5);
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, count - 1);
    EXPECT_EQ(test.viewer.frameBits[0], colour); // frame 0 also where none is counted
    EXPECT_EQ(test.viewer.colourCount, colour == kRgb ? 255 : 0);
    EXPECT_EQ(test.viewer.soundImages.loopingBytes, status == at12 ? 15788u : 15794u);
  }
}

} // namespace
