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

// What the viewer shows of a sample; of a video its first frame.
struct ShownPicture {
  std::vector<uint32_t> words; // 0x00RRGGBB, top row first
  int32_t width = 0;
  int32_t height = 0;
};

// Each sample is opened once for each program. Ends the program if the sample is refused.
const ShownPicture &shownPictureOf(const std::string &name);

void addPictureBenchmarks();
void addPeerBenchmarks();
void addPngBenchmarks();
