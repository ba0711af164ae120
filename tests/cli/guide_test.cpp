// docs/guide.md names every kind of file, every command with its key, every other key, and every option.
#include "cli/help.h"
#include "core/file_kinds.h"
#include "core/help_text.h"
#include "core/menus.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

TEST(Guide, NamesEverything) {
  std::ifstream file(KORILAN_GUIDE);
  const std::string guide{std::istreambuf_iterator<char>(file), {}};
  const auto expectNamed = [&guide](const std::string &text) {
    EXPECT_NE(guide.find(text), std::string::npos) << text;
  };
  for (const FileKind &kind : kFileKinds) expectNamed("`" + std::string(kind.extension) + "`");
  for (const MenuRow &row : kMenuRows) {
    if (row.caption == nullptr) continue;
    const std::string caption = std::regex_replace(plainCaption(row.caption), std::regex(" +"), " ");
    const std::string key = shortcutText(row);
    expectNamed("| **" + caption + "** |" + (key.empty() ? "" : " " + key) + " |");
  }
  const std::string help = helpText();
  const std::string keys = help.substr(0, help.find("\nTips\n"));
  const std::regex key("\n([^\n\t]+)\t");
  for (std::sregex_iterator found(keys.begin(), keys.end(), key), end; found != end; ++found) {
    expectNamed("| " + (*found)[1].str() + " |");
  }
  const std::string options = kCliHelp;
  const std::regex option("[ \\[](--?[a-z][a-z-]*)|(korilan-cli [a-z]+)");
  for (std::sregex_iterator found(options.begin(), options.end(), option), end; found != end; ++found) {
    expectNamed("`" + (*found)[1].str() + (*found)[2].str() + "`");
  }
}
