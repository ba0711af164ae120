// Run-length code of packed Screen 5 and Screen 7 pictures (.SR5, .SR7).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Unpacks `packed` into `unpacked` until at least `size` bytes are written; the last run may go beyond `size`.
// Also stops at the end of either buffer. Returns how many bytes were written.
size_t depackBload(std::span<const uint8_t> packed, std::span<uint8_t> unpacked, size_t size);
