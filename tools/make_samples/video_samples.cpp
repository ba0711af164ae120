#include <algorithm>

#include "colour_reduction.h"
#include "drawing.h"
#include "expected_colours.h"
#include "picture_parts.h"
#include "sample_groups.h"
#include "sample_variants.h"
#include "symbos_encoder.h"
#include "video_encoder.h"

namespace samples {

namespace {

// A camera that moves over a scene.
struct Film {
  int framesPerSecond, frameCount;
  Scene scene;
  FieldPart first, last; // what the first and the last frame show
  bool ball;             // bounces through the scene
};

FieldPart partBetween(const FieldPart &first, const FieldPart &last, double share) {
  const auto between = [share](double from, double to) { return from * (1 - share) + to * share; };
  return {between(first.left, last.left), between(first.top, last.top), between(first.across, last.across),
          between(first.down, last.down)};
}

void paintBall(TruePicture &picture, double centreX, double centreY, double radius, double turn) {
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const int column = static_cast<int>(i) % picture.width, row = static_cast<int>(i) / picture.width;
    const double x = column + 0.5 - centreX;
    const double y = row + 0.5 - centreY;
    const double cover = std::clamp(radius + 0.5 - lengthOf(x, y), 0.0, 1.0);
    if (cover <= 0) continue;
    const int stripe = floorToInt(fractionOf(turnsOf(x, y) + turn) * 6);
    constexpr std::array<Colour, 3> kStripes = {{{1, 0.2, 0.15}, {1, 0.95, 0.85}, {0.2, 0.4, 1}}};
    const double light = 1.1 - 0.55 * lengthOf(x + radius * 0.4, y + radius * 0.4) / radius;
    const Rgb under = picture.pixels[i];
    const Colour ground = {under.red / 255.0, under.green / 255.0, under.blue / 255.0};
    picture.pixels[i] = rgbOfColour(mix(ground, kStripes[static_cast<std::size_t>(stripe % 3)] * light, cover));
  }
}

TruePicture filmFrame(const Film &film, int width, int height, int number) {
  const double share = static_cast<double>(number) / (film.frameCount - 1);
  TruePicture picture = renderPart(film.scene, width, height, partBetween(film.first, film.last, share));
  if (film.ball) {
    const double jump = fractionOf(static_cast<double>(number) / film.framesPerSecond); // one a second
    const double radius = height * 0.15;
    const double centreY = height * 0.95 - radius - 4 * jump * (1 - jump) * height * 0.55;
    paintBall(picture, width * (0.15 + 0.7 * share), centreY, radius, -share * 3);
  }
  return picture;
}

// The number of the frame at the lower right.
void drawCounter(IndexedPicture &picture, int number, std::uint8_t ink, std::uint8_t shadow) {
  const std::string digits = {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
  const int stretch = picture.height > 60 ? 2 : 1;
  drawShadedText(picture, picture.width - 17 * stretch, picture.height - 9 * stretch, digits, plainInk(ink), shadow,
                 stretch, stretch);
}

void drawCounter(TruePicture &picture, int number) {
  IndexedPicture overlay = blankPicture(picture.width, picture.height, kSeeThrough);
  drawCounter(overlay, number, 1, 0);
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (overlay.indexes[i] != kSeeThrough) picture.pixels[i] = overlay.indexes[i] == 1 ? Rgb{255, 255, 255} : Rgb{};
  }
}

void append(Bytes &bytes, const Bytes &more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

// A sine of two parabolas, 4096 steps a turn and amplitude 1024; all in integers.
int sineOfSteps(int steps) {
  const int half = steps % 2048, arc = half * (2048 - half) / 1024;
  const int value = arc * (775 * 1024 + 225 * arc) / (1000 * 1024);
  return steps < 2048 ? value : -value;
}

// The samples of one frame; the tone runs on from frame to frame.
Bytes toneSamples(int framesPerSecond, int number, int hertz) {
  const int count = static_cast<int>(evaSoundSize(framesPerSecond)), rate = count * framesPerSecond;
  Bytes sound;
  for (int i = 0; i < count; ++i) {
    const int phase = (number * count + i) % rate * hertz % rate;
    sound.push_back(static_cast<std::uint8_t>(128 + 90 * sineOfSteps(phase * 4096 / rate) / 1024));
  }
  return sound;
}

enum class EvaColours { kYjk = 12, kRgb = 8 };

struct EvaFrame {
  Bytes picture, sound;
};

struct EvaClip {
  int framesPerSecond;
  EvaColours colours;
  std::vector<EvaFrame> frames;
};

// One tone for each second.
EvaClip recordClip(const Film &film, EvaColours colours, const std::vector<int> &tones) {
  EvaClip clip{film.framesPerSecond, colours, {}};
  for (int number = 0; number < film.frameCount; ++number) {
    TruePicture picture = filmFrame(film, kEvaWidth, kEvaHeight, number);
    drawCounter(picture, number);
    clip.frames.push_back(
        {colours == EvaColours::kRgb ? encodeVideoRgb(picture) : encodeYjk(picture),
         toneSamples(film.framesPerSecond, number, tones[static_cast<std::size_t>(number / film.framesPerSecond)])});
  }
  return clip;
}

// The file ends after so many bytes and counts for so many frames.
SamplePicture evaSample(const std::string &name, EvaClip clip, std::size_t size, std::size_t frameCount) {
  SamplePicture sample = {name, {}, kEvaWidth, kEvaHeight, {}, ""};
  const int rate = clip.framesPerSecond;
  for (const EvaFrame &frame : clip.frames) append(sample.bytes, evaBlock(rate, frame.picture, frame.sound));
  sample.bytes[kEvaColourPlace] = static_cast<std::uint8_t>(clip.colours);
  sample.bytes[kEvaRatePlace] = rate == 12 ? 5 : 6;
  sample.bytes.resize(size);
  sample.status = "EVA [" + std::to_string(rate) + "fps]";
  for (std::size_t n = 0; n < frameCount; ++n) {
    EvaFrame &frame = clip.frames[n];
    const std::size_t left = size - n * kEvaBlockSize; // what lies beyond is zero
    for (std::size_t i = 0; i < frame.picture.size(); ++i) {
      if (evaPicturePlace(rate, i) >= left) frame.picture[i] = 0;
    }
    for (std::size_t i = 0; i < frame.sound.size(); ++i) {
      if (evaSoundPlace(rate, i) >= left) frame.sound[i] = 0;
    }
    sample.frames.push_back(clip.colours == EvaColours::kRgb ? shownVideoRgb(frame.picture)
                                                             : shownVideoYjk(frame.picture));
    append(sample.sound, frame.sound);
  }
  sample.expected = sample.frames[0];
  return sample;
}

SamplePicture evaSample(const std::string &name, const EvaClip &clip) {
  return evaSample(name, clip, clip.frames.size() * kEvaBlockSize, clip.frames.size());
}

// Every K from top to bottom, every J from left to right in the frames together, each with luminances at the ends and
// in between.
EvaClip chromaChart() {
  constexpr std::array<std::array<int, 4>, 3> kLuminances = {{{0, 10, 21, 31}, {31, 1, 16, 0}, {15, 30, 0, 31}}};
  EvaClip clip{12, EvaColours::kYjk, {}};
  for (int number = 0; number < 3; ++number) {
    Bytes picture;
    for (int y = 0; y < kEvaHeight; ++y) {
      for (int x = 0; x < kEvaWidth / 4; ++x) {
        const int k = y * 63 / (kEvaHeight - 1) - 32, j = std::clamp(x * 2 - 33 + number, -32, 31);
        const std::array<int, 4> parts = {k & 7, k >> 3 & 7, j & 7, j >> 3 & 7};
        for (std::size_t i = 0; i < 4; ++i) {
          picture.push_back(static_cast<std::uint8_t>(kLuminances[static_cast<std::size_t>(number)][i] * 8 + parts[i]));
        }
      }
    }
    clip.frames.push_back({picture, toneSamples(12, number, 440)});
  }
  return clip;
}

struct VidClip {
  VidHeader header; // as written, right or wrong
  std::vector<IndexedPicture> frames;
};

VidClip recordVid(const Film &film, int width, int height, int colourCount) {
  VidClip clip;
  for (int number = 0; number < film.frameCount; ++number) {
    const TruePicture scene = filmFrame(film, width, height, number);
    IndexedPicture picture = diffuseToPalette(scene, kSymbosColours, colourCount);
    drawCounter(picture, number, colourCount == 4 ? 0 : 8, 1);
    clip.frames.push_back(picture);
  }
  const auto frameSize = static_cast<int>(vidFrame(clip.frames[0], colourCount).size());
  clip.header = {film.framesPerSecond, film.frameCount, width, height, colourCount, frameSize};
  return clip;
}

// The frames lie one frame size apart, whatever they need; a later one covers the end of the one before.
SamplePicture vidSample(const std::string &name, const VidClip &clip) {
  const VidHeader &header = clip.header;
  SamplePicture sample = {name, vidHeader(header), header.width, header.height, {}, ""};
  sample.status = "VID [" + std::to_string(header.framesPerSecond) + "fps]";
  for (const IndexedPicture &frame : clip.frames) {
    const std::size_t number = sample.frames.size();
    placeBytes(sample.bytes, kVidHeaderSize + number * static_cast<std::size_t>(header.frameSize),
               vidFrame(frame, header.colourCount));
    sample.frames.push_back(shownIndexes(frame.indexes, kSymbosColours));
  }
  sample.expected = sample.frames[0];
  return sample;
}

constexpr FieldPart kWhole = {0, 0, 2, 2}, kWhole96 = {0, 10, 256 / 96.0, 3}, kWhole64 = {0, 4, 4, 4.25};

} // namespace

void addVideoSamples(std::vector<SamplePicture> &pictures) {
  const auto addEva = [&](const char *name, const Film &film, EvaColours colours, const std::vector<int> &tones) {
    pictures.push_back(evaSample(name, recordClip(film, colours, tones)));
  };
  addEva("BOUNCE.EVA", {12, 36, sunsetBay, kWhole, kWhole, true}, EvaColours::kYjk, {440, 660, 880});
  addEva("ZOOM.EVA", {10, 30, fractal, kWhole, {116, 22, 0.6, 0.6}, false}, EvaColours::kYjk, {880, 660, 440});
  addEva("REEF.EV8", {12, 12, reef, {0, 40, 1.2, 1.2}, {102, 60, 1.2, 1.2}, false}, EvaColours::kRgb, {523});
  addEva("BALLOONS.EV8", {10, 10, balloons, {30, 85, 1.2, 1.2}, {60, 0, 1.2, 1.2}, false}, EvaColours::kRgb, {392});
  const auto addVid = [&](const char *name, const Film &film, int width, int height, int colourCount) {
    pictures.push_back(vidSample(name, recordVid(film, width, height, colourCount)));
  };
  addVid("PLANET.VID", {25, 25, ringedPlanet, kWhole64, {60, 40, 2, 2}, false}, 64, 48, 16);
  addVid("CASTLE.VID", {12, 18, castleHill, kWhole96, kWhole96, true}, 96, 64, 16);
  addVid("BAY.VID", {15, 20, sunsetBay, {0, 40, 1.6, 1.6}, {100, 60, 1.6, 1.6}, false}, 96, 64, 4);
  addVid("MOON.VID", {10, 12, fullMoon, kWhole64, {48, 22, 2.6, 2.6}, false}, 64, 48, 4);
}

void addOddVideoSamples(std::vector<SamplePicture> &pictures) {
  const Film bay = {12, 3, sunsetBay, kWhole, {40, 40, 1, 1}, true};
  const Film tenAtBay = {10, 3, sunsetBay, kWhole, {40, 40, 1, 1}, true};
  const EvaClip twelve = recordClip(bay, EvaColours::kYjk, {440}), ten = recordClip(tenAtBay, EvaColours::kYjk, {440});
  const EvaClip rgb = recordClip(bay, EvaColours::kRgb, {660}), rgbTen = recordClip(tenAtBay, EvaColours::kRgb, {660});
  constexpr std::size_t kHalf = kEvaBlockSize / 2;
  pictures.push_back(evaSample("odd/one_block_and_half.EVA", twelve, 3 * kHalf, 2));
  pictures.push_back(evaSample("odd/two_blocks_and_half.EVA", twelve, 5 * kHalf, 2));
  pictures.push_back(evaSample("odd/byte_above_half.EVA", ten, 5 * kHalf + 1, 3));
  pictures.push_back(evaSample("odd/sound_cut_short.EVA", twelve, 2 * kEvaBlockSize + 14850, 3));
  pictures.push_back(evaSample("odd/sound_cut_short_10.EVA", ten, 2 * kEvaBlockSize + 14001, 3));
  pictures.push_back(refused(withByte(evaSample("", ten), "odd/rate_7.EVA", kEvaRatePlace, 7)));
  pictures.push_back(refused(cutTo(evaSample("", twelve), "odd/no_whole_block.EVA", kEvaColourPlace)));
  pictures.push_back(evaSample("odd/colour_8.EVA", rgb));
  pictures.push_back(evaSample("odd/colour_8_10.EVA", rgbTen));
  pictures.push_back(withByte(evaSample("", rgb), "odd/colour_12.EV8", kEvaColourPlace, 12));
  pictures.push_back(evaSample("odd/Clip.ev8", twelve)); // other than "EV8"
  pictures.push_back(evaSample("odd/yjk_extremes.EVA", chromaChart()));

  const Film castle = {12, 3, castleHill, {0, 4, 8, 8.5}, {0, 4, 8, 8.5}, true};
  const VidClip sixteen = recordVid(castle, 32, 24, 16), four = recordVid(castle, 32, 24, 4);
  const SamplePicture good = vidSample("", sixteen), fourGood = vidSample("", four);
  for (const auto &[name, place, value] :
       {std::tuple{"odd/bad_magic.VID", 7, '1'}, std::tuple{"odd/small_magic.VID", 0, 's'},
        std::tuple{"odd/byte_8.VID", 8, '\1'}, std::tuple{"odd/byte_9.VID", 9, '\1'},
        std::tuple{"odd/byte_13.VID", 13, '\1'}, std::tuple{"odd/colour_code_3.VID", 18, '\3'},
        std::tuple{"odd/colour_code_263.VID", 19, '\1'}}) {
    pictures.push_back(
        ignored(withByte(good, name, static_cast<std::size_t>(place), static_cast<std::uint8_t>(value))));
  }
  // Seven bytes a line, two pixels of it are never written.
  SamplePicture narrow = vidSample("odd/width_30.VID", recordVid(castle, 30, 24, 4));
  for (auto &frame : narrow.frames) {
    for (std::size_t i = 0; i < frame.size(); ++i) frame[i] = i % 30 < 28 ? frame[i] : 0;
  }
  narrow.expected = narrow.frames[0];
  pictures.push_back(narrow);

  VidClip odd = four;
  odd.header.framesPerSecond = 0;
  pictures.push_back(vidSample("odd/rate_0.VID", odd));
  for (const auto &[name, count] : {std::pair{"odd/no_frames.VID", 0}, std::pair{"odd/minus_two_frames.VID", -2}}) {
    odd = sixteen;
    odd.header.frameCount = count;
    pictures.push_back(vidSample(name, odd));
    pictures.back().frames.clear();
  }
  // What is lost of the last frame, from its twelfth line on, is index 0.
  for (const auto &[name, whole, perByte] : {std::tuple{"odd/last_frame_cut.VID", good, std::size_t{2}},
                                             std::tuple{"odd/last_frame_cut_4.VID", fourGood, std::size_t{4}}}) {
    SamplePicture cut = cutTo(whole, name, whole.bytes.size() - 12 * 32 / perByte);
    std::fill(cut.frames[2].begin() + 12 * 32, cut.frames[2].end(), kSymbosColours[0]);
    pictures.push_back(cut);
  }
  odd = sixteen;
  ++odd.header.frameSize;
  pictures.push_back(vidSample("odd/frame_size_385.VID", odd));
  // The last byte of each frame is the first of the next.
  odd.header.frameSize -= 2;
  SamplePicture dense = vidSample("odd/frame_size_383.VID", odd);
  for (std::size_t n = 0; n < 2; ++n) std::copy_n(dense.frames[n + 1].begin(), 2, dense.frames[n].end() - 2);
  dense.expected = dense.frames[0];
  pictures.push_back(dense);
}

} // namespace samples
