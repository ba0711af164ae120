#pragma once

// The scenes of the samples in true colour. A scene colours the points of a field of 256 x 212 units
// with square units; pictures of 512 pixels a line sample it twice as finely across.

#include "shading.h"

namespace samples {

using Scene = Colour (*)(double x, double y);

Colour sunsetBay(double x, double y);
Colour cityNight(double x, double y);
Colour castleHill(double x, double y);
Colour lighthouse(double x, double y);
Colour balloons(double x, double y);
Colour northernLights(double x, double y);
Colour reef(double x, double y);
Colour spheres(double x, double y);
Colour ringedPlanet(double x, double y);
Colour fractal(double x, double y);
Colour plasma(double x, double y);
Colour hueWheel(double x, double y);
Colour fullMoon(double x, double y);
Colour sunflower(double x, double y);

// A picture of width x kSceneHeight, each pixel the mean of several samples.
constexpr int kSceneHeight = 212;
TruePicture renderScene(Scene scene, int width);

// The picture without its upper and lower borders, for screens of fewer lines.
TruePicture middleLines(const TruePicture &picture, int height);

} // namespace samples
