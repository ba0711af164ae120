// Videos in the window of Korilan.exe: frame by frame, in a run, and in whatever order a user thinks of.
#include "core/bitmap_export.h"
#include "shell/control_ids.h"
#include "shell/recording.h"
#include "shell/shown_sample.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>

namespace {

constexpr int kPlay = kImage1Id;
constexpr int kStop = kImage1Id + 1;
constexpr int32_t kPage = 12; // frames

// The videos among the samples.
std::vector<const samples::SamplePicture *> wellFormedVideos() {
  std::vector<const samples::SamplePicture *> videos;
  for (const samples::SamplePicture &sample : allSamples()) {
    if (!sample.frames.empty() && !sample.name.starts_with("odd/")) videos.push_back(&sample);
  }
  return videos;
}

HWND frameBar(const DrivenWindow &driven) { return GetDlgItem(driven.window, kHScroll1Id); }

int64_t barPlace(const DrivenWindow &driven) { return SendMessageA(frameBar(driven), SBM_GETPOS, 0, 0); }

bool shown(const DrivenWindow &driven, int id) { return IsWindowVisible(GetDlgItem(driven.window, id)) != FALSE; }

// The user's hand on the bar.
void scroll(const DrivenWindow &driven, int request) {
  PostMessageA(driven.window, WM_HSCROLL, static_cast<WPARAM>(request), reinterpret_cast<LPARAM>(frameBar(driven)));
}

// Label, bar and picture become those of that frame, here and in the core.
void expectFrame(const DrivenWindow &driven, SampleFile &video, int32_t frame) {
  HScroll1_Change(video.viewer, frame);
  const auto shows = [&] {
    return textOf(driven, kLabel1Id + 3) == video.model.Label4 && barPlace(driven) == frame &&
           showsPicture(driven, video.viewer);
  };
  EXPECT_TRUE(waitUntil(shows)) << frame << ": " << textOf(driven, kLabel1Id + 3) << ", bar at " << barPlace(driven);
}

TEST(Video, ShowsTheFrameThatTheUserScrollsTo) {
  const TemporaryFolder folder("shell_frames");
  ASSERT_EQ(wellFormedVideos().size(), 8u);
  for (const samples::SamplePicture *listed : wellFormedVideos()) {
    const samples::SamplePicture &sample = *listed;
    SCOPED_TRACE(sample.name);
    SampleFile video(folder, sample);
    const DrivenWindow driven(video.path);
    ASSERT_NE(driven.window, nullptr);
    expectTexts(driven, video.model);
    EXPECT_EQ(textOf(driven, kLabel1Id + 3), sample.status);
    expectPicture(driven, video.viewer);
    EXPECT_EQ(mainViewSize(driven).cx, 2 * sample.width + 4);
    EXPECT_EQ(mainViewSize(driven).cy, 2 * sample.height + 4);
    for (const int id : {kPlay, kStop, kHScroll1Id}) EXPECT_TRUE(shown(driven, id)) << id;
    const auto last = static_cast<int32_t>(sample.frames.size()) - 1;
    int least = -1;
    int most = -1;
    SendMessageA(frameBar(driven), SBM_GETRANGE, reinterpret_cast<WPARAM>(&least), reinterpret_cast<LPARAM>(&most));
    EXPECT_EQ(least, 0);
    EXPECT_EQ(most, last);

    const std::array<std::pair<int, int32_t>, 7> requests{{{SB_LINERIGHT, 1},
                                                           {SB_PAGERIGHT, kPage},
                                                           {SB_LINELEFT, -1},
                                                           {SB_RIGHT, last},
                                                           {SB_LINERIGHT, 1},
                                                           {SB_PAGELEFT, -kPage},
                                                           {SB_LEFT, -last}}};
    int32_t frame = 0;
    const auto expectStep = [&](int32_t step) {
      frame = std::clamp(frame + step, 0, last);
      expectFrame(driven, video, frame);
      EXPECT_TRUE(video.viewer.frameBits == sample.frames[static_cast<size_t>(frame)]) << frame;
    };
    for (const auto &[request, step] : requests) {
      scroll(driven, request);
      expectStep(step);
    }
    const std::array<std::pair<int, int32_t>, 4> keys{
        {{VK_OEM_PERIOD, 1}, {VK_OEM_PERIOD, 1}, {VK_OEM_COMMA, -1}, {VK_OEM_COMMA, -1}}};
    for (const auto &[key, step] : keys) {
      typeKey(driven, key);
      expectStep(step);
    }
    choose(driven, "Close");
    EXPECT_TRUE(waitUntil([&] { return textOf(driven, 0) == "Korilan"; }));
    for (const int id : {kPlay, kStop, kHScroll1Id}) EXPECT_TRUE(waitUntil([&] { return !shown(driven, id); })) << id;
  }
}

TEST(Video, SavesAndCopiesTheShownFrameUnderItsNumber) {
  const TemporaryFolder folder("shell_frame_bitmap");
  SampleFile video(folder, sampleNamed("BOUNCE.EVA"));
  const DrivenWindow driven(video.path);
  expectPicture(driven, video.viewer);
  scroll(driven, SB_PAGERIGHT);
  expectFrame(driven, video, 12);
  const std::vector<uint8_t> bitmap = encodeBitmap(video.viewer.frameBits, 128, 106);
  choose(driven, "Save as Bitmap");
  EXPECT_TRUE(waitUntil([&] { return folder.read(u8"BOUNCE - 0012.bmp") == bitmap; }));
  emptyClipboard();
  choose(driven, "Copy to Clipboard");
  const std::vector<uint8_t> copied(bitmap.begin() + kBitmapFileHeaderBytes, bitmap.end());
  EXPECT_TRUE(waitUntil([&] { return clipboardBytes(CF_DIB) == copied; }));
}

// Numbers of the frames that equal what stands on the screen.
std::vector<int> framesOnScreen(const DrivenWindow &driven, const samples::SamplePicture &sample) {
  const ScreenPicture screen = shownPicture(driven);
  std::vector<int> found;
  for (size_t number = 0; number < sample.frames.size(); ++number) {
    const std::vector<uint32_t> &frame = sample.frames[number];
    std::vector<uint32_t> doubled;
    for (int y = 0; y < 2 * sample.height; ++y) {
      for (int x = 0; x < 2 * sample.width; ++x) {
        doubled.push_back(frame[static_cast<size_t>(y / 2 * sample.width + x / 2)]);
      }
    }
    if (screen.pixels == doubled) found.push_back(static_cast<int>(number));
  }
  return found;
}

// The menus as they are during a run; a grey menu greys what it holds.
std::string greyedForRun(std::string menus) {
  for (const std::string item : {"File/Open Ctrl+O", "File/Close Ctrl+W", "File/Preferences Ctrl+E",
                                 "View/Image Info Ctrl+I", "View/Count Colors Ctrl+N"}) {
    menus.insert(menus.find(item + "\n") + item.size(), " grey");
  }
  return menus.insert(menus.find("View/"), "View grey\n");
}

TEST(Video, ARunShowsFrameAfterFrameAndEndsAtTheFirst) {
  const TemporaryFolder folder("shell_run");
  for (const char *name : {"BOUNCE.EVA", "REEF.EV8", "ZOOM.EVA", "CASTLE.VID"}) {
    SCOPED_TRACE(name);
    const samples::SamplePicture &sample = sampleNamed(name);
    SampleFile video(folder, sample);
    const DrivenWindow driven(video.path);
    expectPicture(driven, video.viewer);
    const std::string menus = menusOf(driven);
    ASSERT_TRUE(startsRun(driven));
    EXPECT_EQ(menusOf(driven), greyedForRun(menus));
    const auto ended = [&] { return textOf(driven, kLabel1Id + 3) == sample.status; };
    EXPECT_TRUE(waitUntil([&] { return !ended(); })); // the first frame is due a moment later
    std::vector<int> seen;
    const auto lastLook = [&] {
      const std::vector<int> found = framesOnScreen(driven, sample);
      EXPECT_EQ(found.size(), 1u);
      if (!found.empty() && (seen.empty() || seen.back() != found[0])) seen.push_back(found[0]);
      return ended();
    };
    EXPECT_TRUE(waitUntil(lastLook));
    if (!seen.empty() && seen.back() == 0) seen.pop_back(); // the run was over
    EXPECT_GT(seen.size(), 3u);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end())) << testing::PrintToString(seen);
    EXPECT_TRUE(waitUntil([&] { return menusOf(driven) == menus; })) << menusOf(driven);
    expectFrame(driven, video, 0);
  }
}

