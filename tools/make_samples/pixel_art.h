#pragma once

// Pictures drawn straight in palette indexes: screens of text and tiles, charts, and the overlays of
// the YAE pictures.

#include "drawing.h"
#include "scenes.h"

namespace samples {

// Screens of 256 x 192 with at most two colours in each 8 x 1 line, in the default palette.
IndexedPicture programListing();
IndexedPicture titleScreen(const TruePicture &backdrop);
IndexedPicture mazeScreen();

// The 16 colours of a palette with their numbers, 256 x 212. The first two indexes are dark.
IndexedPicture paletteChart();

// A wire globe and readings in four inks, dark to bright, 512 x 212 with pixels twice as tall as wide.
IndexedPicture wireGlobe();

// A desk of windows, clock and graph in the default palette, 512 x 212.
IndexedPicture windowDesk();

// A rocket on its pad in large plain areas of the default palette, width x 212.
IndexedPicture rocketPad(int width);

// All 256 bytes of Screen 8 as labelled boxes, 256 x 212.
Bytes byteColourChart();

// Overlays of 256 x 212; the inks are those of kOverlayPalette and near to the default palette.
extern const Palette kOverlayPalette;
IndexedPicture postcardOverlay(std::string_view greeting, std::string_view place);
IndexedPicture shooterOverlay(std::string_view score);
IndexedPicture dialogueOverlay(const std::vector<std::string_view> &lines);
IndexedPicture weatherOverlay(std::string_view town, const std::array<std::string_view, 3> &days);
IndexedPicture surveyOverlay(std::string_view title, int centreX, int centreY);
IndexedPicture swatchOverlay(std::string_view title);

} // namespace samples
