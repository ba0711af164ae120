// Dynamic Publisher pages: 512 x 704 pixels in black and white.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <span>

void loadPublisherPage(ViewerState &viewer);

// Draws a page of `vram` into the first 512 x 704 words of `frameBits`, whatever the picture's size (intended); words
// beyond the end of `frameBits` are dropped. A set bit is black.
void renderPublisherPage(ViewerState &viewer);

// Unpacks a page. Stops at the end of either buffer; returns how many bytes were written.
size_t depackPublisherPage(std::span<const uint8_t> packed, std::span<uint8_t> unpacked);
