#pragma once

// Parts of scenes and pictures, in sizes other than those of a whole screen.

#include "scenes.h"

namespace samples {

// A part of the scene's field in pixels of across x down units, from its upper left corner.
struct FieldPart {
  double left = 0, top = 0, across = 1, down = 1;
};

TruePicture renderPart(Scene scene, int width, int height, const FieldPart &part);

TruePicture cropped(const TruePicture &picture, int left, int top, int width, int height);
IndexedPicture cropped(const IndexedPicture &picture, int left, int top, int width, int height);

// In shades of grey.
TruePicture greyed(const TruePicture &picture);

} // namespace samples
