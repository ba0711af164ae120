// The description of a picture as one row, and its fields in ViewerState.
#pragma once

#include <cstdint>

struct ViewerState;

// The field keeps its value.
inline constexpr int16_t kKept = 0x7FFF;

struct PictureSettings {
  int16_t bitsPerPixel = 0;
  int16_t colourMode = 0;
  int16_t colourCount = 0;
  int16_t hasPalette = kKept;
  int16_t isPacked = 0;
  int16_t spriteMode = kKept;
  int32_t imageWidth = 0;
  int32_t imageHeight = 0;
};

// Stores a description in the viewer.
void describePicture(ViewerState &viewer, const PictureSettings &settings);

// The viewer's description; no field is kKept.
PictureSettings descriptionOf(const ViewerState &viewer);
