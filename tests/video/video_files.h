// Videos put together byte by byte.
#pragma once

#include "support/test_viewer.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

using Bytes = std::vector<uint8_t>;
using Pixels = std::vector<uint32_t>;

inline constexpr size_t kEvaBlock = 15360;
inline constexpr uint8_t kRate12 = 5, kRate10 = 6;

// Every byte of block n, picture and sound alike, is 8 * (n + 1): luminance n + 1 without chroma.
inline Bytes evaFile(size_t blocks, uint8_t rate = kRate12, uint8_t kind = 0) {
  Bytes file;
  for (size_t n = 0; n < blocks; ++n) file.insert(file.end(), kEvaBlock, static_cast<uint8_t>(8 * (n + 1)));
  if (blocks > 0) {
    file[15343] = kind;
    file[15359] = rate;
  }
  return file;
}

// A SymbOS video of one line of four pixels in 16 colours, where nothing else is asked for.
struct VidFile {
  int rate = 10, frameCount = 1, width = 4, height = 1, colourCode = 7, frameSize = 2;
  Bytes frames = {};

  Bytes build() const {
    constexpr std::string_view kMagic = "SymVid10";
    Bytes file(512 + frames.size());
    std::copy(kMagic.begin(), kMagic.end(), file.begin());
    file[10] = static_cast<uint8_t>(rate);
    for (const auto &[offset, word] :
         {std::pair{11U, frameCount}, {14U, width}, {16U, height}, {18U, colourCode}, {51U, frameSize}}) {
      file[offset] = static_cast<uint8_t>(word);
      file[offset + 1] = static_cast<uint8_t>(word >> 8);
    }
    std::copy(frames.begin(), frames.end(), file.begin() + 512);
    return file;
  }
};

inline const Bytes kScreen8File{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C};

// What is there for a video or for a picture only.
inline std::string controlsOf(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  std::string text = window.Image1.visible ? "Play " : "";
  text += std::string(window.Image2.visible ? "Stop " : "") + (window.HScroll1.visible ? "Bar " : "");
  return text + (window.menuZoom.enabled ? "Zoom " : "") + (window.menuDoubleHeight.enabled ? "Aspect " : "");
}

inline constexpr const char *kVideoControls = "Play Stop Bar ";
inline constexpr const char *kPictureControls = "Zoom Aspect ";
