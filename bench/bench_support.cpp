#include "bench_support.h"

#include "core/commands.h"
#include "support/memory_files.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

const samples::SamplePicture &sampleNamed(const std::string &name) {
  static const std::vector<samples::SamplePicture> all = samples::allSamplePictures();
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

const ShownPicture &shownPictureOf(const std::string &name) {
  static std::map<std::string, ShownPicture> shown;
  const auto [entry, isNew] = shown.try_emplace(name);
  if (!isNew) return entry->second;
  BenchViewer bench;
  bench.open(bench.put(sampleNamed(name)));
  if (bench.viewer.pictureShown != kTrue) {
    std::fprintf(stderr, "%s is not shown\n", name.c_str());
    std::exit(1);
  }
  return entry->second = {bench.viewer.frameBits, bench.viewer.frameWidth, bench.viewer.frameHeight};
}

int main(int argumentCount, char **arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  addPictureBenchmarks();
  addPeerBenchmarks();
  addPngBenchmarks();
  benchmark::RunSpecifiedBenchmarks();
}