TEST(Video, SpaceStartsAndStopsARunInWhichNothingElseMovesTheBar) {
  const TemporaryFolder folder("shell_space");
  SampleFile video(folder, sampleNamed("BOUNCE.EVA"));
  const DrivenWindow driven(video.path);
  expectPicture(driven, video.viewer);
  const std::string menus = menusOf(driven);
  for (const int stop : {VK_SPACE, 0}) {
    scroll(driven, SB_PAGERIGHT);
    expectFrame(driven, video, 12);
    typeKey(driven, VK_SPACE);
    ASSERT_TRUE(waitUntil([&] { return playing(driven); }));
    scroll(driven, SB_RIGHT);
    typeKey(driven, VK_OEM_COMMA);
    choose(driven, "Close");
    EXPECT_TRUE(waitUntil([&] { return barPlace(driven) > 15; }));
    EXPECT_LT(barPlace(driven), 30);
    stop != 0 ? typeKey(driven, stop) : press(driven.window, kStop);
    EXPECT_TRUE(waitUntil([&] { return menusOf(driven) == menus; }));
    expectFrame(driven, video, 0);
  }
  scroll(driven, SB_RIGHT);
  expectFrame(driven, video, 35);
  EXPECT_TRUE(startsRun(driven)); // from the last frame: the whole video
  EXPECT_TRUE(waitUntil([&] { return barPlace(driven) == 3; }));
  PostMessageA(driven.window, WM_CLOSE, 0, 0);
  EXPECT_EQ(exitCodeOf(driven), 0);
}

