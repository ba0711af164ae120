// A stand-in for the window system: delivers scripted events, one in each event pass, and keeps a log of all calls.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

// Something that the user does while the viewer is busy.
struct HeadlessEvent {
  void (*deliver)(ViewerState &viewer, const std::string &argument);
  std::string argument;
};

struct HeadlessPlatform {
  ViewerState *viewer = nullptr;
  std::deque<HeadlessEvent> events;
  bool keepsLog = true;
  std::vector<std::string> log;        // a line for each call, "presentPicture 256x212"
  std::string lastMessage;             // of showMessage
  std::vector<uint8_t> clipboard;      // the bitmap last copied
  std::vector<uint8_t> clipboardV5;    // the same with the version 5 header
  bool clipboardHeld = false;          // by another program
  std::deque<std::string> chosenFiles; // answers to the open dialog; none left: cancelled
  std::map<std::string, std::string> settings;
  uint32_t ticks = 0; // the clock, in milliseconds; only waiting makes it go on
};

// Hands the viewer a table that calls `headless`; both must live as long as the other is used.
void attachHeadless(ViewerState &viewer, HeadlessPlatform &headless);
