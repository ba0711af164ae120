#include "support/viewer_text.h"

#include <sstream>

std::string menuText(const WindowModel &window) {
  std::string text;
  const auto add = [&](const MenuItem &item, const char *name) { text += item.enabled ? name : ""; };
  add(window.menuClose, "Close ");
  add(window.menuSaveBMP, "Save ");
  add(window.menuCopyClipboard, "Copy ");
  add(window.menuView, "View ");
  add(window.menuViewPal, "ViewPal ");
  add(window.menuLoadPal, "LoadPal ");
  add(window.menuSavePal, "SavePal ");
  add(window.menuRestPal, "RestPal ");
  return text;
}

std::string pictureText(const ViewerState &viewer) {
  const auto digest = [](const auto &range) {
    const auto *bytes = reinterpret_cast<const char *>(range.data());
    return std::hash<std::string_view>{}({bytes, range.size() * sizeof(*range.data())});
  };
  const WindowModel &window = viewer.window;
  std::ostringstream text;
  text << int{viewer.bitsPerPixel} << " bits, mode " << int{viewer.colourMode} << ", " << int{viewer.colourCount}
       << " colours, palette " << viewer.hasPalette << ", packed " << viewer.isPacked << ", sprites "
       << viewer.spriteMode << ", " << viewer.imageWidth << "x" << viewer.imageHeight << "; " << window.Label1 << ", "
       << window.Label2 << ", " << window.Label3 << "; " << menuText(window) << "; " << window.mainViewWidth << "x"
       << window.mainViewHeight << " " << window.stretch.targetWidth << "x" << window.stretch.targetHeight
       << "; palette " << digest(viewer.palette) << ", vram " << digest(viewer.vram) << ", frame "
       << digest(viewer.frameBits) << " " << viewer.pictureShown;
  return text.str();
}

std::vector<std::string> wordsOf(std::string_view list) {
  std::istringstream stream{std::string(list)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}
