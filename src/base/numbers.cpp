#include "base/numbers.h"

#include <cmath>

int32_t roundHalfEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  const auto whole = static_cast<int32_t>(below);
  if (fraction < 0.5) return whole;
  if (fraction > 0.5) return whole + 1;
  return whole % 2 == 0 ? whole : whole + 1;
}
