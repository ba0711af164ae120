#include "video/playback.h"

#include "core/keys.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace {

// First pixels of evaFile() as the decoders show them.
constexpr uint32_t kYjk[] = {0x080808, 0x101010, 0x181820}; // blue 1.25, 2.5, 3.75
constexpr uint32_t kRgb[] = {0x400000, 0x800000, 0xC00000};
constexpr uint32_t kVid[] = {0xFF9100, 0x910000, 0x00FFFF};
const Bytes kVidFrames{0x22, 0x22, 0x33, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66};

thread_local Pixels shown; // first pixel of each picture

TEST(Playback, FramesOfARun) {
  // From which frame; what is shown during the run, then frame 0; starts of the sound; milliseconds
  using Row = std::tuple<const char *, const char *, Bytes, int32_t, Pixels, long, uint32_t>;
  const auto vid = [](int rate, int frames) { return VidFile{rate, frames, 4, 1, 7, 2, kVidFrames}.build(); };
  const Pixels yjk{kYjk[1], kYjk[2], kYjk[0]}, allVid{kVid[0], kVid[1], kVid[2], kVid[0]};
  for (const auto &[name, path, file, from, expected, starts, milliseconds] :
       {Row{"YJK, 12", "x.EVA", evaFile(3), 0, yjk, 1, 167},
        Row{"YJK, 10", "x.EVA", evaFile(3, kRate10), 0, yjk, 1, 200},
        Row{"RGB, 12", "x.EV8", evaFile(3), 0, {kRgb[1], kRgb[2], kRgb[0]}, 1, 167},
        Row{"RGB, 10", "x.EV8", evaFile(3, kRate10), 0, {kYjk[1], kYjk[2], kRgb[0]}, 1, 200},
        Row{"from frame 1", "x.EVA", evaFile(3), 1, {kYjk[2], kYjk[0]}, 1, 84},
        Row{"from the last", "x.EVA", evaFile(3), 2, yjk, 1, 167},
        Row{"one frame", "x.EVA", evaFile(1), 0, {kYjk[0]}, 0, 0}, Row{"VID", "x.VID", vid(10, 3), 0, allVid, 0, 200},
        Row{"VID from frame 1", "x.VID", vid(10, 3), 1, {kVid[1], kVid[2], kVid[0]}, 0, 100},
        Row{"VID of rate 0", "x.VID", vid(0, 3), 0, allVid, 0, 2000},
        Row{"VID of rate 255", "x.VID", vid(255, 3), 0, allVid, 0, 8},
        Row{"VID of one frame", "x.VID", vid(10, 1), 0, {kVid[0], kVid[0]}, 0, 0},
        Row{"VID without frames", "x.VID", vid(10, 0), 0, {}, 0, 0}}) {
    for (const uint32_t start : {0U, 0xFFFFFFFFU}) {
      SCOPED_TRACE(std::string(name) + " at " + std::to_string(start));
      TestViewer test;
      test.open(path, file);
      const std::string status = test.viewer.window.Label4;
      HScroll1_Change(test.viewer, from);
      shown.clear();
      test.platform.log.clear();
      test.platform.ticks = start;
      test.viewer.platform.presentPicture = [](void *, std::span<const uint32_t> bits, int32_t, int32_t) {
        shown.push_back(bits[0]);
      };
      Image1_Click(test.viewer);
      EXPECT_EQ(shown, expected);
      const auto startsSound = [](const std::string &line) { return line.starts_with("startSound "); };
      EXPECT_EQ(std::ranges::count_if(test.platform.log, startsSound), starts);
      EXPECT_EQ(test.platform.ticks - start, milliseconds);
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
  ViewerState *viewer;
  HeadlessPlatform *platform;
  int64_t rate;
  uint32_t start = 0;
  int64_t expected = 0; // frame that is to be read next
  int64_t early = 0, late = 0, wrong = 0, waits = 0;
};
thread_local LongFilm film;

void readFilmFrame(int64_t frame) {
  film.wrong += frame != film.expected++;
  if (frame > 0) { // the one before has just been announced
    const int64_t ahead = (frame - 1) * 1000 - int64_t{film.platform->ticks - film.start} * film.rate;
    film.early += ahead > 0;
    film.late += ahead <= -1000;
    film.wrong += film.viewer->window.Label4 != "Frame: " + std::to_string(frame - 1);
    film.wrong += film.viewer->window.HScroll1.value != (frame - 1) % 65536;
  }
  film.platform->ticks += 5;
  film.viewer->evaPlayer.soundPending = kTrue; // nothing is decoded, which would take long
}

size_t readFilm(FileHandle, int64_t offset, uint8_t *into, size_t count) {
  if (count == 1) *into = offset != 15359 ? 0 : film.rate == 12 ? kRate12 : kRate10;
  if (count > 1 && videoPlaying(*film.viewer)) readFilmFrame(offset / static_cast<int64_t>(kEvaBlock));
  return count;
}

FileOps filmFiles() {
  FileOps files = memoryFiles();
  files.openForReading = [](const char *) -> FileHandle { return &film; };
  files.length = [](FileHandle) { return 7200 * film.rate * static_cast<int64_t>(kEvaBlock); };
  files.readAt = readFilm;
  return files;
}

TEST(Playback, TwoHoursKeepTime) {
  using Row = std::tuple<const char *, int, uint32_t>;
  for (const auto &[name, rate, start] : {Row{"12", 12, 0}, Row{"12, ticks wrap", 12, 0xFFFFFFFF - 1000},
                                          Row{"10", 10, 0}, Row{"10, ticks wrap", 10, 0xFFFFFFFF - 1000}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    ViewerState &viewer = test.viewer;
    film = {&viewer, &test.platform, rate, start};
    const FileOps files = filmFiles();
    viewer.platform.files = &files;
    viewer.platform.runPendingEvents = [](void *) {};
    viewer.platform.waitForEvents = [](void *, uint32_t milliseconds) {
      const int64_t wait = ++film.waits;
      film.platform->ticks +=
          wait % 3 == 0 ? std::max(2U, milliseconds) - 1 : milliseconds + static_cast<uint32_t>(wait % 16);
    };
    openPath(viewer, "x.EVA");
    test.platform.ticks = start;
    Image1_Click(viewer);
    EXPECT_EQ(film.expected, 7200 * rate);
    EXPECT_EQ(film.early, 0);
    EXPECT_EQ(film.late, 0);
    EXPECT_EQ(film.wrong, 0);
    const int64_t elapsed = test.platform.ticks - start;
    EXPECT_GE(elapsed * rate, (7200 * rate - 1) * 1000);
    EXPECT_LT(elapsed, 7200000);
    EXPECT_EQ(viewer.window.HScroll1.value | viewer.evaPlayer.currentFrame, 0);
    EXPECT_EQ(viewer.window.Label4, "EVA [" + std::to_string(rate) + "fps]");
  }
}

void noEvent(ViewerState &viewer, const std::string &) {
  const WindowModel &window = viewer.window;
  const bool enabled = window.menuView.enabled || window.menuOpen.enabled || window.menuClose.enabled;
  EXPECT_FALSE(videoPlaying(viewer) && (enabled || window.menuPreferences.enabled));
}

void pressKeys(ViewerState &viewer, const std::string &codes) {
  for (const char code : codes) pressKey(viewer, {static_cast<uint8_t>(code)});
}

TEST(Playback, AnyCommandAtAnyEvent) {
  constexpr uint32_t kWhole = 334; // milliseconds of five frames at 12 a second
  const auto open = [](ViewerState &viewer, const std::string &path) { openPath(viewer, path); };
  const auto scroll = [](ViewerState &viewer, const std::string &value) { HScroll1_Change(viewer, std::stoi(value)); };
  // What it takes, whether it ends the run, the caption behind it; "": that of the video.
  using Row = std::tuple<const char *, void (*)(ViewerState &, const std::string &), const char *, bool, std::string>;
  for (const auto &[name, deliver, argument, ends, caption] :
       {Row{"Stop", [](ViewerState &viewer, auto) { Image2_Click(viewer); }, "", true, ""},
        Row{"Space", pressKeys, " ", true, ""},
        Row{"Close", [](ViewerState &viewer, auto) { menuClose_Click(viewer); }, "", true, "Korilan"},
        Row{"Exit", [](ViewerState &viewer, auto) { menuExit_Click(viewer); }, "", true, ""},
        Row{"picture", open, "picture.SC8", true, "Korilan - picture.SC8"},
        Row{"refused", open, "bad.VID", true, "Korilan - bad.VID"}, Row{"unknown kind", open, "a.TXT", true, ""},
        Row{"EVA", open, "other.EVA", true, "Korilan - other.EVA"},
        Row{"VID", open, "other.VID", true, "Korilan - other.VID"},
        Row{"Play", [](ViewerState &viewer, auto) { Image1_Click(viewer); }, "", false, ""},
        Row{"scroll", scroll, "3", false, ""}, Row{"path too short", open, ".VID", false, ""},
        Row{"paging, comma, period", pressKeys, "!\"#$\xBC\xBE", false, ""}}) {
    TestViewer test;
    ViewerState &viewer = test.viewer;
    memoryDisk()["picture.SC8"] = kScreen8File;
    memoryDisk()["bad.VID"] = {1, 2, 3};
    memoryDisk()["other.EVA"] = memoryDisk()["x.EVA"] = evaFile(5);
    memoryDisk()["other.VID"] = memoryDisk()["x.VID"] = VidFile{12, 5, 4, 1, 7, 2, kVidFrames}.build();
    const bool stop = std::string_view(name) == "Stop", exit = std::string_view(name) == "Exit";
    for (const bool eva : {true, false}) {
      for (uint32_t k = 0; k < kWhole; k += stop ? 1 : 9) { // events come a millisecond apart
        SCOPED_TRACE(std::string(name) + (eva ? ", EVA, " : ", VID, ") + std::to_string(k));
        openPath(viewer, eva ? "x.EVA" : "x.VID");
        const std::string status = viewer.window.Label4;
        test.platform.log.clear();
        test.platform.ticks = 0;
        test.platform.events.assign(k, {noEvent, ""});
        test.platform.events.push_back({deliver, argument});
        Image1_Click(viewer);

        EXPECT_EQ(test.platform.ticks, ends ? k : kWhole);
        EXPECT_EQ(std::ranges::count(test.platform.log, "stopSound 88"), eva + exit);
        EXPECT_EQ(std::ranges::count(test.platform.log, "exitProgram"), exit);
        EXPECT_FALSE(videoPlaying(viewer));
        EXPECT_TRUE(viewer.window.menuOpen.enabled && viewer.window.menuPreferences.enabled);
        EXPECT_EQ(viewer.window.menuView.enabled && viewer.window.menuClose.enabled, caption != "Korilan");
        EXPECT_EQ(viewer.window.HScroll1.value, 0);
        EXPECT_EQ(viewer.window.caption, !caption.empty() ? caption : eva ? "Korilan - x.EVA" : "Korilan - x.VID");
        const bool video = caption.empty() || caption.starts_with("Korilan - other");
        EXPECT_EQ(controlsOf(viewer), video ? kVideoControls : kPictureControls);
        if (!video) { // no longer does anything
          const auto log = test.platform.log;
          Image1_Click(viewer);
          HScroll1_Change(viewer, 1);
          EXPECT_EQ(test.platform.log, log);
        }
        if (!caption.empty()) continue;
        EXPECT_EQ(viewer.window.Label4, status);
        EXPECT_EQ(viewer.frameBits[0], eva ? kYjk[0] : kVid[0]);
      }
    }
  }
}

TEST(Playback, AnEventThatTakesLongerThanAFrame) {
  TestViewer test;
  test.open("x.VID", VidFile{10, 3, 4, 1, 7, 2, kVidFrames}.build());
  const auto work = [](ViewerState &viewer, const std::string &) {
    static_cast<HeadlessPlatform *>(viewer.platform.context)->ticks += 150;
  };
  test.platform.events = {{work, ""}};
  Image1_Click(test.viewer);
  EXPECT_EQ(test.platform.ticks, 200u); // frame 1 late, frame 2 in time
}

TEST(Playback, FrameNumbersAsText) {
  EXPECT_EQ(frameText(-1), "Frame:-1");
  EXPECT_EQ(frameText(0), "Frame: 0");
}

TEST(Playback, StopIsHeardWhileEveryFrameIsLate) {
  TestViewer test;
  test.open("x.VID", VidFile{12, 5, 4, 1, 7, 2, kVidFrames}.build());
  test.viewer.platform.presentPicture = [](void *context, std::span<const uint32_t>, int32_t, int32_t) {
    static_cast<HeadlessPlatform *>(context)->ticks += 500;
  };
  test.platform.events.push_back({[](ViewerState &viewer, const std::string &) { Image2_Click(viewer); }, ""});
  Image1_Click(test.viewer);
  EXPECT_EQ(test.platform.ticks, 1500u); // the first frame, then frame 0 by Stop and at the end of the run
}

TEST(Playback, KeysOfAVideo) {
  TestViewer test;
  EXPECT_FALSE(pressKey(test.viewer, {32}) || pressKey(test.viewer, {188}) || pressKey(test.viewer, {190}));
  test.open("x.EVA", evaFile(3));
  using Row = std::tuple<const char *, KeyPress, size_t>;
  for (const auto &[name, key, frame] :
       {Row{"back from the first", {188}, 0}, Row{"on", {190}, 1}, Row{"with Ctrl", {190, true}, 1},
        Row{"with Alt", {190, false, true}, 1}, Row{"on to the last", {190}, 2}, Row{"on from it", {190}, 2},
        Row{"back", {188}, 1}, Row{"play", {32}, 0}}) {
    pressKey(test.viewer, key);
    EXPECT_EQ(test.viewer.window.HScroll1.value, static_cast<int32_t>(frame)) << name;
    EXPECT_EQ(test.viewer.frameBits[0], kYjk[frame]) << name;
  }
  EXPECT_EQ(std::ranges::count(test.platform.log, "startSound 15788"), 1);
}

// A menu that stays open for five seconds: silence meanwhile, and no frame is hurried afterwards.
TEST(Playback, WhatHoldsTheRunHoldsSoundAndFrames) {
  constexpr uint32_t kHeld = 5000;
  const auto hold = [](ViewerState &viewer, const std::string &) {
    holdRun(viewer);
    static_cast<HeadlessPlatform *>(viewer.platform.context)->ticks += kHeld;
    resumeRun(viewer);
  };
  for (const auto &[name, file, wholeRun, sounds] :
       {std::tuple("a.EVA", evaFile(4), 250U, 2),
        std::tuple("a.VID", VidFile{10, 4, 4, 1, 7, 2, kVidFrames}.build(), 300U, 0)}) {
    TestViewer test;
    test.open(name, file);
    test.platform.events = {{hold, ""}};
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.ticks, kHeld + wholeRun) << name;
    EXPECT_EQ(std::ranges::count(test.platform.log, "startSound 15788"), sounds) << name;
    EXPECT_EQ(std::ranges::count(test.platform.log, "stopSound 88"), sounds) << name;
  }
  TestViewer slow; // already the first frame is late, when the run has no sound yet
  slow.open("a.EVA", evaFile(4));
  slow.viewer.platform.tickCount = [](void *context) { return static_cast<HeadlessPlatform *>(context)->ticks++; };
  slow.platform.events = {{hold, ""}};
  Image1_Click(slow.viewer);
  EXPECT_TRUE(slow.platform.events.empty());
  EXPECT_EQ(std::ranges::count(slow.platform.log, "startSound 15788"), 1);
  TestViewer quiet;
  quiet.open("a.EVA", evaFile(4));
  hold(quiet.viewer, ""); // no run: nothing to hold
  EXPECT_EQ(std::ranges::count(quiet.platform.log, "startSound 15788"), 0);
}

} // namespace
