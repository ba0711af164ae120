// The viewer of the page: the headless platform with the page's files, clock, sound and dialogs.
#pragma once

#include "headless/headless_platform.h"
#include "state/viewer_state.h"

struct PageViewer {
  ViewerState viewer;
  HeadlessPlatform headless;
  std::string statusBefore; // the status line before the last command
  bool sounds = false;      // the run has started its sound
  int32_t soundFrame = 0;   // first frame whose samples the page does not have yet
};

// The only one: a page that wants a second one takes a second module.
PageViewer &pageViewer();

// Sets up the empty window.
void startPageViewer();

// Plays the frame that is due, with its samples; ends a run that is over or that a command has stopped.
void stepPageViewer();
