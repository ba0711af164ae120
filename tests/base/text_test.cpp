#include "base/text.h"

#include "base/colours.h"
#include "base/numbers.h"
#include "base/paths.h"

#include <gtest/gtest.h>

namespace {

TEST(Text, Numbers) {
  for (const double nearTwo : {1.5, 1.9, 2.1, 2.5}) EXPECT_EQ(roundHalfEven(nearTwo), 2);
  std::string text;
  for (const int64_t number : {0, 999, 1000, 1000000, -999, -1000}) text += withThousandsSeparators(number) + " ";
  EXPECT_EQ(text + colourCode(0xFF09AF5E), "0 999 1,000 1,000,000 -999 -1,000 #09AF5E");
  EXPECT_EQ(packColour(0x12, 0x34, 0x56), 0x123456u);
  EXPECT_EQ(swapRedBlue(0xFF123456), 0x563412u);
}

TEST(Text, CharactersNotBytes) {
  const std::string text = "a\u00E9\u65E5."; // 1, 2, 3 and 1 bytes
  EXPECT_EQ(characterCount(text), 4u);
  EXPECT_EQ(lastCharacters(text, 2), "\u65E5.");
  EXPECT_EQ(lastCharacters(text, 9), text);
  EXPECT_EQ(upperCased("@AZ[`az{\u00E9"), "@AZ[`AZ{\u00E9"); // only letters of ASCII have one
}

TEST(Text, Paths) {
  for (const auto &[path, length] : {std::pair{"", 0U}, {"a.SC5", 0}, {"one/two\\a", 8}, {"a\\b\\", 4}}) {
    EXPECT_EQ(folderLength(path), length);
  }
  EXPECT_EQ(fileNameOf("a\\b/c"), kFolderSeparators.size() == 2 ? "c" : "b/c");
  EXPECT_EQ(withLastLetters("x\u00E9\u00E9\u00E9", "bmp"), "xbmp");
}

} // namespace
