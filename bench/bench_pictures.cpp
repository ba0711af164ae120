// Pictures and frames: opened from memory, unpacked, written as bitmaps, counted, listed. Bytes per second are those of
// the output. Names: what/sample, so that all figures of a sample stand together.
#include "bench_support.h"
#include "core/colour_count.h"
#include "core/folder_navigation.h"
#include "core/video_commands.h"
#include "pixels/bitmap.h"
#include "pixels/bload_depacker.h"
#include "pixels/cmp_depacker.h"
#include "pixels/g9b_depacker.h"
#include "pixels/publisher_depacker.h"
#include "support/memory_files.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

// One for each loader, and one more where a loader serves several depths.
constexpr const char *kOpened[] = {
    "COAST.SC5", "COAST.SC7",    "COAST.SC8",   "COAST.SC6", "COAST.SCA", "PLASMA.SRC",   "COAST.SC4",
    "TILES.SC4", "WHEEL.GL5",    "COAST.GL7",   "COAST.GL8", "COAST.GLA", "COAST.STP",    "COAST.GE5",
    "WHEEL.DAT", "CHART.CMP",    "NEWS.PCT",    "CHART.SR5", "DESK.SR7",  "COAST.SCR",    "FIGURES.TGS",
    "COAST.HAM", "WHEELYUV.G9B", "COAST64.G9B", "DESK.G9B",  "AMBER.G9B", "COASTGRB.G9B", "SUNSET.SGX",
};

size_t frameBytes(const std::string &name) { return shownPictureOf(name).words.size() * sizeof(uint32_t); }

void countBytes(benchmark::State &state, size_t bytesEach) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytesEach));
}

void openPicture(benchmark::State &state, const char *name) {
  const ShownPicture &first = shownPictureOf(name);
  BenchViewer bench;
  const std::string path = bench.put(sampleNamed(name));
  for (auto step : state) bench.open(path);
  if (bench.viewer.frameBits != first.words) state.SkipWithError("not what was shown first");
  countBytes(state, bench.viewer.frameBits.size() * sizeof(uint32_t));
}

void setMemory(benchmark::State &state, size_t bytes) {
  std::vector<uint8_t> target(bytes);
  for (auto step : state) {
    std::memset(target.data(), 7, bytes);
    benchmark::ClobberMemory();
  }
  countBytes(state, bytes);
}

void copyMemory(benchmark::State &state, size_t bytes) {
  const std::vector<uint8_t> source(bytes, 7);
  std::vector<uint8_t> target(bytes);
  for (auto step : state) {
    std::memcpy(target.data(), source.data(), bytes);
    benchmark::ClobberMemory();
  }
  countBytes(state, bytes);
}

// Frame after frame of a video, as the frame bar shows them.
void showFrames(benchmark::State &state, const char *name) {
  BenchViewer bench;
  bench.open(bench.put(sampleNamed(name)));
  const int32_t frames = bench.viewer.window.HScroll1.maximum + 1;
  int32_t frame = 0;
  for (auto step : state) {
    frame = frame % (frames - 1) + 1;
    HScroll1_Change(bench.viewer, frame);
  }
  countBytes(state, frameBytes(name));
}

std::span<const uint8_t> bodyOf(const char *name, size_t from) {
  return std::span(sampleNamed(name).bytes).subspan(from);
}

void unpackBload(benchmark::State &state) {
  std::vector<uint8_t> unpacked(0x10000);
  size_t bytes = 0;
  for (auto step : state) bytes = depackBload(bodyOf("DESK.SR7", 7), unpacked, 0xFAA0);
  countBytes(state, bytes);
}

void unpackPage(benchmark::State &state) {
  std::vector<uint8_t> unpacked(kPublisherPageBytes - 1);
  size_t bytes = 0;
  for (auto step : state) bytes = depackPublisherPage(bodyOf("NEWS.PCT", 384), unpacked);
  countBytes(state, bytes);
}

void unpackCmp(benchmark::State &state) {
  CmpDepacker depacker;
  size_t bytes = 0;
  for (auto step : state) {
    startCmpDepacker(depacker, bodyOf("CHART.CMP", 0));
    while (depackCmpLine(depacker)) benchmark::DoNotOptimize(depacker);
    bytes = depacker.output - kCmpOutput;
  }
  countBytes(state, bytes);
}

void unpackG9b(benchmark::State &state) {
  const std::span<const uint8_t> packed = bodyOf("WHEELYUV.G9B", 16 + 3 * sampleNamed("WHEELYUV.G9B").bytes[7]);
  std::vector<uint8_t> unpacked(kVideoMemoryBytes);
  size_t bytes = 0;
  for (auto step : state) {
    G9bDepacker depacker;
    for (int block = 0; block < packed[0]; ++block) depackG9bBlock(depacker, packed, unpacked);
    bytes = depacker.written;
  }
  countBytes(state, bytes);
}

