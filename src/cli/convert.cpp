#include "cli/convert.h"

#include "cli/interrupt.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "core/buffers.h"
#include "core/dispatch.h"
#include "core/text.h"
#include "screens/display_geometry.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <thread>

namespace {

// Files of the request that would all take the same name, in the order given: their pictures go to one file.
using NameGroup = std::vector<std::string>;

struct Conversion {
  const CliRequest &request;
  const std::vector<NameGroup> groups;
  std::atomic<size_t> next{0};
  std::atomic<bool> allConverted{true};
  Progress progress = {};
};

// What one thread needs; its memory serves for one file after another.
struct Converter {
  OpenedFile opened;
  std::vector<uint8_t> picture; // as it is written
};

std::vector<uint8_t> encodePpm(std::span<const uint32_t> frameBits, int32_t width, int32_t height,
                               std::vector<uint8_t> file) {
  const std::string header = "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
  file.assign(header.begin(), header.end());
  if (!provideRoom(file, file.size() + frameBits.size() * 3)) return {};
  for (const uint32_t word : frameBits) {
    for (const int shift : {16, 8, 0}) file.push_back(static_cast<uint8_t>(word >> shift));
  }
  return file;
}

// Empty when memory is lacking. `file` brings room along.
std::vector<uint8_t> encodePicture(const ViewerState &viewer, const CliRequest &request, std::vector<uint8_t> file) {
  const auto encode = request.format == ImageFormat::kPpm ? encodePpm : encodeBitmap;
  if (!request.shown) return encode(viewer.frameBits, viewer.frameWidth, viewer.frameHeight, std::move(file));
  const Stretch &stretch = viewer.window.stretch;
  return encode(stretchedPicture(viewer), stretch.targetWidth, stretch.targetHeight, std::move(file));
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
    const size_t nameStart = request.outDirectory.empty() ? 0 : path.find_last_of(kFolderSeparators) + 1;
    std::string name = withLastLetters(path.substr(nameStart), "");
#ifdef _WIN32
    name = upperCased(name); // names that differ only in case are one
#endif
    const auto [entry, isNew] = groupOf.emplace(name, groups.size());
    if (isNew) groups.emplace_back();
    groups[entry->second].push_back(path);
  }
  return groups;
}

// Path that a picture was written to -> file that it is from.
using TakenNames = std::map<std::string, std::string>;

// Writes the picture shown now, unless another file's picture already stands under its name. Returns what went wrong,
// or an empty text.
std::string writePicture(Converter &converter, const CliRequest &request, TakenNames &taken) {
  const ViewerState &viewer = converter.opened.viewer;
  const std::string &path = viewer.filePath;
  const std::string target = outputPath(viewer, request);
  const auto &holder = taken.emplace(target, path).first->second;
  if (holder != path) return path + ": its picture would replace that of " + holder;
  if (target != kStandardOutput && sameFile(target, path)) return path + ": its picture would replace the file itself";
  converter.picture = encodePicture(viewer, request, std::move(converter.picture));
  if (converter.picture.empty()) return path + ": there is not enough memory";
  CliOutput output;
  if (std::string failure = beginCliOutput(output, target); !failure.empty()) return failure;
  return finishCliOutput(output, writeCliOutput(output, converter.picture));
}

std::string convertFile(Converter &converter, const CliRequest &request, const std::string &path, TakenNames &taken) {
  openFile(converter.opened, path);
  const ViewerState &viewer = converter.opened.viewer;
  if (viewer.pictureShown != kTrue) return refusal(viewer);
  const int32_t first = request.allFrames ? 0 : request.frame;
  const int32_t behind = request.allFrames ? videoFrames(viewer) : first + 1;
  std::string failure;
  for (int32_t frame = first; frame < behind && failure.empty(); ++frame) {
    failure = showFrame(converter.opened, frame) ? writePicture(converter, request, taken)
                                                 : path + ": has no frame " + std::to_string(frame);
  }
  return failure;
}

void convertUntilDone(Conversion &conversion) {
  const auto converter = std::make_unique<Converter>();
  for (size_t i = conversion.next++; i < conversion.groups.size(); i = conversion.next++) {
    TakenNames taken;
    for (const std::string &path : conversion.groups[i]) {
      if (interrupted()) return;
      showProgress(conversion.progress, path);
      const std::string failure = convertFile(*converter, conversion.request, path, taken);
      if (!failure.empty()) conversion.allConverted = false;
      countProgress(conversion.progress, failure);
    }
  }
}

} // namespace

bool convertFiles(const CliRequest &request) {
  Conversion conversion{.request = request, .groups = groupByName(request)};
  beginProgress(conversion.progress, request.files.size());
  size_t threadCount = conversion.groups.size();
  if (threadCount > 1) { // to ask for the cores takes time, too
    const size_t cores = request.jobs != 0 ? request.jobs : std::max(1U, std::thread::hardware_concurrency());
    threadCount = std::min(cores, threadCount);
  }
  std::vector<std::thread> helpers;
  for (size_t i = 1; i < threadCount; ++i) helpers.emplace_back([&conversion] { convertUntilDone(conversion); });
  convertUntilDone(conversion);
  for (std::thread &helper : helpers) helper.join();
  endProgress(conversion.progress);
  return conversion.allConverted;
}
