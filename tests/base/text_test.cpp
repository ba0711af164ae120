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

TEST(Text, Paths) {
  EXPECT_EQ(fileNameOf("a\\b/c"), kFolderSeparators.size() == 2 ? "c" : "b/c");
  EXPECT_EQ(withLastLetters("x\u00E9\u00E9\u00E9", "bmp"), "xbmp");
}

} // namespace
