// The main window while a video is open: Play and Stop, the frame scroll bar, a view of twice the frame's size.
#pragma once

#include "state/viewer_state.h"
#include "state/video_players.h"

#include <cstdint>
#include <span>

// The loaders of the video kinds.
void openEvaVideo(ViewerState &viewer);
void openVidVideo(ViewerState &viewer);

// The Play button: plays the open video from the scroll bar's place, then shows frame 0 again. Does nothing while one
// plays, or where the video has no frames.
void Image1_Click(ViewerState &viewer);

// The Stop button: ends the run and shows frame 0.
void Image2_Click(ViewerState &viewer);

// The user has moved the frame scroll bar. While a video plays the bar goes back to where the run has it.
void HScroll1_Change(ViewerState &viewer, int32_t value);

// Keys of the video: play and stop, a frame on, a frame back.
void togglePlayback(ViewerState &viewer);
void showNextFrame(ViewerState &viewer);
void showFrameBefore(ViewerState &viewer);

// What a video's frames are, in the terms of a picture.
struct VideoFormat {
  int32_t width; // a negative side counts as none
  int32_t height;
  uint8_t bitsPerPixel;
  uint8_t colourMode;
  uint8_t colourCount;
};

// For the players, once their file is known: labels, menus, Play, Stop and scroll bar, and a view of the right size.
// Returns false, with all as it was and the lack reported, when memory is lacking.
bool enterVideoMode(ViewerState &viewer, const VideoFormat &format);

// Once no video is open: without Play, Stop and scroll bar. The last frame stays as a picture.
void leaveVideoMode(ViewerState &viewer);

// For the players: shows `pixels`, rows as `header` says, in the view. What they do not reach is black.
void drawVideoFrame(ViewerState &viewer, std::span<const uint32_t> pixels, const FrameHeader &header);
