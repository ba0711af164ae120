#include "core/open_dialog.h"

#include "core/file_kinds.h"
#include "screens/palette_commands.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

// All but the first, which is for all kinds.
constexpr std::string_view kDescriptions =
    "DD-Graph BLOAD files (*.GE5)|DD-Graph COPY files (*.DAT)|DD-Graph .CMP files (*.CMP)|"
    "Dynamic Publisher files (*.PCT;*.STP)|Designer Plus files (*.PIC)|Screen 2 BLOAD files (*.SC2;*.SR2)|"
    "Screen 4 BLOAD files (*.SC4;*.SR4)|Screen 5 BLOAD files (*.SC5;*.SR5)|Screen 6 BLOAD files (*.SC6;*.SR6)|"
    "Screen 7 BLOAD files (*.SC7;*.SR7)|Screen 8 BLOAD files (*.SC8;*.SR8)|Screen10 BLOAD files (*.SCA;*.SRA;*.S10)|"
    "Screen11 BLOAD files (*.SCB;*.SRB;*.S12)|Screen12 BLOAD files (*.SCC;*.SRC;*.S12)|Screen 5 COPY files (*.GL5)|"
    "Screen 6 COPY files (*.GL6)|Screen 7 COPY files (*.GL7)|Screen 8 COPY files (*.GL8)|Screen10 COPY files (*.GLA)|"
    "Screen11 COPY files (*.GLB)|Screen12 COPY files (*.GLC)|Screen 7 HAM files (*.HAM)|Team Bomba G9B files (*.G9B)|"
    "VSCREEN level files (*.SC4;*.SCR;*.TGS)|SymbOS graphic files (*.SGX)|SymbOS Video files (*.VID)|"
    "EVA/EV8 Video files (*.EVA;*.EV8)|";

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
  const std::vector<std::string> descriptions = textsOf(kDescriptions, '|');
  ASSERT_EQ(texts.size(), 2 * (1 + descriptions.size()) + 1); // an empty one closes the list
  EXPECT_EQ(texts[0], "All Supported Files");
  for (size_t i = 0; i < descriptions.size(); ++i) {
    const std::string &description = descriptions[i];
    const size_t start = description.find('(') + 1;
    std::string pattern = description.substr(start, description.size() - start - 1);
    if (description.starts_with("Screen11 BLOAD")) pattern = "*.SCB;*.SRB;*.S11"; // not what it says
    EXPECT_EQ(texts[2 + 2 * i], description);
    EXPECT_EQ(texts[3 + 2 * i], pattern);
  }
  EXPECT_EQ(texts.back(), "");

  const std::string &all = texts[1];
  EXPECT_EQ(all.size(), kFileKinds.size() * 6 - 1); // "*.GE5;"
  EXPECT_TRUE(all.starts_with("*.GE5;*.GE8;*.DAT;*.CMP;*.PCT;") && all.ends_with(";*.SGX;*.VID;*.EVA;*.EV8")) << all;
  for (const FileKind &kind : kFileKinds) {
    EXPECT_NE((";" + all + ";").find(std::string(";*") + kind.extension + ";"), std::string::npos) << kind.extension;
  }
}

TEST(OpenDialog, PaletteFilter) {
  EXPECT_EQ(filtersFor(kTrue),
            (std::vector<std::string>{"Palette Files (*.PL?;*.PAL)", "*.PL4;*.PL5;*.PL6;*.PL7;*.PAL", ""}));
}

TEST(OpenDialog, OpenCommand) {
  TestViewer window;
  memoryDisk()["e\\b.SC6"] = BloadBuilder{}.build();
  window.open("d\\a.SC5", BloadBuilder{}.build());
  const std::vector<std::string> asked{"askOpenFileName All Supported Files in d\\"};
  menuLoadPal_Click(window.viewer); // cancelled; the next dialog is for pictures again
  window.platform.log.clear();
  menuOpen_Click(window.viewer); // cancelled
  EXPECT_EQ(window.platform.log, asked);
  EXPECT_EQ(window.viewer.filePath, "d\\a.SC5");
  window.platform.chosenFiles = {"e\\b.SC6"};
  menuOpen_Click(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - b.SC6");
  EXPECT_EQ(window.viewer.window.Label1, "512x212");
}

} // namespace
