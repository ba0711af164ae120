// What is heard while Korilan.exe plays. These tests run only beside a recording; see sound_test.
#include "core/menus.h"
#include "shell/control_ids.h"
#include "shell/recording.h"
#include "shell/shown_sample.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

namespace {

constexpr size_t kBlock = 15360; // bytes of a frame

bool matches(double tone, double hertz) { return std::abs(tone - hertz) <= 0.03 * hertz; }

// Starts a run and waits until a tone is heard.
bool playsWithSound(const DrivenWindow &driven) {
  const size_t before = recordedSamples();
  return startsRun(driven) && waitUntil([&] {
           const std::vector<double> tones = recordedTones(before);
           return playing(driven) && !tones.empty() && tones.back() > 0;
         });
}

TEST(Sound, TheTonesOfTheFramesAreHeardOneAfterTheOther) {
  ASSERT_TRUE(waitForSamples(1));
  const TemporaryFolder folder("shell_tones");
  // Its last second comes twice: a system that takes sound far ahead of what is heard, as Wine does, takes what the
  // ring has held from the round before, and everything is heard a second late.
  samples::SamplePicture longer = sampleNamed("BOUNCE.EVA");
  const std::vector<uint8_t> lastSecond(longer.bytes.end() - 12 * kBlock, longer.bytes.end());
  longer.bytes.insert(longer.bytes.end(), lastSecond.begin(), lastSecond.end());
  const SampleFile video(folder, longer);
  const DrivenWindow driven(video.path);
  ASSERT_TRUE(silenceFollows()); // only playing is heard
  const size_t before = recordedSamples();
  ASSERT_TRUE(startsRun(driven));
  ASSERT_TRUE(waitUntil([&] { return !playing(driven); }));
  EXPECT_TRUE(silenceFollows());

  constexpr std::array<double, 3> kTones{440, 660, 880};
  std::array<int, 3> stretches{};
  size_t tone = 0;
  int strays = 0; // where two meet there is none of them
  const std::vector<double> heard = recordedTones(before);
  for (const double hertz : heard) {
    if (hertz == 0) continue;
    if (tone + 1 < kTones.size() && matches(hertz, kTones[tone + 1])) ++tone;
    matches(hertz, kTones[tone]) ? ++stretches[tone] : ++strays;
  }
  const std::string all = testing::PrintToString(heard);
  EXPECT_NEAR(stretches[0], 22, 6) << all;
  EXPECT_NEAR(stretches[1], 20, 4) << all;
  EXPECT_NEAR(stretches[2], 28, 12) << all; // up to two seconds
  EXPECT_LE(strays, 6) << all;
}

TEST(Sound, ARunThatIsCutShortIsSilentAtOnce) {
  const TemporaryFolder folder("shell_silence");
  const SampleFile picture(folder, sampleNamed("REEF.SC5"));
  const SampleFile video(folder, sampleNamed("BOUNCE.EVA"));
  const DrivenWindow driven(video.path);
  struct Row {
    const char *what;
    std::function<void()> ends;
  };
  const std::array<Row, 6> rows{{{"Space", [&] { typeKey(driven, VK_SPACE); }},
                                 {"Stop", [&] { press(driven.window, kImage1Id + 1); }},
                                 {"another video", [&] { dropFile(driven, video.path); }},
                                 {"a picture", [&] { dropFile(driven, picture.path); }},
                                 {"Help", [&] { choose(driven, "Help"); }},
                                 {"closing", [&] { PostMessageA(driven.window, WM_CLOSE, 0, 0); }}}};
  for (const Row &row : rows) {
    SCOPED_TRACE(row.what);
    ASSERT_TRUE(playsWithSound(driven));
    row.ends();
    if (row.what == std::string("closing")) {
      EXPECT_EQ(exitCodeOf(driven), 0);
    } else {
      if (row.what == std::string("Help")) {
        const HWND help = dialogNamed(driven, "Korilan Help");
        EXPECT_TRUE(silenceFollows()); // while the dialog stands; after it the run goes on
        EXPECT_TRUE(leaveDialog(help, IDCANCEL));
      }
      EXPECT_TRUE(waitUntil([&] { return !playing(driven); }));
    }
    EXPECT_TRUE(silenceFollows());
    if (row.what == std::string("a picture")) dropFile(driven, video.path);
    EXPECT_TRUE(row.what == std::string("closing") || waitUntil([&] { return !playing(driven); }));
  }
}

} // namespace
