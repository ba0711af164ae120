#include "bench_support.h"

#include "core/commands.h"
#include "support/memory_files.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

const samples::SamplePicture &sampleNamed(const std::string &name) {
  static const std::vector<samples::SamplePicture> all = samples::normalSamplePictures();
  const auto found = std::find_if(all.begin(), all.end(), [&](const auto &sample) { return sample.name == name; });
  if (found != all.end()) return *found;
  std::fprintf(stderr, "no sample %s\n", name.c_str());
  std::exit(1);
}

BenchViewer::BenchViewer() {
  memoryDisk().clear();
  attachHeadless(viewer, platform);
  platform.keepsLog = false;
  viewer.platform.files = &memoryFiles();
  startViewer(viewer, "");
}

std::string BenchViewer::put(const samples::SamplePicture &sample) {
  for (const samples::CompanionFile &companion : sample.companions) memoryDisk()[companion.name] = companion.bytes;
  memoryDisk()[sample.name] = sample.bytes;
  return sample.name;
}

void BenchViewer::open(const std::string &path) { openPath(viewer, path); }

int main(int argumentCount, char **arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  addPictureBenchmarks();
  addPeerBenchmarks();
  benchmark::RunSpecifiedBenchmarks();
}
