#include "video_encoder.h"

#include <string_view>

#include "colour_reduction.h"
#include "encoders.h"
#include "symbos_encoder.h"

namespace samples {

namespace {

// At 12 frames per second a line is twelve samples, each followed by up to eleven picture bytes.
constexpr std::size_t kLineSize = 140, kLineSamples = 12, kRunBytes = 11;
constexpr std::size_t kPictureSize = kEvaWidth * kEvaHeight;
constexpr std::size_t kAllLines = kLineSize * kEvaHeight;

} // namespace

std::size_t evaSoundSize(int framesPerSecond) { return framesPerSecond == 12 ? 1312 : 1575; }

std::size_t evaPicturePlace(int framesPerSecond, std::size_t index) {
  if (framesPerSecond != 12) return index;
  const std::size_t line = index / kEvaWidth, column = index % kEvaWidth;
  return line * kLineSize + column + column / kRunBytes + 1;
}

std::size_t evaSoundPlace(int framesPerSecond, std::size_t index) {
  if (framesPerSecond != 12) return kPictureSize + index;
  const std::size_t line = index / kLineSamples;
  if (line >= kEvaHeight) return kAllLines + index - kEvaHeight * kLineSamples;
  return line * kLineSize + index % kLineSamples * (kRunBytes + 1);
}

Bytes evaBlock(int framesPerSecond, const Bytes &picture, const Bytes &sound) {
  Bytes block(kEvaBlockSize);
  for (std::size_t i = 0; i < picture.size(); ++i) block[evaPicturePlace(framesPerSecond, i)] = picture[i];
  for (std::size_t i = 0; i < sound.size(); ++i) block[evaSoundPlace(framesPerSecond, i)] = sound[i];
  return block;
}

Bytes encodeVideoRgb(const TruePicture &picture) {
  Bytes bytes;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const Rgb pixel = picture.pixels[i];
    const int threshold =
        orderedThreshold(static_cast<int>(i) % picture.width, static_cast<int>(i) / picture.width) * 255 / 64;
    const auto level = [threshold](int value, int top) { return (value * top + threshold) / 255; };
    bytes.push_back(
        static_cast<std::uint8_t>(level(pixel.green, 7) * 32 + level(pixel.red, 7) * 4 + level(pixel.blue, 3)));
  }
  return bytes;
}

Bytes vidFrame(const IndexedPicture &picture, int colourCount) {
  const int perByte = colourCount == 4 ? 4 : 2;
  Bytes indexes;
  for (int y = 0; y < picture.height; ++y) {
    const auto line = picture.indexes.begin() + y * picture.width;
    indexes.insert(indexes.end(), line, line + picture.width / perByte * perByte);
  }
  return colourCount == 4 ? packSplitBits(indexes) : packNibbles(indexes);
}

Bytes vidHeader(const VidHeader &header) {
  constexpr std::string_view kMagic = "SymVid10";
  Bytes bytes;
  bytes.reserve(kVidHeaderSize);
  for (const char letter : kMagic) bytes.push_back(static_cast<std::uint8_t>(letter));
  for (const int byte : {0, 0, header.framesPerSecond}) bytes.push_back(static_cast<std::uint8_t>(byte));
  appendWord(bytes, header.frameCount);
  bytes.push_back(0);
  for (const int word : {header.width, header.height, header.colourCount == 4 ? 1 : 7}) appendWord(bytes, word);
  bytes.resize(51);
  appendWord(bytes, header.frameSize);
  bytes.resize(kVidHeaderSize);
  return bytes;
}

} // namespace samples
