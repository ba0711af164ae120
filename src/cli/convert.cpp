#include "cli/convert.h"

#include "base/disk_files.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/threads.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/picture_writer.h"
#include "cli/progress.h"
#include "cli/target_names.h"
#include "core/bitmap_export.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

namespace {

struct Conversion {
  const CliRequest &request;
  std::span<const CliInput> inputs;
  std::vector<std::string> names; // of their pictures
  std::atomic<size_t> next{0};
  Progress progress = {};
  Targets targets = {};
};

std::string targetOf(const ViewerState &viewer, const Conversion &conversion, size_t input) {
  const CliRequest &request = conversion.request;
  if (!request.outPath.empty()) return request.outPath;
  if (conversion.inputs[input].standardInput && request.outDirectory.empty()) return kStandardStream;
  const std::string ending = bitmapPath(viewer).substr(savingPath(viewer.picturePath).size() - kExtensionLength);
  return conversion.names[input] + withLastLetters(ending, lettersOf(request.format));
}

// Writes the picture shown now, unless that would replace an input or another picture of the batch. Returns what went
// wrong, or an empty text.
std::string writePicture(ViewerState &viewer, Conversion &conversion, size_t input) {
  const CliRequest &request = conversion.request;
  const std::string target = targetOf(viewer, conversion, input);
  const bool isFile = target != kStandardStream;
  if (isFile && request.noClobber && systemFiles().exists(target.c_str())) return target + ": exists already";
  if (isFile && !request.outDirectory.empty()) {
    const std::string folder = target.substr(0, folderLength(target));
    if (std::string failure = makeFolders(folder); !failure.empty()) return folder + ": " + failure;
  }
  const std::string &path = viewer.filePath;
  std::string failure = isFile ? takeTarget(conversion.targets, target, path) : "";
  if (!failure.empty()) return path + ": " + failure;
  failure = writeCliOutput(target, [&](const PutBytes &put) { return putPicture(viewer, request, put); });
  if (isFile) keepTarget(conversion.targets, target, path);
  if (failure.empty()) countWritten(conversion.progress);
  return failure;
}

std::string convertFrame(OpenedFile &opened, Conversion &conversion, size_t input, int32_t frame) {
  if (showFrame(opened, frame)) return writePicture(opened.viewer, conversion, input);
  return opened.viewer.filePath + ": has no frame " + std::to_string(frame);
}

std::string convertFile(OpenedFile &opened, Conversion &conversion, size_t input) {
  const CliRequest &request = conversion.request;
  openInput(opened, conversion.inputs[input], request.palette);
  const ViewerState &viewer = opened.viewer;
  if (viewer.pictureShown != kTrue) return refusal(viewer);
  if (!request.allFrames) return convertFrame(opened, conversion, input, request.frame);
  if (framesOf(viewer) <= 0) return viewer.filePath + ": holds no frames";
  std::string failure;
  // A frame that exists already does not keep the others from being written.
  for (int32_t frame = 0; frame < framesOf(viewer) && (failure.empty() || request.noClobber); ++frame) {
    const std::string wrong = convertFrame(opened, conversion, input, frame);
    if (failure.empty()) failure = wrong;
  }
  return failure;
}

void convertUntilDone(Conversion &conversion) {
  const auto opened = std::make_unique<OpenedFile>(); // its memory serves for one file after another
  for (size_t i = conversion.next++; i < conversion.inputs.size(); i = conversion.next++) {
    showProgress(conversion.progress, conversion.inputs[i].path);
    countProgress(conversion.progress, convertFile(*opened, conversion, i));
  }
}

} // namespace

bool convertFiles(const CliRequest &request, std::span<const CliInput> inputs) {
  if (const std::string &folder = request.outDirectory; !folder.empty()) {
    if (const std::string failure = makeFolders(folder); !failure.empty()) {
      printError(folder + ": " + failure);
      return false;
    }
  }
  Conversion conversion{.request = request, .inputs = inputs, .names = nameTargets(request, inputs)};
  keepInputs(conversion.targets, request, inputs);
  beginProgress(conversion.progress, inputs.size());
  const size_t cores = request.jobs != 0 ? request.jobs : std::max(1U, std::thread::hardware_concurrency());
  const size_t threadCount = std::min(cores, inputs.size());
  std::vector<std::thread> helpers(std::max<size_t>(1, threadCount) - 1);
  for (std::thread &helper : helpers) {
    if (!startThread(helper, [&conversion] { convertUntilDone(conversion); })) break; // goes on with those there are
  }
  convertUntilDone(conversion);
  for (std::thread &helper : helpers) {
    if (helper.joinable()) helper.join();
  }
  endProgress(conversion.progress);
  return conversion.progress.failed == 0;
}
