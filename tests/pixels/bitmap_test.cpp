#include "pixels/bitmap.h"

#include "pixels/stretching.h"
#include "screens/picture_bytes.h"

namespace {

Bytes dword(size_t value) {
  return joined({word(static_cast<int>(value & 0xFFFF)), word(static_cast<int>(value >> 16))});
}

// Rows of every padding, of several chunks, and longer than a chunk.
TEST(Bitmap, ByteForByte) {
  using Row = std::pair<size_t, size_t>;
  for (const auto &[width, height] :
       {Row{0, 5}, Row{1, 2}, Row{2, 2}, Row{3, 3000}, Row{4, 2}, Row{10'921, 3}, Row{30'000, 2}}) {
    std::vector<uint32_t> frame(width * height);
    Bytes rows;
    for (size_t y = height; y-- > 0;) {
      for (size_t n = y * width; n < (y + 1) * width; ++n) {
        frame[n] = static_cast<uint32_t>(n + 0x010203);
        for (const int shift : {0, 8, 16}) rows.push_back(static_cast<uint8_t>(frame[n] >> shift));
      }
      rows.resize((rows.size() + 3) / 4 * 4);
    }
    const Bytes size = joined({dword(width), dword(height), word(1), word(24), dword(0), dword(rows.size())});
    const Bytes plain = joined({dword(40), size, Bytes(16)});
    const Bytes file = joined({{'B', 'M'}, dword(54 + rows.size()), Bytes(4), dword(54), plain});
    const Bytes v5 = joined({dword(124), size, Bytes(32), {'B', 'G', 'R', 's'}, Bytes(48), {2}, Bytes(15)});
    for (const auto &[kind, header] :
         {std::pair{BitmapHeader::kFile, file}, {BitmapHeader::kClipboard, plain}, {BitmapHeader::kClipboardV5, v5}}) {
      SCOPED_TRACE(testing::Message() << width << " x " << height << ", header of " << header.size());
      const PixelView picture{frame, static_cast<int32_t>(width), static_cast<int32_t>(height)};
      Bytes written;
      EXPECT_EQ(putBitmap(picture, kind, putInto(written)), "");
      EXPECT_TRUE(written == joined({header, rows}));
      EXPECT_EQ(bitmapBytes(picture, kind), written.size());
    }
  }
}

TEST(Stretching, EachPixelIsTheOneThatItLiesOn) {
  const std::vector<uint32_t> frame{1, 2, 3, 4, 5, 6}; // 3 x 2
  using Row = std::tuple<int32_t, int32_t, std::vector<uint32_t>>;
  for (const auto &[width, height, expected] :
       {Row{3, 2, frame}, Row{2, 1, {1, 2}}, Row{4, 3, {1, 1, 2, 3, 1, 1, 2, 3, 4, 4, 5, 6}}, Row{1, 4, {1, 1, 4, 4}},
        Row{0, 2, {}}, Row{7, 1, {1, 1, 1, 2, 2, 3, 3}}}) {
    std::vector<uint32_t> target(99, 7);
    EXPECT_TRUE(stretchPicture({frame, 3, 2}, width, height, target));
    EXPECT_EQ(target, expected);
  }
}

} // namespace
