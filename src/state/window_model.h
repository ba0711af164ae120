// All that the main window shows, as data. The core writes it at the step that a behaviour names and never works it out
// afterwards, so after a failed load the old values stand. The shell compares it with what it last showed.
#pragma once

#include <array>
#include <cstdint>
#include <string>

struct MenuItem {
  bool enabled = true;
  bool checked = false;
};

// One palette colour beside the picture; both colours are 0x00RRGGBB.
struct Swatch {
  bool visible = false;
  uint32_t background = 0;
  uint32_t text = 0;
};

// The frame scroll bar of a video; it runs from 0 to `maximum`.
struct ScrollBar {
  bool visible = false;
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

// What the picture holds under the mouse; no text while the mouse is elsewhere.
struct ColourReadout {
  std::string text;
  uint32_t colour = 0; // 0x00RRGGBB
};

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
  MenuItem menuSaveBMP;
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
  MenuItem menuHelp;
  MenuItem menuAbout;

  ImageButton Image1; // Play
  ImageButton Image2; // Stop
  ScrollBar HScroll1;

  bool alwaysCentred = false; // each fitting of the window puts it in the middle of the work area

  // Outer size of the picture area in pixels; a frame of two pixels runs around the inside of it.
  int32_t mainViewWidth = 0;
  int32_t mainViewHeight = 0;
  Stretch stretch;

  // Goes up whenever the picture area has to be drawn anew, also where no size changed.
  uint32_t pictureSerial = 0;
};
