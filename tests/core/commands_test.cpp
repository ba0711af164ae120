#include "core/commands.h"

#include "core/file_kinds.h"
#include "core/help_text.h"
#include "core/keys.h"
#include "core/menus.h"
#include "core/open_dialog.h"
#include "support/bytes.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

TEST(Commands, EventsDuringALoad) {
  struct Row {
    const char *name;
    void (*deliver)(ViewerState &viewer, const std::string &path);
    bool exits = false;
  };
  const auto look = [](ViewerState &viewer, const std::string &) { EXPECT_EQ(viewer.window.Label4, "Rendering..."); };
  const auto close = [](ViewerState &viewer, const std::string &) { menuClose_Click(viewer); };
  const auto exit = [](ViewerState &viewer, const std::string &) { menuExit_Click(viewer); };
  const auto keys = [](ViewerState &viewer, const std::string &) {
    for (const char letter : std::string_view("OSCTRPZAIWELN")) pressKey(viewer, {letter, true});
    for (const int code : {33, 34, 35, 36, 116}) pressKey(viewer, {code}); // paging and F5
  };
  const auto quit = [](ViewerState &viewer, const std::string &) { pressKey(viewer, {'Q', true}); };
  TestViewer quiet;
  quiet.open("a.SC5", kPicture);
  for (const Row &row : {Row{"nothing", look}, Row{"open", openPath}, Row{"close", close}, Row{"keys", keys},
                         Row{"exit", exit, true}, Row{"Ctrl+Q", quit, true}}) {
    SCOPED_TRACE(row.name);
    TestViewer window;
    memoryDisk()["other.SC6"] = kPicture;
    window.platform.events.push_back({row.deliver, "other.SC6"});
    window.open("a.SC5", kPicture);
    std::vector<std::string> log{"runPendingEvents", "presentPicture 256x212"};
    if (row.exits) log.emplace_back("exitProgram");
    EXPECT_EQ(window.platform.log, log);
    EXPECT_EQ(pictureText(window.viewer) + window.viewer.window.Label4, pictureText(quiet.viewer));
    EXPECT_EQ(window.viewer.inputFile.handle == nullptr, row.exits);
    openPath(window.viewer, "other.SC6"); // after the load commands work again
    EXPECT_EQ(window.viewer.window.Label1, "512x212");
  }
}

TEST(Commands, MenuRowsRunIfTheyAreEnabled) {
  const auto indexOf = [](MenuItem WindowModel::*item) {
    return static_cast<size_t>(std::ranges::find(kMenuRows, item, &MenuRow::item) - kMenuRows.begin());
  };
  const size_t close = indexOf(&WindowModel::menuClose), zoom = indexOf(&WindowModel::menuZoom);
  const size_t help = indexOf(&WindowModel::menuHelp), about = indexOf(&WindowModel::menuAbout);
  TestViewer window;
  for (const size_t index : {close, zoom, close + 1, kMenuRows.size()}) runMenuRow(window.viewer, index);
  EXPECT_EQ(window.viewer.window.pictureSerial + window.viewer.zoomMode, 2u); // one reset, zoomed
  window.open("a.SC5", kPicture);
  for (const bool zoomed : {false, true}) {
    runMenuRow(window.viewer, zoom); // with its whole menu
    EXPECT_EQ(window.viewer.window.menuZoom.checked, zoomed);
    EXPECT_EQ(window.viewer.window.stretch.targetHeight, zoomed ? 424 : 212);
  }
  menuAbout_Click(window.viewer);
  EXPECT_TRUE(window.platform.log.back().starts_with("showMessage (i) About Korilan: Korilan "));
  EXPECT_EQ(shortcutText(kMenuRows[zoom]) + shortcutText(kMenuRows[help]) + shortcutText(kMenuRows[about]), "Ctrl+ZF1");
  EXPECT_EQ(plainCaption("1:2 &Aspect  &Ratio"), "1:2 Aspect  Ratio");
}

TEST(Commands, OpenAndReload) {
  TestViewer window;
  memoryDisk()["e\\b.SC6"] = kPicture;
  menuOpen_Click(window.viewer); // cancelled
  EXPECT_EQ(window.viewer.filePath, "");
  window.platform.chosenFiles = {"e\\b.SC6"};
  menuOpen_Click(window.viewer);
  EXPECT_EQ(window.viewer.window.Label1, "512x212");
  openPath(window.viewer, "other.TXT"); // ignored
  memoryDisk()["e\\b.SC6"] = BloadBuilder{.body = {0xFF}}.build();
  menuReload_Click(window.viewer); // as it is now
  EXPECT_EQ(window.viewer.frameBits[0], 0x6DFF6Du);
}

TEST(Commands, OpenFiltersNameEveryKind) {
  std::string listed;
  for (const FileFilter &filter : std::span(kPictureFilters).subspan(1)) {
    const std::string pattern = filter.pattern, description = filter.description;
    const bool odd = description == "Screen11 BLOAD files (*.SCB;*.SRB;*.S12)";
    EXPECT_TRUE(odd || description.ends_with(" files (" + pattern + ")")) << description;
    for (size_t at = 1; at < pattern.size(); at += 6) { // "*.SC5;*.SR5"
      const std::string type = findFileKind(pattern.substr(at, 4))->typeDescription;
      const bool named = description.starts_with(type.substr(0, type.rfind(" file")) + " file");
      EXPECT_TRUE(named || description.starts_with("VSCREEN level") || description.find(" Video ") < 8) << description;
    }
    listed += pattern + ";";
  }
  for (const FileKind &kind : kFileKinds) {
    const std::string pattern = std::string("*") + kind.extension + ";";
    EXPECT_NE((std::string(kPictureFilters[0].pattern) + ";").find(pattern), std::string::npos) << pattern;
    EXPECT_EQ(listed.find(pattern) == std::string::npos, pattern == "*.GE8;") << pattern;
  }
  TestViewer window;
  window.viewer.platform.askOpenFileName = [](void *, const std::string &filter, const std::string &) {
    return filter;
  };
  const std::string palettes("Palette Files (*.PL?;*.PAL)\0*.PL4;*.PL5;*.PL6;*.PL7;*.PAL\0",
                             59); // with the one behind it
  EXPECT_EQ(askPaletteName(window.viewer), palettes);
}

TEST(Commands, ViewersInTwoThreadsDoNotMeet) {
  const auto show = [](std::string &texts) {
    TestViewer window;
    for (uint8_t turn = 0; turn < 4; ++turn) {
      for (const char *path : {"a.SC5", "a.SC8", "a.SC2", "a.SC6", "a.SCC"}) {
        window.open(path, BloadBuilder{.body = Bytes(54272, static_cast<uint8_t>(37 + turn))}.build());
        texts += pictureText(window.viewer) + "\n";
      }
    }
  };
  std::string left, right, alone;
  std::thread other(show, std::ref(left));
  show(right);
  other.join();
  show(alone);
  EXPECT_TRUE(left == alone && right == alone);
}

} // namespace
