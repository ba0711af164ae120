// A palette file loaded over a picture. Byte 0: number of colours of the picture.
#include "fuzz_viewer.h"

#include "core/commands.h"
#include "core/palette_commands.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static const std::vector<uint8_t> picture = [] {
    std::vector<uint8_t> bytes(0x7700, 0x5A);
    constexpr std::array<uint8_t, 7> kHeader = {0xFE, 0, 0, 0x9F, 0x76, 0, 0};
    std::copy(kHeader.begin(), kHeader.end(), bytes.begin());
    return bytes;
  }();
  std::span<const uint8_t> input(data, size);
  FuzzViewer &fuzz = freshViewer();
  putFile("a.SC5", picture);
  openPath(fuzz.viewer, "a.SC5");
  if (fuzz.viewer.pictureShown != kTrue) std::abort();
  fuzz.viewer.colourCount = takeByte(input);
  putFile("a.PAL", input);
  fuzz.platform.chosenFiles = {"a.PAL"};
  menuLoadPal_Click(fuzz.viewer);
  menuViewPal_Click(fuzz.viewer);
  return 0;
}
