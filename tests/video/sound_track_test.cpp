#include "video/sound_track.h"

#include "video/video_files.h"

namespace {

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

} // namespace
