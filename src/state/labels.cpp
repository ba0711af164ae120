#include "state/labels.h"

const char *colourText(const ViewerState &viewer) {
  switch (viewer.bitsPerPixel) {
  case 16: return "32K colors";
  case 8:
    switch (viewer.colourMode) {
    case ColourModePalette: return "64 colors";
    case ColourModeGrb332: return "256 colors";
    case ColourModeYjk: return "YJK colors";
    case ColourModeYuv: return "YUV colors";
    case ColourModeYae: return "YAE colors";
    default: return nullptr;
    }
  case 4: return "16 colors";
  case 2: return "4 colors";
  case 1:
    if (viewer.colourCount == 16) return "16 colors";
    return viewer.colourCount == 2 ? "2 colors" : nullptr;
  default: return nullptr;
  }
}

void showPictureInfo(ViewerState &viewer) {
  if (videoPlaying(viewer)) return;
  WindowModel &window = viewer.window;
  window.Label4.clear();
  if (viewer.fileLoaded != kTrue) {
    window.Label1.clear();
    window.Label2.clear();
    window.Label3.clear();
    return;
  }
  window.Label1 = std::to_string(viewer.imageWidth) + "x" + std::to_string(viewer.imageHeight);
  window.Label2 = std::to_string(viewer.bitsPerPixel) + " bpp";
  if (const char *text = colourText(viewer); text != nullptr) window.Label3 = text;
}

bool reportError(ViewerState &viewer, const std::string &text) {
  viewer.window.Label4 = viewer.loadError = text;
  return false;
}

bool reportNotValid(ViewerState &viewer) {
  return reportError(viewer, "*** Error: Not a valid " + viewer.fileExtension + " file.");
}

bool reportNoMemory(ViewerState &viewer) { return reportError(viewer, "*** Error: Not enough memory."); }
