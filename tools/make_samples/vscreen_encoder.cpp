#include "vscreen_encoder.h"

#include "encoders.h"

namespace samples {

namespace {

constexpr std::size_t kTileCount = 256;
constexpr std::size_t kTileColumns = 32;
constexpr std::size_t kTileColours = kTileCount * 8;
constexpr std::uint16_t kBorderEnd = 5120;

} // namespace

Bytes tileSetFile(const IndexedPicture &picture, const Palette &palette) {
  Bytes tiles(2 * kTileColours);
  for (std::size_t tile = 0; tile < kTileCount; ++tile) {
    for (std::size_t line = 0; line < 8; ++line) {
      const std::size_t y = tile / kTileColumns * 8 + line;
      const std::uint8_t *pixels = picture.indexes.data() + y * 256 + tile % kTileColumns * 8;
      // The left pixel is foreground, so that every line has some.
      const std::uint8_t foreground = pixels[0];
      std::uint8_t background = 0;
      int bits = 0;
      for (int x = 0; x < 8; ++x) {
        bits = bits * 2 + (pixels[x] == foreground);
        if (pixels[x] != foreground) background = pixels[x];
      }
      tiles[tile * 8 + line] = static_cast<std::uint8_t>(bits);
      tiles[kTileColours + tile * 8 + line] = static_cast<std::uint8_t>(foreground * 16 + background);
    }
  }
  Bytes file = paletteBytes(palette);
  file.insert(file.end(), tiles.begin(), tiles.end());
  return file;
}

Bytes borderFile(const IndexedPicture &picture) {
  Bytes memory = packNibbles(picture.indexes);
  memory.push_back(0);
  return bloadFile(memory, kBorderEnd);
}

Bytes spriteSetFile(const std::vector<LayeredSprite> &sprites) {
  Bytes file;
  for (const LayeredSprite &sprite : sprites) {
    for (const auto &layer : {sprite.bits, sprite.overBits}) {
      for (const std::uint16_t line : layer) file.push_back(static_cast<std::uint8_t>(line >> 8));
      for (const std::uint16_t line : layer) file.push_back(static_cast<std::uint8_t>(line & 0xFF));
    }
  }
  return file;
}

Bytes spriteColourFile(const std::vector<LayeredSprite> &sprites, std::uint8_t highHalf) {
  Bytes file;
  for (const LayeredSprite &sprite : sprites) {
    for (const auto &layer : {sprite.colours, sprite.overColours}) {
      for (const std::uint8_t colour : layer) file.push_back(static_cast<std::uint8_t>(highHalf * 16 + colour));
    }
  }
  return file;
}

} // namespace samples
