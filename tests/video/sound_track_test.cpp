#include "video/sound_track.h"

#include "video/video_files.h"

#include <gtest/gtest.h>

namespace {

TEST(SoundTrack, HeadersAndSilence) {
  using namespace std::string_literals;
  const std::string form = "WAVEfmt \x10\0\0\0\1\0\1\0"s, bits = "\1\0\x08\0data"s;
  const std::string rate12 = "\x80\x3D\0\0"s, rate10 = "\x86\x3D\0\0"s;
  for (const auto &[rate, header] : {std::pair{kRate12, "RIFF\xA4\x3D\0\0"s + form + rate12 + rate12 + bits + rate12},
                                     {kRate10, "RIFF\xAA\x3D\0\0"s + form + rate10 + rate10 + bits + rate10}}) {
    TestViewer test;
    test.open("x.EVA", evaFile(1, rate));
    const SoundImages &images = test.viewer.soundImages;
    EXPECT_EQ(std::string(images.looping.begin(), images.looping.begin() + 44), header);
    EXPECT_EQ(std::string(images.silence.begin(), images.silence.end()),
              "RIFF\x50\0\0\0"s + form + rate12 + rate12 + bits + "\x2C\0\0\0"s + std::string(44, 0x7F));
  }
}

TEST(SoundTrack, KeepsWhatNoFrameHasOverwritten) {
  TestViewer test;
  test.open("long.EVA", evaFile(15));
  HScroll1_Change(test.viewer, 14);
  const auto &looping = test.viewer.soundImages.looping;
  EXPECT_EQ(looping[44 + 2 * 1312 - 1], 127);
  test.open("short.EVA", evaFile(12, kRate10));
  HScroll1_Change(test.viewer, 11);
  EXPECT_EQ(looping[44 + 1575], 96);
  EXPECT_EQ(looping[44 + 2 * 1575], 120);
}

} // namespace
