#pragma once

// The three scenes of the samples. A scene colours the points of a field of 256 x 212 units. Only sums, products,
// quotients, floors and square roots of doubles are used: their results are the same everywhere, those of other
// mathematical functions differ in the last bit.

#include "picture.h"

namespace samples {

struct Colour {
  double red = 0, green = 0, blue = 0; // 0 to 1
};

using Scene = Colour (*)(double x, double y);

Colour coast(double x, double y);
Colour hueWheel(double x, double y);
Colour plasma(double x, double y);

// The whole field; rendered once for the same arguments.
const TruePicture &rendered(Scene scene, int width, int height);

} // namespace samples
