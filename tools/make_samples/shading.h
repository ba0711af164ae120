#pragma once

// Arithmetic of the drawn scenes. Only sums, products, quotients and floors of doubles are used, whose
// results are the same everywhere; the mathematical functions of the libraries differ in the last bit.

#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "picture_types.h"

namespace samples {

struct Colour {
  double red = 0, green = 0, blue = 0; // 0..1
};

constexpr Colour operator+(Colour a, Colour b) { return {a.red + b.red, a.green + b.green, a.blue + b.blue}; }

constexpr Colour operator*(Colour a, double factor) { return {a.red * factor, a.green * factor, a.blue * factor}; }

constexpr Colour mix(Colour a, Colour b, double share) { return a * (1 - share) + b * share; }

struct ColourStop {
  double position;
  Colour colour;
};

// The colour between the stops, which are in ascending order.
Colour gradient(std::initializer_list<ColourStop> stops, double position);

// The fully saturated colour of a hue, 0..1 once round the circle.
Colour hueColour(double hue);

double squareRoot(double value);
double sineOfTurns(double turns);
// The angle of a direction, 0..1 once round the circle.
double turnsOf(double x, double y);
// Logarithm to base 2 of a positive value.
double binaryLogarithm(double value);

// 0 below the first edge, 1 above the second, a smooth rise between.
double smoothStep(double from, double to, double value);

double lengthOf(double x, double y);

// A fixed pseudo-random value 0..1 for every pair of whole numbers and seed.
double scatter(int x, int y, std::uint32_t seed);

// Smooth noise 0..1 of unit grid, and its sum of octaves.
double smoothNoise(double x, double y, std::uint32_t seed);
double layeredNoise(double x, double y, int octaves, std::uint32_t seed);

inline int floorToInt(double value) { return static_cast<int>(std::floor(value)); }
inline double fractionOf(double value) { return value - std::floor(value); }

Rgb rgbOfColour(Colour colour);

} // namespace samples
