// What the benchmarks share: samples, and a viewer whose files lie in memory.
#pragma once

#include "state/viewer_state.h"
#include "headless/headless_platform.h"
#include "sample_pictures.h"

#include <cstdint>
#include <string>
#include <vector>

const samples::SamplePicture &sampleNamed(const std::string &name);

struct BenchViewer {
  ViewerState viewer;
  HeadlessPlatform platform;

  BenchViewer();

  // Puts a file onto the disk in memory and returns its path.
  std::string put(const samples::SamplePicture &sample);

  // Opens it: loads, renders, presents.
  void open(const std::string &path);
};

void addPictureBenchmarks();
void addPeerBenchmarks();
