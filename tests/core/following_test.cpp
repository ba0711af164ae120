// A file that changes on disk while it is open.
#include "core/display_settings.h"
#include "core/following.h"
#include "core/palette_commands.h"
#include "support/scarce_memory.h"
#include "video/video_files.h"

namespace {

Bytes picture(uint8_t pixels) { return BloadBuilder{.body = Bytes(0x7690, pixels)}.build(); }

struct FollowingViewer : TestViewer {
  WindowModel &model = viewer.window;

  // The first look is past.
  FollowingViewer(const std::string &path, const Bytes &bytes) {
    platform.ticks = 0xFFFFFF00; // the clock wraps
    open(path, bytes);
    wait(200);
  }

  void wait(uint32_t milliseconds) {
    platform.ticks += milliseconds;
    followFile(viewer);
  }

  // Whether the picture is loaded again for these bytes.
  bool reloadsFor(const std::string &path, const Bytes &bytes) {
    memoryDisk()[path] = bytes;
    const uint32_t serial = model.pictureSerial;
    noteFileChange(viewer);
    wait(200);
    return model.pictureSerial != serial;
  }

  std::string shown() const { return pictureText(viewer) + viewer.window.caption + viewer.window.Label4; }
};

TEST(Following, ARefusedFileChangesNothingAndIsTriedOnceMore) {
  for (const Bytes &bad : {Bytes{0x00, 0x01}, Bytes{}}) {
    FollowingViewer window("d\\a.SC5", picture(0x11));
    window.pressCtrl('A');
    window.pressCtrl('P');
    const std::string before = window.shown();
    for (const bool comesBack : {false, true}) {
      EXPECT_FALSE(window.reloadsFor("d\\a.SC5", bad));
      EXPECT_EQ(followDelay(window.viewer), 1000u);
      EXPECT_TRUE(window.model.menuDoubleHeight.checked && window.model.menuViewPal.checked);
      comesBack ? void(memoryDisk()["d\\a.SC5"] = picture(0x22)) : void(memoryDisk().clear());
      window.wait(1000);
      EXPECT_EQ(window.shown() != before, comesBack);
      EXPECT_EQ(followDelay(window.viewer).has_value(), comesBack);
    }
  }
}

TEST(Following, AFailedLookChangesNothing) {
  for (const bool ofMemory : {false, true}) { // otherwise of the disk
    for (const int place : {1, 2, 3}) {
      FollowingViewer window("d\\a.SC5", picture(0x11));
      const std::string before = window.shown();
      ofMemory ? void(scarceMemory() = {.beyond = 100'000, .refusedBlock = place})
               : void(diskFaults() = {.failingRead = place});
      EXPECT_FALSE(window.reloadsFor("d\\a.SC5", picture(0x22)));
      scarceMemory() = {};
      diskFaults() = {};
      EXPECT_EQ(window.shown(), before);
      window.wait(1000);
      EXPECT_EQ(window.viewer.vram[0], 0x22);
    }
  }
}

TEST(Following, OnlyOtherBytesAreLoaded) {
  FollowingViewer window("a.SC5", picture(0x11));
  menuFollowChanges_Click(window.viewer);
  EXPECT_FALSE(window.reloadsFor("a.SC5", picture(0x22)) || !followedNames(window.viewer).empty());
  menuFollowChanges_Click(window.viewer);
  EXPECT_EQ(followDelay(window.viewer), 200u);

  Bytes grown = picture(0x22);
  EXPECT_FALSE(window.reloadsFor("a.SC5", picture(0x11)));
  EXPECT_TRUE(window.reloadsFor("a.SC5", Bytes(grown.begin(), grown.begin() + 1000)));
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));
  grown.resize(5'000'000);
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));
  EXPECT_FALSE(window.reloadsFor("a.SC5", grown));
  grown[1000] = 0x33; // another time of writing
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));

  window.open("b.SC5", picture(0x11));
  EXPECT_TRUE(window.reloadsFor("b.SC5", picture(0x44))); // before the first look

  memoryDisk()["c.TCS"] = Bytes(1472, 1);
  window.open("c.TGS", Bytes(2944, 0xFF));
  window.wait(200);
  EXPECT_EQ(followedNames(window.viewer), (std::vector<std::string>{"c.TGS", "c.tcs"}));
  EXPECT_FALSE(window.reloadsFor("c.TCS", Bytes(1471, 2)));
  EXPECT_TRUE(window.reloadsFor("c.TCS", Bytes(1472, 2)));
}

TEST(Following, WaitsForQuietAndForTheEndOfARun) {
  FollowingViewer window("a.EVA", evaFile(3));
  for (int part = 0; part < 10; ++part, window.platform.ticks += 150) {
    EXPECT_EQ(followDelay(window.viewer).value_or(50), 50u);
    noteFileChange(window.viewer);
  }
  const auto look = [](ViewerState &viewer, const std::string &) { EXPECT_FALSE(followDelay(viewer)); };
  window.platform.events.push_back({look, ""});
  Image1_Click(window.viewer); // plays on past the quiet
  EXPECT_EQ(followDelay(window.viewer), 0u);
  EXPECT_TRUE(window.reloadsFor("a.EVA", evaFile(12)));
}

TEST(Following, TheViewStays) {
  FollowingViewer window("a.SC5", picture(0x11));
  const WindowModel &model = window.model;
  window.pressCtrl('A');
  memoryDisk()["b.PL5"] = Bytes(32, 7);
  window.platform.chosenFiles = {"b.PL5"};
  menuLoadPal_Click(window.viewer);
  window.pressCtrl('P');
  const uint32_t fittings = model.fittings, byHand = window.viewer.palette[0];
  EXPECT_TRUE(window.reloadsFor("a.SC5", picture(0x22)));
  EXPECT_TRUE(model.menuDoubleHeight.checked && model.stretch.targetHeight == 848 && model.menuViewPal.checked);
  EXPECT_TRUE(window.viewer.palette[0] != byHand && model.Label5[0].background == window.viewer.palette[0]);
  EXPECT_EQ(model.fittings, fittings);

  const auto stamp = [](int height) { return joined({word(200), word(height), Bytes(100 * 200)}); };
  window.open("b.GL5", stamp(9));
  window.pressCtrl('A');
  const uint32_t fittingsOfB = model.fittings;
  EXPECT_TRUE(window.reloadsFor("b.GL5", stamp(200)) && model.menuDoubleHeight.checked);
  EXPECT_NE(model.fittings, fittingsOfB);
  window.open("c.GL5", {1}); // b is still shown: its view is not that of c
  EXPECT_TRUE(window.reloadsFor("c.GL5", stamp(9)) && !model.menuDoubleHeight.checked);

  window.open("a.EVA", evaFile(5));
  HScroll1_Change(window.viewer, 4);
  for (const auto &[blocks, label] : {std::pair{9, "Frame: 4"}, {3, "Frame: 2"}}) {
    EXPECT_TRUE(window.reloadsFor("a.EVA", evaFile(static_cast<size_t>(blocks))));
    EXPECT_EQ(model.Label4, label);
  }
}

} // namespace
