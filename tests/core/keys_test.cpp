#include "core/keys.h"

#include "core/help_text.h"
#include "support/bytes.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

constexpr uint32_t kStored = 0x111111;

// A picture whose stored palette could be restored, among four other files.
struct KeyViewer : TestViewer {
  KeyViewer() {
    for (const char *name : {"d\\a.SC5", "d\\b.SC5", "d\\d.SC5", "d\\e.SC5"}) memoryDisk()[name] = {};
    viewer.storedPaletteCount = 16;
    viewer.storedPalette.fill(kStored);
    open("d\\c.SC5", BloadBuilder{.body = {0x1F}}.build());
    platform.log.clear();
  }

  // What has changed since then: first lines of the calls, then the marks of the window.
  std::string effect() const {
    std::string text;
    if (viewer.fileName != "c.SC5") return viewer.fileName;
    for (const std::string &line : platform.log) text += line.substr(0, line.find('\n')) + "; ";
    if (memoryDisk().contains("d\\c.bmp")) text += "saved";
    if (viewer.storedPalette[0] != kStored) text += "stored";
    if (viewer.palette[0] == kStored) text += "restored";
    if (viewer.window.menuViewPal.checked) text += "swatches";
    if (viewer.zoomMode == 0) text += "zoom";
    if (viewer.window.menuDoubleHeight.checked) text += "aspect";
    if (viewer.fileLoaded == kFalse) text += "closed";
    return text;
  }
};

struct KeyRow {
  int code;
  std::string works; // "c": with Ctrl, "a": alone, "p": alone if the preferences are ticked, "m": with Alt, too
  MenuItem WindowModel::*item;
  std::string effect;
};

const std::string kDrawn = "runPendingEvents; presentPicture 256x212; ";
const std::string kCount = "showMessage (i) Image Color Count: The amount of unique colors in this image is 3.; ";

const KeyRow kRows[] = {
    {'O', "cp", &WindowModel::menuOpen, "askOpenFileName All Supported Files in d\\; "},
    {'S', "cp", &WindowModel::menuSaveBMP, "saved"},
    {'C', "cp", &WindowModel::menuCopyClipboard, "copyToClipboard 162856; "}, // 40 + 256 * 212 * 3
    {'T', "cp", &WindowModel::menuSavePal, "stored"},
    {'R', "cp", &WindowModel::menuRestPal, kDrawn + "restored"},
    {'P', "cp", &WindowModel::menuViewPal, "swatches"},
    {'Z', "cp", &WindowModel::menuView, "zoom"},
    {'A', "cp", &WindowModel::menuView, "aspect"},
    {'I', "cp", &WindowModel::menuView, "showText Image Info; "},
    {'W', "c", &WindowModel::menuClose, "closed"},
    {'E', "c", &WindowModel::menuPreferences, "showPreferences; "},
    {'Q', "c", &WindowModel::menuExit, "exitProgram; "},
    {'N', "c", &WindowModel::menuView, kCount},
    {'L', "c", &WindowModel::menuLoadPal, "askOpenFileName Palette Files (*.PL?;*.PAL) in d\\; "},
    {112, "ap", &WindowModel::menuHelp, "showText Korilan Help; "},
    {116, "ap", &WindowModel::menuReload, kDrawn},
    {33, "acpm", nullptr, "b.SC5"},
    {34, "acpm", nullptr, "d.SC5"},
    {36, "acpm", nullptr, "a.SC5"},
    {35, "acpm", nullptr, "e.SC5"},
    {27, "cpm", nullptr, "exitProgram; "},
    {'B', "", nullptr, ""},
    {32, "", nullptr, ""}, // without a video
};

TEST(Keys, WhatEachDoes) {
  for (const KeyRow &row : kRows) {
    for (const std::string press : {"a", "p", "c", "pm", "cm", "c grey"}) {
      SCOPED_TRACE(std::to_string(row.code) + " " + press);
      KeyViewer window;
      const bool grey = press == "c grey" && row.item != nullptr;
      if (grey) (window.viewer.window.*row.item).enabled = false;
      window.viewer.preferences.Check3 = window.viewer.preferences.Check4 = toFlag(press != "a");
      const bool works =
          row.works.find(press[0]) != std::string::npos && (!press.ends_with('m') || row.works.ends_with('m'));
      EXPECT_EQ(pressKey(window.viewer, {row.code, press[0] == 'c', press.ends_with('m')}), works);
      EXPECT_EQ(window.effect(), works && !grey ? row.effect : "");
    }
  }
}

TEST(Keys, HelpNamesThem) {
  for (const char *name : {"Ctrl+O", "Ctrl+T", "Ctrl+I", "F5", "Page Up", "End", "Esc", ".GE5", ".EV8"}) {
    EXPECT_NE(helpText().find(std::string("\n") + name + "\t"), std::string::npos) << name;
  }
}

} // namespace
