// Pictures of the V9990.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Answers as FileKind::load.
bool LoadG9bPicture(ViewerState &viewer);

// Image Info lines found only in the file header.
std::string g9bDetails(const ViewerState &viewer);

// Draws 16 bits per pixel from `vramPos` on, which then is behind the picture: bits 14-10 green, 9-5 red, 4-0 blue,
// each level shown times 8. The frame is black if `vram` does not hold the picture.
void RenderG9b16(ViewerState &viewer);
