#include "symbos_encoder.h"

#include "encoders.h"

namespace samples {

namespace {

int pixelsPerByte(SymbosVariant variant) { return variant == SymbosVariant::kSixteenColours ? 2 : 4; }

std::uint8_t splitBits(const std::uint8_t *indexes) {
  int byte = 0;
  for (int i = 0; i < 4; ++i) {
    if ((indexes[i] & 1) != 0) byte += 0x80 >> i;
    if ((indexes[i] & 2) != 0) byte += 0x08 >> i;
  }
  return static_cast<std::uint8_t>(byte);
}

Bytes packLines(const IndexedPicture &picture, SymbosVariant variant) {
  const int perByte = pixelsPerByte(variant);
  Bytes indexes;
  for (int y = 0; y < picture.height; ++y) {
    const auto line = picture.indexes.begin() + y * picture.width;
    indexes.insert(indexes.end(), line, line + picture.width);
    indexes.resize((indexes.size() + static_cast<std::size_t>(perByte) - 1) / static_cast<std::size_t>(perByte) *
                   static_cast<std::size_t>(perByte));
  }
  switch (variant) {
  case SymbosVariant::kSixteenColours: return packNibbles(indexes);
  case SymbosVariant::kPairedBits: return packCrumbs(indexes);
  case SymbosVariant::kSplitBits: break;
  }
  return packSplitBits(indexes);
}

Bytes recordHeader(int control, int bytesPerLine, int width, int height, SymbosVariant variant) {
  if (variant != SymbosVariant::kSixteenColours) {
    return {static_cast<std::uint8_t>(control), static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height)};
  }
  Bytes header = {static_cast<std::uint8_t>(control), 5};
  for (const int word : {bytesPerLine, width, height}) appendWord(header, word);
  return header;
}

} // namespace

Bytes packSplitBits(const Bytes &indexes) {
  Bytes bytes;
  for (std::size_t i = 0; i < indexes.size(); i += 4) bytes.push_back(splitBits(indexes.data() + i));
  return bytes;
}

Bytes symbosTile(const IndexedPicture &picture, SymbosVariant variant) {
  const int perByte = pixelsPerByte(variant);
  const int bytesPerLine = (picture.width + perByte - 1) / perByte;
  const int control = variant == SymbosVariant::kSixteenColours ? kSymbosMark : bytesPerLine;
  Bytes record = recordHeader(control, bytesPerLine, picture.width, picture.height, variant);
  const Bytes lines = packLines(picture, variant);
  record.insert(record.end(), lines.begin(), lines.end());
  return record;
}

Bytes symbosRecord(int control, int height, SymbosVariant variant) {
  return recordHeader(control, 0, 0, height, variant);
}

} // namespace samples
