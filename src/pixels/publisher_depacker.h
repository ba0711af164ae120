// Run-length code of Dynamic Publisher pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

inline constexpr size_t kPublisherPageBytes = size_t{64} * 704; // lines of 64 bytes

// Maximum overrun of the last run.
inline constexpr size_t kPublisherOverrun = 126;

// Unpacks a page. Stops at the end of either buffer; returns how many bytes were written.
size_t depackPublisherPage(std::span<const uint8_t> packed, std::span<uint8_t> unpacked);
