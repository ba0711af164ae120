// Dynamic Publisher pages: 512 x 704 pixels in black and white.
#pragma once

#include "state/viewer_state.h"

// Answers as FileKind::load.
bool loadPublisherPage(ViewerState &viewer);

// Draws a page of `vram` into the first 512 x 704 words of `frameBits`, at any picture size: intended, all pages have
// that size. Pixels beyond the end of `frameBits` are dropped, words behind the page are black. A set bit is black.
void renderPublisherPage(ViewerState &viewer);
