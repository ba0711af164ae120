#include "core/preferences.h"

#include "core/keys.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

const std::vector<std::string> kExtensions =
    wordsOf(".GE5 .DAT .CMP .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 .SCB .SRB .S11 "
            ".SCC .SRC .S12 .G9B");

// The checked boxes, those of the extensions first: ".GE5 .DAT Centre Esc ".
std::string boxesOf(const Preferences &form) {
  std::string text;
  for (size_t i = 0; i < form.Check1.size(); ++i) text += form.Check1[i] == kTrue ? kExtensions[i] + " " : "";
  if (form.Check2 == kTrue) text += "Centre ";
  if (form.Check3 == kTrue) text += "Esc ";
  if (form.Check4 == kTrue) text += "Shortcuts ";
  if (form.Check5 == kTrue) text += "Ratio ";
  return text;
}

TEST(Preferences, BoxesAsTheSettingsHaveThem) {
  struct Row {
    const char *name;
    std::map<std::string, std::string> settings;
    const char *boxes;
  };
  for (const Row &row :
       {Row{"fresh system", {}, ""}, Row{"centre", {{"Korilan\\AutoCenter", "1"}}, "Centre "},
        Row{"Esc", {{"Korilan\\EscExits", "1"}}, "Esc "}, Row{"shortcuts", {{"Korilan\\Shortcuts", "1"}}, "Shortcuts "},
        Row{"ratio", {{"Korilan\\AutoRatio", "1"}}, "Ratio "},
        Row{"zero and empty", {{"Korilan\\EscExits", "0"}, {"Korilan\\Shortcuts", ""}}, ""},
        Row{"of other programs", {{".GE5", "Paint"}, {".DAT", ""}, {".SC5", "Korilan2"}}, ""},
        Row{"own", {{".GE5", "Korilan"}, {".S10", "Korilan"}, {".G9B", "Korilan"}}, ".GE5 .S10 .G9B "},
        Row{"not in the list", {{".SGX", "Korilan"}}, ""}}) {
    SCOPED_TRACE(row.name);
    TestViewer window;
    window.platform.settings = row.settings;
    EXPECT_EQ(boxesOf(storedPreferences(window.viewer)), row.boxes);
    EXPECT_EQ(window.platform.log, std::vector<std::string>{}); // reading writes nothing

    startViewer(window.viewer, "");
    const Preferences &used = window.viewer.preferences;
    const Preferences general{{}, used.Check2, used.Check3, used.Check4, used.Check5};
    EXPECT_EQ(boxesOf(general), row.boxes[0] == '.' ? "" : row.boxes);
    EXPECT_EQ(window.viewer.window.alwaysCentred, row.settings.contains("Korilan\\AutoCenter"));
  }
}

TEST(Preferences, ButtonsOfTheAssociations) {
  Preferences form{.Check4 = kTrue};
  const std::string general = boxesOf(form);
  checkAllAssociations(form);
  EXPECT_EQ(std::ranges::count(form.Check1, kTrue), 25);
  uncheckAllAssociations(form);
  EXPECT_EQ(boxesOf(form), general);
  defaultAssociations(form);
  EXPECT_EQ(boxesOf(form), ".GE5 .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 .SCB .SRB "
                           ".S11 .SCC .S12 .G9B " +
                               general);
}

TEST(Preferences, SaveWritesInOrderAndTwiceTheSame) {
  TestViewer window;
  for (const char *extension : {".DAT", ".CMP", ".SRC", ".TXT", ".SC5"}) window.platform.settings[extension] = "Paint";
  Preferences form{.Check3 = kTrue, .Check5 = kTrue};
  defaultAssociations(form);
  menuSavePreferences_Click(window.viewer, form);

  std::vector<std::string> expected{"writeSetting Korilan = MSX Graphics File",
                                    "writeSetting Korilan\\shell\\open\\command = C:\\Programs\\Korilan.exe %1",
                                    "writeSetting Korilan\\DefaultIcon = C:\\Programs\\Korilan.exe,0",
                                    "writeSetting Korilan\\AutoCenter = 0",
                                    "writeSetting Korilan\\EscExits = 1",
                                    "writeSetting Korilan\\Shortcuts = 0",
                                    "writeSetting Korilan\\AutoRatio = 1",
                                    "notifyAssociations"};
  for (const std::string &extension : kExtensions) {
    const bool leftOut = extension == ".DAT" || extension == ".CMP" || extension == ".SRC";
    expected.push_back(leftOut ? "deleteSetting " + extension : "writeSetting " + extension + " = Korilan");
  }
  expected.emplace_back("notifyAssociations");
  EXPECT_EQ(window.platform.log, expected);

  const auto saved = window.platform.settings;
  EXPECT_FALSE(saved.contains(".DAT")); // though it was another program's
  EXPECT_EQ(saved.at(".TXT"), "Paint");
  EXPECT_EQ(boxesOf(storedPreferences(window.viewer)), boxesOf(form));
  menuSavePreferences_Click(window.viewer, storedPreferences(window.viewer));
  EXPECT_EQ(window.platform.settings, saved);
}

TEST(Preferences, ProgramOfAnotherExtension) {
  TestViewer window;
  window.viewer.platform.programPath = [](void *) { return std::string("C:\\Korilan.bin"); };
  menuSavePreferences_Click(window.viewer, {});
  EXPECT_EQ(window.platform.settings.at("Korilan\\DefaultIcon"), "C:\\Korilan.bin.exe,0");
}

TEST(Preferences, ActAtOnce) {
  TestViewer window;
  const WindowModel &model = window.viewer.window;
  for (const bool ticked : {true, false}) { // Esc the other way round
    SCOPED_TRACE(ticked ? "ticked" : "not ticked");
    const Flag16 on = toFlag(ticked);
    menuSavePreferences_Click(window.viewer, {.Check2 = on, .Check3 = toFlag(!ticked), .Check4 = on, .Check5 = on});
    if (ticked) window.open("a.SC7", BloadBuilder{}.build());
    EXPECT_EQ(model.alwaysCentred, ticked);
    EXPECT_EQ(pressKey(window.viewer, {'O'}), ticked);
    EXPECT_EQ(pressKey(window.viewer, {27}), !ticked);
    EXPECT_EQ(model.stretch, (Stretch{512, 212, 512, ticked ? 212 : 424})); // the picture on screen as well
  }
}

} // namespace
