// Keys, dialogs, preferences and palettes of Korilan.exe, driven as a user does.
#include "core/bitmap_export.h"
#include "core/commands.h"
#include "core/help_text.h"
#include "core/image_info.h"
#include "core/menus.h"
#include "core/palette_commands.h"
#include "shell/control_ids.h"
#include "shell/kept_classes.h"
#include "shell/shown_sample.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace {

std::filesystem::path fileIn(const TemporaryFolder &folder, const std::string &name) {
  return std::filesystem::path(folder.path) / std::u8string(name.begin(), name.end());
}

TEST(Desktop, PagingKeysStepThroughTheFolder) {
  const TemporaryFolder folder("shell_paging");
  std::vector<SampleFile> pictures;
  for (const char *name : {"REEF.SC5", "SUNSET.SC8", "odd/日本の城.SC5"}) {
    pictures.emplace_back(folder, sampleNamed(name));
  }
  folder.write(u8"letter.txt", {'H', 'i'});
  // A file that is open stays in the folder until it is closed.
  for (const SampleFile &picture : pictures) closeInputFile(picture.viewer.inputFile);
  std::vector<std::string> names = systemFiles().listFolder(folder.path.c_str());
  std::erase(names, "letter.txt");
  ASSERT_EQ(names.size(), 3u);
  const DrivenWindow driven("\"" + folder.path + names[0] + "\"");
  ASSERT_NE(driven.window, nullptr);

  struct Row {
    const char *what;
    int key;
    size_t shown;
  };
  const auto expectSteps = [&](const std::vector<Row> &rows) {
    for (const Row &row : rows) {
      SCOPED_TRACE(row.what);
      typeKey(driven, row.key);
      const auto picture = std::find_if(pictures.begin(), pictures.end(),
                                        [&](const auto &file) { return file.name == names[row.shown]; });
      expectTexts(driven, picture->model);
      expectPicture(driven, picture->viewer);
    }
  };
  expectSteps({{"next", VK_NEXT, 1},
               {"next again", VK_NEXT, 2},
               {"next wraps", VK_NEXT, 0},
               {"previous wraps", VK_PRIOR, 2},
               {"previous", VK_PRIOR, 1},
               {"last", VK_END, 2},
               {"first", VK_HOME, 0},
               {"to the second", VK_NEXT, 1}});
  std::filesystem::remove(fileIn(folder, names[2]));
  expectSteps({{"next wraps before the deleted file", VK_NEXT, 0}, {"last but the deleted file", VK_END, 1}});
  std::filesystem::rename(fileIn(folder, names[1]), fileIn(folder, "away.txt"));
  expectSteps({{"previous of the file that is away", VK_PRIOR, 0}, {"alone", VK_NEXT, 0}});
}

constexpr char kTickedLetters[] = "Korilan\\Shortcuts";

struct LetterKey {
  char letter;
  std::function<bool()> acts; // whether the command is carried out, now that the key was pressed
};

// A viewer of its own, in which every letter of the key table changes something that can be seen.
struct LetterTest {
  TemporaryFolder folder{"shell_letters"};
  SampleFile other{folder, sampleNamed("HARBOUR.SC5")};
  SampleFile picture{folder, sampleNamed("REEF.SC5")};
  std::vector<uint8_t> bitmap = encodeBitmap(picture.viewer.frameBits, 256, 212);
  DrivenWindow driven{picture.path};

  bool copied() const {
    return clipboardBytes(CF_DIB) == std::vector<uint8_t>(bitmap.begin() + kBitmapFileHeaderBytes, bitmap.end());
  }

  // Stored here, restored in another picture.
  bool stores() {
    if (!menusHold(driven, "Palette/Restore Palette Ctrl+R\n")) return false;
    menuSavePal_Click(picture.viewer);
    openPath(picture.viewer, other.path);
    dropFile(driven, other.path);
    return waitUntil([&] { return showsPicture(driven, picture.viewer); });
  }

