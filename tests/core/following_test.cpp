// A file that changes on disk while it is open.
#include "core/display_settings.h"
#include "core/following.h"
#include "core/palette_commands.h"
#include "video/video_files.h"

namespace {

Bytes picture(uint8_t pixels) { return BloadBuilder{.body = Bytes(0x7690, pixels)}.build(); }

struct FollowingViewer : TestViewer {
  void wait(uint32_t milliseconds) {
    platform.ticks += milliseconds;
    followFile(viewer);
  }

  // The first look is past.
  void openAndLook(const std::string &path, const Bytes &bytes) {
    platform.ticks = 0xFFFFFF00; // the clock wraps
    open(path, bytes);
    wait(200);
    platform.log.clear();
  }

  // Whether the picture is loaded again for these bytes.
  bool reloadsFor(const std::string &path, const Bytes &bytes) {
    memoryDisk()[path] = bytes;
    const uint32_t serial = viewer.window.pictureSerial;
    noteFileChange(viewer);
    wait(200);
    return viewer.window.pictureSerial != serial;
  }

  std::string shown() const {
    return pictureText(viewer) + viewer.window.caption + viewer.window.Label4 +
           (viewer.window.menuDoubleHeight.checked ? "1:2" : "");
  }
};

TEST(Following, ARefusedFileChangesNothingAndIsTriedOnceMore) {
  const Bytes refused = {0x00, 0x01}, noBytes;
  for (const bool comesBack : {true, false}) {
    for (const Bytes &bad : {refused, noBytes, Bytes{0xFE}}) { // the last one is missing
      FollowingViewer window;
      window.openAndLook("d\\a.SC5", picture(0x11));
      window.pressCtrl('A');
      window.pressCtrl('P');
      const std::string before = window.shown();
      if (bad.size() == 1) memoryDisk().erase("d\\a.SC5");
      if (bad.size() != 1) memoryDisk()["d\\a.SC5"] = bad;
      noteFileChange(window.viewer);
      window.wait(200);
      EXPECT_EQ(window.shown(), before);
      EXPECT_EQ(followDelay(window.viewer), 1000u);
      if (comesBack) memoryDisk()["d\\a.SC5"] = picture(0x22);
      window.wait(1000);
      EXPECT_EQ(window.shown() != before, comesBack);
      EXPECT_EQ(followDelay(window.viewer).has_value(), comesBack);
      EXPECT_TRUE(window.reloadsFor("d\\a.SC5", picture(0x33)));
    }
  }
}

TEST(Following, OnlyOtherBytesAreLoaded) {
  FollowingViewer window;
  window.openAndLook("a.SC5", picture(0x11));
  EXPECT_FALSE(window.reloadsFor("a.SC5", picture(0x11)));
  Bytes grown = picture(0x22);
  const Bytes cut(grown.begin(), grown.begin() + 1000);
  EXPECT_TRUE(window.reloadsFor("a.SC5", cut));
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));
  grown.resize(5'000'000);
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));
  EXPECT_FALSE(window.reloadsFor("a.SC5", grown));
  grown[1000] = 0x33; // another time of writing
  EXPECT_TRUE(window.reloadsFor("a.SC5", grown));

  window.open("b.SC5", picture(0x11));
  memoryDisk()["b.SC5"] = picture(0x44); // before the first look
  window.wait(200);
  EXPECT_EQ(window.viewer.frameBits[300], window.viewer.palette[4]);

  memoryDisk()["c.TCS"] = Bytes(1472, 1);
  window.openAndLook("c.TGS", Bytes(2944, 0xFF));
  EXPECT_EQ(followedNames(window.viewer), (std::vector<std::string>{"c.TGS", "c.tcs"}));
  EXPECT_FALSE(window.reloadsFor("c.TCS", Bytes(1471, 2)));
  EXPECT_TRUE(window.reloadsFor("c.TCS", Bytes(1472, 2)));
}

TEST(Following, WaitsForQuietAndForTheEndOfARun) {
  FollowingViewer window;
  window.openAndLook("a.EVA", evaFile(3));
  memoryDisk()["a.EVA"] = evaFile(9);
  for (int part = 0; part < 10; ++part) {
    noteFileChange(window.viewer);
    window.wait(150);
    EXPECT_EQ(window.viewer.window.HScroll1.maximum, 2);
  }
  const auto look = [](ViewerState &viewer, const std::string &) { EXPECT_FALSE(followDelay(viewer)); };
  window.platform.events.push_back({look, ""});
  Image1_Click(window.viewer); // plays on past the quiet
  EXPECT_EQ(followDelay(window.viewer), 0u);
  EXPECT_TRUE(window.reloadsFor("a.EVA", evaFile(12)));
}

TEST(Following, TheViewStays) {
  FollowingViewer window;
  window.openAndLook("a.SC5", picture(0x11));
  const WindowModel &model = window.viewer.window;
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

  window.openAndLook("a.EVA", evaFile(5));
  HScroll1_Change(window.viewer, 4);
  for (const auto &[blocks, label] : {std::pair{9, "Frame: 4"}, {3, "Frame: 2"}}) {
    EXPECT_TRUE(window.reloadsFor("a.EVA", evaFile(static_cast<size_t>(blocks))));
    EXPECT_EQ(model.Label4, label);
  }
}

TEST(Following, CanBeSwitchedOff) {
  FollowingViewer window;
  window.openAndLook("a.SC5", picture(0x11));
  menuFollowChanges_Click(window.viewer);
  EXPECT_FALSE(window.reloadsFor("a.SC5", picture(0x22)));
  EXPECT_TRUE(followedNames(window.viewer).empty() && !followDelay(window.viewer));
  menuFollowChanges_Click(window.viewer);
  window.wait(200);
  EXPECT_EQ(window.viewer.frameBits[300], window.viewer.palette[2]);
  window.pressCtrl('W');
  EXPECT_TRUE(followedNames(window.viewer).empty());
}

} // namespace
