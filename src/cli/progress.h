// How far a conversion is, in one line of the terminal that is written anew for each file. Where standard error is no
// terminal nothing is shown.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>

struct Progress {
  size_t files = 0; // in all
  size_t done = 0;
  bool shown = false;
  size_t width = 0; // letters that stand in the line
  std::mutex mutex; // several jobs report
};

void beginProgress(Progress &progress, size_t files);

// A file is about to be read.
void showProgress(Progress &progress, const std::string &path);

// It is done. `complaint` goes to a line of its own where it is not empty.
void countProgress(Progress &progress, const std::string &complaint);

// Clears the line.
void endProgress(Progress &progress);

// "[12/100] name.SC5", the name cut to what fits a line of 79 letters.
std::string progressLine(size_t number, size_t files, const std::string &path);
