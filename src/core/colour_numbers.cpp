#include "core/colour_numbers.h"

#include "base/buffers.h"
#include "core/rendering.h"
#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

// Such a picture has the mark of a palette that the one before had.
bool hasFixedColours(const PictureSettings &picture) {
  return picture.bitsPerPixel == 8 && picture.colourMode == ColourModeGrb332;
}

// Whether the palette is the picture's own, so that two of its entries may have one colour.
bool hasOwnPalette(const ViewerState &viewer) {
  return viewer.player == nullptr && viewer.picture.hasPalette == kTrue && !hasFixedColours(viewer.picture);
}

// Empty if there is none.
std::span<const uint32_t> paletteOf(const ViewerState &viewer) {
  const PictureSettings &picture = viewer.picture;
  if (viewer.player != nullptr) return viewer.player->colours(viewer);
  if (hasOwnPalette(viewer)) return std::span(viewer.palette).first(static_cast<size_t>(picture.colourCount));
  return hasFixedColours(picture) ? std::span<const uint32_t>(kGrb332Colours) : std::span<const uint32_t>();
}

// Finds the first entry of a colour.
class EntryFinder {
public:
  explicit EntryFinder(std::span<const uint32_t> palette) {
    slots.fill({kNoColour, 0});
    for (size_t entry = 0; entry < palette.size(); ++entry) {
      Slot &slot = slotOf(palette[entry]);
      if (slot.colour == kNoColour) slot = {palette[entry], static_cast<uint8_t>(entry)};
    }
  }

  // Returns false if the palette does not have the colour.
  bool find(uint32_t colour, uint8_t &entry) {
    const Slot &slot = slotOf(colour);
    entry = slot.entry;
    return slot.colour == colour;
  }

private:
  struct Slot {
    uint32_t colour;
    uint8_t entry;
  };
  static constexpr uint32_t kNoColour = 0xFFFFFFFF;
  std::array<Slot, 4 * kPaletteEntries> slots; // a quarter is used at most

  // The colour's slot, or the free one for it.
  Slot &slotOf(uint32_t colour) {
    constexpr uint32_t kMixer = 2654435761; // 2^32 over the golden ratio
    size_t place = colour * kMixer >> 22;
    while (slots[place].colour != kNoColour && slots[place].colour != colour) place = (place + 1) % slots.size();
    return slots[place];
  }
};

// The first entry of each pixel's colour. Returns false if a pixel has none.
bool findEntries(std::span<const uint32_t> words, std::span<const uint32_t> palette, std::span<uint8_t> entries) {
  EntryFinder finder(palette);
  for (size_t i = 0; i < words.size(); ++i) {
    if (!finder.find(words[i], entries[i])) return false;
  }
  return true;
}

// Replaces the entries by those that the picture is drawn with, and restores the frame. Returns false if a pixel is not
// drawn by one: after a refused file video memory may no longer be the picture's.
bool takeDrawnEntries(std::span<uint32_t> words, std::span<const uint32_t> palette, std::span<uint8_t> entries) {
  bool drawn = true;
  for (size_t i = 0; i < words.size(); ++i) {
    const uint32_t entry = words[i] & ~kEntryMark;
    const uint32_t colour = palette[entries[i]];
    const bool marked = (words[i] & kEntryMark) != 0 && entry < palette.size() && palette[entry] == colour;
    words[i] = colour;
    if (marked) entries[i] = static_cast<uint8_t>(entry);
    drawn = drawn && marked;
  }
  return drawn;
}

} // namespace

NumberedPicture numberPicture(ViewerState &viewer) {
  NumberedPicture numbered;
  const std::span<const uint32_t> palette = paletteOf(viewer);
  if (viewer.pictureShown != kTrue || palette.empty()) return numbered;
  numbered.palette.assign(palette.begin(), palette.end());
  if (!reserve(numbered.entries, viewer.frameBits.size())) return {};
  numbered.entries.resize(viewer.frameBits.size());
  if (!findEntries(viewer.frameBits, numbered.palette, numbered.entries)) return {};
  if (!hasOwnPalette(viewer)) return numbered;
  drawEntries(viewer);
  return takeDrawnEntries(viewer.frameBits, numbered.palette, numbered.entries) ? std::move(numbered)
                                                                                : NumberedPicture();
}
