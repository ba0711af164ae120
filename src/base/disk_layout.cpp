#include "base/disk_layout.h"

#include "base/numbers.h"

#include <array>

//  boot sector  bytes                      words, little-endian
//               13  sectors a cluster      11  bytes a sector: 512          19  sectors of the disk
//               16  FATs                   14  sectors before the FATs      22  sectors a FAT
//                                          17  entries of the root folder
//
//  The FATs, the root folder and the clusters follow.

namespace {

constexpr int64_t kMaxClusters = 4084; // a disk of more has no FAT of 12 bits

// In sectors.
struct Geometry {
  int64_t total = 0;
  int64_t reserved = 1; // before the FATs
  int64_t fats = 2;
  int64_t perFat = 0;
  int64_t perCluster = 0;
  int64_t rootEntries = 112; // not sectors
};

// The disks that the machine's own system formats, by media byte from kFirstMedia on.
constexpr uint8_t kFirstMedia = 0xF8;
constexpr std::array<Geometry, 8> kGeometries{{
    {.total = 720, .perFat = 2, .perCluster = 2},
    {.total = 1440, .perFat = 3, .perCluster = 2},
    {.total = 640, .perFat = 1, .perCluster = 2},
    {.total = 1280, .perFat = 2, .perCluster = 2},
    {.total = 360, .perFat = 2, .perCluster = 1, .rootEntries = 64},
    {.total = 720, .perFat = 2, .perCluster = 2},
    {.total = 320, .perFat = 1, .perCluster = 1, .rootEntries = 64},
    {.total = 640, .perFat = 1, .perCluster = 2},
}};

DiskLayout layoutOf(const Geometry &geometry) {
  DiskLayout layout;
  layout.fatStart = geometry.reserved * kSectorBytes;
  layout.fatBytes = geometry.perFat * kSectorBytes;
  layout.rootStart = layout.fatStart + geometry.fats * layout.fatBytes;
  layout.rootBytes = geometry.rootEntries * kDiskEntryBytes;
  layout.dataStart = layout.rootStart + layout.rootBytes;
  layout.clusterBytes = geometry.perCluster * kSectorBytes;
  layout.clusterCount = (geometry.total * kSectorBytes - layout.dataStart) / layout.clusterBytes;
  return layout;
}

// Programs that start from the disk have code there, and the first versions of the machine's system left it empty.
std::optional<DiskLayout> fromBootSector(std::span<const uint8_t> boot, int64_t imageBytes) {
  constexpr int64_t kEntriesOfSector = kSectorBytes / kDiskEntryBytes;
  const Geometry geometry{.total = wordAt(boot, 19),
                          .reserved = wordAt(boot, 14),
                          .fats = boot[16],
                          .perFat = wordAt(boot, 22),
                          .perCluster = boot[13],
                          .rootEntries = wordAt(boot, 17)};
  const bool powerOfTwo = geometry.perCluster != 0 && (geometry.perCluster & (geometry.perCluster - 1)) == 0;
  const bool plausible = wordAt(boot, 11) == kSectorBytes && powerOfTwo && geometry.reserved != 0 &&
                         (geometry.fats == 1 || geometry.fats == 2) && geometry.perFat != 0 &&
                         geometry.rootEntries != 0 && geometry.rootEntries % kEntriesOfSector == 0 &&
                         geometry.total * kSectorBytes <= imageBytes;
  if (!plausible) return std::nullopt;
  const DiskLayout layout = layoutOf(geometry);
  return layout.clusterCount > 0 && layout.clusterCount <= kMaxClusters ? std::optional(layout) : std::nullopt;
}

// Of an image that was cut, at least the start of the root folder is there.
std::optional<DiskLayout> fromMedia(uint8_t media, int64_t imageBytes) {
  if (media >= kFirstMedia) {
    const DiskLayout layout = layoutOf(kGeometries[static_cast<size_t>(media - kFirstMedia)]);
    return imageBytes > layout.rootStart ? std::optional(layout) : std::nullopt;
  }
  for (const Geometry &geometry : {kGeometries[1], kGeometries[0]}) {
    if (geometry.total * kSectorBytes == imageBytes) return layoutOf(geometry);
  }
  return std::nullopt;
}

} // namespace

std::optional<DiskLayout> findDiskLayout(std::span<const uint8_t, kDiskStartBytes> start, int64_t imageBytes) {
  const auto layout = fromBootSector(start, imageBytes);
  return layout ? layout : fromMedia(start.back(), imageBytes);
}
