#include "core/bitmap_export.h"

#include "base/disk_files.h"
#include "base/paths.h"
#include "core/colour_numbers.h"
#include "core/png_export.h"
#include "state/platform_calls.h"

#include <algorithm>
#include <memory>

namespace {

// What is put goes into `into`, which has room for it.
PutBytes putInto(std::span<uint8_t> &into) {
  return [&into](std::span<const uint8_t> bytes) {
    std::copy(bytes.begin(), bytes.end(), into.begin());
    into = into.subspan(bytes.size());
    return std::string();
  };
}

ClipboardForm clipboardBitmap(const PixelView &picture, BitmapHeader header) {
  const auto write = [picture, header](std::span<uint8_t> into) { putBitmap(picture, header, putInto(into)); };
  return {bitmapBytes(picture, header), write};
}

// The file is made twice: its length must be known first, and it goes straight into the memory of the clipboard.
ClipboardForm clipboardPng(ViewerState &viewer) {
  const auto numbered = std::make_shared<const NumberedPicture>(numberPicture(viewer));
  const auto write = [&viewer, numbered](const PutBytes &put) { return putShownPng(viewer, *numbered, put); };
  size_t bytes = 0;
  const std::string failure = write([&bytes](std::span<const uint8_t> piece) {
    bytes += piece.size();
    return std::string();
  });
  if (!failure.empty()) bytes = 0;
  return {bytes, [write](std::span<uint8_t> into) { write(putInto(into)); }};
}

} // namespace

PixelView shownPicture(const ViewerState &viewer) { return {viewer.frameBits, viewer.frameWidth, viewer.frameHeight}; }

std::string bitmapPath(const ViewerState &viewer) {
  const std::string path = savingPath(viewer.picturePath);
  if (viewer.player == nullptr) return withLastLetters(path, "bmp");
  return path.substr(0, path.size() - std::min(path.size(), kExtensionLength)) + frameEnding(viewer.run.shownFrame) +
         ".bmp";
}

std::string frameEnding(int32_t frame) {
  constexpr size_t kFrameDigits = 4;
  std::string number = std::to_string(frame);
  number.insert(0, kFrameDigits - std::min(number.size(), kFrameDigits), '0');
  return " - " + number;
}

bool saveBeside(ViewerState &viewer, const std::string &path,
                const std::function<std::string(const PutBytes &put)> &write) {
  viewer.window.readout = {};
  const std::string failure = replaceFile(*viewer.platform.files, path, write);
  if (failure.empty()) {
    viewer.window.readout = {.text = "Saved as " + std::string(fileNameOf(path)), .ofCommand = true};
    return true;
  }
  showMessage(viewer, "Korilan", "Could not save " + path + "\n\n" + failure, MessageIcon::kWarning);
  return false;
}

void menuSaveBMP_Click(ViewerState &viewer) {
  saveBeside(viewer, bitmapPath(viewer),
             [&viewer](const PutBytes &put) { return putBitmap(shownPicture(viewer), BitmapHeader::kFile, put); });
}

void menuCopyClipboard_Click(ViewerState &viewer) {
  const PixelView picture = shownPicture(viewer);
  const ClipboardPicture forms{.bitmap = clipboardBitmap(picture, BitmapHeader::kClipboard),
                               .bitmapV5 = clipboardBitmap(picture, BitmapHeader::kClipboardV5),
                               .png = clipboardPng(viewer)};
  if (viewer.platform.copyToClipboard(viewer.platform.context, forms)) return;
  showMessage(viewer, "Korilan", "Could not copy: the clipboard is in use, or there is not enough memory.",
              MessageIcon::kWarning);
}
