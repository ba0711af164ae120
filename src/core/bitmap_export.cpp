#include "core/bitmap_export.h"

#include "base/buffers.h"
#include "base/paths.h"
#include "state/platform_calls.h"

#include <algorithm>

namespace {

// A bitmap in memory. Empty if there is not enough memory.
std::vector<uint8_t> bitmapInMemory(const PixelView &picture, BitmapHeader header) {
  std::vector<uint8_t> bytes;
  if (!reserve(bytes, bitmapBytes(picture, header))) return bytes;
  putBitmap(picture, header, [&bytes](std::span<const uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return std::string();
  });
  return bytes;
}

} // namespace

PixelView shownPicture(const ViewerState &viewer) { return {viewer.frameBits, viewer.frameWidth, viewer.frameHeight}; }

std::string bitmapPath(const ViewerState &viewer) {
  constexpr size_t kFrameDigits = 4;

  const std::string &path = viewer.picturePath;
  if (viewer.player == nullptr) return withLastLetters(path, "bmp");

  std::string number = std::to_string(viewer.window.HScroll1.value);
  number.insert(0, kFrameDigits - std::min(number.size(), kFrameDigits), '0');
  return path.substr(0, path.size() - std::min(path.size(), kExtensionLength)) + " - " + number + ".bmp";
}

void menuSaveBMP_Click(ViewerState &viewer) {
  const std::string path = bitmapPath(viewer);
  const std::string failure = replaceFile(*viewer.platform.files, path, [&viewer](const PutBytes &put) {
    return putBitmap(shownPicture(viewer), BitmapHeader::kFile, put);
  });
  if (failure.empty()) return;
  showMessage(viewer, "Korilan", "Could not save " + path + "\n\n" + failure, MessageIcon::kWarning);
}

void menuCopyClipboard_Click(ViewerState &viewer) {
  const PixelView picture = shownPicture(viewer);
  const auto bitmap = bitmapInMemory(picture, BitmapHeader::kClipboard);
  const auto bitmapV5 = bitmapInMemory(picture, BitmapHeader::kClipboardV5);
  const bool encoded = !bitmap.empty() && !bitmapV5.empty();
  if (encoded && viewer.platform.copyToClipboard(viewer.platform.context, bitmap, bitmapV5)) return;
  showMessage(viewer, "Korilan", "Could not copy: the clipboard is in use, or there is not enough memory.",
              MessageIcon::kWarning);
}
