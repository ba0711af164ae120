#include "base/disk_names.h"

#include <string_view>

namespace {

// The upper half of the international character set, with symbols of like shape for its quarter blocks.
constexpr std::u16string_view kUpperHalf = u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»ÃãĨĩÕõŨũĲĳ¾∽◇‰¶§"
                                           u"▂▚▆▔▬▓▎▞▊▕▉▧▨▼▲▶◀⋈⧖▘▗▝▖▒Δ‡ω█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φ∈∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■▯";
static_assert(kUpperHalf.size() == 128);

constexpr char16_t kControlPictures = u'\u2400'; // of 0x00 to 0x1F

char16_t characterOf(uint8_t byte) {
  constexpr std::string_view kReserved = ".\"*/:<>?\\|\x7F";
  constexpr std::u16string_view kLikeReserved = u"\u2024\u2033\u2217\u2215\u2236\u2039\u203A\uFF1F\u2216\u2223\u2421";
  static_assert(kReserved.size() == kLikeReserved.size());
  if (const size_t index = kReserved.find(static_cast<char>(byte)); index != std::string_view::npos) {
    return kLikeReserved[index];
  }
  if (byte < ' ') return static_cast<char16_t>(kControlPictures + byte);
  return byte < 0x80 ? byte : kUpperHalf[byte - size_t{0x80}];
}

void append(std::string &text, char16_t character) {
  const auto tail = [character](int shift) { return static_cast<char>(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += {static_cast<char>(0xC0 | character >> 6), tail(0)};
  } else {
    text += {static_cast<char>(0xE0 | character >> 12), tail(6), tail(0)};
  }
}

std::string trimmed(std::span<const uint8_t> bytes) {
  while (!bytes.empty() && bytes.back() == ' ') bytes = bytes.first(bytes.size() - 1);
  std::string text;
  for (const uint8_t byte : bytes) append(text, characterOf(byte));
  return text;
}

} // namespace

std::string diskName(std::span<const uint8_t, kDiskNameBytes> bytes) {
  constexpr size_t kNameBytes = 8;
  constexpr uint8_t kMasked = 0x05, kMaskedByte = 0xE5; // which would mark a deleted entry
  uint8_t name[kNameBytes];
  for (size_t i = 0; i < kNameBytes; ++i) name[i] = bytes[i];
  if (name[0] == kMasked) name[0] = kMaskedByte;
  const std::string extension = trimmed(bytes.subspan(kNameBytes));
  return trimmed(name) + (extension.empty() ? "" : "." + extension);
}
