#include "encoders.h"
#include "font.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

constexpr int kSpriteCount = 46;
constexpr std::size_t kTileLines = 2048; // 256 tiles of 8 lines

// 256 x 64 in tiles of 8 x 8: palette, patterns, colours.
Bytes tileSetFile(const IndexedPicture &picture, const Palette &palette) {
  Bytes patterns, colours;
  for (std::size_t line = 0; line < kTileLines; ++line) {
    const auto tile = static_cast<int>(line / 8);
    const std::uint8_t *pixels = &picture.at(tile % 32 * 8, tile / 32 * 8 + static_cast<int>(line % 8));
    const std::uint8_t foreground = pixels[0];
    std::uint8_t background = 0;
    int bits = 0;
    for (int x = 0; x < 8; ++x) {
      bits = bits * 2 + (pixels[x] == foreground);
      if (pixels[x] != foreground) background = pixels[x];
    }
    patterns.push_back(byteOf(bits));
    colours.push_back(byteOf(foreground * 16 + background));
  }
  Bytes file = paletteBytes(palette);
  append(file, patterns);
  append(file, colours);
  return file;
}

// 256 x 40; the end address takes in the byte behind the pixels.
Bytes borderFile(const IndexedPicture &picture) {
  Bytes memory = packBits(picture.pixels, 4);
  memory.push_back(0);
  return bloadFile(memory, 5120);
}

// Bit 0 of a pixel is in the lower layer, bit 1 in the upper one.
using Sprites = std::vector<IndexedPicture>;

Bytes spriteFile(const Sprites &sprites) {
  Bytes file;
  for (const IndexedPicture &sprite : sprites) {
    for (int part = 0; part < 4; ++part) { // left and right half of a layer, then of the other
      for (int y = 0; y < 16; ++y) {
        int bits = 0;
        for (int x = 0; x < 8; ++x) bits = bits * 2 + (sprite.at(part % 2 * 8 + x, y) >> (part / 2) & 1);
        file.push_back(byteOf(bits));
      }
    }
  }
  return file;
}

// A colour for each line of each layer; the high half of a byte has no meaning.
Bytes spriteColours() {
  constexpr Bytes::value_type kLower[] = {2, 4, 8, 12, 6, 10}, kUpper[] = {13, 11, 7, 3, 9, 5};
  Bytes file;
  for (std::size_t sprite = 0; sprite < kSpriteCount; ++sprite) {
    for (const auto &colours : {kLower, kUpper}) {
      for (std::size_t line = 0; line < 16; ++line) {
        file.push_back(byteOf(colours[(sprite + line / 6) % 6] + (line % 2 != 0 ? 0xA0 : 0)));
      }
    }
  }
  return file;
}

// Letters with a shadow.
Sprites letters() {
  Sprites sprites;
  for (int i = 0; i < kSpriteCount; ++i) {
    const char letter = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.,:!-=\"/OK"[i];
    IndexedPicture front(16, 16), both(16, 16);
    drawText(front, 0, 0, {&letter, 1}, 1, 2, 2);
    drawText(both, 2, 1, {&letter, 1}, 2, 2, 2);
    for (std::size_t pixel = 0; pixel < 256; ++pixel) both.pixels[pixel] |= front.pixels[pixel];
    sprites.push_back(both);
  }
  return sprites;
}

// Ships with the same left and right half, of blocks of two pixels.
Sprites figures() {
  Sprites sprites;
  std::uint32_t random = 7;
  for (int i = 0; i < kSpriteCount; ++i) {
    IndexedPicture sprite(16, 16);
    for (int row = 0; row < 7; ++row) {
      random = random * 1664525 + 1013904223;
      const int width = 1 + static_cast<int>(random >> 20) % 4;
      fillBox(sprite, 8 - 2 * width, 1 + 2 * row, 4 * width, 2, 1);
      fillBox(sprite, 8 - width, 1 + 2 * row, 2 * width, 2, row % 3 == 1 ? 2 : 3);
    }
    sprites.push_back(sprite);
  }
  return sprites;
}

} // namespace

void addVscreenSamples(Samples &samples) {
  const TruePicture part = cropped(rendered(plasma, 256, 212), 0, 70, 256, 64);
  const Bytes tiles = tileSetFile(ditheredInPairs(part, coloursOf(kPlasmaPalette)), kPlasmaPalette);
  samples.push_back({"PLASMA.SC4", tiles});
  samples.push_back({"odd/tiles.SC2", tiles});
  const IndexedPicture program = cropped(listing(), 0, 0, 256, 64);
  samples.push_back({"TILES.SC4", tileSetFile(program, kDefaultPalette)});

  const TruePicture horizon = cropped(rendered(coast, 256, 212), 0, 100, 256, 40);
  samples.push_back({"COAST.SCR", borderFile(dithered(horizon, coloursOf(kDefaultPalette)))});
  IndexedPicture status(256, 40, 1);
  fillBox(status, 2, 2, 252, 36, 4);
  drawText(status, 12, 8, "SCORE 0017350", 15);
  drawText(status, 12, 24, "LIVES", 11);
  for (int life = 0; life < 3; ++life) fillBox(status, 60 + life * 12, 24, 8, 8, 8);
  drawText(status, 148, 8, "LEVEL 7", 7, 1, 2);
  samples.push_back({"STATUS.SCR", borderFile(status)});

  samples.push_back({"FIGURES.TGS", spriteFile(figures()), {{"FIGURES.TCS", spriteColours()}}});
  samples.push_back({"LETTERS.TGS", spriteFile(letters()), {{"LETTERS.tcs", spriteColours()}}});
}

} // namespace samples
