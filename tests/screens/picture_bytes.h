// Small parts that picture files are put together from.
#pragma once

#include "support/test_viewer.h"

// Depth, colour mode, colours, hasPalette, isPacked, spriteMode, size and colour text: "4 0 16 -1 0 1 256x212 16
// colors".
inline std::string descriptionText(const ViewerState &viewer) {
  std::string text;
  for (const int field : {int{viewer.bitsPerPixel}, int{viewer.colourMode}, int{viewer.colourCount},
                          int{viewer.hasPalette}, int{viewer.isPacked}, int{viewer.spriteMode}}) {
    text += std::to_string(field) + " ";
  }
  return text + std::to_string(viewer.imageWidth) + "x" + std::to_string(viewer.imageHeight) + " " +
         viewer.window.Label3;
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
    std::ranges::fill(viewer.vram.written(viewer.vram.size()), kOldByte);
    viewer.window.Label3 = "old colors";
    viewer.window.Label4 = "old status";
  }
};