  bool restores() {
    menuRestPal_Click(picture.viewer);
    EXPECT_TRUE(picture.viewer.frameBits != other.viewer.frameBits);
    return waitUntil([&] { return showsPicture(driven, picture.viewer); });
  }

  std::vector<LetterKey> keys() {
    return {{'O', [this] { return leaveDialog(dialogNamed(driven, "Open A File"), IDCANCEL); }},
            {'I', [this] { return leaveDialog(dialogNamed(driven, "Image Info"), IDCANCEL); }},
            {'S', [this] { return waitUntil([&] { return folder.read(u8"REEF.bmp") == bitmap; }); }},
            {'C', [this] { return waitUntil([&] { return copied(); }); }},
            {'T', [this] { return stores(); }},
            {'R', [this] { return restores(); }},
            {'P', [this] { return menusHold(driven, "Palette/View Palette Ctrl+P checked\n"); }},
            {'Z', [this] { return menusHold(driven, "View/Zoom Ctrl+Z\n"); }},
            {'A', [this] { return menusHold(driven, "View/1:2 Aspect  Ratio Ctrl+A checked\n"); }}};
  }

  void expectAll(bool ctrl) {
    emptyClipboard();
    for (const LetterKey &row : keys()) {
      typeKey(driven, row.letter, ctrl);
      EXPECT_TRUE(row.acts()) << (ctrl ? "Ctrl+" : "") << row.letter;
    }
  }
};

TEST(Desktop, LettersActAloneOnlyWhereThatIsTicked) {
  const KeptClasses kept;
  {
    LetterTest test;
    const std::string before = menusOf(test.driven);
    emptyClipboard();
    for (const LetterKey &row : test.keys()) typeKey(test.driven, row.letter);
    typeKey(test.driven, 'N', true); // comes after all of them
    EXPECT_NE(answerMessage(test.driven, "Image Color Count"), "");
    EXPECT_EQ(menusOf(test.driven), before);
    EXPECT_EQ(test.folder.fileCount(), 2u);
    EXPECT_TRUE(clipboardBytes(CF_DIB).empty());
    test.expectAll(true);
  }
  writeClass(kTickedLetters, "1");
  for (const bool ctrl : {false, true}) {
    SCOPED_TRACE("ticked");
    LetterTest().expectAll(ctrl);
  }
}

TEST(Desktop, ReloadShowsAChangedFileAndEscEndsOnlyWhereThatIsTicked) {
  const KeptClasses kept;
  const TemporaryFolder folder("shell_reload");
  const SampleFile picture(folder, sampleNamed("REEF.SC5"));
  {
    const DrivenWindow driven(picture.path);
    expectPicture(driven, picture.viewer);
    samples::SamplePicture changed = sampleNamed("HARBOUR.SC5");
    changed.name = "REEF.SC5";
    const SampleFile after(folder, changed);
    typeKey(driven, VK_ESCAPE);
    typeKey(driven, VK_F5);
    expectPicture(driven, after.viewer);
    choose(driven, "Exit");
    EXPECT_EQ(exitCodeOf(driven), 0);
  }
  writeClass("Korilan\\EscExits", "1");
  const DrivenWindow driven(picture.path);
  typeKey(driven, VK_ESCAPE);
  EXPECT_EQ(exitCodeOf(driven), 0);
}

