#include "core/png_export.h"

#include "base/paths.h"
#include "core/bitmap_export.h"
#include "core/colour_numbers.h"
#include "pixels/png.h"
#include "state/platform_calls.h"

#include <algorithm>

bool hasTallPixels(const ViewerState &viewer) {
  const Stretch &stretch = viewer.window.stretch; // a reduced page is rounded in both directions
  return 2 * int64_t{stretch.targetHeight} * stretch.sourceWidth >
         3 * int64_t{stretch.targetWidth} * stretch.sourceHeight;
}

std::string putShownPng(const ViewerState &viewer, const NumberedPicture &numbered, const PutBytes &put) {
  return putPng(shownPicture(viewer), {numbered.entries, numbered.palette}, hasTallPixels(viewer), put);
}

std::string putShownPng(ViewerState &viewer, const PutBytes &put) {
  return putShownPng(viewer, numberPicture(viewer), put);
}

std::string pngPath(const ViewerState &viewer) { return withLastLetters(bitmapPath(viewer), "png"); }

void menuSavePNG_Click(ViewerState &viewer) {
  const std::string path = pngPath(viewer);
  const bool own = std::find(viewer.savedFiles.begin(), viewer.savedFiles.end(), path) != viewer.savedFiles.end();
  if (!own && viewer.platform.files->exists(path.c_str()) &&
      !askYesNo(viewer, "Korilan", path + " already exists.\n\nReplace it?")) {
    return;
  }
  const bool saved = saveBeside(viewer, path, [&viewer](const PutBytes &put) { return putShownPng(viewer, put); });
  if (saved && !own) viewer.savedFiles.push_back(path);
}
