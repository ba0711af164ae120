// Where the areas of a FAT12 disk are in its image.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

inline constexpr int64_t kSectorBytes = 512;
inline constexpr int64_t kDiskEntryBytes = 32; // of a folder

// The boot sector and the first byte of the FAT.
inline constexpr size_t kDiskStartBytes = size_t{kSectorBytes} + 1;

// All in bytes, from the image's start.
struct DiskLayout {
  int64_t fatStart = 0; // of the first copy
  int64_t fatBytes = 0; // of one copy
  int64_t rootStart = 0;
  int64_t rootBytes = 0;
  int64_t dataStart = 0; // of the first cluster
  int64_t clusterBytes = 0;
  int64_t clusterCount = 0;
};

// By the boot sector if it is plausible, else by the media byte, with which the FAT starts, else by the image's length.
// nullopt if all three make no sense.
std::optional<DiskLayout> findDiskLayout(std::span<const uint8_t, kDiskStartBytes> start, int64_t imageBytes);