// Answers the open dialog with a path, typed into its field of the file name; an empty one cancels.
void answerOpenDialog(const DrivenWindow &driven, const std::string &path) {
  constexpr int kFileNameCombo = 0x47C;
  constexpr int kFileNameEdit = 0x480;
  const HWND dialog = dialogNamed(driven, "Open A File");
  const HWND combo = GetDlgItem(dialog, kFileNameCombo);
  const HWND field = combo != nullptr ? combo : GetDlgItem(dialog, kFileNameEdit);
  SendMessageA(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  EXPECT_TRUE(leaveDialog(dialog, path.empty() ? IDCANCEL : IDOK)) << path;
}

// View Palette is on; the swatches have the colours of the model.
void expectSwatches(const DrivenWindow &driven, const WindowModel &model) {
  for (size_t i = 0; i < model.Label5.size(); ++i) {
    const Swatch &swatch = model.Label5[i];
    HWND control = nullptr; // made when it is first shown
    EXPECT_TRUE(waitUntil([&] {
      control = GetDlgItem(driven.window, kLabel5Id + static_cast<int>(i));
      return (IsWindowVisible(control) != FALSE) == swatch.visible;
    })) << i;
    if (!swatch.visible || control == nullptr) continue;
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "Color %d: #%06X", static_cast<int>(i), swatch.background);
    EXPECT_EQ(textOf(control), name.data());
    // Inside of the frame, where no letter reaches.
    const auto shown = [&] {
      const ScreenPicture picture = screenPicture(control);
      return picture.pixels[static_cast<size_t>(picture.width) + 1];
    };
    EXPECT_TRUE(waitUntil([&] { return shown() == swatch.background; })) << name.data() << " is " << shown();
  }
}

TEST(Desktop, OpenDialogOpensTheFileThatIsTyped) {
  const TemporaryFolder folder("shell_open");
  const SampleFile first(folder, sampleNamed("REEF.SC5"));
  const DrivenWindow driven(first.path);
  for (const char *name : {"", "odd/日本の城.SC5", "CASTLE.SC7"}) {
    choose(driven, "Open");
    const SampleFile picture(folder, sampleNamed(*name == '\0' ? "REEF.SC5" : name));
    answerOpenDialog(driven, *name == '\0' ? "" : picture.path);
    expectTexts(driven, picture.model);
    expectPicture(driven, picture.viewer);
  }
}

TEST(Desktop, PaletteFilesAreTakenOrRefused) {
  const TemporaryFolder folder("shell_palette");
  SampleFile picture(folder, sampleNamed("HARBOUR.SC5"));
  const DrivenWindow driven(picture.path);
  std::vector<uint8_t> colours;
  for (int entry = 0; entry < 16; ++entry) {
    colours.push_back(static_cast<uint8_t>((entry % 8) * 16 + entry / 2));
    colours.push_back(static_cast<uint8_t>(7 - entry % 8));
  }
  std::vector<uint8_t> broken = colours;
  broken[20] = 0x08;
  struct Row {
    const char8_t *name; // empty: cancelled
    std::vector<uint8_t> bytes;
    bool redrawn;
  };
  const std::array<Row, 5> rows{{{u8"good.PL5", colours, true},
                                 {u8"", {}, false},
                                 {u8"short.PAL", std::vector<uint8_t>(31, 0x77), false},
                                 {u8"broken.PAL", broken, false},
                                 {u8"black.PAL", std::vector<uint8_t>(32), true}}};
  chooseInBoth(driven, picture.viewer, "Store Palette");
  for (const Row &row : rows) {
    const std::u8string name = row.name;
    SCOPED_TRACE(std::string(name.begin(), name.end()));
    const std::string path = name.empty() ? "" : folder.write(name, row.bytes);
    const std::vector<uint32_t> before = picture.viewer.frameBits;
    picture.opened->platform.chosenFiles = {path};
    chooseInBoth(driven, picture.viewer, "Load Palette");
    answerOpenDialog(driven, path);
    EXPECT_EQ(picture.viewer.frameBits != before, row.redrawn);
    expectPicture(driven, picture.viewer); // commands that come while it is drawn are ignored
    chooseInBoth(driven, picture.viewer, "View Palette");
    expectSwatches(driven, picture.model);
    chooseInBoth(driven, picture.viewer, "View Palette");
    chooseInBoth(driven, picture.viewer, "Zoom"); // has the picture drawn anew in any case
    expectPicture(driven, picture.viewer);
  }
  const std::vector<uint32_t> before = picture.viewer.frameBits;
  chooseInBoth(driven, picture.viewer, "Restore Palette");
  EXPECT_TRUE(picture.viewer.frameBits != before);
  expectPicture(driven, picture.viewer);
}

