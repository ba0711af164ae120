#include "core/commands.h"

#include "core/keys.h"
#include "core/load_pipeline.h"
#include "core/menus.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>
#include <tuple>

namespace {

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

TEST(Commands, EventsDuringALoad) {
  struct Row {
    const char *name;
    void (*deliver)(ViewerState &viewer, const std::string &argument);
    bool fileStaysOpen;
  };
  const auto close = [](ViewerState &viewer, const std::string &) { menuClose_Click(viewer); };
  const auto exit = [](ViewerState &viewer, const std::string &) { menuExit_Click(viewer); };
  const auto keys = [](ViewerState &viewer, const std::string &) {
    for (const char letter : std::string_view("OSCTRPZAIWELN")) pressKey(viewer, {letter, true});
    for (const int code : {33, 34, 35, 36, 116}) pressKey(viewer, {code}); // paging and F5
  };
  const auto quit = [](ViewerState &viewer, const std::string &) { pressKey(viewer, {'Q', true}); };
  const auto look = [](ViewerState &viewer, const std::string &) { EXPECT_EQ(viewer.window.Label4, "Rendering..."); };
  TestViewer quiet;
  quiet.open("a.SC5", kPicture);
  for (const Row &row : {Row{"nothing", look, true}, Row{"open", openPath, true}, Row{"close", close, true},
                         Row{"keys", keys, true}, Row{"exit", exit, false}, Row{"Ctrl+Q", quit, false}}) {
    SCOPED_TRACE(row.name);
    TestViewer window;
    memoryDisk()["other.SC6"] = kPicture;
    window.platform.events.push_back({row.deliver, "other.SC6"});
    window.open("a.SC5", kPicture);
    std::vector<std::string> log{"runPendingEvents", "presentPicture 256x212"};
    if (!row.fileStaysOpen) log.emplace_back("exitProgram");
    EXPECT_EQ(window.platform.log, log);
    EXPECT_EQ(window.viewer.filePath, "a.SC5");
    EXPECT_EQ(pictureText(window.viewer), pictureText(quiet.viewer));
    EXPECT_EQ(window.viewer.window.Label4, "");
    EXPECT_EQ(window.viewer.inputFile.handle != nullptr, row.fileStaysOpen);
    window.open("b.SC6", kPicture); // after the load commands work again
    EXPECT_EQ(window.viewer.window.Label1, "512x212");
  }
}

TEST(Menus, EveryItemHasOneRowAndOnlyEnabledOnesRun) {
  const auto rowOf = [](MenuItem WindowModel::*item) {
    return std::find_if(kMenuRows.begin(), kMenuRows.end(), [=](const MenuRow &row) { return row.item == item; });
  };
  for (const MenuRow &row : kMenuRows) EXPECT_TRUE(row.item == nullptr || rowOf(row.item) == &row) << row.caption;
  EXPECT_EQ(plainCaption(rowOf(&WindowModel::menuDoubleHeight)->caption), "1:2 Aspect  Ratio"); // two blanks

  const auto closeRow = static_cast<size_t>(rowOf(&WindowModel::menuClose) - kMenuRows.begin());
  TestViewer window;
  window.viewer.window.Label1 = "kept";
  runMenuRow(window.viewer, closeRow);
  runMenuRow(window.viewer, kMenuRows.size());
  EXPECT_EQ(window.viewer.window.Label1, "kept");
  window.open("a.SC5", kPicture);
  runMenuRow(window.viewer, closeRow);
  EXPECT_EQ(window.viewer.window.Label1, "");

  for (const MenuRow &separator : kMenuRows) {
    EXPECT_TRUE(separator.command != nullptr || !menuRowEnabled(window.viewer.window, separator));
  }
  EXPECT_EQ(shortcutText(*rowOf(&WindowModel::menuZoom)), "Ctrl+Z");
  EXPECT_EQ(shortcutText(*rowOf(&WindowModel::menuHelp)), "F1");
  EXPECT_EQ(shortcutText(*rowOf(&WindowModel::menuAbout)), "");
  rowOf(&WindowModel::menuAbout)->command(window.viewer);
  EXPECT_TRUE(window.platform.log.back().starts_with("showMessage (i) About Korilan: Korilan "));

  MenuRow row = *rowOf(&WindowModel::menuZoom);
  row.command = menuExit_Click;
  EXPECT_FALSE(menuRowEnabled(window.viewer.window, row)); // with its whole menu
  window.viewer.window.menuView.enabled = true;
  EXPECT_TRUE(menuRowEnabled(window.viewer.window, row));
}

TEST(Commands, ZoomAndAspectToggle) {
  TestViewer window;
  const WindowModel &model = window.viewer.window;
  window.open("a.SC5", kPicture);
  using Row = std::tuple<const char *, void (*)(ViewerState &), bool, bool, int32_t, int32_t>;
  for (const auto &[name, command, zoomed, aspect, width, height] :
       {Row{"zoom off", menuZoom_Click, false, false, 256, 212},
        Row{"aspect on", menuDoubleHeight_Click, false, true, 256, 424},
        Row{"zoom on", menuZoom_Click, true, true, 512, 848},
        Row{"aspect off", menuDoubleHeight_Click, true, false, 512, 424}}) {
    SCOPED_TRACE(name);
    command(window.viewer);
    EXPECT_EQ(model.stretch, (Stretch{256, 212, width, height}));
    EXPECT_EQ(model.menuZoom.checked, zoomed);
    EXPECT_EQ(model.menuDoubleHeight.checked, aspect);
  }
}

TEST(Commands, ReloadReadsTheFileAsItIsNow) {
  TestViewer window;
  EXPECT_FALSE(window.viewer.window.menuReload.enabled);
  window.open("a.SC5", kPicture);
  EXPECT_TRUE(window.viewer.window.menuReload.enabled);
  memoryDisk()["a.SC5"] = BloadBuilder{.body = {0xFF}}.build();
  menuReload_Click(window.viewer);
  EXPECT_EQ(window.viewer.frameBits[0], 0xFFFFFFu);
  memoryDisk().erase("a.SC5");
  menuReload_Click(window.viewer);
  EXPECT_EQ(window.viewer.window.Label4, "*** Error: Not a valid .SC5 file.");
  EXPECT_EQ(window.viewer.frameBits[0], 0xFFFFFFu);
  menuClose_Click(window.viewer);
  EXPECT_FALSE(window.viewer.window.menuReload.enabled);
}

TEST(Commands, LabelsStayWhileAVideoPlays) {
  TestViewer window;
  window.open("a.SC5", kPicture);
  window.viewer.imageWidth = 7;
  window.viewer.evaPlayer.playing = kTrue;
  showPictureInfo(window.viewer);
  EXPECT_EQ(window.viewer.window.Label1, "256x212");
  window.viewer.evaPlayer.playing = kFalse;
  showPictureInfo(window.viewer);
  EXPECT_EQ(window.viewer.window.Label1, "7x212");
}

TEST(Commands, HeldClipboardGivesAMessage) {
  TestViewer window;
  window.open("a.SC5", kPicture);
  window.platform.log.clear();
  window.platform.clipboardHeld = true;
  menuCopyClipboard_Click(window.viewer);
  ASSERT_EQ(window.platform.log.size(), 2u); // the attempt, then one message
  EXPECT_TRUE(window.platform.log[1].starts_with("showMessage (!) Korilan: Could not copy")) << window.platform.log[1];
}

TEST(Commands, ViewersInTwoThreadsDoNotMeet) {
  const auto texts = [] {
    std::string all;
    TestViewer window;
    for (uint8_t turn = 0; turn < 4; ++turn) {
      for (const char *path : {"a.SC5", "a.SC8", "a.SC2", "a.SC6", "a.SCC"}) {
        window.open(path, BloadBuilder{.body = Bytes(54272, static_cast<uint8_t>(37 + turn))}.build());
        all += pictureText(window.viewer) + "\n";
      }
    }
    return all;
  };
  std::string left, right;
  std::thread other([&] { left = texts(); });
  right = texts();
  other.join();
  EXPECT_EQ(left, right);
  EXPECT_EQ(left, texts());
}

} // namespace
