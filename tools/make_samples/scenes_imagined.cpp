#include <algorithm>
#include <array>

#include "scenes.h"

namespace samples {

namespace {

struct Vector {
  double x = 0, y = 0, z = 0;
};

Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vector operator*(Vector a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
double dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector unitOf(Vector a) { return a * (1 / squareRoot(dot(a, a))); }

struct Ball {
  Vector centre;
  double radius;
  Colour colour;
  double mirror;
};

constexpr std::array<Ball, 5> kBalls = {{{{-1.25, 1.0, 4.6}, 1.0, {0.90, 0.12, 0.16}, 0.25},
                                         {{0.85, 1.25, 5.6}, 1.25, {0.80, 0.82, 0.88}, 0.75},
                                         {{0.25, 0.45, 3.2}, 0.45, {0.98, 0.74, 0.12}, 0.20},
                                         {{2.2, 0.6, 3.9}, 0.6, {0.10, 0.62, 0.36}, 0.25},
                                         {{-2.5, 0.5, 3.6}, 0.5, {0.24, 0.32, 0.92}, 0.25}}};
const Vector kToLight = unitOf({-0.55, 0.85, -0.5});

// The distance along the ray to the nearest ball, or a negative number.
double nearestBall(Vector origin, Vector direction, std::size_t &hit) {
  double nearest = -1;
  for (std::size_t i = 0; i < kBalls.size(); ++i) {
    const Vector offset = origin - kBalls[i].centre;
    const double half = dot(offset, direction);
    const double square = half * half - dot(offset, offset) + kBalls[i].radius * kBalls[i].radius;
    if (square < 0) continue;
    const double distance = -half - squareRoot(square);
    if (distance > 0.001 && (nearest < 0 || distance < nearest)) {
      nearest = distance;
      hit = i;
    }
  }
  return nearest;
}

Colour traceRay(Vector origin, Vector direction, int bounces) {
  std::size_t hit = 0;
  const double distance = nearestBall(origin, direction, hit);
  const double toFloor = direction.y < 0 ? -origin.y / direction.y : -1;
  if (distance < 0 && toFloor < 0) {
    return gradient({{0, {0.96, 0.88, 0.80}}, {0.22, {0.62, 0.76, 0.94}}, {0.8, {0.12, 0.26, 0.66}}}, direction.y);
  }
  std::size_t ignored = 0;
  if (distance < 0) {
    const Vector point = origin + direction * toFloor;
    const bool dark = (floorToInt(point.x) + floorToInt(point.z)) % 2 != 0;
    Colour colour = dark ? Colour{0.26, 0.10, 0.34} : Colour{0.96, 0.93, 0.86};
    if (nearestBall(point, kToLight, ignored) > 0) colour = colour * 0.38;
    return mix(colour, {0.96, 0.88, 0.80}, smoothStep(6, 34, toFloor));
  }
  const Ball &ball = kBalls[hit];
  const Vector point = origin + direction * distance;
  const Vector normal = unitOf(point - ball.centre);
  const Vector mirrored = direction - normal * (2 * dot(direction, normal));
  const bool shadowed = nearestBall(point, kToLight, ignored) > 0;
  const double diffuse = shadowed ? 0 : std::max(dot(normal, kToLight), 0.0);
  Colour colour = ball.colour * (0.22 + 0.12 * normal.y + 0.75 * diffuse);
  if (bounces > 0) colour = mix(colour, traceRay(point, mirrored, bounces - 1), ball.mirror);
  double shine = std::max(dot(mirrored, kToLight), 0.0);
  for (int power = 0; power < 5; ++power) shine *= shine;
  return shadowed ? colour : colour + Colour{1, 1, 1} * (shine * 0.9);
}

Colour starrySky(double x, double y, std::uint32_t seed) {
  const double dust = layeredNoise(x / 70, y / 50, 5, seed);
  const double veil = layeredNoise(x / 45 + 7, y / 45, 5, seed + 20);
  Colour colour = Colour{0.01, 0.01, 0.05} + Colour{0.42, 0.10, 0.52} * smoothStep(0.48, 0.85, dust) +
                  Colour{0.05, 0.30, 0.50} * smoothStep(0.50, 0.85, veil);
  const int cellX = floorToInt(x / 6), cellY = floorToInt(y / 6);
  const double star = scatter(cellX, cellY, seed + 1);
  const double offX = x - cellX * 6 - 1 - 4 * scatter(cellX, cellY, seed + 2);
  const double offY = y - cellY * 6 - 1 - 4 * scatter(cellX, cellY, seed + 3);
  const double size = star > 0.97 ? 1.1 : 0.6;
  if (star > 0.75) colour = colour + Colour{1, 0.95, 0.85} * std::max(1 - lengthOf(offX, offY) / size, 0.0) * 1.4;
  return colour;
}

void paintFish(Colour &colour, double x, double y, double middle, double centre, double size, double hue,
               double facing) {
  const double along = (x - middle) / size * facing, down = (y - centre) / size;
  if (std::abs(along) > 1.4 || std::abs(down) > 0.9) return;
  const double tail = -along - 0.85;
  const bool body = along * along + down * down * 3.4 < 1;
  const bool fin = std::abs(along) < 0.45 && down < -0.3 && down > -0.82 + 0.5 * std::abs(along + 0.1);
  if (!body && !fin && !(tail > 0 && tail < 0.55 && std::abs(down) < 0.12 + tail)) return;
  colour = mix(hueColour(hue), {1, 0.95, 0.8}, std::clamp(0.25 + down * 0.9, 0.0, 0.9));
  if (body && fractionOf(along * 1.7 + 0.85 + down * down * 0.6) < 0.3)
    colour = mix(hueColour(hue + 0.55), {0.1, 0.1, 0.3}, 0.6);
  if (!body) colour = mix(hueColour(hue + 0.06), {1, 0.6, 0.2}, 0.3);
  const double eye = lengthOf(along - 0.62, (down + 0.12) * 1.2);
  if (eye < 0.17) colour = eye < 0.09 ? Colour{0.02, 0.02, 0.06} : Colour{1, 1, 1};
}

} // namespace

Colour reef(double x, double y) {
  Colour colour = gradient(
      {{0, {0.52, 0.94, 0.94}}, {0.25, {0.10, 0.64, 0.80}}, {0.7, {0.02, 0.30, 0.62}}, {1, {0.01, 0.14, 0.40}}},
      y / 190);
  const double ray = smoothNoise((x - 128) / (14 + y * 0.20) + 40, 0.3, 101);
  colour = colour + Colour{0.5, 0.6, 0.5} * (smoothStep(0.55, 0.95, ray) * (1 - y / 190) * 0.8);
  for (int layer = 0; layer < 2; ++layer) {
    const double rocks = 178 - 60 * (1 - layer * 0.45) * layeredNoise(x / (34.0 - layer * 8), layer + 0.5, 4, 102) *
                                   smoothStep(40, 128, std::abs(x - 122));
    if (y > rocks)
      colour = layer == 0 ? Colour{0.03, 0.30, 0.52} : mix({0.20, 0.16, 0.40}, {0.06, 0.10, 0.30}, (y - rocks) / 40);
  }
  // Fans of coral: branches whose angle wavers with the distance from the foot.
  struct Coral {
    double x, y, size;
    Colour colour;
  };
  constexpr std::array<Coral, 5> kCorals = {{{34, 196, 56, {0.95, 0.30, 0.42}},
                                             {72, 204, 34, {0.98, 0.66, 0.18}},
                                             {222, 198, 60, {0.76, 0.34, 0.86}},
                                             {182, 206, 36, {0.98, 0.42, 0.28}},
                                             {246, 210, 40, {0.98, 0.78, 0.30}}}};
  for (const Coral &coral : kCorals) {
    const double dx = x - coral.x, dy = coral.y - y;
    if (std::abs(dx) > coral.size * 1.1 || dy > coral.size * 1.1) continue;
    const double distance = lengthOf(dx, dy);
    if (dy < 0 || distance > coral.size * (0.8 + 0.3 * smoothNoise(turnsOf(dy, dx) * 40, 0, 103))) continue;
    const double angle = turnsOf(dx, dy) * 34 + 1.6 * smoothNoise(distance / 9, coral.x, 104);
    const double branch = std::abs(fractionOf(angle * (distance > coral.size * 0.45 ? 2 : 1)) - 0.5);
    if (branch < 0.27 + 0.2 * (1 - distance / coral.size))
      colour = coral.colour * (0.55 + 0.5 * distance / coral.size - branch * 0.5);
  }
  const double sand = 196 - 6 * smoothNoise(x / 40, 3, 105);
  if (y > sand) {
    const double caustic = std::abs(layeredNoise(x / 16, y / 5, 2, 106) - 0.5);
    colour = mix({0.96, 0.88, 0.62}, {0.66, 0.62, 0.52}, smoothStep(0, 0.12, caustic));
  }
  constexpr std::array<std::array<double, 5>, 8> kFish = {{{96, 84, 25, 0.06, 1},
                                                           {172, 54, 15, 0.14, -1},
                                                           {196, 70, 13, 0.14, -1},
                                                           {150, 128, 20, 0.92, -1},
                                                           {58, 44, 11, 0.16, 1},
                                                           {40, 58, 10, 0.16, 1},
                                                           {70, 62, 9, 0.16, 1},
                                                           {112, 158, 12, 0.55, 1}}};
  for (const auto &fish : kFish) paintFish(colour, x, y, fish[0], fish[1], fish[2], fish[3], fish[4]);
  for (int bubble = 0; bubble < 26; ++bubble) {
    const double middle = (bubble % 2 == 0 ? 128 : 208) + 16 * (scatter(bubble, 1, 107) - 0.5);
    const double size = 1.2 + 2.6 * scatter(bubble, 2, 107);
    const double centre = 170 * scatter(bubble, 3, 107);
    if (std::abs(x - middle) > size || std::abs(y - centre) > size) continue;
    const double away = lengthOf(x - middle, y - centre) / size;
    if (away < 1) colour = mix(colour, {0.9, 1, 1}, 0.15 + 0.75 * smoothStep(0.55, 0.95, away));
  }
  return colour;
}

Colour spheres(double x, double y) {
  const Vector direction = unitOf({(x - 122) / 215, (84 - y) / 215, 1});
  return traceRay({0, 1.35, -1.2}, direction, 3);
}

Colour ringedPlanet(double x, double y) {
  constexpr double kRadius = 52;
  Colour colour = starrySky(x, y, 111);
  const double dx = (x - 122) * 0.94 + (y - 104) * 0.34, dy = (y - 104) * 0.94 - (x - 122) * 0.34;
  const double inRing = lengthOf(dx, dy / 0.26) / kRadius;
  const double fromCentre = lengthOf(dx, dy) / kRadius;
  const bool onPlanet = fromCentre < 1;
  if (onPlanet) {
    const double depth = squareRoot(1 - fromCentre * fromCentre);
    const double nx = dx / kRadius, ny = dy / kRadius;
    const double latitude = ny * 0.96 - depth * 0.26;
    const double swirl = layeredNoise(nx * 3 + 5, latitude * 9, 4, 112) - 0.5;
    const double band = fractionOf(latitude * 1.3 + swirl * 0.16 + 0.5);
    const Colour surface = gradient({{0, {0.98, 0.80, 0.52}},
                                     {0.18, {0.80, 0.44, 0.26}},
                                     {0.32, {1.0, 0.90, 0.70}},
                                     {0.48, {0.90, 0.60, 0.34}},
                                     {0.62, {0.66, 0.34, 0.28}},
                                     {0.74, {0.98, 0.84, 0.62}},
                                     {1, {0.94, 0.66, 0.44}}},
                                    band);
    const double light = std::max(-0.66 * nx - 0.40 * ny + 0.62 * depth, 0.0);
    colour = mix(surface * (0.06 + 1.08 * light), {0.9, 0.6, 0.5}, 0.25 * (1 - depth) * light);
  }
  const bool front = dy > 0;
  if (inRing > 1.25 && inRing < 2.15 && (front || !onPlanet)) {
    const double groove = smoothNoise(inRing * 26, 0, 113);
    const double solid = inRing > 1.70 && inRing < 1.77 ? 0.08 : 0.55 + 0.45 * groove;
    const bool shadowed =
        !front && dx > 0 && dx < kRadius * 1.9 && std::abs(dy * 1.6 + dx * 0.24 - 10) < 20 && inRing < 2.0;
    const Colour ice = mix({0.70, 0.52, 0.42}, {1.0, 0.92, 0.78}, groove);
    colour = mix(colour, shadowed ? ice * 0.15 : ice, solid);
  }
  const double moonX = x - 222, moonY = y - 170;
  const double fromMoon = lengthOf(moonX, moonY) / 17;
  if (fromMoon < 1) {
    const double light =
        std::max(-0.66 * moonX / 17 - 0.40 * moonY / 17 + 0.62 * squareRoot(1 - fromMoon * fromMoon), 0.0);
    const double crater = layeredNoise(x / 6, y / 6, 3, 114);
    colour = mix({0.34, 0.50, 0.62}, {0.82, 0.90, 0.96}, smoothStep(0.35, 0.65, crater)) * (0.05 + light);
  }
  return colour;
}

Colour fractal(double x, double y) {
  constexpr int kRounds = 540;
  // A double spiral on the border of the set.
  const double realPart = -0.743644 + (x - 128) * 0.0000135, imaginaryPart = 0.131826 + (y - 106) * 0.0000135;
  double real = 0, imaginary = 0, square = 0;
  int round = 0;
  for (; round < kRounds && square < 256; ++round) {
    const double next = real * real - imaginary * imaginary + realPart;
    imaginary = 2 * real * imaginary + imaginaryPart;
    real = next;
    square = real * real + imaginary * imaginary;
  }
  if (square < 256) return {0, 0, 0};
  const double smooth = round - binaryLogarithm(binaryLogarithm(square) / 2);
  return gradient({{0, {0.02, 0.02, 0.24}},
                   {0.18, {0.10, 0.30, 0.76}},
                   {0.36, {0.86, 0.96, 1.0}},
                   {0.5, {1.0, 0.80, 0.24}},
                   {0.66, {0.80, 0.22, 0.10}},
                   {0.82, {0.26, 0.02, 0.24}},
                   {1, {0.02, 0.02, 0.24}}},
                  fractionOf(smooth / 90 + 0.1));
}

Colour plasma(double x, double y) {
  const double value = sineOfTurns(x / 130 + 0.1) + sineOfTurns(y / 95 + x / 310) +
                       sineOfTurns(lengthOf(x - 80, y - 150) / 74) + sineOfTurns(lengthOf(x - 210, y - 20) / 105 + 0.3);
  return {0.5 + 0.5 * sineOfTurns(value * 0.30), 0.5 + 0.5 * sineOfTurns(value * 0.30 + 0.30),
          0.5 + 0.5 * sineOfTurns(value * 0.26 + 0.62)};
}

Colour hueWheel(double x, double y) {
  const double dx = x - 106, dy = y - 106;
  const double distance = lengthOf(dx, dy) / 96;
  if (x > 214 && x < 246 && y > 10 && y < 202) {
    const double down = (y - 10) / 192;
    return x < 230 ? Colour{1, 1, 1} * (1 - down) : hueColour(down);
  }
  const Colour back = Colour{0.20, 0.20, 0.26} * (1.3 - y / 212);
  if (distance > 1.02) return back;
  const Colour disc = mix({1, 1, 1}, hueColour(turnsOf(dx, dy)), std::min(distance, 1.0));
  return mix(disc, back, smoothStep(1.0, 1.02, distance));
}

Colour fullMoon(double x, double y) {
  constexpr double kRadius = 92;
  const double dx = (x - 128) / kRadius, dy = (y - 106) / kRadius;
  const double square = dx * dx + dy * dy;
  if (square > 1) {
    const bool star = scatter(floorToInt(x / 1.5), floorToInt(y / 1.5), 120) > 0.994;
    return star ? Colour{1, 1, 1} : Colour{0, 0, 0};
  }
  const double depth = squareRoot(1 - square);
  const double bulge = 1 / (0.6 + 0.4 * depth); // the ground turns away towards the edge
  const double u = dx * bulge, v = dy * bulge;
  const double seas = layeredNoise(u * 1.7 + 4.2, v * 1.7 + 1.1, 4, 121);
  double tone = 0.80 - 0.42 * smoothStep(0.46, 0.62, seas) + 0.25 * (layeredNoise(u * 14, v * 14, 3, 122) - 0.5);
  for (int crater = 0; crater < 60; ++crater) {
    const double size = 0.025 + 0.11 * scatter(crater, 1, 123) * scatter(crater, 2, 123);
    const double offX = u - 2.4 * (scatter(crater, 3, 123) - 0.5), offY = v - 2.4 * (scatter(crater, 4, 123) - 0.5);
    const double reach = 1.4 * size;
    if (std::abs(offX) > reach || std::abs(offY) > reach) continue;
    const double away = lengthOf(offX, offY) / size;
    if (away > 1.4) continue;
    const double slope = (offX * 0.8 + offY * 0.6) / size;
    tone += away < 1 ? 0.30 * slope * away : -0.30 * slope * (1.4 - away) / 0.4;
  }
  const double light = std::max(-0.5 * dx - 0.42 * dy + 0.78 * depth, 0.0);
  return Colour{1, 0.98, 0.92} * std::clamp(tone * (0.08 + 1.1 * light), 0.0, 1.0);
}

Colour sunflower(double x, double y) {
  Colour colour = gradient({{0, {0.30, 0.58, 0.92}}, {1, {0.86, 0.94, 0.98}}}, y / 212);
  const double blur = layeredNoise(x / 30, y / 30, 2, 130);
  colour = mix(colour, {0.36, 0.62, 0.26}, smoothStep(120, 200, y + 60 * blur));
  if (std::abs(x - 128 - (y - 106) * 0.06) < 4 && y > 150) colour = {0.22, 0.46, 0.16};
  const double dx = x - 128, dy = y - 98;
  const double distance = lengthOf(dx, dy), turns = turnsOf(dx, dy);
  for (int ring = 0; ring < 2; ++ring) {
    const double petal = turns * 21 + ring * 0.5;
    const double off = fractionOf(petal) - 0.5;
    const double tip = (ring == 0 ? 96 : 84) - 6 * scatter(floorToInt(petal), ring, 131);
    const double along = (distance - 30) / (tip - 30);
    if (along < 0 || along > 1) continue;
    const double half = 0.60 * squareRoot(1 - along) * (0.55 + 0.75 * along);
    if (std::abs(off) > half) continue;
    const Colour gold = mix({0.90, 0.48, 0.04}, {1.0, 0.90, 0.20}, along * 0.8 + 0.25 * ring);
    colour = gold * (1.02 - 0.5 * std::abs(off) - 0.10 * fractionOf(off * 9) - (ring == 0 ? 0.12 : 0.0));
  }
  if (distance < 43) {
    // Seeds on the golden angle: the nearest of those with about the same distance.
    double nearest = 81;
    const int about = floorToInt(distance * distance / 3.4);
    for (int seed = std::max(about - 34, 0); seed < about + 34; ++seed) {
      const double radius = squareRoot(3.4 * seed), angle = seed * 0.381966;
      const double offX = dx - radius * sineOfTurns(angle + 0.25), offY = dy - radius * sineOfTurns(angle);
      nearest = std::min(nearest, offX * offX + offY * offY);
    }
    const Colour seedColour = gradient(
        {{0, {0.46, 0.42, 0.12}}, {18, {0.30, 0.16, 0.06}}, {34, {0.56, 0.28, 0.06}}, {43, {0.86, 0.52, 0.10}}},
        distance);
    colour = mix(seedColour * 1.35, seedColour * 0.45, smoothStep(0.4, 1.6, squareRoot(nearest)));
  }
  return colour;
}

TruePicture renderScene(Scene scene, int width) {
  const double unit = 256.0 / width;
  const int samples = width > 256 ? 2 : 4; // narrow pixels need fewer
  TruePicture picture{width, kSceneHeight, {}};
  for (int y = 0; y < kSceneHeight; ++y) {
    for (int x = 0; x < width; ++x) {
      Colour sum;
      for (int sample = 0; sample < samples; ++sample) {
        // On a rotated grid, so that near-level and near-upright edges are smooth as well.
        const double down = (sample + 0.5) / samples;
        const double across = fractionOf(down * 2 + 0.125);
        sum = sum + scene((x + across) * unit, y + down);
      }
      picture.pixels.push_back(rgbOfColour(sum * (1.0 / samples)));
    }
  }
  return picture;
}

TruePicture middleLines(const TruePicture &picture, int height) {
  const auto first = picture.pixels.begin() + (picture.height - height) / 2 * picture.width;
  return {picture.width, height, {first, first + height * picture.width}};
}

} // namespace samples
