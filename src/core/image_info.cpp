#include "core/image_info.h"

#include "core/text.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"

namespace {

std::string line(const char *name, const std::string &value) { return std::string(name) + ":\t" + value + "\n"; }

std::string paletteText(const ViewerState &viewer) {
  if (viewer.hasPalette != kTrue) return "no";
  return "yes, " + std::to_string(viewer.colourCount) + " colors";
}

} // namespace

std::string imageInfo(const ViewerState &viewer) {
  const char *storage = viewer.isPacked == kTrue ? " (compressed)" : " (raw bitmap)";
  std::string text =
      line("File name", viewer.fileName) + line("Folder", viewer.folderPath) +
      line("Size on disk", grouped(inputFileLength(viewer.inputFile)) + " bytes") +
      line("Type", viewer.typeDescription + storage) +
      line("Size", std::to_string(viewer.imageWidth) + " x " + std::to_string(viewer.imageHeight) + " pixels") +
      line("Depth", std::to_string(viewer.bitsPerPixel) + " bits per pixel") + line("Colors", viewer.window.Label3) +
      line("Palette", paletteText(viewer));
  if (viewer.fileExtension == ".HAM") text += hamDetails(viewer);
  if (viewer.fileExtension == ".G9B") text += g9bDetails(viewer);
  if (viewer.picturePath != viewer.filePath) text += line("Picture shown", "still that of " + viewer.picturePath);
  return text;
}

void menuImageInfo_Click(ViewerState &viewer) {
  viewer.platform.showText(viewer.platform.context, "Image Info", imageInfo(viewer));
}
