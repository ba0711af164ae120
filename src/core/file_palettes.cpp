#include "core/file_palettes.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/file_kinds.h"
#include "state/palette.h"

#include <algorithm>

static_assert(std::tuple_size_v<PaletteFile> == size_t{2} * kShortPaletteEntries);

bool isPaletteFile(std::string_view path) {
  constexpr std::array<std::string_view, 5> kExtensions{".PL4", ".PL5", ".PL6", ".PL7", ".PAL"};
  const std::string extension = upperCased(lastCharacters(path, kExtensionLength));
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

bool readPaletteFile(const ViewerState &viewer, const std::string &path, PaletteFile &bytes) {
  InputFile file;
  const bool whole = openInputFile(file, *viewer.platform.files, path) && readBytes(file, 1, bytes) == bytes.size();
  closeInputFile(file);
  return whole;
}

bool takePalette(ViewerState &viewer, const PaletteFile &bytes, int32_t colourCount) {
  const auto count = static_cast<size_t>(colourCount);
  return takeFileColours(viewer, std::span(bytes).first(2 * count)) == count;
}

void takePaletteOfSameName(ViewerState &viewer) {
  const bool drawnThroughIt = viewer.hasPalette == kTrue && viewer.colourCount > 0;
  if (!viewer.display.paletteOfSameName || !drawnThroughIt || viewer.colourCount > kShortPaletteEntries) return;
  const FileKind *kind = findFileKind(viewer.fileExtension); // the row of a tile set has no extension
  const char *own = kind != nullptr ? kind->traits.ownPalette : nullptr;
  const auto palette = viewer.palette;
  for (const char *letters : {own, "PL5", "PL7", "PL6", "PL4", "PAL"}) {
    PaletteFile bytes;
    if (letters == nullptr || !readPaletteFile(viewer, withLastLetters(openedPath(viewer), letters), bytes)) continue;
    if (takePalette(viewer, bytes, viewer.colourCount)) return;
    viewer.palette = palette;
  }
}
