#include "video/sound_track.h"

#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

namespace {

TEST(SoundTrack, HeadersAndSilence) {
  using namespace std::string_literals;
  const std::string form = "WAVEfmt \x10\0\0\0\1\0\1\0"s, bits = "\1\0\x08\0data"s;
  const std::string rate12 = "\x80\x3D\0\0"s, rate10 = "\x86\x3D\0\0"s;
  using Row = std::tuple<const char *, uint8_t, size_t, std::string>;
  for (const auto &[name, rate, length, header] :
       {Row{"12", kRate12, 15788, "RIFF\xA4\x3D\0\0"s + form + rate12 + rate12 + bits + rate12},
        Row{"10", kRate10, 15794, "RIFF\xAA\x3D\0\0"s + form + rate10 + rate10 + bits + rate10}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    test.open("x.EVA", evaFile(1, rate));
    const SoundImages &images = test.viewer.soundImages;
    EXPECT_EQ(std::string(images.looping.begin(), images.looping.begin() + 44), header);
    EXPECT_EQ(images.loopingBytes, length);
    const std::string silence =
        "RIFF\x50\0\0\0"s + form + rate12 + rate12 + bits + "\x2C\0\0\0"s + std::string(44, 0x7F);
    EXPECT_EQ(std::string(images.silence.begin(), images.silence.end()), silence);
  }
}

TEST(SoundTrack, KeepsWhatNoFrameHasOverwritten) {
  TestViewer test;
  test.open("long.EVA", evaFile(3));
  HScroll1_Change(test.viewer, 2);
  test.open("short.EVA", evaFile(1, kRate10));
  const auto &looping = test.viewer.soundImages.looping;
  EXPECT_EQ(looping[44 + 1574], 8); // frame 0 of the second
  EXPECT_EQ(looping[44 + 3 * 1312 - 1], 24);
  EXPECT_EQ(looping[44 + 3 * 1312], 127);
}

thread_local std::vector<std::span<const uint8_t>> started; // what the device was given

TEST(SoundTrack, StartsInPlaceWhenTheSecondFrameIsRead) {
  using Row = std::tuple<const char *, uint8_t, int32_t, size_t>;
  for (const auto &[name, rate, first, slotBytes] :
       {Row{"12", kRate12, 0, 1312}, Row{"10", kRate10, 0, 1575}, Row{"12 from frame 11", kRate12, 11, 1312},
        Row{"10 from frame 9", kRate10, 9, 1575}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    test.open("x.EVA", evaFile(14, rate));
    HScroll1_Change(test.viewer, first);
    started.clear();
    static thread_local Bytes then; // the image may change later
    test.viewer.platform.startSound = [](void *, std::span<const uint8_t> image) {
      started.push_back(image);
      then.assign(image.begin(), image.end());
    };
    Image1_Click(test.viewer);
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(started[0].data(), test.viewer.soundImages.looping.data());
    for (int32_t frame = first; frame < first + 3; ++frame) { // the third is not there yet
      const size_t at = 44 + static_cast<size_t>(frame) % (rate == kRate12 ? 12 : 10) * slotBytes;
      EXPECT_EQ(then[at] == 8 * (frame + 1), frame < first + 2) << frame;
      EXPECT_EQ(then[at + slotBytes - 1] == 8 * (frame + 1), frame < first + 2) << frame;
    }
  }
}

TEST(SoundTrack, StopDoesNoHarm) {
  TestViewer test;
  stopSound(test.viewer); // before any sound
  test.open("x.EVA", evaFile(2));
  test.platform.log.clear();
  stopSound(test.viewer);
  menuExit_Click(test.viewer);
  EXPECT_EQ(test.platform.log, (std::vector<std::string>{"stopSound 88", "stopSound 88", "exitProgram"}));
}

} // namespace
