#include "formats/publisher_page.h"

#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <span>
#include <tuple>

namespace {

constexpr size_t kGuard = 4;
constexpr uint8_t kGuardByte = 0xEE;

// Runs of 128 zeros up to 44,928 bytes; 127 more reach the bound of 45,055.
Bytes zerosTo44928() {
  Bytes packed;
  for (int i = 0; i < 351; ++i) packed.insert(packed.end(), {255, 0});
  return packed;
}

TEST(PublisherPage, Runs) {
  using Row = std::tuple<const char *, Bytes, size_t, Bytes>; // packed, room, unpacked
  const Bytes start = zerosTo44928();
  const size_t most = 50000;
  for (const auto &[name, packed, room, expected] :
       {Row{"one literal", {0, 7}, 9, {7}}, Row{"128 literals", joined({{127}, noise(128, 1)}), 200, noise(128, 1)},
        Row{"run of one", {128, 7}, 9, {7}}, Row{"run of 128", {255, 7}, 200, Bytes(128, 7)},
        Row{"both", {1, 1, 2, 130, 3, 0, 4}, 9, {1, 2, 3, 3, 3, 4}},
        Row{"room ends in a run", {130, 3, 0, 4}, 2, {3, 3}}, Row{"room ends in literals", {2, 3, 4, 5}, 2, {3, 4}},
        Row{"no room", {0, 1}, 0, {}}, Row{"no input", {}, 9, {}}, Row{"input ends before a byte", {0, 1, 255}, 9, {1}},
        Row{"input ends before a literal", {0, 1, 3}, 9, {1}}, Row{"input ends in literals", {3, 1, 2}, 9, {1, 2}},
        Row{"ends at the bound", joined({start, {254, 1, 128, 2}}), most, joined({Bytes(44928), Bytes(127, 1)})},
        Row{"ends behind the bound", joined({start, {255, 1, 128, 2}}), most, joined({Bytes(44928), Bytes(128, 1)})},
        Row{"run across the bound", joined({start, {253, 1, 137, 2}}), most,
            joined({Bytes(44928), Bytes(126, 1), Bytes(10, 2)})}}) {
    SCOPED_TRACE(name);
    Bytes memory(room + 2 * kGuard, kGuardByte);
    EXPECT_EQ(depackPublisherPage(packed, std::span(memory).subspan(kGuard, room)), expected.size());
    Bytes whole(memory.size(), kGuardByte);
    std::copy(expected.begin(), expected.end(), whole.begin() + kGuard);
    EXPECT_EQ(memory, whole);
  }
}

TEST(PublisherPage, EveryShortString) {
  const size_t longest = std::getenv("KORILAN_LONG") != nullptr ? 3 : 2;
  for (size_t length = 0; length <= longest; ++length) {
    for (size_t number = 0; number < size_t{1} << 8 * length; ++number) {
      Bytes packed;
      for (size_t i = 0; i < length; ++i) packed.push_back(static_cast<uint8_t>(number >> 8 * i));
      packed.shrink_to_fit();
      for (const size_t room : {size_t{0}, size_t{1}, size_t{3}}) {
        std::array<uint8_t, 3 + 2 * kGuard> memory;
        memory.fill(kGuardByte);
        ASSERT_LE(depackPublisherPage(packed, std::span(memory).subspan(kGuard, room)), room) << number;
        for (size_t i = 0; i < memory.size(); ++i) {
          ASSERT_TRUE(memory[i] == kGuardByte || (i >= kGuard && i < kGuard + room)) << number << " into " << room;
        }
      }
    }
  }
}

TEST(PublisherPage, LoadedPage) {
  for (const Flag16 Check5 : {kFalse, kTrue}) {
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    window.viewer.preferences.Check5 = Check5;
    const std::string before = pictureText(viewer);
    window.open("bad.PCT", Bytes(384, 0xEE));
    EXPECT_EQ(viewer.window.Label4, errorLine(".PCT"));
    EXPECT_EQ(pictureText(viewer), before);
    EXPECT_FALSE(viewer.window.menuDoubleHeight.checked);
    Bytes file(384, 0xEE);
    file[8] = 'P', file[16] = 'R', file[18] = 'S', file[23] = 'N';
    window.open("x.PCT", joined({file, zerosTo44928(), {254, 0}}));
    EXPECT_EQ(descriptionOf(viewer), "1 bits, mode 0, 2 colours, palette 0, packed -1, sprites 1; 512x704, 2 colors");
    EXPECT_EQ(viewer.window.menuDoubleHeight.checked, Check5 == kFalse);
    EXPECT_EQ(viewer.window.stretch, (Stretch{512, 704, 233, Check5 == kFalse ? 640 : 320}));
    EXPECT_EQ(viewer.palette[0], kOldColour);
  }
}

} // namespace
