// Commands, their keys, and Preferences.
#include "core/colour_readout.h"
#include "core/display_settings.h"
#include "core/preferences.h"
#include "support/test_viewer.h"

namespace {

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

TEST(Commands, EventsDuringALoad) {
  using Row = std::pair<const char *, void (*)(ViewerState & viewer, const std::string &path)>;
  TestViewer quiet;
  quiet.open("a.SC5", kPicture);
  for (const auto &[name, deliver] :
       {Row{"nothing", [](auto &viewer, auto &) { EXPECT_EQ(viewer.window.Label4, "Rendering..."); }},
        Row{"open", openPath}, Row{"close", [](auto &viewer, auto &) { menuClose_Click(viewer); }},
        Row{"keys",
            [](auto &viewer, auto &) {
              for (const char letter : std::string_view("OSCTRPZAIWELN")) pressKey(viewer, {letter, true});
              for (const int code : {33, 34, 35, 36, 116}) pressKey(viewer, {code}); // paging and F5
              for (size_t row = 0; row <= kMenuRowCount; ++row) runMenuChoice(viewer, row, 0);
              moveMouse(viewer, 0, 0);
            }},
        Row{"exit", [](auto &viewer, auto &) {
              pressKey(viewer, {'Q', true});
            }}}) {
    SCOPED_TRACE(name);
    TestViewer window;
    memoryDisk()["other.SC6"] = kPicture;
    window.platform.events.push_back({deliver, "other.SC6"});
    window.open("a.SC5", kPicture);
    const bool exits = name == std::string("exit");
    EXPECT_EQ(window.platform.log.back(), exits ? "exitProgram" : "presentPicture 256x212");
    EXPECT_EQ(window.platform.log.size(), exits ? 3u : 2u); // events, picture, exit
    EXPECT_EQ(pictureText(window.viewer) + window.viewer.window.Label4, pictureText(quiet.viewer));
    openPath(window.viewer, "other.SC6"); // after the load commands work again
    EXPECT_EQ(window.viewer.window.Label1, "512x212");
  }
}

TEST(Commands, OpenReloadAndView) {
  TestViewer window;
  memoryDisk()["e\\b.SC6"] = kPicture;
  window.pressCtrl('O'); // cancelled
  EXPECT_EQ(window.viewer.filePath, "");
  window.platform.chosenFiles = {"e\\b.SC6"};
  window.pressCtrl('O');
  openPath(window.viewer, "other.TXT"); // ignored
  memoryDisk()["e\\b.SC6"] = BloadBuilder{.body = {0xFF}}.build();
  menuReload_Click(window.viewer); // as it is now
  EXPECT_EQ(window.viewer.frameBits[0], 0x6DFF6Du);
  window.open("a.SC5", kPicture);
  for (const int32_t height : {212, 424}) {
    window.pressCtrl('Z');
    EXPECT_EQ(window.viewer.window.menuZoom.checked, height == 424);
    EXPECT_EQ(window.viewer.window.stretch.targetHeight, height);
  }
}

TEST(Commands, OnlyMenuItemsThatAreThereAndEnabledRun) {
  TestViewer window;
  for (size_t row = 0; row <= kMenuRowCount; ++row) {
    const bool runs = row < kMenuRowCount && menuRowEnabled(window.viewer.window, kMenuRows[row]);
    if (!runs || kMenuRows[row].choices != nullptr) runMenuRow(window.viewer, row);
    runMenuChoice(window.viewer, row, 99);
  }
  EXPECT_TRUE(window.platform.log.empty() && window.platform.values.empty());
}

TEST(Commands, SwitchesAreKeptFromOneStartToTheNext) {
  using Row = std::pair<const char *, bool DisplaySettings::*>;
  for (const auto &[name, setting] :
       {Row{"Grid", &DisplaySettings::grid}, Row{"FollowChanges", &DisplaySettings::followChanges},
        Row{"PaletteOfSameName", &DisplaySettings::paletteOfSameName},
        Row{"OrderByNumber", &DisplaySettings::orderByNumber}}) {
    for (const char *stored : {"0", "1", "yes"}) {
      TestViewer window;
      window.platform.values[name] = stored;
      startViewer(window.viewer, "");
      const bool expected = *stored == 'y' ? DisplaySettings{}.*setting : *stored == '1';
      EXPECT_EQ(window.viewer.display.*setting, expected) << name << stored;
    }
  }
}

TEST(Keys, WhatEachDoes) {
  // "c": works with Ctrl, "a": alone, "p": alone if the preferences are ticked; with Alt or Shift nothing does
  using Row = std::tuple<int, std::string, const char *>;
  for (const auto &[code, works, effect] :
       {Row{'I', "cp", "showText Image Info"}, Row{'C', "cp", "copyToClipboard 162856"}, // 40 + 256 * 212 * 3
        Row{'E', "c", "showPreferences"}, Row{'Q', "c", "exitProgram"}, Row{112, "ap", "showText Korilan Help"},
        Row{116, "ap", "presentPicture 256x212"}, Row{36, "ap", "presentPicture 256x212"}, Row{27, "p", "exitProgram"},
        Row{'B', "", ""}, Row{32, "", ""}}) { // without a video
    for (const std::string press : {"a", "p", "c", "pm", "cm", "ps", "cs"}) {
      SCOPED_TRACE(std::to_string(code) + " " + press);
      TestViewer window;
      window.open("a.SC5", BloadBuilder{}.build());
      window.platform.log = {""};
      window.viewer.preferences.Check3 = window.viewer.preferences.Check4 = toFlag(press != "a");
      const bool worked = works.find(press) != std::string::npos;
      EXPECT_EQ(pressKey(window.viewer, {code, press[0] == 'c', press.ends_with('m'), press.ends_with('s')}), worked);
      const std::string last = window.platform.log.back();
      EXPECT_EQ(last.substr(0, last.find('\n')), worked ? effect : "");
    }
  }
}

TEST(Keys, FullScreenIsLeftBeforeTheProgram) {
  TestViewer window;
  window.viewer.preferences.Check3 = kTrue;
  using Row = std::pair<KeyPress, bool>;
  for (const auto &[key, full] :
       {Row{{122}, true}, Row{{122, true}, true}, Row{{122, false, false, false, true}, true}, Row{{27}, false},
        Row{{13, false, true}, true}, Row{{13}, true}, Row{{13, true, true}, true}, Row{{122}, false}}) {
    pressKey(window.viewer, key);
    EXPECT_TRUE(window.viewer.window.fullScreen == full && window.platform.log.empty()) << key.code;
  }
  pressKey(window.viewer, {27});
  EXPECT_EQ(window.platform.log, std::vector<std::string>{"exitProgram"});
}

// The checked boxes: extensions, then letters for centring, Esc, shortcuts and ratio.
std::string boxesOf(const Preferences &form) {
  std::string text;
  for (size_t i = 0; i < kAssociationCount; ++i) {
    if (form.Check1[i] == kTrue) text += std::string(kAssociations[i].extension) + " ";
  }
  const Flag16 flags[] = {form.Check2, form.Check3, form.Check4, form.Check5};
  for (size_t i = 0; i < 4; ++i) text += flags[i] == kTrue ? std::string(1, "cesr"[i]) : "";
  return text;
}

TEST(Preferences, AreWrittenAndActAtOnce) {
  TestViewer window;
  ViewerState &viewer = window.viewer;
  window.open("a.SC7", BloadBuilder{.body = {0x1F}}.build());
  window.platform.settings = {{".DAT", "Korilan"}, {".SC5", "Paint"}, {".SGX", "Paint"}, {"Korilan\\EscExits", "0"}};
  EXPECT_EQ(boxesOf(storedPreferences(viewer)), ".DAT ");
  Preferences form{.Check2 = kTrue, .Check5 = kTrue};
  checkAllAssociations(form);
  EXPECT_EQ(std::ranges::count(form.Check1, kTrue), 25);
  uncheckAllAssociations(form);
  EXPECT_EQ(boxesOf(form), "cr");
  defaultAssociations(form);
  viewer.window.menuDoubleHeight.checked = false;
  menuSavePreferences_Click(viewer, form);
  std::map<std::string, std::string> expected{{"Korilan", "MSX Graphics File"},
                                              {"Korilan\\shell\\open\\command", "C:\\Programs\\Korilan.exe %1"},
                                              {"Korilan\\DefaultIcon", "C:\\Programs\\Korilan.exe,0"},
                                              {"Korilan\\AutoCenter", "1"},
                                              {"Korilan\\EscExits", "0"},
                                              {"Korilan\\Shortcuts", "0"},
                                              {"Korilan\\AutoRatio", "1"},
                                              {".SGX", "Paint"}};
  for (const Association &row : kAssociations) expected[row.extension] = "Korilan";
  for (const char *ofOthers : {".DAT", ".CMP", ".SRC"}) expected.erase(ofOthers);
  EXPECT_EQ(window.platform.settings, expected);
  EXPECT_EQ(window.platform.log.back(), "notifyAssociations");
  EXPECT_EQ(boxesOf(storedPreferences(viewer)), boxesOf(form));
  EXPECT_TRUE(viewer.window.alwaysCentred && viewer.window.stretch.targetHeight == 212);
  loadPreferences(viewer);
  EXPECT_EQ(boxesOf(viewer.preferences), "cr");
}

} // namespace
