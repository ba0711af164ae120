#include <string>

#include "encoders.h"
#include "font.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

constexpr int kEvaWidth = 128, kEvaHeight = 106;
constexpr std::size_t kEvaBlockSize = 15360;
constexpr std::size_t kColourPlace = 15343, kRatePlace = 15359; // in the first block

constexpr int kSceneWidth = 512, kSceneHeight = 424;

// The part of the scene that a frame shows.
struct View {
  double left = 0, top = 0, width = kSceneWidth, height = kSceneHeight;
};

// A video whose view moves and which counts its frames.
struct Film {
  const char *name;
  int framesPerSecond, frameCount;
  Scene scene;
  View from, to;
  int width = kEvaWidth, height = kEvaHeight;
};

TruePicture frameOf(const Film &film, int number) {
  const double share = static_cast<double>(number) / film.frameCount;
  const auto between = [share](double from, double to) { return from + (to - from) * share; };
  const double left = between(film.from.left, film.to.left), top = between(film.from.top, film.to.top);
  const double stepX = between(film.from.width, film.to.width) / film.width,
               stepY = between(film.from.height, film.to.height) / film.height;
  const TruePicture &scene = rendered(film.scene, kSceneWidth, kSceneHeight);
  TruePicture frame(film.width, film.height);
  for (int y = 0; y < film.height; ++y) {
    for (int x = 0; x < film.width; ++x) {
      frame.at(x, y) = scene.at(static_cast<int>(left + (x + 0.5) * stepX), static_cast<int>(top + (y + 0.5) * stepY));
    }
  }
  IndexedPicture counter(film.width, film.height, kSeeThrough);
  const std::string digits = std::to_string(number / 10) + std::to_string(number % 10);
  drawText(counter, film.width - 17, film.height - 9, digits, 0);
  drawText(counter, film.width - 18, film.height - 10, digits, 1);
  for (std::size_t i = 0; i < counter.pixels.size(); ++i) {
    if (counter.pixels[i] != kSeeThrough) frame.pixels[i] = counter.pixels[i] == 0 ? Rgb{} : Rgb{255, 255, 255};
  }
  return frame;
}

// One frame's part of a tone that rises every second.
Bytes soundOf(const Film &film, int number) {
  const int count = film.framesPerSecond == 12 ? 1312 : 1575, rate = count * film.framesPerSecond;
  const int hertz = 440 + 220 * (number / film.framesPerSecond);
  Bytes sound;
  for (int i = 0; i < count; ++i) {
    const int phase = (number * count + i) % rate * hertz % rate * 400 / rate;
    sound.push_back(byteOf(phase < 200 ? 28 + phase : 428 - phase));
  }
  return sound;
}

// Lines of twelve samples, each before up to eleven bytes of the picture; then 40 more samples.
Bytes mixedBlock(const Bytes &picture, const Bytes &sound) {
  Bytes block;
  std::size_t heard = 0;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    if (i % kEvaWidth % 11 == 0) block.push_back(sound[heard++]);
    block.push_back(picture[i]);
  }
  block.insert(block.end(), sound.begin() + static_cast<std::ptrdiff_t>(heard), sound.end());
  return block;
}

Bytes evaFile(const Film &film, bool isRgb) {
  Bytes file;
  for (int number = 0; number < film.frameCount; ++number) {
    const TruePicture frame = frameOf(film, number);
    Bytes block = isRgb ? encodeGrb(frame) : encodeYjk(frame);
    const Bytes sound = soundOf(film, number);
    if (film.framesPerSecond == 12) {
      block = mixedBlock(block, sound);
    } else {
      append(block, sound);
    }
    block.resize(kEvaBlockSize);
    append(file, block);
  }
  file[kColourPlace] = isRgb ? 8 : 12;
  file[kRatePlace] = film.framesPerSecond == 12 ? 5 : 6;
  return file;
}

Bytes vidFile(const Film &film, int colourCount) {
  Colours colours = kSymbosColours;
  colours.resize(static_cast<std::size_t>(colourCount));
  const int frameSize = film.width * film.height / (colourCount == 4 ? 4 : 2);
  Bytes file = bytesOf("SymVid10");
  append(file, {0, 0, byteOf(film.framesPerSecond), byteOf(film.frameCount), 0, 0});
  appendWords(file, {film.width, film.height, colourCount == 4 ? 1 : 7});
  file.resize(51);
  appendWords(file, {frameSize});
  file.resize(512);
  for (int number = 0; number < film.frameCount; ++number) {
    const Bytes entries = dithered(frameOf(film, number), colours).pixels;
    append(file, colourCount == 4 ? packSplitBits(entries) : packBits(entries, 4));
  }
  return file;
}

constexpr View kWhole = {}, kSun = {208, 120, 256, 212}, kMiddle = {128, 106, 256, 212}, kUpper = {0, 0, 256, 212};

constexpr Film kYjkFilms[] = {
    {"SUNSET.EVA", 12, 36, coast, kWhole, kSun},
    {"WHEEL.EVA", 10, 30, hueWheel, kWhole, kMiddle},
};

constexpr Film kRgbFilms[] = {
    {"COAST.EV8", 12, 12, coast, kUpper, kSun},
    {"PLASMA.EV8", 10, 10, plasma, kMiddle, kUpper},
    {"odd/colour_8.EVA", 10, 3, coast, kWhole, kSun}, // told from the byte, not from the name
};

} // namespace

void addVideoSamples(Samples &samples) {
  for (const Film &film : kYjkFilms) samples.push_back({film.name, evaFile(film, false)});
  for (const Film &film : kRgbFilms) samples.push_back({film.name, evaFile(film, true)});
  const Film sixteen = {"COAST.VID", 12, 18, coast, kWhole, kSun, 96, 80};
  const Film four = {"PLASMA.VID", 25, 12, plasma, kWhole, kMiddle, 64, 53};
  samples.push_back({sixteen.name, vidFile(sixteen, 16)});
  samples.push_back({four.name, vidFile(four, 4)});
}

} // namespace samples
