#include "core/following.h"

#include "base/buffers.h"
#include "base/disk_files.h"
#include "base/paths.h"
#include "core/display_geometry.h"
#include "core/opening.h"
#include "core/palette_commands.h"
#include "core/video_commands.h"
#include "state/companion_file.h"
#include "state/platform_calls.h"

#include <algorithm>
#include <utility>

namespace {

constexpr uint32_t kQuietMilliseconds = 200; // a program that writes a file in parts is done
constexpr uint32_t kRetryMilliseconds = 1000;
constexpr int64_t kMaxComparedBytes = int64_t{4} << 20; // of a longer file length and time are compared

using Snapshots = std::array<FileSnapshot, kFollowedFiles>;

void waitFor(ViewerState &viewer, uint32_t milliseconds) {
  viewer.following.waits = true;
  viewer.following.due = tickCount(viewer) + milliseconds;
}

// Closes the file.
FileSnapshot takeSnapshot(InputFile &file) {
  FileSnapshot snapshot{.stamp = stampOf(file), .bytes = {}};
  const int64_t length = snapshot.stamp.length;
  if (length > 0 && length <= kMaxComparedBytes) {
    snapshot.bytes.resize(static_cast<size_t>(length));
    if (readAvailableBytes(file, 1, snapshot.bytes) < snapshot.bytes.size()) snapshot = {};
  }
  closeInputFile(file);
  return snapshot;
}

Snapshots takeSnapshots(const ViewerState &viewer) {
  Snapshots snapshots;
  InputFile file;
  openInputFile(file, *viewer.platform.files, openedPath(viewer));
  snapshots[0] = takeSnapshot(file);
  openCompanion(viewer, file);
  snapshots[1] = takeSnapshot(file);
  return snapshots;
}

bool sameFile(const FileSnapshot &left, const FileSnapshot &right) {
  if (left.stamp.length > kMaxComparedBytes) return left.stamp == right.stamp;
  return left.stamp.length == right.stamp.length && left.bytes == right.bytes;
}

bool unchanged(const Following &following, const Snapshots &now) {
  if (following.knows) return std::equal(now.begin(), now.end(), following.known.begin(), sameFile);
  return std::equal(now.begin(), now.end(), following.loaded.begin(),
                    [](const FileSnapshot &file, const FileStamp &stamp) { return file.stamp == stamp; });
}

// A copy to load into, without the frame and without a window: no event can use it in mid-load.
ViewerState trialOf(ViewerState &viewer) {
  std::vector<uint32_t> frame = std::exchange(viewer.frameBits, {});
  std::vector<uint32_t> entries = std::exchange(viewer.entryBits, {});
  ViewerState trial = viewer;
  viewer.frameBits = std::move(frame);
  viewer.entryBits = std::move(entries);
  trial.inputFile = {};
  trial.pictureShown = kFalse;
  trial.platform.runPendingEvents = [](void *) {};
  trial.platform.showMessage = [](void *, const std::string &, const std::string &, MessageIcon) {};
  return trial;
}

// Sets up the view of the reloaded file as the user had it.
void keepView(const ViewerState &before, ViewerState &viewer) {
  const bool wasShown = before.loadError.empty() && before.picturePath == openedPath(before);
  if (!wasShown) return;
  WindowModel &window = viewer.window;
  const WindowModel &old = before.window;
  if (window.menuDoubleHeight.checked != old.menuDoubleHeight.checked) {
    window.menuDoubleHeight.checked = old.menuDoubleHeight.checked;
    ApplyDisplayGeometry(viewer);
  }
  if (old.menuViewPal.checked) menuViewPal_Click(viewer);
  if (before.player != nullptr) HScroll1_Change(viewer, old.HScroll1.value);
  // A window that is always centred stays where the user has moved it.
  const bool sameSize = window.mainViewWidth == old.mainViewWidth && window.mainViewHeight == old.mainViewHeight;
  if (sameSize) window.fittings = old.fittings;
}

// Returns false, with nothing changed, if the file is refused or there is not enough memory.
bool loadAgain(ViewerState &viewer) {
  ViewerState trial = trialOf(viewer);
  if (trial.vram.size() != viewer.vram.size() || trial.packedData.size() != viewer.packedData.size()) return false;
  trial.filePath = openedPath(viewer);
  openCurrentPath(trial);
  if (trial.pictureShown != kTrue || !trial.loadError.empty()) {
    closeInputFile(trial.inputFile);
    return false;
  }
  keepView(viewer, trial);
  trial.platform = viewer.platform;
  closeInputFile(viewer.inputFile);
  viewer = std::move(trial);
  return true;
}

} // namespace

void startFollowing(ViewerState &viewer) {
  viewer.following = {};
  viewer.following.file = systemFileOf(openedPath(viewer));
  InputFile companion;
  openCompanion(viewer, companion);
  viewer.following.loaded = {stampOf(viewer.inputFile), stampOf(companion)};
  closeInputFile(companion);
  noteFileChange(viewer);
}

std::string followedFolder(const ViewerState &viewer) {
  const std::string &file = viewer.following.file;
  return file.substr(0, folderLength(file));
}

std::vector<std::string> followedNames(const ViewerState &viewer) {
  if (!viewer.display.followChanges || viewer.fileLoaded != kTrue) return {};
  const std::string &file = viewer.following.file;
  std::vector<std::string> names{std::string(fileNameOf(file))};
  if (std::string name = companionName(viewer); !name.empty() && file == openedPath(viewer)) names.push_back(name);
  return names;
}

void noteFileChange(ViewerState &viewer) {
  viewer.following.triesAgain = true;
  waitFor(viewer, kQuietMilliseconds);
}

std::optional<uint32_t> followDelay(const ViewerState &viewer) {
  const Following &following = viewer.following;
  const bool follows = viewer.display.followChanges && viewer.fileLoaded == kTrue;
  if (!follows || !following.waits || viewer.activity != Activity::kIdle) return std::nullopt;
  // The tick count wraps after 49.7 days; the difference does not.
  const auto left = static_cast<int32_t>(following.due - tickCount(viewer));
  return static_cast<uint32_t>(std::max(0, left));
}

void followFile(ViewerState &viewer) {
  if (followDelay(viewer) != 0U) return;
  Following &following = viewer.following;
  following.waits = false;
  Snapshots now = takeSnapshots(viewer);
  const bool same = unchanged(following, now);
  const bool taken = same || (now[0].stamp.length > 0 && loadAgain(viewer));
  if (taken) {
    following.known = std::move(now);
    following.knows = true;
  } else if (std::exchange(following.triesAgain, false)) {
    waitFor(viewer, kRetryMilliseconds);
  }
}
