#include "core/keys.h"

#include "core/help_text.h"
#include "core/menus.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>
#include <string_view>
#include <tuple>

namespace {

constexpr int kEscape = 27, kPageUp = 33, kPageDown = 34, kEnd = 35, kHome = 36, kF1 = 112, kF5 = 116;
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
    for (const std::string &line : platform.log) text += line.substr(0, line.find('\n')) + "; ";
    if (viewer.fileName != "c.SC5") text += viewer.fileName;
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

struct LetterRow {
  char letter;
  MenuItem WindowModel::*condition;
  const char *effect;
};

constexpr LetterRow kLetters[] = {
    {'O', nullptr, "askOpenFileName All Supported Files in d\\; "},
    {'S', &WindowModel::menuSaveBMP, "saved"},
    {'C', &WindowModel::menuCopyClipboard, "copyToClipboard 162856; "}, // 40 + 256 * 212 * 3
    {'T', &WindowModel::menuSavePal, "stored"},
    {'R', &WindowModel::menuRestPal, "runPendingEvents; presentPicture 256x212; restored"},
    {'P', &WindowModel::menuViewPal, "swatches"},
    {'Z', &WindowModel::menuView, "zoom"},
    {'A', &WindowModel::menuView, "aspect"},
    {'I', &WindowModel::menuView, "showText Image Info; "},
};

TEST(Keys, LettersOfTheKeyTable) {
  using Press = std::tuple<const char *, bool, bool, bool, bool>; // Ctrl, Alt, ticked, works
  for (const LetterRow &row : kLetters) {
    for (const auto &[name, ctrl, alt, ticked, works] :
         {Press{"alone", false, false, false, false}, Press{"alone, ticked", false, false, true, true},
          Press{"Ctrl", true, false, false, true}, Press{"Alt", false, true, true, false},
          Press{"AltGr", true, true, true, false}, Press{"not enabled", true, false, true, false}}) {
      SCOPED_TRACE(std::string(1, row.letter) + " " + name);
      KeyViewer window;
      window.viewer.preferences.Check4 = toFlag(ticked);
      const bool grey = std::string_view(name) == "not enabled";
      if (grey && row.condition == nullptr) continue;
      if (grey) (window.viewer.window.*row.condition).enabled = false;
      const bool taken = pressKey(window.viewer, {row.letter, ctrl, alt});
      EXPECT_EQ(window.effect(), works ? row.effect : "");
      EXPECT_TRUE(grey || taken == works);
    }
  }
  KeyViewer window; // all others need Ctrl
  window.viewer.preferences.Check4 = kTrue;
  for (const char letter : std::string_view("BDEFGHJKLMNQUVWXY")) EXPECT_FALSE(pressKey(window.viewer, {letter}));
  EXPECT_EQ(window.effect(), "");
}

TEST(Keys, FurtherKeys) {
  struct Row {
    const char *name;
    KeyPress key;
    bool escExits;
    const char *effect;
  };
  const char *rendered = "runPendingEvents; presentPicture 256x212; ";
  for (const Row &row :
       {Row{"page up", {kPageUp}, false, "b.SC5"}, Row{"page down", {kPageDown}, false, "d.SC5"},
        Row{"home", {kHome}, false, "a.SC5"}, Row{"end", {kEnd}, false, "e.SC5"}, Row{"Esc", {kEscape}, false, ""},
        Row{"Esc, ticked", {kEscape}, true, "exitProgram; "}, Row{"Ctrl+Q", {'Q', true}, false, "exitProgram; "},
        Row{"Ctrl+W", {'W', true}, false, "closed"}, Row{"F5", {kF5}, false, rendered},
        Row{"Ctrl+F5", {kF5, true}, false, ""}, Row{"F1", {kF1}, false, "showText Korilan Help; "},
        Row{"Ctrl+E", {'E', true}, false, "showPreferences; "}, Row{"no key", {0}, false, ""}}) {
    SCOPED_TRACE(row.name);
    KeyViewer window;
    window.viewer.preferences.Check3 = toFlag(row.escExits);
    pressKey(window.viewer, row.key);
    EXPECT_EQ(window.effect(), row.effect);
  }
}

TEST(Keys, HelpNamesThem) {
  for (const char *name : {"Ctrl+O", "Ctrl+T", "Ctrl+I", "F5", "Page Up", "End", "Esc", ".GE5", ".EV8"}) {
    EXPECT_NE(helpText().find(std::string("\n") + name + "\t"), std::string::npos) << name;
  }
}

} // namespace
