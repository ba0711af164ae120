#include "core/open_dialog.h"

#include "core/file_kinds.h"
#include "core/palette_commands.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

// Texts that `end` closes each.
std::vector<std::string> textsOf(std::string_view list, char end) {
  std::vector<std::string> texts;
  for (size_t start = 0, next = 0; start < list.size(); start = next + 1) {
    next = std::min(list.find(end, start), list.size());
    texts.emplace_back(list.substr(start, next - start));
  }
  return texts;
}

std::vector<std::string> filtersFor(Flag16 paletteDialog) {
  static thread_local std::string shown;
  TestViewer window;
  window.viewer.paletteDialog = paletteDialog;
  window.viewer.platform.askOpenFileName = [](void *, const std::string &filter, const std::string &) {
    shown = filter;
    return std::string();
  };
  askOpenFileName(window.viewer, "");
  return textsOf(shown, '\0');
}

TEST(OpenDialog, PictureFilters) {
  const std::vector<std::string> texts = filtersFor(kFalse);
  ASSERT_EQ(texts.size(), 2 * (1 + 27) + 1u); // an empty one closes the list
  EXPECT_EQ(texts.back(), "");
  std::string patterns;
  for (size_t i = 2; i + 1 < texts.size(); i += 2) {
    const std::string &description = texts[i], &pattern = texts[i + 1];
    patterns += pattern + ";";
    if (description == "Screen11 BLOAD files (*.SCB;*.SRB;*.S12)") { // not what it says
      EXPECT_EQ(pattern, "*.SCB;*.SRB;*.S11");
    } else {
      EXPECT_TRUE(description.ends_with(" files (" + pattern + ")")) << description;
    }
  }
  EXPECT_EQ(texts[2], "DD-Graph BLOAD files (*.GE5)");
  EXPECT_EQ(texts[54], "EVA/EV8 Video files (*.EVA;*.EV8)");
  EXPECT_EQ(texts[0], "All Supported Files");
  const std::string &all = texts[1];
  EXPECT_EQ(all.size(), kFileKinds.size() * 6 - 1); // "*.GE5;"
  EXPECT_TRUE(all.starts_with("*.GE5;*.GE8;*.DAT;*.CMP;*.PCT;") && all.ends_with(";*.SGX;*.VID;*.EVA;*.EV8")) << all;
  for (const FileKind &kind : kFileKinds) {
    const std::string pattern = std::string("*") + kind.extension + ";";
    EXPECT_NE((all + ";").find(pattern), std::string::npos) << pattern;
    // One kind stands in the first list alone.
    EXPECT_EQ(patterns.find(pattern) == std::string::npos, pattern == "*.GE8;") << pattern;
  }
  EXPECT_EQ(filtersFor(kTrue),
            (std::vector<std::string>{"Palette Files (*.PL?;*.PAL)", "*.PL4;*.PL5;*.PL6;*.PL7;*.PAL", ""}));
}

TEST(OpenDialog, OpenCommand) {
  TestViewer window;
  memoryDisk()["e\\b.SC6"] = BloadBuilder{}.build();
  window.open("d\\a.SC5", BloadBuilder{}.build());
  menuLoadPal_Click(window.viewer); // cancelled; the next dialog is for pictures again
  window.platform.log.clear();
  menuOpen_Click(window.viewer); // cancelled
  EXPECT_EQ(window.platform.log, std::vector<std::string>{"askOpenFileName All Supported Files in d\\"});
  EXPECT_EQ(window.viewer.filePath, "d\\a.SC5");
  window.platform.chosenFiles = {"e\\b.SC6"};
  menuOpen_Click(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - b.SC6");
  EXPECT_EQ(window.viewer.window.Label1, "512x212");
}

} // namespace