// The boxes of the dialog, "1" where one is checked: the general ones, then the extensions.
std::string boxesOf(HWND dialog) {
  std::string boxes;
  const auto add = [&](int id) {
    boxes += SendMessageA(GetDlgItem(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED ? '1' : '0';
  };
  for (int i = 0; i < 4; ++i) add(kGeneralPreferenceId + i);
  boxes += ' ';
  for (int i = 0; i < 25; ++i) add(kAssociationId + i);
  return boxes;
}

HWND openPreferences(const DrivenWindow &driven) {
  choose(driven, "Preferences");
  return dialogNamed(driven, "Preferences");
}

const std::string kNoBoxes(25, '0');
const std::string kAllBoxes(25, '1');
const std::string kDefaultBoxes = "100" + std::string(19, '1') + "011"; // not .DAT, .CMP and .SRC

// The registry after Save, as the boxes have it.
std::string classLinesOf(const std::string &boxes) {
  const std::string program = shellPaths.viewer.substr(0, shellPaths.viewer.size() - std::strlen(".exe"));
  std::string lines = "Korilan = MSX Graphics File\nKorilan\\shell\\open\\command = " + program +
                      ".exe %1\nKorilan\\DefaultIcon = " + program + ".exe,0\n";
  size_t box = 0;
  for (const char *key : {"AutoCenter", "EscExits", "Shortcuts", "AutoRatio"}) {
    lines += std::string("Korilan\\") + key + " = " + boxes[box++] + "\n";
  }
  for (const std::string &extension :
       wordsOf(".GE5 .DAT .CMP .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 .SCB .SRB "
               ".S11 .SCC .SRC .S12 .G9B")) {
    lines += extension + " = " + (boxes[++box] == '1' ? "Korilan" : "(none)") + "\n";
  }
  return lines;
}

TEST(Desktop, PreferencesButtonsAndWhatTheyWrite) {
  const KeptClasses kept;
  writeClass(".SRC", "AnotherProgram");
  writeClass(".DAT\\shell", "something below");
  const std::string fresh = classLines();
  const DrivenWindow driven("");
  HWND dialog = openPreferences(driven);
  struct Row {
    const char *what;
    int button;
    std::string boxes;
  };
  const auto expectBoxes = [&](const std::vector<Row> &rows) {
    for (const Row &row : rows) {
      if (row.button != 0) press(dialog, row.button);
      EXPECT_TRUE(waitUntil([&] { return boxesOf(dialog) == row.boxes; })) << row.what << ": " << boxesOf(dialog);
    }
  };
  expectBoxes({{"fresh", 0, "0000 " + kNoBoxes},
               {"Check All", kCheckAllId, "0000 " + kAllBoxes},
               {"UnCheck All", kUncheckAllId, "0000 " + kNoBoxes},
               {"Default", kDefaultId, "0000 " + kDefaultBoxes},
               {"centre", kGeneralPreferenceId, "1000 " + kDefaultBoxes}});
  EXPECT_TRUE(leaveDialog(dialog, IDCANCEL));
  EXPECT_EQ(classLines(), fresh);

  dialog = openPreferences(driven);
  expectBoxes({{"after Cancel", 0, "0000 " + kNoBoxes}, {"Check All", kCheckAllId, "0000 " + kAllBoxes}});
  EXPECT_TRUE(leaveDialog(dialog, kClosePreferencesId));
  EXPECT_EQ(classLines(), fresh);

  dialog = openPreferences(driven);
  const std::string saved = "0001 " + kDefaultBoxes;
  expectBoxes({{"after Close", 0, "0000 " + kNoBoxes},
               {"Default again", kDefaultId, "0000 " + kDefaultBoxes},
               {"aspect", kGeneralPreferenceId + 3, saved}});
  for (const char *what : {"saved", "saved twice"}) {
    press(dialog, kSavePreferencesId);
    EXPECT_TRUE(waitUntil([&] { return classLines() == classLinesOf(saved); })) << what << "\n" << classLines();
    EXPECT_EQ(classText(".DAT\\shell"), "(none)");
  }
  EXPECT_TRUE(leaveDialog(dialog, kClosePreferencesId));

  // "Disable auto aspect ratio" acts at once.
  const TemporaryFolder folder("shell_preferences");
  dropFile(driven, SampleFile(folder, sampleNamed("CASTLE.SC7")).path);
  EXPECT_TRUE(waitUntil([&] { return mainViewSize(driven).cx == 516 && mainViewSize(driven).cy == 216; }));

  dialog = openPreferences(driven);
  expectBoxes({{"after Save", 0, saved},
               {"UnCheck All again", kUncheckAllId, "0001 " + kNoBoxes},
               {"no aspect", kGeneralPreferenceId + 3, "0000 " + kNoBoxes},
               {"Esc", kGeneralPreferenceId + 1, "0100 " + kNoBoxes}});
  EXPECT_TRUE(leaveDialog(dialog, IDOK));
  EXPECT_EQ(classLines(), classLinesOf("0100 " + kNoBoxes));
  EXPECT_TRUE(waitUntil([&] { return mainViewSize(driven).cy == 428; }));
  typeKey(driven, VK_ESCAPE);
  EXPECT_EQ(exitCodeOf(driven), 0);
}

bool standsCentred(const DrivenWindow &driven) {
  RECT place{};
  RECT work{};
  GetWindowRect(driven.window, &place);
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
  return std::abs(place.left + place.right - work.left - work.right) <= 1 &&
         std::abs(place.top + place.bottom - work.top - work.bottom) <= 1;
}

TEST(Desktop, AlwaysCenterWindowActsAtOnce) {
  const KeptClasses kept;
  const DrivenWindow driven("");
  SetWindowPos(driven.window, nullptr, 5, 7, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_TRUE(waitUntil([&] { return !standsCentred(driven); }));
  const HWND dialog = openPreferences(driven);
  press(dialog, kGeneralPreferenceId);
  press(dialog, kSavePreferencesId);
  EXPECT_TRUE(waitUntil([&] { return standsCentred(driven); }));
  EXPECT_TRUE(leaveDialog(dialog, IDCANCEL));
}

// As edit controls have it: without the last line break.
std::string editText(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) text.insert(at, 1, '\r');
  return text;
}

std::string clipboardText() {
  const std::vector<uint8_t> bytes = clipboardBytes(CF_UNICODETEXT);
  std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
  std::array<char, 4096> text{};
  WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), -1, text.data(), text.size(), nullptr, nullptr);
  return text.data();
}

