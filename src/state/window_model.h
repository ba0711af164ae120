// The main window as data. The core writes each field at a fixed step and never derives it afterwards, so a failed load
// keeps the old values. The shell compares it with what it last showed.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

struct MenuItem {
  bool enabled = true;
  bool checked = false;
};

// A submenu whose items are not known beforehand.
struct ChoiceMenu {
  std::vector<std::string> captions; // empty: a separator
  int32_t checked = -1;              // the marked one; -1: none

  bool operator==(const ChoiceMenu &) const = default;
};

// One palette colour beside the picture; both colours are 0x00RRGGBB.
struct Swatch {
  bool visible = false;
  uint32_t background = 0;
  uint32_t text = 0;
};

// The frame scroll bar of a video, from 0 to `maximum`.
struct ScrollBar {
  bool visible = false;
  bool enabled = true;
  int32_t maximum = 0;
  int32_t value = 0;
};

// How the rendered picture is stretched onto MainView, from its top left corner; all zero while MainView is clear.
struct Stretch {
  int32_t sourceWidth = 0;
  int32_t sourceHeight = 0;
  int32_t targetWidth = 0;
  int32_t targetHeight = 0;

  bool operator==(const Stretch &) const = default;
};

// The pixel under the mouse, or what the last command did; otherwise no text.
struct ColourReadout {
  std::string text;
  uint32_t colour = 0;    // 0x00RRGGBB
  bool ofCommand = false; // without a colour; stays until the mouse moves over the picture
};

bool showsColour(const ColourReadout &readout);

// Play and Stop of a video.
struct ImageButton {
  bool visible = false;
};

struct WindowModel {
  std::string caption = "Korilan";

  std::string Label1; // size, "256x212"
  std::string Label2; // depth, "4 bpp"
  std::string Label3; // colours, "16 colors"
  std::string Label4; // status line
  std::array<Swatch, 16> Label5{};
  ColourReadout readout;

  MenuItem menuOpen;
  MenuItem menuReload;
  MenuItem menuClose;
  MenuItem menuRecent;
  ChoiceMenu recentFiles; // File > Recent
  MenuItem menuShowInFolder;
  MenuItem menuSaveBMP;
  MenuItem menuSavePNG;
  MenuItem menuCopyClipboard;
  MenuItem menuPreferences;
  MenuItem menuExit;
  MenuItem menuView; // the whole View menu
  MenuItem menuZoom;
  MenuItem menuDoubleHeight;
  MenuItem menuImageInfo;
  MenuItem menuCountColors;
  MenuItem menuViewPal;
  MenuItem menuLoadPal;
  MenuItem menuSavePal;
  MenuItem menuRestPal;
  MenuItem menuScale;
  ChoiceMenu scaleChoices;
  MenuItem menuLarger;
  MenuItem menuSmaller;
  MenuItem menuNormalScale;
  MenuItem menuGrid;
  MenuItem menuFullScreen;
  MenuItem menuFitWindow;
  MenuItem menuFollowChanges;
  MenuItem menuSamePalette;
  MenuItem menuOrderByNumber;
  MenuItem menuHelp;
  MenuItem menuAbout;

  ImageButton Image1; // Play
  ImageButton Image2; // Stop
  ScrollBar HScroll1;

  bool alwaysCentred = false; // fitting the window centres it in the work area
  uint32_t fittings = 0;      // incremented to request one, even at the same size

  // Outer size of the picture area in pixels, with its border.
  int32_t mainViewWidth = 0;
  int32_t mainViewHeight = 0;
  Stretch stretch;

  int32_t scale = 1;       // screen pixels for each pixel of the stretched picture, in both directions
  uint32_t windowFits = 0; // incremented to have the window take the size of the picture, also if the user sized it
  bool fullScreen = false; // the picture alone, on the whole monitor

  // Incremented to request a repaint, even at the same size.
  uint32_t pictureSerial = 0;
};

// MainView's border: 2 pixels on each side.
inline constexpr int32_t kViewBorder = 2;
inline constexpr int32_t kViewBorders = 2 * kViewBorder;

// Unchecks View Palette and hides its swatches.
void hideSwatches(WindowModel &window);

// Enables the commands that need a picture.
void enablePictureCommands(WindowModel &window);
