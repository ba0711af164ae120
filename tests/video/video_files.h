// Videos put together byte by byte.
#pragma once

#include "core/video_commands.h"
#include "support/test_viewer.h"

using Pixels = std::vector<uint32_t>;

inline constexpr size_t kEvaBlock = 15360;
inline constexpr uint8_t kRate12 = 5, kRate10 = 6;

// Every byte of block n, picture and sound alike, is 8 * (n + 1): luminance n + 1 without chroma.
inline Bytes evaFile(size_t blocks, uint8_t rate = kRate12, uint8_t kind = 0) {
  Bytes file;
  for (size_t n = 0; n < blocks; ++n) file.insert(file.end(), kEvaBlock, static_cast<uint8_t>(8 * (n + 1)));
  file[15343] = kind;
  file[15359] = rate;
  return file;
}

struct VidHeader {
  int rate = 10, frameCount = 1, width = 4, height = 1, colourCode = 7, frameSize = 2;
};

inline Bytes vidFile(const VidHeader &header, const Bytes &frames) {
  const Bytes head{'S', 'y', 'm', 'V', 'i', 'd', '1', '0', 0, 0, static_cast<uint8_t>(header.rate)}, zero{0};
  return joined({head, word(header.frameCount), zero, word(header.width), word(header.height), word(header.colourCode),
                 Bytes(31), word(header.frameSize), Bytes(459), frames});
}

inline const Bytes kScreen8File{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C};

// How much of the window shows a video: 5 for one, 0 for a picture.
inline int videoSigns(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  return window.Image1.visible + window.Image2.visible + window.HScroll1.visible + !window.menuZoom.enabled +
         !window.menuDoubleHeight.enabled;
}
