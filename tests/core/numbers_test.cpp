#include "core/numbers.h"

#include "core/text.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(Numbers, TiesGoToTheEvenNumber) {
  for (int32_t whole = -9; whole < 9; ++whole) {
    EXPECT_EQ(roundHalfEven(whole + 0.4999), whole);
    EXPECT_EQ(roundHalfEven(whole + 0.5), whole % 2 == 0 ? whole : whole + 1);
    EXPECT_EQ(roundHalfEven(whole + 0.5001), whole + 1);
  }
}

TEST(Numbers, GroupsOfThreeDigits) {
  for (const auto &[number, text] : {std::pair<int64_t, const char *>{0, "0"},
                                     {999, "999"},
                                     {1000, "1,000"},
                                     {27143, "27,143"},
                                     {999999, "999,999"},
                                     {1000000, "1,000,000"},
                                     {-999, "-999"},
                                     {-1000, "-1,000"},
                                     {std::numeric_limits<int64_t>::min(), "-9,223,372,036,854,775,808"}}) {
    EXPECT_EQ(grouped(number), text);
  }
}

} // namespace
