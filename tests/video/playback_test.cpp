#include "video/playback.h"

#include "core/keys.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

namespace {

// First pixels of evaFile() as the decoders show them.
constexpr uint32_t kYjk[] = {0x080808, 0x101010, 0x181820, 0x202028, 0x282830}; // blue 1.25, 2.5, 3.75, 5, 6.25
constexpr uint32_t kRgb[] = {0x400000, 0x800000, 0xC00000, 0x002000, 0x402000};
constexpr uint32_t kVid[] = {0xFF9100, 0x910000, 0x00FFFF, 0x000091, 0x9191FF};
const Bytes kVidFrames{0x22, 0x22, 0x33, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66};

thread_local Pixels shown; // first pixel of each picture

TEST(Playback, FramesOfARun) {
  struct Row {
    const char *name, *path;
    Bytes file;
    int32_t from;
    Pixels shown; // during the run, then frame 0
    long starts, stops;
    uint32_t milliseconds;
  };
  const auto vid = [](int rate, int frames) {
    return VidFile{.rate = rate, .frameCount = frames, .frames = kVidFrames}.build();
  };
  for (const Row &row :
       {Row{"YJK, 12", "x.EVA", evaFile(3), 0, {kYjk[1], kYjk[2], kYjk[0]}, 1, 1, 167},
        Row{"YJK, 10", "x.EVA", evaFile(3, kRate10), 0, {kYjk[1], kYjk[2], kYjk[0]}, 1, 1, 200},
        Row{"RGB, 12", "x.EV8", evaFile(3), 0, {kRgb[1], kRgb[2], kRgb[0]}, 1, 1, 167},
        Row{"RGB, 10: runs are drawn as YJK", "x.EV8", evaFile(3, kRate10), 0, {kYjk[1], kYjk[2], kRgb[0]}, 1, 1, 200},
        Row{"RGB by byte, 10", "x.EVA", evaFile(3, kRate10, 8), 0, {kYjk[1], kYjk[2], kRgb[0]}, 1, 1, 200},
        Row{"from frame 1", "x.EVA", evaFile(3), 1, {kYjk[2], kYjk[0]}, 1, 1, 84},
        Row{"from the last", "x.EVA", evaFile(3), 2, {kYjk[1], kYjk[2], kYjk[0]}, 1, 1, 167},
        Row{"one frame", "x.EVA", evaFile(1), 0, {kYjk[0]}, 0, 1, 0},
        Row{"VID", "x.VID", vid(10, 3), 0, {kVid[0], kVid[1], kVid[2], kVid[0]}, 0, 0, 200},
        Row{"VID from frame 1", "x.VID", vid(10, 3), 1, {kVid[1], kVid[2], kVid[0]}, 0, 0, 100},
        Row{"VID from the last", "x.VID", vid(10, 3), 2, {kVid[0], kVid[1], kVid[2], kVid[0]}, 0, 0, 200},
        Row{"VID of rate 0", "x.VID", vid(0, 3), 0, {kVid[0], kVid[1], kVid[2], kVid[0]}, 0, 0, 2000},
        Row{"VID of rate 255", "x.VID", vid(255, 3), 0, {kVid[0], kVid[1], kVid[2], kVid[0]}, 0, 0, 8},
        Row{"VID of one frame", "x.VID", vid(10, 1), 0, {kVid[0], kVid[0]}, 0, 0, 0},
        Row{"VID without frames", "x.VID", vid(10, 0), 0, {}, 0, 0, 0}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    test.open(row.path, row.file);
    const std::string status = test.viewer.window.Label4;
    HScroll1_Change(test.viewer, row.from);
    test.viewer.platform.presentPicture = [](void *, std::span<const uint32_t> bits, int32_t, int32_t) {
      shown.push_back(bits[0]);
    };
    for (const uint32_t start : {0U, 0xFFFFFFFFU}) { // the second run begins at frame 0
      if (start != 0 && row.from != 0) continue;
      shown.clear();
      test.platform.log.clear();
      test.platform.ticks = start;
      Image1_Click(test.viewer);
      EXPECT_EQ(shown, row.shown);
      EXPECT_EQ(std::count_if(test.platform.log.begin(), test.platform.log.end(),
                              [](const std::string &line) { return line.starts_with("startSound "); }),
                row.starts);
      EXPECT_EQ(countOf(test.platform.log, "stopSound 88"), row.stops);
      EXPECT_EQ(test.platform.ticks - start, row.milliseconds);
      EXPECT_EQ(test.viewer.window.HScroll1.value, 0);
      EXPECT_EQ(test.viewer.window.Label4, status);
    }
  }
}

TEST(Playback, OrderOfWhatARunDoes) {
  TestViewer test;
  test.open("x.EVA", evaFile(3));
  test.platform.log.clear();
  Image1_Click(test.viewer);
  EXPECT_EQ(test.platform.log,
            (std::vector<std::string>{"startSound 15788", "presentPicture 128x106", "runPendingEvents",
                                      "presentPicture 128x106", "runPendingEvents", "stopSound 88", "runPendingEvents",
                                      "presentPicture 128x106"}));
}

// A film of two hours whose blocks are made as they are read. The clock also runs while a block is read, waits end
// early or late.
struct LongFilm {
  HeadlessPlatform *platform;
  uint8_t rateCode;
  int64_t frames, rate;
  uint32_t start = 0;
  int64_t expected = 0; // frame that is to be read next
  int64_t early = 0, late = 0, wrongLabels = 0, waits = 0;
};
thread_local LongFilm film;

constexpr FileOps kFilmFiles{.openForReading = [](const char *) -> FileHandle { return &film; },
                             .length = [](FileHandle) { return film.frames * static_cast<int64_t>(kEvaBlock); },
                             .readAt = [](FileHandle, int64_t offset, uint8_t *into, size_t count) -> size_t {
                               std::fill_n(into, count, count == 1 && offset == 15359 ? film.rateCode : uint8_t{0});
                               if (count == 1 || !videoPlaying(*film.platform->viewer)) return count;
                               const int64_t frame = offset / static_cast<int64_t>(kEvaBlock);
                               film.wrongLabels += frame != film.expected++;
                               if (frame > 0) { // the one before has just been announced
                                 const int64_t ahead =
                                     (frame - 1) * 1000 - int64_t{film.platform->ticks - film.start} * film.rate;
                                 film.early += ahead > 0;
                                 film.late += ahead <= -1000;
                                 film.wrongLabels +=
                                     film.platform->viewer->window.Label4 != "Frame: " + std::to_string(frame - 1);
                               }
                               film.platform->ticks += 5;
                               return count;
                             },
                             .close = [](FileHandle) {},
                             .listFolder = [](const char *) { return std::vector<std::string>{}; },
                             .replaceFile = [](const char *, std::span<const uint8_t>) { return std::string(); }};

TEST(Playback, TwoHoursKeepTime) {
  struct Row {
    const char *name;
    uint8_t rateCode;
    int rate;
    uint32_t start;
  };
  for (const Row &row : {Row{"12", kRate12, 12, 0}, Row{"12, ticks wrap", kRate12, 12, 0xFFFFFFFF - 1000},
                         Row{"10", kRate10, 10, 0}, Row{"10, ticks wrap", kRate10, 10, 0xFFFFFFFF - 1000}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    ViewerState &viewer = test.viewer;
    film = {&test.platform, row.rateCode, 7200 * row.rate, row.rate};
    viewer.platform.files = &kFilmFiles;
    viewer.platform.runPendingEvents = [](void *) {};
    viewer.platform.presentPicture = [](void *, std::span<const uint32_t>, int32_t, int32_t) {};
    viewer.platform.waitForEvents = [](void *, uint32_t milliseconds) {
      const int64_t wait = ++film.waits;
      film.platform->ticks += wait % 3 == 0 ? 1 : milliseconds + static_cast<uint32_t>(wait % 16);
    };
    openPath(viewer, "x.EVA");
    EXPECT_EQ(viewer.window.HScroll1.maximum, film.frames - 1);
    test.platform.ticks = film.start = row.start;
    Image1_Click(viewer);
    EXPECT_EQ(film.expected, film.frames);
    EXPECT_EQ(film.early, 0);
    EXPECT_EQ(film.late, 0);
    EXPECT_EQ(film.wrongLabels, 0);
    const int64_t elapsed = test.platform.ticks - row.start, due = 7200000 - 1000 / row.rate;
    EXPECT_GE(elapsed, due - 1);
    EXPECT_LT(elapsed, due + 1000 / row.rate);
    EXPECT_EQ(viewer.window.HScroll1.value, 0);
    EXPECT_EQ(viewer.evaPlayer.currentFrame, 0);
    EXPECT_EQ(viewer.window.Label4, row.rate == 12 ? "EVA [12fps]" : "EVA [10fps]");
    viewer.platform.files = &memoryFiles();
  }
}

void noEvent(ViewerState &viewer, const std::string &) {
  if (!videoPlaying(viewer)) return;
  const WindowModel &window = viewer.window;
  EXPECT_FALSE(window.menuView.enabled || window.menuOpen.enabled || window.menuClose.enabled ||
               window.menuPreferences.enabled);
}

TEST(Playback, AnyCommandAtAnyEvent) {
  constexpr uint32_t kWhole = 334; // milliseconds of five frames at 12 a second
  constexpr const char *kSame = "";
  struct Row {
    const char *name;
    void (*deliver)(ViewerState &viewer, const std::string &argument);
    const char *argument;
    bool ends;
    const char *file; // open afterwards; kSame: the video, at frame 0; nullptr: none
  };
  const auto open = [](ViewerState &viewer, const std::string &path) { openPath(viewer, path); };
  const auto key = [](ViewerState &viewer, const std::string &code) { pressKey(viewer, {std::stoi(code)}); };
  const auto scroll = [](ViewerState &viewer, const std::string &value) { HScroll1_Change(viewer, std::stoi(value)); };
  for (const Row &row :
       {Row{"Stop", [](ViewerState &viewer, const std::string &) { Image2_Click(viewer); }, "", true, kSame},
        Row{"Space", key, "32", true, kSame},
        Row{"Close", [](ViewerState &viewer, const std::string &) { menuClose_Click(viewer); }, "", true, nullptr},
        Row{"Exit", [](ViewerState &viewer, const std::string &) { menuExit_Click(viewer); }, "", true, kSame},
        Row{"a picture", open, "picture.SC8", true, "picture.SC8"}, Row{"unknown kind", open, "a.TXT", true, kSame},
        Row{"other EVA", open, "other.EVA", true, "other.EVA"}, Row{"other VID", open, "other.VID", true, "other.VID"},
        Row{"Play", [](ViewerState &viewer, const std::string &) { Image1_Click(viewer); }, "", false, kSame},
        Row{"scroll to 3", scroll, "3", false, kSame}, Row{"scroll to 0", scroll, "0", false, kSame},
        Row{"page up", key, "33", false, kSame}, Row{"page down", key, "34", false, kSame},
        Row{"end", key, "35", false, kSame}, Row{"home", key, "36", false, kSame},
        Row{"comma", key, "188", false, kSame}, Row{"period", key, "190", false, kSame}}) {
    TestViewer test;
    ViewerState &viewer = test.viewer;
    memoryDisk()["picture.SC8"] = {0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C};
    memoryDisk()["other.EVA"] = evaFile(1);
    memoryDisk()["other.VID"] = VidFile{}.build();
    memoryDisk()["x.EVA"] = evaFile(5);
    memoryDisk()["x.VID"] = VidFile{.rate = 12, .frameCount = 5, .frames = kVidFrames}.build();
    const uint32_t step = row.deliver == scroll || row.deliver == key || row.file != kSame ? 9 : 1;
    for (const bool eva : {true, false}) {
      for (uint32_t k = 0; k < kWhole; k += step) { // events come a millisecond apart
        SCOPED_TRACE(std::string(row.name) + (eva ? ", EVA, " : ", VID, ") + std::to_string(k));
        const std::string path = eva ? "x.EVA" : "x.VID";
        viewer.vidPlayer.headerReady = kFalse;
        openPath(viewer, path);
        test.platform.log.clear();
        test.platform.ticks = 0;
        test.platform.events.assign(k, {noEvent, ""});
        test.platform.events.push_back({row.deliver, row.argument});
        Image1_Click(viewer);
        test.platform.events.clear();

        EXPECT_EQ(test.platform.ticks, row.ends ? k : kWhole);
        const long exits = std::string_view(row.name) == "Exit";
        EXPECT_EQ(countOf(test.platform.log, "stopSound 88"), eva + exits * (viewer.soundImages.loopingBytes > 0));
        EXPECT_EQ(countOf(test.platform.log, "exitProgram"), exits);
        viewer.exitRequested = false;
        EXPECT_FALSE(videoPlaying(viewer));
        const WindowModel &window = viewer.window;
        EXPECT_TRUE(window.menuOpen.enabled && window.menuPreferences.enabled);
        EXPECT_TRUE(row.file == nullptr || (window.menuView.enabled && window.menuClose.enabled));
        EXPECT_EQ(window.HScroll1.value, 0);
        if (row.file == nullptr) {
          EXPECT_EQ(viewer.fileLoaded, kFalse);
          EXPECT_EQ(controlsOf(viewer), kPictureControls);
        } else if (row.file != kSame) {
          EXPECT_EQ(viewer.fileName, row.file);
        } else {
          EXPECT_EQ(viewer.fileName, path);
          EXPECT_EQ(window.Label4, eva ? "EVA [12fps]" : "VID [12fps]");
          EXPECT_EQ(viewer.frameBits[0], eva ? kYjk[0] : kVid[0]);
        }
      }
    }
  }
}

TEST(Playback, KeysOfAVideo) {
  TestViewer test;
  EXPECT_FALSE(pressKey(test.viewer, {32}) || pressKey(test.viewer, {188}) || pressKey(test.viewer, {190}));
  test.open("x.EVA", evaFile(3));
  using Row = std::tuple<const char *, KeyPress, int32_t, const char *, uint32_t>;
  for (const auto &[name, key, frame, status, colour] :
       {Row{"back from the first", {188}, 0, "EVA [12fps]", kYjk[0]}, Row{"on", {190}, 1, "Frame: 1", kYjk[1]},
        Row{"with Ctrl", {190, true}, 1, "Frame: 1", kYjk[1]},
        Row{"with Alt", {190, false, true}, 1, "Frame: 1", kYjk[1]},
        Row{"on to the last", {190}, 2, "Frame: 2", kYjk[2]}, Row{"on from it", {190}, 2, "Frame: 2", kYjk[2]},
        Row{"back", {188}, 1, "Frame: 1", kYjk[1]}}) {
    pressKey(test.viewer, key);
    EXPECT_EQ(test.viewer.window.HScroll1.value, frame) << name;
    EXPECT_EQ(test.viewer.window.Label4, status) << name;
    EXPECT_EQ(test.viewer.frameBits[0], colour) << name;
  }
  EXPECT_TRUE(pressKey(test.viewer, {32}));
  EXPECT_EQ(countOf(test.platform.log, "startSound 15788"), 1);
  EXPECT_EQ(test.viewer.window.HScroll1.value, 0);
}

TEST(Playback, LeavingTheVideo) {
  using Row = std::tuple<const char *, void (*)(ViewerState &), const char *>;
  for (const auto &[name, leave, controls] :
       {Row{"picture", [](ViewerState &viewer) { openPath(viewer, "good.SC8"); }, kPictureControls},
        Row{"refused file", [](ViewerState &viewer) { openPath(viewer, "bad.SC8"); }, kPictureControls},
        Row{"refused video", [](ViewerState &viewer) { openPath(viewer, "bad.VID"); }, kPictureControls},
        Row{"missing file", [](ViewerState &viewer) { openPath(viewer, "none.SC8"); }, kPictureControls},
        Row{"Close", menuClose_Click, kPictureControls},
        Row{"unknown kind", [](ViewerState &viewer) { openPath(viewer, "a.TXT"); }, kVideoControls},
        Row{"other video", [](ViewerState &viewer) { openPath(viewer, "other.VID"); }, kVideoControls},
        Row{"reload", menuReload_Click, kVideoControls}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    memoryDisk()["good.SC8"] = {0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C};
    memoryDisk()["bad.SC8"] = memoryDisk()["bad.VID"] = {1, 2, 3};
    memoryDisk()["other.VID"] = VidFile{}.build();
    EXPECT_EQ(controlsOf(test.viewer), kPictureControls);
    test.open("x.EVA", evaFile(3));
    EXPECT_EQ(controlsOf(test.viewer), kVideoControls);
    leave(test.viewer);
    EXPECT_EQ(controlsOf(test.viewer), controls);
    test.platform.log.clear();
    if (controls == kVideoControls) continue;
    Image1_Click(test.viewer); // no longer does anything
    HScroll1_Change(test.viewer, 1);
    EXPECT_TRUE(test.platform.log.empty());
    EXPECT_FALSE(videoOpen(test.viewer) || videoPlaying(test.viewer));
  }
}

} // namespace
