// A file of any kind, opened and looked at as a user would. Byte 0 chooses the kind, unless KORILAN_FUZZ_KIND names one
// (".SC5"); the rest is the file.
#include "fuzz_viewer.h"

#include "core/colour_readout.h"
#include "core/commands.h"
#include "core/file_kinds.h"
#include "core/image_info.h"
#include "core/palette_commands.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  std::span<const uint8_t> input(data, size);
  static const char *onlyKind = std::getenv("KORILAN_FUZZ_KIND");
  const char *anyKind = kFileKinds[takeByte(input) % kFileKinds.size()].extension;
  const char *extension = onlyKind != nullptr ? onlyKind : anyKind;
  FuzzViewer &fuzz = freshViewer();
  ViewerState &viewer = fuzz.viewer;
  putFile("a.TCS", input.first(std::min<size_t>(input.size(), 512)));
  putFile(std::string("a") + extension, input);
  openPath(viewer, std::string("a") + extension);
  const auto pixels = static_cast<size_t>(viewer.frameWidth) * static_cast<size_t>(viewer.frameHeight);
  if (viewer.pictureShown == kTrue && viewer.frameBits.size() != pixels) std::abort();

  const Stretch &stretch = viewer.window.stretch;
  moveMouse(viewer, stretch.targetWidth - 1, stretch.targetHeight - 1);
  menuZoom_Click(viewer);
  menuDoubleHeight_Click(viewer);
  menuViewPal_Click(viewer);
  menuSavePal_Click(viewer);
  menuRestPal_Click(viewer);
  if (imageInfo(viewer).empty()) std::abort();
  menuClose_Click(viewer);
  return 0;
}
