// Play and Stop, owner-drawn buttons.
#pragma once

#include <windows.h>

#include <array>

struct VideoButton {
  HWND window = nullptr;
  WNDPROC firstProcedure = nullptr; // of the button class
  bool hovered = false;
};

// Play, then Stop.
using VideoButtons = std::array<VideoButton, 2>;

// Creates both buttons, hidden; `buttons` must outlive them. A button that the system refuses stays nullptr.
void createVideoButtons(VideoButtons &buttons, HWND parent, HINSTANCE instance);

void showVideoButtons(const VideoButtons &buttons, bool visible);

// Draws the button of a WM_DRAWITEM.
void drawVideoButton(const VideoButtons &buttons, const DRAWITEMSTRUCT &item);
