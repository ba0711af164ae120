#include <algorithm>
#include <array>

#include "scenes.h"

namespace samples {

namespace {

constexpr double kBayHorizon = 124;
constexpr double kQuay = 168; // waterline of the city

double ridge(double x, double y, std::uint32_t seed) { return layeredNoise(x, y, 5, seed); }

Colour bayAboveWater(double x, double y, bool withSun) {
  Colour colour = gradient({{0, {0.10, 0.09, 0.34}},
                            {0.35, {0.36, 0.17, 0.46}},
                            {0.65, {0.84, 0.34, 0.38}},
                            {0.88, {1.0, 0.64, 0.36}},
                            {1, {1.0, 0.86, 0.55}}},
                           y / kBayHorizon);
  const double fromSun = lengthOf(x - 138, y - 100);
  colour = colour + Colour{0.9, 0.45, 0.15} * (0.6 / (1 + fromSun * fromSun / 900));
  const double cloud = layeredNoise(x / 64 + 3.3, y / 10, 4, 11);
  const Colour lit = mix({1.0, 0.62, 0.42}, {0.40, 0.17, 0.38}, smoothStep(0.5, 0.68, cloud));
  colour = mix(colour, lit, smoothStep(0.50, 0.62, cloud) * (1 - y / 150));
  if (withSun) colour = mix(colour, {1.0, 0.97, 0.76}, 1 - smoothStep(15.5, 17, fromSun));
  const double farTop = kBayHorizon - 6 - 34 * ridge(x / 60, 0.5, 21) * smoothStep(230, 40, x) -
                        22 * ridge(x / 40, 0.5, 22) * smoothStep(150, 250, x);
  if (y > farTop) colour = mix({0.62, 0.28, 0.42}, {0.80, 0.42, 0.44}, (y - farTop) / 40);
  const double nearTop = kBayHorizon + 2 - 40 * ridge(x / 45, 7.5, 23) * smoothStep(120, 0, x);
  if (y > nearTop) colour = {0.26, 0.11, 0.30};
  return colour;
}

bool insideBoat(double x, double y) {
  const double hull = y - 158;
  if (hull >= 0 && hull < 7) return x > 62 + hull * 0.8 && x < 104 - hull * 0.9;
  const bool mast = x > 81 && x < 82.2 && y > 108 && y < 158;
  const double rise = (y - 112) / 43;
  const bool mainSail = x > 83 && x < 83 + 17 * rise && y > 112 && y < 155;
  const bool jib = x < 80 && x > 80 - 15 * (y - 118) / 37 && y > 118 && y < 155;
  return mast || mainSail || jib;
}

bool insidePalm(double x, double y) {
  constexpr double kTopX = 214, kTopY = 76;
  const double along = (212 - y) / (212 - kTopY);
  if (along >= 0 && along <= 1) {
    const double middle = 240 - 26 * along * (1.55 - 0.55 * along);
    const double ring = fractionOf(along * 22) * 0.7;
    if (std::abs(x - middle) < 3.6 - 1.8 * along + ring) return true;
  }
  // Each frond rises from the crown and bends down; leaflets hang from it like a comb.
  struct Frond {
    double reach, rise, drop;
  };
  constexpr std::array<Frond, 8> kFronds = {{{44, 16, 40},
                                             {-50, 18, 44},
                                             {34, 36, 34},
                                             {-38, 38, 40},
                                             {38, -4, 40},
                                             {-36, -6, 44},
                                             {18, 40, 34},
                                             {-20, 42, 30}}};
  for (const Frond &frond : kFronds) {
    const double share = (x - kTopX) / frond.reach;
    if (share < 0 || share > 1) continue;
    const double spine = kTopY - frond.rise * share + frond.drop * share * share;
    const double hang = 15 * share * (1.08 - share) * (1 + fractionOf(share * 13));
    if (y > spine - 1.2 && y < spine + 0.8 + hang) return true;
  }
  return false;
}

Colour cityAboveWater(double x, double y) {
  Colour colour = gradient(
      {{0, {0.02, 0.03, 0.12}}, {0.5, {0.08, 0.07, 0.28}}, {0.85, {0.30, 0.14, 0.42}}, {1, {0.62, 0.28, 0.46}}},
      y / kQuay);
  const int starX = floorToInt(x / 5), starY = floorToInt(y / 5);
  const double star = scatter(starX, starY, 5);
  const double fromStar =
      lengthOf(x - starX * 5 - 1 - 3 * scatter(starX, starY, 6), y - starY * 5 - 1 - 3 * scatter(starX, starY, 7));
  if (star > 0.82 && fromStar < 0.9) colour = mix(colour, {1, 1, 0.95}, (star - 0.75) * 4 * (1 - y / 150));
  const double fromMoon = lengthOf(x - 204, y - 36);
  colour = colour + Colour{0.22, 0.22, 0.30} * (1 / (1 + fromMoon * fromMoon / 700));
  if (fromMoon < 17) {
    const double sea = layeredNoise(x / 9, y / 9, 3, 8);
    colour = mix({0.98, 0.96, 0.84}, {0.72, 0.72, 0.72}, smoothStep(0.45, 0.65, sea));
  }
  struct Row {
    double width, low, high;
    Colour wall;
  };
  constexpr std::array<Row, 3> kRows = {
      {{15, 50, 74, {0.24, 0.15, 0.40}}, {21, 28, 68, {0.13, 0.10, 0.28}}, {29, 14, 46, {0.04, 0.04, 0.12}}}};
  for (int i = 0; i < 3; ++i) {
    const Row &row = kRows[static_cast<std::size_t>(i)];
    const auto seed = static_cast<std::uint32_t>(31 + i * 7);
    const int house = floorToInt((x + 40) / row.width);
    const double inside = x + 40 - house * row.width;
    const double height = row.low + (row.high - row.low) * scatter(house, i, seed);
    const double top = kQuay - height;
    const double middle = row.width / 2;
    const double spire = scatter(house, i, seed + 1);
    if (spire > 0.62 && std::abs(inside - middle) < 0.6 && y > top - 14 && y < kQuay) {
      colour = y < top - 12.4 && i > 0 ? Colour{1.0, 0.25, 0.25} : row.wall;
    }
    const double step = spire < 0.3 ? 5 - std::abs(inside - middle) * 0.8 : 0;
    if (y < top - std::max(step, 0.0) || inside < 1 || inside > row.width - 1 || y > kQuay) continue;
    colour = row.wall * (1.15 - 0.3 * inside / row.width);
    const double column = inside - 3, floorLine = y - top - 4;
    const int windowX = floorToInt(column / 4), windowY = floorToInt(floorLine / 5);
    if (i == 0 || column < 0 || column > row.width - 7 || floorLine < 0) continue;
    if (column - windowX * 4 > 2 || floorLine - windowY * 5 > 3) continue;
    const double light = scatter(windowX + house * 16, windowY, seed + 2);
    if (light > 0.94)
      colour = {0.55, 0.85, 1.0};
    else if (light > 0.5)
      colour = mix({0.95, 0.62, 0.22}, {1.0, 0.90, 0.50}, (light - 0.5) * 2);
    else
      colour = colour * 0.6;
  }
  return colour;
}

// A round tower with a conical roof, lit from the left; leaves the colour where it is not.
void paintTower(Colour &colour, double x, double y, double middle, double half, double top, double bottom,
                double roof) {
  const double across = (x - middle) / half;
  const double eaves = top - 1;
  const double cone = (y - (eaves - roof)) / roof;
  if (cone > 0 && cone <= 1 && std::abs(across) < cone * 1.25) {
    const double light = 0.75 - 0.45 * across / (cone * 1.25);
    colour = mix({0.42, 0.08, 0.12}, {0.96, 0.38, 0.26}, light);
    return;
  }
  const double pole = eaves - roof - 9;
  if (std::abs(x - middle) < 0.5 && y > pole && y < eaves - roof + 1) colour = {0.25, 0.18, 0.15};
  const double flag = x - middle - 0.4;
  if (flag > 0 && flag < 8 && std::abs(y - pole - 2.5 - 0.6 * sineOfTurns(flag / 7)) < 2.6 - flag * 0.25) {
    colour = {1.0, 0.84, 0.2};
  }
  if (std::abs(across) > 1 || y < top || y > bottom) return;
  const double round = squareRoot(1 - across * across);
  const double light = std::clamp(0.25 + 0.5 * round - 0.38 * across, 0.0, 1.0);
  colour = mix({0.30, 0.27, 0.36}, {0.97, 0.91, 0.78}, light);
  const int course = floorToInt(y / 5);
  if (scatter(floorToInt(x / 6 + course * 0.5), course, 44) > 0.8) colour = colour * 0.88;
  const double slit = fractionOf((y - top) / 26) * 26;
  if (std::abs(x - middle) < 1.4 && slit > 9 && slit < 16) colour = {0.14, 0.10, 0.16};
}

void paintTree(Colour &colour, double x, double y, double middle, double ground, double size) {
  if (std::abs(x - middle) < size * 0.1 && y < ground && y > ground - size) colour = {0.30, 0.19, 0.12};
  const double crownY = ground - size * 1.2;
  if (std::abs(x - middle) > size || std::abs(y - crownY) > size) return;
  const double edge = layeredNoise(x / 5, y / 5, 2, 45) * 0.5;
  if (lengthOf((x - middle) / size, (y - crownY) / size) > 0.55 + edge * 0.6) return;
  const double light = 0.5 - (x - middle) / size * 0.5 - (y - crownY) / size * 0.6 + edge - 0.2;
  colour = mix({0.05, 0.25, 0.14}, {0.50, 0.74, 0.24}, std::clamp(light, 0.0, 1.0));
}

Colour meadowSky(double x, double y) {
  Colour colour = gradient({{0, {0.20, 0.46, 0.88}}, {0.7, {0.60, 0.82, 0.98}}, {1, {0.92, 0.95, 0.92}}}, y / 150);
  const double cloud = layeredNoise(x / 46 + 9, y / 22, 5, 41) - 0.12 * smoothStep(60, 130, y);
  const double shade = layeredNoise(x / 46 + 9, (y + 7) / 22, 5, 41);
  const Colour white = mix({1, 1, 1}, {0.72, 0.78, 0.90}, smoothStep(0.45, 0.75, shade));
  return mix(colour, white, smoothStep(0.50, 0.60, cloud));
}

void paintBalloon(Colour &colour, double x, double y, double middle, double centre, double size, double hue) {
  const double across = (x - middle) / size, down = (y - centre) / size;
  if (std::abs(across) < 0.2 && down > 1.72 && down < 1.98) {
    colour = mix({0.62, 0.42, 0.20}, {0.38, 0.24, 0.12}, across * 2.5 + 0.5);
  }
  if (down > 1.2 && down <= 1.72 && std::abs(std::abs(across) - 0.2) < 0.02) colour = {0.2, 0.15, 0.12};
  double half = down < 0.45 ? squareRoot(1 - down * down) : 0.893 - (down - 0.45) * 0.78;
  if (down < -1 || down > 1.3 || std::abs(across) > half) return;
  half = std::max(half, 0.01);
  const double u = across / half;
  const double gore = u * (1 + u * u * 0.18 + u * u * u * u * 0.38) / 3.12 + 0.5;
  const int stripe = floorToInt(gore * 8);
  const bool band = down > 0.05 && down < 0.28;
  const Colour paint = band              ? Colour{1.0, 0.97, 0.88}
                       : stripe % 2 == 0 ? mix(hueColour(hue), {0.9, 0.1, 0.1}, 0.25)
                                         : mix(hueColour(hue + 0.14), {1, 1, 0.8}, 0.35);
  const double light = 1.05 - 0.25 * (across + 0.5) * (across + 0.5) - 0.32 * std::max(down + 0.3, 0.0);
  colour = paint * std::clamp(light, 0.35, 1.05);
  const double shine = lengthOf(across + 0.4, down + 0.42);
  colour = mix(colour, {1, 1, 1}, 0.5 * (1 - smoothStep(0, 0.4, shine)));
}

} // namespace

Colour sunsetBay(double x, double y) {
  Colour colour;
  if (y < kBayHorizon) {
    colour = bayAboveWater(x, y, true);
  } else {
    const double depth = y - kBayHorizon;
    const double wave = layeredNoise(x / 18, y * 0.55, 3, 24) - 0.5;
    colour = mix(bayAboveWater(x + wave * (4 + depth * 0.25), kBayHorizon - depth * 1.1 - wave * 6, false),
                 {0.16, 0.10, 0.36}, 0.22 + 0.45 * smoothStep(0, 88, depth));
    const double glitter = layeredNoise(x / 9, y * 0.8, 2, 25);
    const double path = 1 - smoothStep(4, 14 + depth * 0.45, std::abs(x - 138 + wave * 12));
    colour = mix(colour, {1.0, 0.83, 0.50}, path * smoothStep(0.42, 0.62, glitter));
  }
  if (insideBoat(x, y)) colour = {0.20, 0.08, 0.22};
  if (insideBoat(x, 330 - y) && scatter(floorToInt(x / 7), floorToInt(y / 1.5), 26) > 0.35) {
    colour = colour * 0.55;
  }
  if (insidePalm(x, y)) colour = {0.09, 0.04, 0.13};
  const double beach = 213 - 10 * smoothStep(120, 200, x) - 5 * smoothNoise(x / 30, 0, 27);
  return y > beach ? Colour{0.12, 0.05, 0.15} : colour;
}

Colour cityNight(double x, double y) {
  if (y < kQuay) return cityAboveWater(x, y);
  const double depth = y - kQuay;
  if (depth < 2) return {0.10, 0.09, 0.20};
  const double wave = layeredNoise(x / 12, y * 0.8, 3, 52) - 0.5;
  const Colour mirrored = cityAboveWater(x + wave * (3 + depth * 0.2), kQuay - depth * 2.6 + wave * 8);
  return mix(mirrored * 0.75, {0.04, 0.05, 0.18}, 0.30 + 0.35 * smoothStep(0, 44, depth));
}

Colour castleHill(double x, double y) {
  Colour colour = meadowSky(x, y);
  const double peaks = 128 - 52 * layeredNoise(x / 48, 2, 5, 46);
  if (y > peaks) {
    const double slope = layeredNoise((x + 3) / 48, 2, 5, 46) - layeredNoise((x - 3) / 48, 2, 5, 46);
    colour = mix({0.34, 0.44, 0.66}, {0.60, 0.70, 0.86}, std::clamp(0.5 - slope * 9, 0.0, 1.0));
    const double snow = 12 + 10 * smoothNoise(x / 5, y / 8, 47);
    if (y < peaks + snow && peaks < 106) colour = mix(colour, {1, 1, 1}, 0.8);
    colour = mix(colour, {0.78, 0.88, 0.90}, smoothStep(peaks, 150, y));
  }
  const double hill = 168 - 34 * smoothStep(20, 110, x) * smoothStep(262, 160, x) - 6 * smoothNoise(x / 40, 1, 48);
  if (y > hill) {
    const double tuft = layeredNoise(x / 9, y / 4, 3, 49);
    colour = mix({0.22, 0.52, 0.20}, {0.62, 0.80, 0.30}, std::clamp(tuft * 1.3 - (y - hill) / 130, 0.0, 1.0));
    const double path = 142 + 26 * sineOfTurns((y - 130) / 90) * smoothStep(130, 200, y);
    const double half = 2 + (y - hill) * 0.14;
    if (std::abs(x - path) < half) colour = mix({0.86, 0.74, 0.52}, {0.70, 0.56, 0.36}, tuft);
  }
  paintTower(colour, x, y, 118, 9, 62, 150, 30);
  paintTower(colour, x, y, 168, 9, 70, 150, 28);
  // The keep and the curtain wall with battlements.
  const bool keep = x > 124 && x < 161 && y > 82 + (fractionOf(x / 6) > 0.5 ? 4 : 0) && y < 150;
  const bool wall = x > 92 && x < 196 && y > 110 + (fractionOf(x / 5.2) > 0.5 ? 3.5 : 0) && y < 148;
  if (keep || wall) {
    const int course = floorToInt(y / 4);
    const double stone = scatter(floorToInt(x / 7 + course * 0.5), course, 50);
    const Colour base = wall && y > 110 ? Colour{0.84, 0.77, 0.66} : Colour{0.72, 0.66, 0.60};
    colour = base * (0.88 + 0.14 * stone - 0.12 * smoothStep(120, 196, x));
    const double windowX = fractionOf((x - 124) / 12.3) * 12.3;
    if (!wall && y > 92 && y < 102 && windowX > 4.6 && windowX < 7.8) colour = {0.16, 0.12, 0.2};
    const double arch = y > 130 ? 0 : (130 - y) / 7;
    if (std::abs(x - 142) < 7 * squareRoot(1 - arch * arch) && y > 123) {
      colour = fractionOf(x / 2.8) > 0.7 ? Colour{0.16, 0.09, 0.06} : Colour{0.34, 0.20, 0.11};
    }
  }
  paintTower(colour, x, y, 94, 10, 96, 152, 30);
  paintTower(colour, x, y, 194, 10, 96, 152, 30);
  constexpr std::array<std::array<double, 3>, 9> kTrees = {{{18, 172, 14},
                                                            {40, 166, 11},
                                                            {222, 168, 12},
                                                            {244, 176, 15},
                                                            {64, 178, 13},
                                                            {8, 200, 22},
                                                            {206, 190, 15},
                                                            {236, 208, 24},
                                                            {44, 212, 20}}};
  for (const auto &tree : kTrees) paintTree(colour, x, y, tree[0], tree[1], tree[2]);
  return colour;
}

Colour lighthouse(double x, double y) {
  Colour colour = gradient({{0, {0.06, 0.08, 0.16}}, {0.6, {0.30, 0.32, 0.40}}, {1, {0.86, 0.82, 0.74}}}, y / 150);
  const double cloud = layeredNoise(x / 50, y / 18, 5, 61);
  colour = mix(colour, {0.70, 0.68, 0.68}, 0.7 * smoothStep(0.48, 0.72, cloud));
  // Two beams from the lamp at (74, 52).
  const double dx = x - 74, dy = y - 52;
  const double offBeam = std::abs(dy - dx * (dx > 0 ? -0.13 : 0.10)) / (3 + std::abs(dx) * 0.12);
  colour = colour + Colour{0.75, 0.72, 0.6} * (std::max(1 - offBeam, 0.0) * (1 - std::abs(dx) / 300));
  if (y > 150) {
    const double depth = y - 150;
    const double wave = sineOfTurns(y * y / 900 + layeredNoise(x / 24, y / 5, 3, 62) * 2.2);
    colour = mix({0.16, 0.18, 0.24}, {0.55, 0.56, 0.60}, 0.45 + 0.4 * wave);
    const double foam = layeredNoise(x / (6 + depth * 0.2), y / 2.5, 3, 63);
    colour = mix(colour, {1, 1, 1}, smoothStep(0.60, 0.72, foam + depth * 0.0008));
  }
  const double cliff = 138 + 78 * smoothStep(84, 150, x) - 10 * layeredNoise(x / 20, 3, 4, 64);
  if (y > cliff && y < 206 + 5 * smoothNoise(x / 14, 4, 65)) {
    const double rock = layeredNoise(x / 8 + y / 20, y / 14, 4, 66);
    colour = mix({0.03, 0.03, 0.05}, {0.60, 0.58, 0.54}, std::clamp(rock * 1.5 - 0.3 - (y - cliff) / 180, 0.0, 1.0));
  }
  const double half = 9 + (y - 60) * 0.075;
  if (y > 62 && y < 142 && std::abs(dx) < half) {
    const bool dark = fractionOf((y - 62) / 32) > 0.5;
    const double light = std::clamp(0.65 - 0.6 * dx / half, 0.0, 1.0);
    colour = dark ? mix({0.02, 0.02, 0.03}, {0.36, 0.34, 0.34}, light) : mix({0.40, 0.40, 0.42}, {1, 1, 0.98}, light);
    if (std::abs(dx) < 2 && fractionOf((y - 70) / 24) < 0.25) colour = {0.02, 0.02, 0.04};
  }
  if (y > 59 && y < 62 && std::abs(dx) < 13) colour = {0.05, 0.05, 0.06};
  if (y > 45 && y <= 59 && std::abs(dx) < 6.5)
    colour = fractionOf(dx / 4.3 + 0.5) < 0.14 ? Colour{0.1, 0.1, 0.1} : Colour{1, 1, 0.9};
  if (y > 36 && y <= 45 && std::abs(dx) < (y - 36) * 0.95) colour = {0.08, 0.07, 0.08};
  return colour;
}

Colour balloons(double x, double y) {
  Colour colour = meadowSky(x + 90, y);
  for (int i = 0; i < 4; ++i) {
    const auto seed = static_cast<std::uint32_t>(71 + i);
    const double top = 148 + i * 15 - 20 * layeredNoise(x / (80 - i * 8), i, 2, seed);
    if (y < top) continue;
    const double field = layeredNoise(x / 30, y / 6, 2, seed + 9);
    const Colour far = mix({0.52, 0.72, 0.70}, {0.26, 0.60, 0.22}, i / 3.0);
    const double furrow = i % 2 == 1 ? 0.07 * sineOfTurns(x / 16 + (y - top) / 9) : 0;
    colour = mix(far * 0.82, mix(far, {0.92, 0.86, 0.36}, 0.35), field + furrow) * (1.04 - (y - top) / 160);
  }
  paintBalloon(colour, x, y, 206, 46, 20, 0.58);
  paintBalloon(colour, x, y, 40, 106, 14, 0.30);
  paintBalloon(colour, x, y, 158, 118, 17, 0.78);
  paintBalloon(colour, x, y, 96, 66, 43, 0.0);
  return colour;
}

Colour northernLights(double x, double y) {
  constexpr double kShore = 150;
  const double wave = y > kShore ? layeredNoise(x / 14, y * 0.7, 2, 80) - 0.5 : 0;
  const double skyX = x + wave * 8, skyY = y > kShore ? 2 * kShore - y * 1.0 + wave * 4 : y;
  Colour colour =
      gradient({{0, {0.01, 0.02, 0.10}}, {0.7, {0.03, 0.12, 0.24}}, {1, {0.10, 0.28, 0.34}}}, skyY / kShore);
  if (y < kShore && scatter(floorToInt(x * 0.8), floorToInt(y * 0.8), 81) > 0.993) colour = {0.9, 0.95, 1.0};
  for (int curtain = 0; curtain < 3; ++curtain) {
    const auto seed = static_cast<std::uint32_t>(82 + curtain);
    const double foot = 104 - curtain * 26 + 34 * (layeredNoise(skyX / 70 + curtain * 3, 1, 3, seed) - 0.5) +
                        10 * sineOfTurns(skyX / 170 + curtain * 0.3);
    const double above = foot - skyY;
    const double ray = 0.35 + 0.9 * smoothNoise(skyX / 4.5 + above * 0.02, 2, seed + 9);
    const double glow = above < 0 ? smoothStep(-9, 0, above) : 1 / (1 + above * above / 900);
    const Colour hue = gradient({{0, {0.25, 1.0, 0.50}}, {28, {0.10, 0.75, 0.62}}, {70, {0.50, 0.22, 0.80}}}, above);
    colour = colour + hue * (0.62 * glow * ray);
  }
  if (y > kShore) colour = mix(colour * 0.7, {0.02, 0.06, 0.14}, 0.25);
  const double hills = kShore - 4 - 26 * layeredNoise(x / 55, 6, 4, 86);
  const double folded = y > kShore ? 2 * kShore - y : y;
  if (folded > hills) {
    const double snow = layeredNoise(x / 7, folded / 4, 3, 87);
    colour = mix({0.08, 0.14, 0.26}, {0.46, 0.66, 0.76}, smoothStep(0.4, 0.75, snow) * (y > kShore ? 0.4 : 0.9));
  }
  // Firs: stacked triangles, the near ones tall.
  for (int row = 0; row < 2; ++row) {
    const double spacing = row == 0 ? 11 : 23;
    const int fir = floorToInt(x / spacing);
    for (int n = fir - 1; n <= fir + 1; ++n) {
      const double foot = row == 0 ? 156 : 214;
      const double height = (row == 0 ? 16 : 40) + (row == 0 ? 14 : 42) * scatter(n, row, 88);
      const double middle = (n + 0.2 + 0.6 * scatter(n, row, 89)) * spacing;
      const double up = (foot - y) / height;
      if (up < 0 || up > 1 || (row == 1 && scatter(n, 3, 90) < 0.3)) continue;
      const double tier = (1 - up) * 0.26 + 0.06 * fractionOf(up * 6);
      if (std::abs(x - middle) > tier * height * (up > 0.96 ? 0.3 : 1 - fractionOf(up * 6) * 0.4)) continue;
      colour =
          x < middle - height * 0.02 && fractionOf(up * 6) < 0.35 ? Colour{0.10, 0.26, 0.28} : Colour{0.01, 0.05, 0.07};
    }
  }
  return colour;
}

} // namespace samples
