#include "video/video_files.h"

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

TEST(SoundTrack, HeadersSamplesAndSilence) {
  using namespace std::string_literals;
  const std::string form = "WAVEfmt \x10\0\0\0\1\0\1\0"s, bits = "\1\0\x08\0data"s;
  const std::string rate12 = "\x80\x3D\0\0"s, rate10 = "\x86\x3D\0\0"s;
  TestViewer test;
  const auto &[looping, loopingBytes, silence] = test.viewer.soundImages;
  for (const auto &[rate, frames, header] :
       {std::tuple(kRate12, 15, "RIFF\xA4\x3D\0\0"s + form + rate12 + rate12 + bits + rate12),
        {kRate10, 12, "RIFF\xAA\x3D\0\0"s + form + rate10 + rate10 + bits + rate10}}) {
    test.open("x.EVA", evaFile(static_cast<size_t>(frames), rate));
    HScroll1_Change(test.viewer, frames - 1);
    EXPECT_EQ(std::string(looping.begin(), looping.begin() + 44), header);
    EXPECT_EQ(std::string(silence.begin(), silence.end()),
              "RIFF\x50\0\0\0"s + form + rate12 + rate12 + bits + "\x2C\0\0\0"s + std::string(44, 0x7F));
  }
  EXPECT_EQ(looping[44 + 1575], 96);
  EXPECT_EQ(looping[44 + 2 * 1575], 120); // the first film's
  EXPECT_EQ(looping[44 + 15743], 127);    // no film's
}
