#include "cli/convert.h"

#include "base/buffers.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/interrupt.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "pixels/stretching.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <thread>

namespace {

// Input files whose output name would be the same, in the order given; one thread converts them.
using NameGroup = std::vector<std::string>;

struct Conversion {
  const CliRequest &request;
  const std::vector<NameGroup> groups;
  std::atomic<size_t> next{0};
  std::atomic<bool> allConverted{true};
  Progress progress = {};
};

std::string putPpm(const PixelView &picture, const PutBytes &put) {
  constexpr size_t kChunkPixels = size_t{1} << 13;
  const std::string header = "P6\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n255\n";
  std::vector<uint8_t> piece(header.begin(), header.end());
  std::string failure = put(piece);
  std::span<const uint32_t> words = picture.words;
  while (!words.empty() && failure.empty()) {
    const auto pixels = words.first(std::min(kChunkPixels, words.size()));
    piece.clear();
    for (const uint32_t word : pixels) {
      for (const int shift : {16, 8, 0}) piece.push_back(static_cast<uint8_t>(word >> shift));
    }
    failure = put(piece);
    words = words.subspan(pixels.size());
  }
  return failure;
}

std::string outputPath(const ViewerState &viewer, const CliRequest &request) {
  if (!request.outPath.empty()) return request.outPath;
  std::string path = bitmapPath(viewer);
  if (request.format == ImageFormat::kPpm) path = withLastLetters(path, "ppm");
  if (request.outDirectory.empty()) return path;
  return request.outDirectory + kFolderSeparators.back() + path.substr(viewer.folderPath.size());
}

std::vector<NameGroup> groupByName(const CliRequest &request) {
  std::vector<NameGroup> groups;
  std::map<std::string, size_t> groupOf; // path without its extension -> group
  for (const std::string &path : request.files) {
    const size_t nameStart = request.outDirectory.empty() ? 0 : folderLength(path);
    std::string name = withLastLetters(path.substr(nameStart), "");
#ifdef _WIN32
    name = upperCased(name); // names are not case-sensitive
#endif
    const auto [entry, isNew] = groupOf.emplace(name, groups.size());
    if (isNew) groups.emplace_back();
    groups[entry->second].push_back(path);
  }
  return groups;
}

// Output path -> input file.
using TakenNames = std::map<std::string, std::string>;

// Writes the shown picture, unless another file's picture has its name. Returns an error message, empty on success.
std::string writePicture(const ViewerState &viewer, const CliRequest &request, TakenNames &taken) {
  const std::string &path = viewer.filePath;
  const std::string target = outputPath(viewer, request);
  const auto &holder = taken.emplace(target, path).first->second;
  if (holder != path) return path + ": its picture would replace that of " + holder;
  if (target != kStandardOutput && sameFile(target, path)) return path + ": its picture would replace the file itself";
  std::vector<uint32_t> stretched;
  PixelView picture = shownPicture(viewer);
  if (request.shown) {
    const Stretch &stretch = viewer.window.stretch;
    if (!stretchPicture(picture, stretch.targetWidth, stretch.targetHeight, stretched)) {
      return path + ": there is not enough memory";
    }
    picture = {stretched, stretch.targetWidth, stretch.targetHeight};
  }
  CliOutput output;
  if (std::string failure = beginCliOutput(output, target); !failure.empty()) return failure;
  const auto put = [&output](std::span<const uint8_t> bytes) { return writeCliOutput(output, bytes); };
  return finishCliOutput(output, request.format == ImageFormat::kPpm ? putPpm(picture, put)
                                                                     : putBitmap(picture, BitmapHeader::kFile, put));
}

std::string convertFile(OpenedFile &opened, const CliRequest &request, const std::string &path, TakenNames &taken) {
  openFile(opened, path);
  const ViewerState &viewer = opened.viewer;
  if (viewer.pictureShown != kTrue) return refusal(viewer);
  const int32_t first = request.allFrames ? 0 : request.frame;
  const int32_t behind = request.allFrames ? framesOf(viewer) : first + 1;
  std::string failure;
  for (int32_t frame = first; frame < behind && failure.empty(); ++frame) {
    failure = showFrame(opened, frame) ? writePicture(viewer, request, taken)
                                       : path + ": has no frame " + std::to_string(frame);
  }
  return failure;
}

void convertUntilDone(Conversion &conversion) {
  const auto opened = std::make_unique<OpenedFile>(); // its memory is reused for each file
  for (size_t i = conversion.next++; i < conversion.groups.size(); i = conversion.next++) {
    TakenNames taken;
    for (const std::string &path : conversion.groups[i]) {
      if (interrupted()) return;
      showProgress(conversion.progress, path);
      const std::string failure = convertFile(*opened, conversion.request, path, taken);
      if (!failure.empty()) conversion.allConverted = false;
      countProgress(conversion.progress, failure);
    }
  }
}

} // namespace

bool convertFiles(const CliRequest &request) {
  Conversion conversion{.request = request, .groups = groupByName(request)};
  beginProgress(conversion.progress, request.files.size());
  const size_t cores = request.jobs != 0 ? request.jobs : std::max(1U, std::thread::hardware_concurrency());
  const size_t threadCount = std::min(cores, conversion.groups.size());
  std::vector<std::thread> helpers;
  for (size_t i = 1; i < threadCount; ++i) helpers.emplace_back([&conversion] { convertUntilDone(conversion); });
  convertUntilDone(conversion);
  for (std::thread &helper : helpers) helper.join();
  endProgress(conversion.progress);
  return conversion.allConverted;
}
