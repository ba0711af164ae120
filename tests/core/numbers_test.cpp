#include "core/numbers.h"

#include <gtest/gtest.h>

namespace {

TEST(Numbers, TiesGoToTheEvenNumber) {
  for (int32_t whole = -9; whole < 9; ++whole) {
    EXPECT_EQ(roundHalfEven(whole + 0.4999), whole);
    EXPECT_EQ(roundHalfEven(whole + 0.5), whole % 2 == 0 ? whole : whole + 1);
    EXPECT_EQ(roundHalfEven(whole + 0.5001), whole + 1);
  }
}

} // namespace
