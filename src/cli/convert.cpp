#include "cli/convert.h"

#include "cli/opened_file.h"
#include "core/bitmap_export.h"
#include "core/dispatch.h"
#include "screens/display_geometry.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <map>
#include <memory>
#include <thread>

namespace {

constexpr const char *kStandardOutput = "-";

// Files of the request whose output an earlier file of the request already takes: index -> the earlier file.
using Clashes = std::map<size_t, std::string>;

struct Conversion {
  const CliRequest &request;
  const Clashes clashes;
  std::atomic<size_t> next{0};
  std::atomic<bool> allConverted{true};
};

std::vector<uint8_t> encodePpm(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  const std::string header = "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
  std::vector<uint8_t> file(header.begin(), header.end());
  file.reserve(file.size() + frameBits.size() * 3);
  for (const uint32_t word : frameBits) {
    for (const int shift : {16, 8, 0}) file.push_back(static_cast<uint8_t>(word >> shift));
  }
  return file;
}

std::vector<uint8_t> encodePicture(const ViewerState &viewer, const CliRequest &request) {
  const auto encode = request.format == ImageFormat::kPpm ? encodePpm : encodeBitmap;
  if (!request.shown) return encode(viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
  const Stretch &stretch = viewer.window.stretch;
  return encode(stretchedPicture(viewer), stretch.targetWidth, stretch.targetHeight);
}

std::string outputPath(const ViewerState &viewer, const CliRequest &request) {
  constexpr size_t kExtensionLetters = 3;
  if (!request.outPath.empty()) return request.outPath;
  std::string path = bitmapPath(viewer);
  if (request.format == ImageFormat::kPpm) path.replace(path.size() - kExtensionLetters, kExtensionLetters, "ppm");
  if (request.outDirectory.empty()) return path;
  return request.outDirectory + "/" + path.substr(viewer.folderPath.size());
}

std::string writeStandardOutput(std::span<const uint8_t> bytes) {
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
  return written ? "" : "could not be written";
}

// Two files of one call may differ only in their extension, or in their folder where all go to one; the later one must
// not replace the picture of the earlier.
Clashes findClashes(const CliRequest &request) {
  constexpr size_t kExtensionLetters = 3;
  Clashes clashes;
  std::map<std::string, std::string> takenBy; // path without its extension -> file
  for (size_t i = 0; i < request.files.size(); ++i) {
    const std::string &path = request.files[i];
    const size_t nameStart = request.outDirectory.empty() ? 0 : path.find_last_of(kFolderSeparators) + 1;
    const size_t stemEnd = std::max(nameStart, path.size() - std::min(path.size(), kExtensionLetters));
    const auto [taken, isNew] = takenBy.emplace(path.substr(nameStart, stemEnd - nameStart), path);
    if (!isNew && taken->second != path) clashes.emplace(i, taken->second);
  }
  return clashes;
}

// Converts one file; returns what went wrong, or an empty text.
std::string convertFile(const CliRequest &request, const std::string &path) {
  const auto file = std::make_unique<OpenedFile>();
  openFile(*file, path);
  const ViewerState &viewer = file->viewer;
  if (viewer.pictureShown != kTrue) return refusal(viewer);

  const auto bytes = encodePicture(viewer, request);
  const std::string target = outputPath(viewer, request);
  const std::string failure =
      target == kStandardOutput ? writeStandardOutput(bytes) : systemFiles().replaceFile(target.c_str(), bytes);
  return failure.empty() ? "" : target + ": " + failure;
}

void convertUntilDone(Conversion &conversion) {
  const auto &files = conversion.request.files;
  for (size_t i = conversion.next++; i < files.size(); i = conversion.next++) {
    const auto clash = conversion.clashes.find(i);
    const std::string failure = clash == conversion.clashes.end()
                                    ? convertFile(conversion.request, files[i])
                                    : files[i] + ": its picture would replace that of " + clash->second;
    if (failure.empty()) continue;
    conversion.allConverted = false;
    std::fprintf(stderr, "%s\n", failure.c_str());
  }
}

} // namespace

bool convertFiles(const CliRequest &request) {
  Conversion conversion{.request = request, .clashes = findClashes(request)};
  const size_t cores = request.jobs != 0 ? request.jobs : std::max(1U, std::thread::hardware_concurrency());
  const size_t threadCount = std::min(cores, request.files.size());
  std::vector<std::thread> helpers;
  for (size_t i = 1; i < threadCount; ++i) helpers.emplace_back([&conversion] { convertUntilDone(conversion); });
  convertUntilDone(conversion);
  for (std::thread &helper : helpers) helper.join();
  return conversion.allConverted;
}
