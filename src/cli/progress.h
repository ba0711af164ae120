// Progress of a conversion: one line, rewritten for each file, only if standard error is a terminal; and what came of
// it.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>

struct Progress {
  size_t files = 0; // total
  size_t done = 0;
  size_t failed = 0;
  size_t written = 0; // pictures
  bool shown = false;
  size_t width = 0; // characters now in the line
  std::mutex mutex; // several jobs report
};

void beginProgress(Progress &progress, size_t files);

// A file is about to be read.
void showProgress(Progress &progress, const std::string &path);

// The file is done. `failure`, if not empty, is printed on its own line.
void countProgress(Progress &progress, const std::string &failure);

void countWritten(Progress &progress);

// Clears the line. Of several files it says how many pictures were written and how many files failed.
void endProgress(Progress &progress);

// "[12/100] name.SC5", the name cut to fit 79 characters.
std::string progressLine(size_t number, size_t files, const std::string &path);