TEST(Desktop, InfoHelpAndAboutShowTheirTexts) {
  const TemporaryFolder folder("shell_info");
  const DrivenWindow driven("");
  for (const char *name : {"REEF.SC5", "CASTLE.HAM", "BAY.G9B", "odd/日本の城.SC5"}) {
    SCOPED_TRACE(name);
    const SampleFile picture(folder, sampleNamed(name));
    dropFile(driven, picture.path);
    expectTexts(driven, picture.model);
    choose(driven, "Image Info");
    const HWND dialog = dialogNamed(driven, "Image Info");
    const std::string wanted = editText(imageInfo(picture.viewer));
    EXPECT_EQ(textOf(GetDlgItem(dialog, kTextId)), wanted);
    emptyClipboard();
    press(dialog, kCopyTextId);
    EXPECT_TRUE(waitUntil([&] { return clipboardText() == wanted; })) << clipboardText();
    EXPECT_TRUE(leaveDialog(dialog, IDCANCEL));
  }
  typeKey(driven, VK_F1);
  const HWND help = dialogNamed(driven, "Korilan Help");
  EXPECT_EQ(textOf(GetDlgItem(help, kTextId)), editText(helpText()));
  EXPECT_TRUE(leaveDialog(help, IDCANCEL));
  choose(driven, "About");
  EXPECT_TRUE(answerMessage(driven, "About Korilan").starts_with("Korilan "));
}

} // namespace
