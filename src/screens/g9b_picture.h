// Pictures of the V9990.
#pragma once

#include "state/viewer_state.h"

void LoadG9bPicture(ViewerState &viewer);

// What only the header of the open file tells, for people: lines of a name, a tab and a value.
std::string g9bDetails(const ViewerState &viewer);

// Draws 16 bits a pixel from `vramPos` on, which ends behind the picture: bits 14-10 green, 9-5 red, 4-0 blue, each
// shown as 8 times its level. Does nothing where `vram` is too small; where it is not, all of the frame is filled.
void RenderG9b16(ViewerState &viewer);
bool g9b16Fills(const ViewerState &viewer);
