// Keys, dialogs, preferences, clipboard and mouse of Korilan.exe, driven as a user does.
#include "core/bitmap_export.h"
#include "core/colour_readout.h"
#include "core/commands.h"
#include "core/help_text.h"
#include "core/image_info.h"
#include "core/menus.h"
#include "screens/palette_commands.h"
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

bool menusHold(const DrivenWindow &driven, const char *line) {
  return waitUntil([&] { return menusOf(driven).find(line) != std::string::npos; });
}

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
    EXPECT_NE(picture.viewer.frameBits, other.viewer.frameBits);
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

} // namespace