// Nothing plays, and where there is a recording nothing is heard.
void expectNothingPlays(const DrivenWindow &driven) {
  EXPECT_TRUE(waitUntil([&] { return !playing(driven); }));
  EXPECT_TRUE(!recordingUnderWay() || silenceFollows());
}

TEST(Video, FiftyStepsAtRandom) {
  const TemporaryFolder folder("shell_random");
  const SampleFile picture(folder, sampleNamed("REEF.SC5"));
  const SampleFile bounce(folder, sampleNamed("BOUNCE.EVA"));
  const SampleFile zoom(folder, sampleNamed("ZOOM.EVA"));
  const SampleFile castle(folder, sampleNamed("CASTLE.VID"));
  std::optional<DrivenWindow> driven;
  driven.emplace(bounce.path);
  std::minstd_rand random(5);
  const auto runs = [&] { return playing(*driven); };
  // The caption comes first, the controls last.
  const auto stands = [&](const std::string &caption, bool video) {
    return textOf(*driven, 0) == caption && shown(*driven, kPlay) == video && shown(*driven, kHScroll1Id) == video;
  };
  // What comes while a file is being opened is ignored, so that it may take another try.
  const auto opens = [&](const SampleFile &file) {
    constexpr int kPollsOfATry = 25;
    int polls = 0;
    return waitUntil([&] {
      if (polls++ % kPollsOfATry == 0) dropFile(*driven, file.path);
      return stands("Korilan - " + file.name, file.model.Image1.visible) && !runs() &&
             textOf(*driven, kLabel1Id + 3) == file.model.Label4;
    });
  };
  // Each step returns whether it came to its end.
  const std::vector<std::function<bool()>> steps{
      [&] { // Play, also where a run is under way
        if (!shown(*driven, kPlay) && !opens(bounce)) return false;
        press(driven->window, kPlay);
        return startsRun(*driven);
      },
      [&] { // a run ends or begins
        const bool before = runs();
        if (!before && shown(*driven, kPlay)) {
          return waitUntil([&] {
            if (!runs()) typeKey(*driven, VK_SPACE);
            return runs();
          });
        }
        typeKey(*driven, VK_SPACE);
        return waitUntil([&] { return !runs(); });
      },
      [&] {
        press(driven->window, kStop);
        return waitUntil([&] { return !runs(); });
      },
      [&] {
        const std::array<int, 4> requests{SB_LINERIGHT, SB_PAGERIGHT, SB_RIGHT, SB_PAGELEFT};
        scroll(*driven, requests[random() / 7 % requests.size()]);
        return true; // the next step follows at once
      },
      [&] { return opens(random() / 7 % 2 == 0 ? picture : bounce); },
      [&] { return opens(random() / 7 % 2 == 0 ? zoom : castle); },
      [&] { // grey in a run
        choose(*driven, "Close");
        return waitUntil([&] { return stands("Korilan", false) || runs(); });
      },
      [&] {
        PostMessageA(driven->window, WM_CLOSE, 0, 0);
        const bool ended = exitCodeOf(*driven) == 0;
        driven.emplace((random() / 7 % 2 == 0 ? zoom : bounce).path);
        return ended && driven->window != nullptr;
      },
  };
  for (int step = 0; step < 50; ++step) {
    // Every second step begins a run.
    const size_t choice = step % 2 == 0 ? 0 : random() / 7 % steps.size();
    ASSERT_TRUE(steps[choice]()) << "step " << step << ", number " << choice;
  }
  EXPECT_TRUE(opens(picture));
  expectTexts(*driven, picture.model);
  expectPicture(*driven, picture.viewer);
  expectNothingPlays(*driven);
  choose(*driven, "Exit");
  EXPECT_EQ(exitCodeOf(*driven), 0);
}

} // namespace