void writeBitmap(benchmark::State &state) {
  const ShownPicture &picture = shownPictureOf("COAST.SC8");
  size_t bytes = 0;
  const auto put = [&bytes](std::span<const uint8_t> piece) {
    bytes += piece.size();
    benchmark::DoNotOptimize(piece.data());
    return std::string();
  };
  for (auto step : state) {
    bytes = 0;
    putBitmap({picture.words, picture.width, picture.height}, BitmapHeader::kFile, put);
  }
  countBytes(state, bytes);
}

void countColours(benchmark::State &state) {
  const std::vector<uint32_t> &words = shownPictureOf("PLASMA.SRC").words;
  for (auto step : state) benchmark::DoNotOptimize(CountUniqueColours(words));
  countBytes(state, words.size() * sizeof(uint32_t));
}

// How cost grows: a 16-bit picture of so many pixels a side.
void openG9bOfSide(benchmark::State &state) {
  const auto side = static_cast<size_t>(state.range(0));
  samples::SamplePicture sample;
  sample.name = "side.G9B";
  sample.bytes = {'G', '9', 'B', 11, 0, 16, 0, 0};
  for (int i = 0; i < 2; ++i) {
    sample.bytes.push_back(static_cast<uint8_t>(side));
    sample.bytes.push_back(static_cast<uint8_t>(side >> 8));
  }
  sample.bytes.resize(16); // stored
  sample.bytes.resize(16 + side * side * 2, 0x35);
  BenchViewer bench;
  const std::string path = bench.put(sample);
  bench.open(path); // fresh memory would cost more than the picture
  for (auto step : state) bench.open(path);
  if (bench.viewer.frameBits.size() != side * side) state.SkipWithError("not opened");
  countBytes(state, side * side * sizeof(uint32_t));
}

void listFolder(benchmark::State &state) {
  BenchViewer bench;
  const std::string path = bench.put(sampleNamed("COAST.SC5"));
  bench.open(path);
  for (int64_t i = 1; i < state.range(0); ++i) memoryDisk()["file" + std::to_string(i) + ".SC8"] = {};
  for (auto step : state) rebuildFolderList(bench.viewer);
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

// A video of so many frames opens, whatever their number.
void openVideoOfFrames(benchmark::State &state) {
  constexpr size_t kBlock = 15360;
  samples::SamplePicture sample;
  sample.name = "long.EVA";
  sample.bytes.assign(kBlock * static_cast<size_t>(state.range(0)), 0x35);
  sample.bytes[kBlock - 1] = 5;
  BenchViewer bench;
  const std::string path = bench.put(sample);
  for (auto step : state) bench.open(path);
}

} // namespace

void addPictureBenchmarks() {
  for (const char *name : kOpened) {
    const size_t bytes = frameBytes(name);
    benchmark::RegisterBenchmark((std::string("open/") + name).c_str(), openPicture, name);
    benchmark::RegisterBenchmark((std::string("memset/") + name).c_str(), setMemory, bytes);
    benchmark::RegisterBenchmark((std::string("memcpy/") + name).c_str(), copyMemory, bytes);
  }
  for (const char *name : {"SUNSET.EVA", "COAST.EV8", "COAST.VID", "PLASMA.VID"}) {
    const size_t bytes = frameBytes(name);
    benchmark::RegisterBenchmark((std::string("frame/") + name).c_str(), showFrames, name);
    benchmark::RegisterBenchmark((std::string("memset/") + name).c_str(), setMemory, bytes);
  }
  benchmark::RegisterBenchmark("unpack/DESK.SR7", unpackBload);
  benchmark::RegisterBenchmark("unpack/NEWS.PCT", unpackPage);
  benchmark::RegisterBenchmark("unpack/CHART.CMP", unpackCmp);
  benchmark::RegisterBenchmark("unpack/WHEELYUV.G9B", unpackG9b);
  benchmark::RegisterBenchmark("bitmap/COAST.SC8", writeBitmap);
  benchmark::RegisterBenchmark("count/PLASMA.SRC", countColours);
  benchmark::RegisterBenchmark("grow/side", openG9bOfSide)->RangeMultiplier(4)->Range(8, 8000);
  benchmark::RegisterBenchmark("grow/folder", listFolder)->RangeMultiplier(10)->Range(10, 100'000);
  benchmark::RegisterBenchmark("grow/frames", openVideoOfFrames)->RangeMultiplier(10)->Range(1, 10'000);
}
