#include "core/colour_count.h"

#include "state/platform_calls.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int kColourBits = 24;
constexpr size_t kColours = size_t{1} << kColourBits;
constexpr int32_t kPatternColours = 16;

} // namespace

int32_t CountUniqueColours(std::span<const uint32_t> frameBits) {
  constexpr size_t kBits = 64;
  if (frameBits.empty()) return 0;
  std::vector<uint64_t> seen(kColours / kBits);
  int32_t count = 0;
  for (const uint32_t word : frameBits) {
    const uint32_t colour = word & (kColours - 1);
    const uint64_t bit = uint64_t{1} << colour % kBits;
    uint64_t &group = seen[colour / kBits];
    if ((group & bit) == 0) ++count;
    group |= bit;
  }
  return count;
}

int32_t shownColourCount(const ViewerState &viewer) {
  const KindTraits &traits = viewer.pictureKind->traits;
  const int bits = viewer.picture.bitsPerPixel;
  int32_t count = CountUniqueColours(viewer.frameBits);
  if (traits.countsBorder) --count;
  if (traits.linePalettes) return count; // no limit by depth
  if (bits >= 2) return std::min(count, int32_t{1} << std::min(bits, kColourBits));
  if (traits.patternCells) return std::min(count, kPatternColours);
  return count == 3 ? 2 : count;
}

void menuCountColors_Click(ViewerState &viewer) {
  const int32_t count = shownColourCount(viewer);
  const std::string number = (count < 0 ? "" : " ") + std::to_string(count);
  showMessage(viewer, "Image Color Count", "The amount of unique colors in this image is" + number + ".",
              MessageIcon::kInformation);
}
