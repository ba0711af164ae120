// Play and Stop: buttons with images of their own.
#pragma once

#include <windows.h>

#include <array>

struct VideoButton {
  HWND window = nullptr;
  WNDPROC firstProcedure = nullptr; // of the system's button
  bool hovered = false;
};

// Play, then Stop.
using VideoButtons = std::array<VideoButton, 2>;

// Makes both, hidden, as far as the system allows. `buttons` must outlive them.
void createVideoButtons(VideoButtons &buttons, HWND parent, HINSTANCE instance);

void showVideoButtons(const VideoButtons &buttons, bool visible);

// Draws one of them in its present state.
void drawVideoButton(const VideoButtons &buttons, const DRAWITEMSTRUCT &item);
