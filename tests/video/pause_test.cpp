#include "video/playback.h"
#include "video/video_files.h"

namespace {

void pass(ViewerState &viewer, uint32_t milliseconds) {
  static_cast<HeadlessPlatform *>(viewer.platform.context)->ticks += milliseconds;
}

// What happens at the event after the sound has started, which may take five seconds; the calls for the sound.
TEST(Pause, SoundAndFramesGoOnWhereTheyWere) {
  struct Row {
    const char *name;
    void (*event)(ViewerState &viewer, const std::string &);
    uint32_t milliseconds; // of a run of four frames, 250 without a pause
    std::vector<std::string> sound;
  };
  const auto resumeLate = [](ViewerState &viewer, const std::string &) {
    pausePlayback(viewer);
    pass(viewer, 2000);
    pausePlayback(viewer);
    pass(viewer, 2000);
    resumePlayback(viewer);
    pass(viewer, 1000);
    EXPECT_FALSE(viewer.window.HScroll1.enabled);
    resumePlayback(viewer);
  };
  const auto stopPaused = [](ViewerState &viewer, const std::string &) {
    pausePlayback(viewer);
    Image2_Click(viewer);
    resumePlayback(viewer);
  };
  const auto resumeOnly = [](ViewerState &viewer, const std::string &) { resumePlayback(viewer); };
  const auto holdSpace = [](ViewerState &viewer, const std::string &) {
    EXPECT_TRUE(pressKey(viewer, {.code = 32, .repeated = true}));
  };
  const auto comeLate = [](ViewerState &viewer, const std::string &) { pass(viewer, 1000); }; // then none waits
  const std::vector<std::string> plain{"startSound 15788", "stopSound 88"};
  for (const Row &row : {Row{"nested", resumeLate, 5250, {plain[0], "holdSound", "resumeSound", plain[1]}},
                         Row{"stopped", stopPaused, 0, {plain[0], "holdSound", plain[1]}},
                         Row{"without a pause", resumeOnly, 250, plain}, Row{"Space held", holdSpace, 250, plain},
                         Row{"late", comeLate, 1000, plain}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    test.open("a.EVA", evaFile(4));
    pausePlayback(test.viewer); // no run: no pause
    test.platform.log.clear();
    test.platform.events = {{row.event, ""}};
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.ticks, row.milliseconds);
    std::erase_if(test.platform.log, [](const std::string &line) { return line.find("Sound") == std::string::npos; });
    EXPECT_EQ(test.platform.log, row.sound);
    EXPECT_TRUE(test.viewer.window.HScroll1.enabled);
  }
}

TEST(Pause, FramesWaitForADeviceThatOpensSlowly) {
  TestViewer test;
  test.open("a.EVA", evaFile(4));
  test.viewer.platform.startSound = [](void *context, std::span<const uint8_t>) {
    static_cast<HeadlessPlatform *>(context)->ticks += 700;
  };
  Image1_Click(test.viewer);
  EXPECT_EQ(test.platform.ticks, 950U);
}

} // namespace
