// Small parts that picture files are put together from.
#pragma once

#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <initializer_list>
#include <string>

inline Bytes word(int value) { return {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8)}; }

inline Bytes joined(std::initializer_list<Bytes> parts) {
  Bytes whole;
  for (const Bytes &part : parts) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

// Bytes without a pattern, always the same ones for the same start.
inline Bytes noise(size_t count, uint32_t start) {
  Bytes bytes(count);
  for (uint8_t &byte : bytes) byte = static_cast<uint8_t>((start = start * 1664525 + 1013904223) >> 24);
  return bytes;
}

inline std::string errorLine(const std::string &extension) { return "*** Error: Not a valid " + extension + " file."; }

// "4 bits, mode 0, 16 colours, palette -1, packed 0, sprites 1; 256x212, 16 colors", the size and the text as labels.
inline std::string descriptionOf(const ViewerState &viewer) {
  return std::to_string(viewer.bitsPerPixel) + " bits, mode " + std::to_string(viewer.colourMode) + ", " +
         std::to_string(viewer.colourCount) + " colours, palette " + std::to_string(viewer.hasPalette) + ", packed " +
         std::to_string(viewer.isPacked) + ", sprites " + std::to_string(viewer.spriteMode) + "; " +
         viewer.window.Label1 + ", " + viewer.window.Label3;
}

constexpr uint32_t kOldColour = 0x123456;
constexpr uint8_t kOldByte = 0x77;

// A viewer after a picture that no format describes.
struct UsedViewer : TestViewer {
  UsedViewer() {
    viewer.bitsPerPixel = viewer.colourMode = viewer.colourCount = kOldByte;
    viewer.imageWidth = viewer.imageHeight = kOldByte;
    viewer.hasPalette = viewer.isPacked = viewer.spriteMode = 1; // neither true nor false
    viewer.palette.fill(kOldColour);
    std::fill(viewer.vram.begin(), viewer.vram.end(), kOldByte);
    viewer.vram.use(viewer.vram.size());
    viewer.window.Label3 = "old colors";
    viewer.window.Label4 = "old status";
  }
};
