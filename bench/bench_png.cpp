// PNG files of all samples, beside the common libraries: deflate alone on the same rows, and whole files of RGB rows.
#include "bench_support.h"
#include "core/bitmap_export.h"
#include "core/colour_numbers.h"
#include "pixels/png.h"

#include <benchmark/benchmark.h>

#include <png.h>
#include <zlib.h>

namespace {

using Bytes = std::vector<uint8_t>;

struct Picture {
  ShownPicture shown;
  NumberedPicture numbered;
  Bytes file; // Korilan's
  Bytes rows; // what is deflated in it
  Bytes rgb;
};

Bytes fileOf(const Picture &picture) {
  Bytes file;
  const PixelView view{picture.shown.words, picture.shown.width, picture.shown.height};
  putPng(view, {picture.numbered.entries, picture.numbered.palette}, false, [&file](std::span<const uint8_t> piece) {
    file.insert(file.end(), piece.begin(), piece.end());
    return std::string();
  });
  return file;
}

// All chunks of data, inflated.
Bytes rowsOf(const Bytes &file) {
  constexpr size_t kSignature = 8;
  constexpr size_t kAroundData = 12; // length, type, checksum
  Bytes packed;
  for (size_t chunk = kSignature; chunk < file.size();) {
    const size_t length = size_t{file[chunk]} << 24 | file[chunk + 1] << 16 | file[chunk + 2] << 8 | file[chunk + 3];
    const uint8_t *data = &file[chunk + 8];
    if (file[chunk + 4] == 'I' && file[chunk + 5] == 'D') packed.insert(packed.end(), data, data + length);
    chunk += kAroundData + length;
  }
  Bytes rows(64 << 20);
  uLongf size = rows.size();
  if (uncompress(rows.data(), &size, packed.data(), packed.size()) != Z_OK) rows.clear();
  rows.resize(rows.empty() ? 0 : size);
  return rows;
}

const std::vector<Picture> &pictures() {
  static const std::vector<Picture> all = [] {
    std::vector<Picture> made;
    for (const samples::SamplePicture &sample : samples::allSamplePictures()) {
      BenchViewer bench;
      bench.open(bench.put(sample));
      const ViewerState &viewer = bench.viewer;
      if (sample.name.starts_with("odd/") || viewer.pictureShown != kTrue) continue;
      Picture picture{
          {viewer.frameBits, viewer.frameWidth, viewer.frameHeight}, numberPicture(bench.viewer), {}, {}, {}};
      picture.file = fileOf(picture);
      picture.rows = rowsOf(picture.file);
      for (const uint32_t word : viewer.frameBits) {
        for (const int shift : {16, 8, 0}) picture.rgb.push_back(static_cast<uint8_t>(word >> shift));
      }
      made.push_back(std::move(picture));
    }
    return made;
  }();
  return all;
}

// Makes something of all pictures; its bytes are a counter.
template <typename Make> void makeOfAll(benchmark::State &state, Make make) {
  size_t bytes = 0;
  pictures();
  for (auto step : state) {
    bytes = 0;
    for (const Picture &picture : pictures()) bytes += make(picture);
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}

void writeOwn(benchmark::State &state) {
  makeOfAll(state, [](const Picture &picture) { return fileOf(picture).size(); });
}

void deflateByZlib(benchmark::State &state) {
  Bytes packed(64 << 20);
  makeOfAll(state, [&packed](const Picture &picture) {
    uLongf size = packed.size();
    compress2(packed.data(), &size, picture.rows.data(), picture.rows.size(), 6);
    return size;
  });
}

void writeByLibpng(benchmark::State &state) {
  Bytes file(64 << 20);
  makeOfAll(state, [&file](const Picture &picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.shown.width);
    image.height = static_cast<png_uint_32>(picture.shown.height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = file.size();
    png_image_write_to_memory(&image, file.data(), &size, 0, picture.rgb.data(), 0, nullptr);
    return size;
  });
}

} // namespace

void addPngBenchmarks() {
  benchmark::RegisterBenchmark("png/own", writeOwn);
  benchmark::RegisterBenchmark("png/zlib6", deflateByZlib);
  benchmark::RegisterBenchmark("png/libpng", writeByLibpng);
}
