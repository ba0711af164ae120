// Colour words 0x00RRGGBB.
#pragma once

#include <cstdint>

// red * 65536 + green * 256 + blue; each argument 0 to 255.
constexpr uint32_t packColour(uint32_t red, uint32_t green, uint32_t blue) { return red * 65536 + green * 256 + blue; }

// Exchanges red and blue: between 0x00RRGGBB and the window system's 0x00BBGGRR. The top byte is dropped.
constexpr uint32_t swapRedBlue(uint32_t word) {
  return (word & 255) * 65536 + (word & 0xFF00) + (word & 0xFF0000) / 65536;
}
