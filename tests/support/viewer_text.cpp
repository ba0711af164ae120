#include "support/viewer_text.h"

#include <sstream>

std::string menuText(const WindowModel &window) {
  std::string text;
  for (const auto &[item, name] :
       {std::pair(&window.menuClose, "Close "), std::pair(&window.menuSaveBMP, "Save "),
        std::pair(&window.menuCopyClipboard, "Copy "), std::pair(&window.menuView, "View "),
        std::pair(&window.menuViewPal, "ViewPal "), std::pair(&window.menuLoadPal, "LoadPal "),
        std::pair(&window.menuSavePal, "SavePal "), std::pair(&window.menuRestPal, "RestPal ")}) {
    text += item->enabled ? name : "";
  }
  return text;
}

std::string pictureText(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  std::ostringstream text;
  for (const int32_t number : {int32_t{viewer.bitsPerPixel}, int32_t{viewer.colourMode}, int32_t{viewer.colourCount},
                               int32_t{viewer.hasPalette}, int32_t{viewer.isPacked}, int32_t{viewer.spriteMode},
                               viewer.imageWidth, viewer.imageHeight, window.mainViewWidth, window.mainViewHeight,
                               window.stretch.targetWidth, window.stretch.targetHeight, int32_t{viewer.pictureShown}}) {
    text << number << " ";
  }
  text << window.Label1 << ", " << window.Label2 << ", " << window.Label3 << "; " << menuText(window);
  const auto digest = [](const auto *data, size_t count) {
    return std::hash<std::string_view>{}({reinterpret_cast<const char *>(data), count * sizeof(*data)});
  };
  text << digest(viewer.palette.data(), viewer.palette.size()) << " " << digest(viewer.vram.data(), viewer.vram.size())
       << " " << digest(viewer.frameBits.data(), viewer.frameBits.size());
  return text.str();
}

std::vector<std::string> wordsOf(std::string_view list) {
  std::istringstream stream{std::string(list)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}
