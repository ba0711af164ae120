#include "video/playback.h"

#include "core/bitmap_export.h"
#include "video/video_files.h"

namespace {

// First pixels of evaFile() as the decoders show them.
constexpr uint32_t kYjk[] = {0x080808, 0x101010, 0x181820}; // blue 1.25, 2.5, 3.75
constexpr uint32_t kRgb[] = {0x400000, 0x800000, 0xC00000};
constexpr uint32_t kVid[] = {0xFF9100, 0x910000, 0x00FFFF};
constexpr uint32_t kSound = 1; // the sound starts
const Bytes kVidFrames{0x22, 0x22, 0x33, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66};

HeadlessPlatform &platformOf(void *context) { return *static_cast<HeadlessPlatform *>(context); }
void pass(ViewerState &viewer, uint32_t milliseconds) { platformOf(viewer.platform.context).ticks += milliseconds; }

thread_local Pixels shown; // first pixel of each picture

void hearSound(void *context, std::span<const uint8_t> image) {
  const SoundImages &images = platformOf(context).viewer->soundImages;
  const bool looping = image.data() == images.looping.data() && image.size() == images.loopingBytes;
  shown.push_back(looping ? kSound : 0);
}

TEST(Playback, FramesOfARun) {
  // File, from which frame; what is shown and heard during the run, then frame 0; milliseconds
  using Row = std::tuple<const char *, Bytes, int32_t, Pixels, uint32_t>;
  const auto vid = [](int rate, int frames) { return vidFile({rate, frames, 4, 1, 7, 2}, kVidFrames); };
  const Pixels yjk{kSound, kYjk[1], kYjk[2], kYjk[0]}, allVid{kVid[0], kVid[1], kVid[2], kVid[0]};
  for (const auto &[path, file, from, expected, milliseconds] :
       {Row{"x.EVA", evaFile(3), 0, yjk, 167}, Row{"x.EVA", evaFile(3, kRate10), 0, yjk, 200},
        Row{"x.EV8", evaFile(3), 0, {kSound, kRgb[1], kRgb[2], kRgb[0]}, 167},
        Row{"x.EV8", evaFile(3, kRate10), 0, {kSound, kYjk[1], kYjk[2], kRgb[0]}, 200},
        Row{"x.EVA", evaFile(3), 1, {kSound, kYjk[2], kYjk[0]}, 84}, Row{"x.EVA", evaFile(3), 2, yjk, 167},
        Row{"x.EVA", evaFile(1), 0, {kYjk[0]}, 0}, Row{"x.VID", vid(0, 3), 0, allVid, 2000},
        Row{"x.VID", vid(10, 3), 1, {kVid[1], kVid[2], kVid[0]}, 100}, Row{"x.VID", vid(255, 3), 0, allVid, 8}}) {
    for (const bool steps : {false, true}) {
      SCOPED_TRACE(testing::Message() << path << " from " << from << " to " << milliseconds
                                      << (steps ? ", stepped" : ""));
      TestViewer test;
      test.viewer.platform.stepsVideos = steps;
      test.open(path, file);
      const std::string status = test.viewer.window.Label4;
      HScroll1_Change(test.viewer, from);
      EXPECT_EQ(test.viewer.window.Label4, from == 0 ? status : "Frame: " + std::to_string(from));
      shown.clear();
      test.platform.ticks = 0xFFFFFFFF; // the clock wraps
      test.viewer.platform.presentPicture = [](void *, auto bits, int32_t, int32_t) { shown.push_back(bits[0]); };
      test.viewer.platform.startSound = hearSound;
      Image1_Click(test.viewer);
      while (steps && (stepVideo(test.viewer), test.viewer.activity == Activity::kPlaying)) ++test.platform.ticks;
      EXPECT_EQ(shown, expected);
      EXPECT_EQ(test.platform.ticks, milliseconds - 1);
      EXPECT_EQ(test.viewer.window.HScroll1.value, 0);
      EXPECT_EQ(test.viewer.window.Label4, status);
    }
  }
}

int itemsDuringNoRun(const WindowModel &window) {
  return window.menuView.enabled + window.menuOpen.enabled + window.menuClose.enabled + window.menuPreferences.enabled;
}

// What the window shows of a run at 12 frames a second; its first frame came at once.
void noEvent(ViewerState &viewer, const std::string &) {
  if (!videoPlaying(viewer)) return;
  const auto frame = static_cast<int32_t>(platformOf(viewer.platform.context).ticks * 12 / 1000);
  EXPECT_EQ(viewer.window.HScroll1.value, frame);
  EXPECT_EQ(viewer.window.Label4, "Frame: " + std::to_string(frame));
  EXPECT_EQ(itemsDuringNoRun(viewer.window), 0);
  const uint32_t picture = viewer.frameBits[0] / kYjk[0] - 1; // one ahead while it waits to be due
  EXPECT_EQ(bitmapPath(viewer), "x - 000" + std::to_string(picture) + ".bmp");
}

void pressKeys(ViewerState &viewer, const std::string &codes) {
  for (const char code : codes) pressKey(viewer, {static_cast<uint8_t>(code)});
}

TEST(Playback, AnyCommandAtAnyEvent) {
  // What it takes, whether it ends the run, the caption behind it.
  using Row = std::tuple<void (*)(ViewerState & viewer, const std::string &argument), const char *, bool, std::string>;
  const std::string same = "Korilan - x.EVA";
  for (const auto &[deliver, argument, ends, caption] :
       {Row{pressKeys, " ", true, same},
        Row{[](ViewerState &viewer, auto) { menuClose_Click(viewer); }, "Close", true, "Korilan"},
        Row{[](ViewerState &viewer, auto) { menuExit_Click(viewer); }, "Exit", true, same},
        Row{openPath, "picture.SC8", true, "Korilan - picture.SC8"},
        Row{openPath, "bad.VID", true, "Korilan - bad.VID"}, Row{openPath, "other.VID", true, "Korilan - other.VID"},
        Row{openPath, ".VID", false, same},
        Row{[](ViewerState &viewer, auto) { Image1_Click(viewer); }, "Play", false, same},
        Row{[](ViewerState &viewer, auto) { HScroll1_Change(viewer, 3); }, "scroll", false, same},
        Row{[](ViewerState &viewer, auto) { menuSaveBMP_Click(viewer); }, "Save", false, same},
        Row{pressKeys, "!\"#$\xBC\xBE", false, same}}) { // paging, comma, period
    TestViewer test;
    memoryDisk() = {{"picture.SC8", kScreen8File}, {"bad.VID", {1, 2, 3}}, {"x.EVA", evaFile(5)}};
    memoryDisk()["other.VID"] = vidFile({12, 5, 4, 1, 7, 2}, kVidFrames);
    const bool exit = std::string_view(argument) == "Exit";
    for (uint32_t k = 0; k < 334; k += argument[0] == ' ' ? 1 : 41) { // events come a millisecond apart
      SCOPED_TRACE(std::string(argument) + ", " + std::to_string(k));
      openPath(test.viewer, "x.EVA");
      test.platform.log.clear();
      test.platform.ticks = 0;
      test.platform.events.assign(k, {noEvent, ""});
      test.platform.events.insert(test.platform.events.end(), {{deliver, argument}, {noEvent, ""}});
      Image1_Click(test.viewer);
      EXPECT_EQ(test.platform.ticks, ends ? k : 334);
      EXPECT_EQ(std::ranges::count(test.platform.log, "stopSound 88"), 1 + exit);
      EXPECT_EQ(std::ranges::count(test.platform.log, "exitProgram"), exit);
      EXPECT_EQ(itemsDuringNoRun(test.viewer.window), caption == "Korilan" ? 2 : 4); // none open: no View, no Close
      EXPECT_EQ(test.viewer.window.caption, caption);
      EXPECT_EQ(videoSigns(test.viewer), caption == same || caption == "Korilan - other.VID" ? 5 : 0);
      EXPECT_EQ(caption == same ? test.viewer.window.HScroll1.value : 0, 0);
    }
  }
}

TEST(Playback, StopOfAFileThatIsNoVideoAnyMore) {
  TestViewer test;
  test.open("x.VID", vidFile({12, 5, 4, 1, 7, 2}, kVidFrames));
  const auto damageAndStop = [](ViewerState &viewer, const std::string &) {
    memoryDisk()["x.VID"][0] = 0;
    Image2_Click(viewer);
  };
  test.platform.events = {{damageAndStop, ""}};
  Image1_Click(test.viewer);
  EXPECT_EQ(test.viewer.loadError, "o_O");
  EXPECT_EQ(itemsDuringNoRun(test.viewer.window), 4);
  EXPECT_EQ(videoSigns(test.viewer), 0);
}

TEST(Playback, KeysOfAVideo) {
  TestViewer test;
  test.open("x.EVA", evaFile(3));
  // Back from the first, on, with Ctrl, with Alt, on to the last, on from it, back, play
  const KeyPress keys[] = {{188}, {190}, {190, true}, {190, false, true}, {190}, {190}, {188}, {32}};
  Pixels frames;
  for (const KeyPress &key : keys) {
    pressKey(test.viewer, key);
    frames.push_back(test.viewer.frameBits[0] / kYjk[0] - 1);
  }
  EXPECT_EQ(frames, (Pixels{0, 1, 1, 1, 2, 2, 1, 0}));
  EXPECT_EQ(std::ranges::count(test.platform.log, "startSound 15788"), 1);
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
  test.viewer.platform.startSound = [](void *context, std::span<const uint8_t>) { platformOf(context).ticks += 700; };
  Image1_Click(test.viewer);
  EXPECT_EQ(test.platform.ticks, 950U);
}

} // namespace
