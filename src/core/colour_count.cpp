#include "core/colour_count.h"

#include "core/file_kinds.h"
#include "screens/pattern_screen.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int kColourBits = 24;
constexpr size_t kColours = size_t{1} << kColourBits;
constexpr int32_t kPatternColours = 16;

constexpr const char *kVideoWithBorder = ".VID"; // its frames stand in one colour more: intended
constexpr const char *kManyPalettes = ".HAM";    // a palette for each line: no limit by depth

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
  int32_t count = CountUniqueColours(viewer.frameBits);
  if (viewer.fileExtension == kVideoWithBorder) --count;
  if (viewer.fileExtension == kManyPalettes) return count;
  if (viewer.bitsPerPixel >= 2) return std::min(count, int32_t{1} << std::min<int>(viewer.bitsPerPixel, kColourBits));
  const FileKind *kind = findFileKind(viewer.fileExtension);
  if (kind != nullptr && kind->load == loadPatternScreen) return std::min(count, kPatternColours);
  return count == 3 ? 2 : count;
}

void menuCountColors_Click(ViewerState &viewer) {
  const int32_t count = shownColourCount(viewer);
  const std::string number = (count < 0 ? "" : " ") + std::to_string(count);
  viewer.platform.showMessage(viewer.platform.context, "Image Color Count",
                              "The amount of unique colors in this image is" + number + ".", MessageIcon::kInformation);
}
