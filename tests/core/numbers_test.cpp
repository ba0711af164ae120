#include "base/numbers.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace {

TEST(Numbers, TiesGoToTheEvenNumber) {
  for (int32_t whole = -9; whole < 9; ++whole) {
    EXPECT_EQ(roundHalfEven(whole + 0.4999), whole);
    EXPECT_EQ(roundHalfEven(whole + 0.5), whole % 2 == 0 ? whole : whole + 1);
    EXPECT_EQ(roundHalfEven(whole + 0.5001), whole + 1);
  }
}

TEST(Numbers, GroupsOfThreeDigits) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(27143), "27,143");
  EXPECT_EQ(grouped(1000000), "1,000,000");
  EXPECT_EQ(grouped(-999), "-999");
  EXPECT_EQ(grouped(-1000), "-1,000");
}

TEST(Text, OnlyLettersOfAsciiHaveAnUpperCase) { EXPECT_EQ(upperCased("@AZ[`az{\xC3\xA9"), "@AZ[`AZ{\xC3\xA9"); }

} // namespace
