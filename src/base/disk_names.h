// File names on the machine's disks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// Eight characters and three of the extension, filled with spaces.
inline constexpr size_t kDiskNameBytes = 11;

// The name as UTF-8 text, with a dot before its extension. ASCII stays; other bytes, and those that no file name of
// Windows has, become characters of like look. Names of different bytes differ.
std::string diskName(std::span<const uint8_t, kDiskNameBytes> bytes);
