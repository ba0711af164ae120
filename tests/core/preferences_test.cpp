#include "core/preferences.h"

#include "support/bytes.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

// The checked boxes, those of the extensions first: ".GE5 .DAT Centre Esc ".
std::string boxesOf(const Preferences &form) {
  std::string text;
  for (size_t i = 0; i < kAssociationCount; ++i) {
    if (form.Check1[i] == kTrue) text += std::string(kAssociations[i].extension) + " ";
  }
  if (form.Check2 == kTrue) text += "Centre ";
  if (form.Check3 == kTrue) text += "Esc ";
  if (form.Check4 == kTrue) text += "Shortcuts ";
  if (form.Check5 == kTrue) text += "Ratio ";
  return text;
}

const std::string kDefault = ".GE5 .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 .SCB "
                             ".SRB .S11 .SCC .S12 .G9B ";

TEST(Preferences, BoxesAsTheSettingsHaveThem) {
  using Row = std::pair<std::map<std::string, std::string>, std::string>;
  for (const auto &[settings, boxes] :
       {Row{{{"Korilan\\AutoCenter", "1"}}, "Centre "}, Row{{{"Korilan\\EscExits", "1"}}, "Esc "},
        Row{{{"Korilan\\Shortcuts", "1"}}, "Shortcuts "}, Row{{{"Korilan\\AutoRatio", "1"}}, "Ratio "},
        Row{{{"Korilan\\EscExits", "0"}, {"Korilan\\Shortcuts", ""}}, ""},
        Row{{{".GE5", "Paint"}, {".DAT", ""}, {".SC5", "Korilan2"}}, ""}, // of other programs
        Row{{{".GE5", "Korilan"}, {".G9B", "Korilan"}, {".SGX", "Korilan"}}, ".GE5 .G9B "}}) {
    TestViewer window;
    window.platform.settings = settings;
    EXPECT_EQ(boxesOf(storedPreferences(window.viewer)), boxes);
    EXPECT_TRUE(window.platform.log.empty()); // reading writes nothing
    loadPreferences(window.viewer);
    EXPECT_EQ(boxesOf(window.viewer.preferences), boxes.starts_with('.') ? "" : boxes);
    EXPECT_EQ(window.viewer.window.alwaysCentred, boxes == "Centre ");
  }
}

TEST(Preferences, SaveWritesInOrderAndActsAtOnce) {
  TestViewer window;
  window.open("a.SC7", BloadBuilder{}.build());
  window.platform.log.clear();
  Preferences form{.Check3 = kTrue, .Check5 = kTrue};
  checkAllAssociations(form);
  EXPECT_EQ(std::ranges::count(form.Check1, kTrue), 25);
  uncheckAllAssociations(form);
  EXPECT_EQ(boxesOf(form), "Esc Ratio ");
  defaultAssociations(form);
  EXPECT_EQ(boxesOf(form), kDefault + "Esc Ratio ");
  menuSavePreferences_Click(window.viewer, form);
  std::vector<std::string> expected{"writeSetting Korilan = MSX Graphics File",
                                    "writeSetting Korilan\\shell\\open\\command = C:\\Programs\\Korilan.exe %1",
                                    "writeSetting Korilan\\DefaultIcon = C:\\Programs\\Korilan.exe,0",
                                    "writeSetting Korilan\\AutoCenter = 0",
                                    "writeSetting Korilan\\EscExits = 1",
                                    "writeSetting Korilan\\Shortcuts = 0",
                                    "writeSetting Korilan\\AutoRatio = 1",
                                    "notifyAssociations"};
  for (const Association &row : kAssociations) {
    const std::string extension = row.extension;
    expected.push_back(kDefault.find(extension) == std::string::npos ? "deleteSetting " + extension
                                                                     : "writeSetting " + extension + " = Korilan");
  }
  expected.emplace_back("notifyAssociations");
  EXPECT_EQ(window.platform.log, expected);
  EXPECT_EQ(boxesOf(window.viewer.preferences), boxesOf(form));
  EXPECT_EQ(window.viewer.window.stretch.targetHeight, 424); // never unchecked
  window.viewer.platform.programPath = [](void *) { return std::string("C:\\Korilan.bin"); };
  menuSavePreferences_Click(window.viewer, {.Check2 = kTrue});
  EXPECT_EQ(window.platform.settings.at("Korilan\\DefaultIcon"), "C:\\Korilan.bin.exe,0");
  EXPECT_TRUE(window.viewer.window.alwaysCentred);
}

} // namespace
