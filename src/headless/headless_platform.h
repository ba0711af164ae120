// A scripted window system: delivers one event per event pass, and logs all calls.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

// A user action while the viewer is busy.
struct HeadlessEvent {
  void (*deliver)(ViewerState &viewer, const std::string &argument);
  std::string argument;
};

struct HeadlessPlatform {
  ViewerState *viewer = nullptr;
  std::deque<HeadlessEvent> events;
  bool keepsLog = true;
  std::vector<std::string> log;        // a line per call, "presentPicture 256x212"
  std::vector<uint8_t> clipboard;      // the last copied bitmap
  std::vector<uint8_t> clipboardV5;    // the same with the version 5 header
  std::vector<uint8_t> clipboardPng;   // the same as a PNG file
  bool clipboardHeld = false;          // by another program
  bool answersYes = false;             // to questions
  std::deque<std::string> chosenFiles; // answers of the open dialog; empty: cancelled
  std::map<std::string, std::string> settings;
  std::map<std::string, std::string> values; // of the program's own key
  uint32_t ticks = 0;                        // the clock, in milliseconds; only waiting advances it
};

// Sets the viewer's platform to `headless`; each must outlive the use of the other.
void attachHeadless(ViewerState &viewer, HeadlessPlatform &headless);
