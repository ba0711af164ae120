#include "cli/convert.h"

#include "base/paths.h"
#include "base/text.h"
#include "base/threads.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "pixels/stretching.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace {

// Input files whose output name would be the same, in the order given: one thread writes them.
using NameGroup = std::vector<std::string>;

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
    name = upperCased(name); // names that differ only in case are one
#endif
    const auto [entry, isNew] = groupOf.emplace(name, groups.size());
    if (isNew) groups.emplace_back();
    groups[entry->second].push_back(path);
  }
  return groups;
}

// The files that a batch reads and those that it has written, by fileIdentity(), each with the input that it is or is
// from. All threads share it.
struct Targets {
  struct Holder {
    std::string input;
    bool written;
  };
  std::map<std::string, Holder> holders;
  std::mutex mutex;
};

// Takes a target for the picture of an input. Returns why that cannot be, or an empty text.
std::string takeTarget(Targets &targets, const std::string &target, const std::string &input) {
  if (target == kStandardOutput) return "";
  const std::string identity = fileIdentity(target);
  const std::scoped_lock lock(targets.mutex);
  const Targets::Holder &holder = targets.holders.emplace(identity, Targets::Holder{input, true}).first->second;
  if (holder.written && holder.input == input) return "";
  if (holder.written) return input + ": its picture would replace that of " + holder.input;
  return input + ": its picture would replace " + (holder.input == input ? "the file itself" : holder.input);
}

// The target exists now, and may be known by another identity.
void keepTarget(Targets &targets, const std::string &target, const std::string &input) {
  const std::string identity = fileIdentity(target);
  const std::scoped_lock lock(targets.mutex);
  targets.holders.emplace(identity, Targets::Holder{input, true});
}

// Writes the picture shown now, unless that would replace an input or another picture of the batch. Returns what went
// wrong, or an empty text.
std::string writePicture(const ViewerState &viewer, const CliRequest &request, Targets &targets) {
  const std::string &path = viewer.filePath;
  const std::string target = outputPath(viewer, request);
  if (std::string clash = takeTarget(targets, target, path); !clash.empty()) return clash;
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
  std::string failure =
      finishCliOutput(output, request.format == ImageFormat::kPpm ? putPpm(picture, put)
                                                                  : putBitmap(picture, BitmapHeader::kFile, put));
  keepTarget(targets, target, path);
  return failure;
}

std::string convertFrame(OpenedFile &opened, const CliRequest &request, int32_t frame, Targets &targets) {
  if (showFrame(opened, frame)) return writePicture(opened.viewer, request, targets);
  return opened.viewer.filePath + ": has no frame " + std::to_string(frame);
}

std::string convertFile(OpenedFile &opened, const CliRequest &request, const std::string &path, Targets &targets) {
  openFile(opened, path);
  const ViewerState &viewer = opened.viewer;
  if (viewer.pictureShown != kTrue) return refusal(viewer);
  if (!request.allFrames) return convertFrame(opened, request, request.frame, targets);
  if (framesOf(viewer) <= 0) return path + ": holds no frames";
  std::string failure;
  for (int32_t frame = 0; frame < framesOf(viewer) && failure.empty(); ++frame) {
    failure = convertFrame(opened, request, frame, targets);
  }
  return failure;
}

struct Conversion {
  const CliRequest &request;
  const std::vector<NameGroup> groups;
  std::atomic<size_t> next{0};
  std::atomic<bool> allConverted{true};
  Progress progress = {};
  Targets targets = {};
};

void convertUntilDone(Conversion &conversion) {
  const auto opened = std::make_unique<OpenedFile>(); // its memory serves for one file after another
  for (size_t i = conversion.next++; i < conversion.groups.size(); i = conversion.next++) {
    for (const std::string &path : conversion.groups[i]) {
      showProgress(conversion.progress, path);
      const std::string failure = convertFile(*opened, conversion.request, path, conversion.targets);
      if (!failure.empty()) conversion.allConverted = false;
      countProgress(conversion.progress, failure);
    }
  }
}

} // namespace

bool convertFiles(const CliRequest &request) {
  Conversion conversion{.request = request, .groups = groupByName(request)};
  for (const std::string &path : request.files) conversion.targets.holders[fileIdentity(path)] = {path, false};
  beginProgress(conversion.progress, request.files.size());
  const size_t cores = request.jobs != 0 ? request.jobs : std::max(1U, std::thread::hardware_concurrency());
  const size_t threadCount = std::min(cores, conversion.groups.size());
  std::vector<std::thread> helpers(std::max<size_t>(1, threadCount) - 1);
  for (std::thread &helper : helpers) {
    if (!startThread(helper, [&conversion] { convertUntilDone(conversion); })) break; // goes on with those there are
  }
  convertUntilDone(conversion);
  for (std::thread &helper : helpers) {
    if (helper.joinable()) helper.join();
  }
  endProgress(conversion.progress);
  return conversion.allConverted;
}
