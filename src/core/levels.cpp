#include "core/levels.h"

#include "base/text.h"
#include "state/palette.h"

#include <array>

namespace {

constexpr int kLevelCount = 8;
constexpr int kMaxLevel = kLevelCount - 1;

struct Channel {
  char letter;
  int shift;
};

constexpr std::array<Channel, 3> kChannels{{{'R', 16}, {'G', 8}, {'B', 0}}};

uint8_t truncatedLevel(int level) { return static_cast<uint8_t>(level * 255 / kMaxLevel); }

// "R5 G4 B4"; empty if a channel is no level.
std::string levelText(uint32_t colour, uint8_t (*byteOf)(int level)) {
  std::string text;
  for (const auto &[letter, shift] : kChannels) {
    const uint32_t byte = colour >> shift & 255;
    int level = 0;
    while (level < kLevelCount && byteOf(level) != byte) ++level;
    if (level == kLevelCount) return "";
    text += (text.empty() ? "" : " ") + std::string(1, letter) + std::to_string(level);
  }
  return text;
}

} // namespace

std::string colourAndLevels(uint32_t colour) {
  for (const auto byteOf : {fileLevel, truncatedLevel}) {
    const std::string levels = levelText(colour, byteOf);
    if (!levels.empty()) return colourCode(colour) + "   " + levels;
  }
  return colourCode(colour);
}
