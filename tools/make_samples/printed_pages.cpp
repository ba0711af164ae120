#include "printed_pages.h"

#include "colour_reduction.h"
#include "drawing.h"
#include "picture_parts.h"

namespace samples {

namespace {

constexpr int kPageWidth = 512, kPageHeight = 704;
constexpr ColourWords kPaperAndInk = {0xFFFFFF, 0x000000};

// A scene of 512 pixels a line in ink dots.
void pasteDotted(IndexedPicture &page, int left, int top, const TruePicture &scene) {
  const IndexedPicture dotted = diffuseToPalette(greyed(scene), kPaperAndInk, 2);
  for (int y = 0; y < scene.height; ++y) {
    for (int x = 0; x < scene.width; ++x) {
      setPixel(page, left + x, top + y, dotted.indexes[static_cast<std::size_t>(y * scene.width + x)]);
    }
  }
  drawFrame(page, left - 2, top - 1, scene.width + 4, scene.height + 2, 1);
}

void drawLines(IndexedPicture &page, int left, int top, const std::vector<std::string_view> &lines) {
  for (const std::string_view line : lines) {
    drawText(page, left, top, line, plainInk(1));
    top += 10;
  }
}

void drawCentred(IndexedPicture &page, int y, std::string_view text, int stretchX, int stretchY, std::uint8_t ink) {
  const int left = (kPageWidth - static_cast<int>(text.size()) * 8 * stretchX) / 2;
  drawText(page, left, y, text, plainInk(ink), stretchX, stretchY);
}

} // namespace

IndexedPicture newsPage(Gallery &gallery) {
  IndexedPicture page = blankPicture(kPageWidth, kPageHeight, 0);
  drawCentred(page, 20, "THE HARBOUR NEWS", 3, 4, 1);
  fillBox(page, 24, 58, 464, 3, 1);
  drawText(page, 24, 65, "No. 12", plainInk(1));
  drawText(page, 424, 65, "2 pence", plainInk(1));
  fillBox(page, 24, 76, 464, 1, 1);
  drawCentred(page, 88, "LIGHT BACK AT CAPE ROCK", 2, 2, 1);
  pasteDotted(page, 28, 116, cropped(sceneIn(gallery, lighthouse, 512), 20, 4, 456, 200));
  drawLines(page, 28, 330,
            {"After three dark weeks the lamp", "of Cape Rock turns again. The", "keeper, Mr Pell, climbed the",
             "two hundred steps on Monday", "with a new lens on his back.", "", "\"It was heavier than it looks,\"",
             "he told us, and asked for tea.", "", "Ships that had taken the long", "way round the sands are back",
             "on their old course, and the", "fish market opens at six as it", "always did.", "",
             "The old lens can be seen in", "the town hall until Sunday."});
  fillBox(page, 279, 328, 2, 352, 1);
  pasteDotted(page, 290, 334, cropped(sceneIn(gallery, fullMoon, 512), 158, 20, 196, 150));
  drawText(page, 290, 488, "The moon last Friday.", plainInk(1));
  drawLines(
      page, 28, 520,
      {"TIDES", "", "Mon   06:12    18:40", "Tue   07:03    19:31", "Wed   07:55    20:22", "Thu   08:49    21:15"});
  drawFrame(page, 292, 510, 194, 150, 1);
  drawFrame(page, 296, 512, 186, 146, 1);
  drawText(page, 318, 526, "SWAP DAY", plainInk(1), 2, 2);
  drawLines(page, 318, 556,
            {"Bring your disks", "and cables to the", "school on Sunday", "at two o'clock.", "", "Coffee and cake",
             "by the 4th form."});
  fillBox(page, 24, 690, 464, 1, 1);
  return page;
}

IndexedPicture posterPage(Gallery &gallery) {
  IndexedPicture page = blankPicture(kPageWidth, kPageHeight, 0);
  fillBox(page, 16, 8, 480, 688, 1);
  fillBox(page, 24, 12, 464, 680, 0);
  drawCentred(page, 28, "STARGAZERS", 5, 6, 1);
  drawCentred(page, 88, "an evening on the roof", 2, 2, 1);
  pasteDotted(page, 36, 116, cropped(sceneIn(gallery, ringedPlanet, 512), 36, 0, 440, 212));
  pasteDotted(page, 36, 336, cropped(sceneIn(gallery, northernLights, 512), 36, 0, 440, 212));
  fillBox(page, 34, 560, 444, 60, 1);
  drawCentred(page, 570, "FRIDAY", 4, 3, 0);
  drawCentred(page, 600, "from nightfall", 2, 1, 0);
  drawCentred(page, 640, "Observatory Lane 3", 2, 2, 1);
  drawCentred(page, 668, "Bring a blanket and a friend.", 1, 1, 1);
  return page;
}

} // namespace samples
