#include "ham_encoder.h"

#include <algorithm>
#include <map>

#include "colour_reduction.h"
#include "encoders.h"
#include "expected_colours.h"

namespace samples {

namespace {

constexpr int kLineWidth = 512;
constexpr int kLinesAhead = 4; // lines of the page that a change is to serve
constexpr std::size_t kHeaderSize = 32;

// A colour of the lines to come: its palette levels and how often it is wanted.
struct Wanted {
  Levels levels;
  Rgb colour;
  int count = 0;
};

Rgb rgbOfLevels(Levels levels) {
  const auto value = [](int level) { return (level * 255 * 2 + 7) / 14; };
  return {value(levels.red), value(levels.green), value(levels.blue)};
}

std::uint8_t levelOf(int value) { return static_cast<std::uint8_t>((value * 7 + 127) / 255); }

std::vector<Wanted> wantedColours(const TruePicture &picture, int firstLine) {
  std::map<int, int> counts;
  for (int ahead = 0; ahead < kLinesAhead; ++ahead) {
    const int y = firstLine + 2 * ahead;
    for (int x = 0; x < picture.width && y < picture.height; ++x) {
      const Rgb pixel = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
      counts[levelOf(pixel.red) * 64 + levelOf(pixel.green) * 8 + levelOf(pixel.blue)] += kLinesAhead - ahead;
    }
  }
  std::vector<Wanted> wanted;
  for (const auto &[code, count] : counts) {
    const Levels levels = {static_cast<std::uint8_t>(code / 64), static_cast<std::uint8_t>(code / 8 % 8),
                           static_cast<std::uint8_t>(code % 8)};
    wanted.push_back({levels, rgbOfLevels(levels), count});
  }
  return wanted;
}

// The change that lowers the sum of the distances most.
HamChange bestChange(const Palette &palette, const std::vector<Wanted> &wanted) {
  struct Nearest {
    std::size_t index = 0;
    std::int64_t first = -1, second = -1; // distances to the nearest entry and the one behind it
  };
  std::vector<Nearest> nearest(wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    for (std::size_t entry = 0; entry < palette.size(); ++entry) {
      const int distance = squaredDistance(rgbOfLevels(palette[entry]), wanted[i].colour);
      Nearest &best = nearest[i];
      if (best.first < 0 || distance < best.first) {
        best = {entry, distance, best.first};
      } else if (best.second < 0 || distance < best.second) {
        best.second = distance;
      }
    }
  }
  std::int64_t unchanged = 0;
  for (std::size_t i = 0; i < wanted.size(); ++i) unchanged += nearest[i].first * wanted[i].count;
  HamChange best = {0, palette[0]};
  for (const Wanted &candidate : wanted) {
    std::int64_t common = 0;
    std::array<std::int64_t, 16> extra{}; // cost of losing an entry
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      const std::int64_t distance = squaredDistance(candidate.colour, wanted[i].colour);
      const std::int64_t kept = std::min(distance, nearest[i].first);
      common += kept * wanted[i].count;
      extra[nearest[i].index] += (std::min(distance, nearest[i].second) - kept) * wanted[i].count;
    }
    for (std::size_t entry = 0; entry < extra.size(); ++entry) {
      if (common + extra[entry] >= unchanged) continue;
      unchanged = common + extra[entry];
      best = {static_cast<std::uint8_t>(entry), candidate.levels};
    }
  }
  return best;
}

Palette startPalette(const TruePicture &picture, int firstLine) {
  TruePicture top{picture.width, 0, {}};
  for (int y = firstLine; y < firstLine + 2 * kLinesAhead; y += 2) {
    const auto line = picture.pixels.begin() + y * picture.width;
    top.pixels.insert(top.pixels.end(), line, line + picture.width);
    ++top.height;
  }
  return choosePalette(top, 16);
}

Bytes paletteBlock(const HamPage &page) {
  Bytes block = paletteBytes(page.start);
  for (const auto &pair : page.changes) {
    for (const HamChange &change : pair) {
      block.push_back(change.index);
      block.push_back(static_cast<std::uint8_t>(change.levels.red * 16 + change.levels.blue));
      block.push_back(change.levels.green);
    }
  }
  return block;
}

void appendLong(Bytes &bytes, std::size_t value) {
  appendWord(bytes, static_cast<int>(value & 0xFFFF));
  appendWord(bytes, static_cast<int>(value >> 16));
}

} // namespace

HamPages encodeHam(const TruePicture &picture) {
  HamPages pages;
  std::vector<Palette> linePalettes(static_cast<std::size_t>(picture.height));
  for (int odd = 0; odd < 2; ++odd) {
    HamPage &page = pages[static_cast<std::size_t>(odd)];
    page.start = startPalette(picture, odd);
    Palette palette = page.start;
    for (int y = odd; y < picture.height; y += 2) {
      linePalettes[static_cast<std::size_t>(y)] = palette;
      const std::vector<Wanted> wanted = wantedColours(picture, y + 2);
      auto &pair = page.changes.emplace_back();
      for (HamChange &change : pair) {
        change = bestChange(palette, wanted);
        palette[change.index] = change.levels;
      }
    }
  }
  std::vector<std::vector<Rgb>> lineColours;
  for (const Palette &palette : linePalettes) {
    auto &colours = lineColours.emplace_back();
    for (const Levels levels : palette) colours.push_back(rgbOfLevels(levels));
  }
  IndexedPicture reduced = blankPicture(picture.width, picture.height, 0);
  diffuseErrors(picture, [&](std::size_t position, Rgb wanted) {
    const std::vector<Rgb> &colours = lineColours[position / kLineWidth];
    const std::size_t index = nearestOf(colours, wanted);
    reduced.indexes[position] = static_cast<std::uint8_t>(index);
    return colours[index];
  });
  for (int y = 0; y < picture.height; ++y) {
    const auto line = reduced.indexes.begin() + y * kLineWidth;
    pages[static_cast<std::size_t>(y % 2)].lines.emplace_back(line, line + kLineWidth);
  }
  return pages;
}

Bytes hamFile(const HamPages &pages, int height, bool interlaced, int storageMode) {
  std::array<Bytes, 4> blocks;
  for (std::size_t page = 0; page < 2; ++page) {
    blocks[page] = paletteBlock(pages[page]);
    for (const Bytes &line : pages[page].lines) {
      const Bytes bytes = packNibbles(line);
      blocks[page + 2].insert(blocks[page + 2].end(), bytes.begin(), bytes.end());
    }
  }
  Bytes file = {'H', 'A', 'M', 1, 0x20, static_cast<std::uint8_t>(storageMode), 0, std::uint8_t{interlaced}};
  appendWord(file, kLineWidth);
  appendWord(file, height);
  appendLong(file, 0);
  std::size_t offset = kHeaderSize;
  for (const Bytes &block : blocks) {
    appendLong(file, offset);
    offset += block.size();
  }
  for (const Bytes &block : blocks) file.insert(file.end(), block.begin(), block.end());
  return file;
}

} // namespace samples
