#include "cli/picture_writer.h"

#include "core/bitmap_export.h"
#include "core/colour_numbers.h"
#include "core/png_export.h"
#include "headless/opened_file.h"
#include "pixels/png.h"
#include "pixels/stretching.h"

#include <algorithm>
#include <vector>

namespace {

constexpr const char *kNoMemory = "there is not enough memory";

std::string putPpm(const PixelView &picture, const PutBytes &put) {
  constexpr size_t kChunkPixels = size_t{1} << 13;
  const std::string header = "P6\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n255\n";
  std::vector<uint8_t> piece(header.begin(), header.end());
  std::string failure = put(piece);
  std::span<const uint32_t> words = picture.words;
  while (!words.empty() && failure.empty()) {
    const auto pixels = words.first(std::min(kChunkPixels, words.size()));
    piece.clear();
    for (const uint32_t word : pixels) {
      for (const int shift : {16, 8, 0}) piece.push_back(static_cast<uint8_t>(word >> shift));
    }
    failure = put(piece);
    words = words.subspan(pixels.size());
  }
  return failure;
}

// The stretched picture with its colour numbers, if it has such.
std::string putStretchedPng(ViewerState &viewer, const PixelView &stretched, const PutBytes &put) {
  const NumberedPicture numbered = numberPicture(viewer);
  std::vector<uint8_t> entries;
  if (!numbered.palette.empty() && !stretchPicture({numbered.entries, viewer.frameWidth, viewer.frameHeight},
                                                   stretched.width, stretched.height, entries)) {
    return kNoMemory;
  }
  return putPng(stretched, {entries, numbered.palette}, false, put);
}

} // namespace

std::string putPicture(ViewerState &viewer, const CliRequest &request, const PutBytes &put) {
  if (request.format == ImageFormat::kPng && !request.shown) return putShownPng(viewer, put);
  PixelView picture = shownPicture(viewer);
  std::vector<uint32_t> stretched;
  if (request.shown) {
    const Stretch &stretch = viewer.window.stretch;
    if (!stretchPicture(picture, stretch.targetWidth, stretch.targetHeight, stretched)) return kNoMemory;
    picture = {stretched, stretch.targetWidth, stretch.targetHeight};
  }
  switch (request.format) {
  case ImageFormat::kPng: return putStretchedPng(viewer, picture, put);
  case ImageFormat::kPpm: return putPpm(picture, put);
  default: return putBitmap(picture, BitmapHeader::kFile, put);
  }
}

std::string putThumbnail(const ViewerState &viewer, const CliRequest &request, const PutBytes &put) {
  Thumbnail thumbnail;
  const bool made = thumbnailOf(viewer, request.size, thumbnail);
  if (!made && !shownPicture(viewer).words.empty()) return kNoMemory;
  return putPng({thumbnail.words, thumbnail.width, thumbnail.height}, {}, false, put);
}
