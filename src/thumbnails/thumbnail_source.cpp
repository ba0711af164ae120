#include "thumbnails/thumbnail_source.h"

#include "core/commands.h"
#include "headless/opened_file.h"

#include <atomic>
#include <memory>
#include <utility>

bool hasThumbnails(const FileKind &kind) { return !kind.traits.sharedExtension && kind.traits.companion == nullptr; }

TakeResult takeStream(const FileKind &kind, const ReadBytes &read, std::string &path) {
  const bool isVideo = kind.traits.player != nullptr;
  std::vector<uint8_t> bytes;
  if (!readUpTo(isVideo ? kVideoStartBytes : kMaxPictureBytes + 1, read, bytes)) return TakeResult::kNoMemory;
  if (bytes.size() > kMaxPictureBytes) return TakeResult::kTooLong;
  static std::atomic<uint64_t> files = 0;
  path = "file" + std::to_string(++files) + kind.extension;
  putMemoryFile(path, std::move(bytes));
  return TakeResult::kTaken;
}

bool makeThumbnail(const std::string &path, int32_t side, Thumbnail &thumbnail) {
  const auto file = std::make_unique<OpenedFile>();
  emptyWindow(*file);
  file->viewer.platform.files = &memoryFileOps();
  openPath(file->viewer, path);
  if (file->viewer.pictureShown != kTrue) return false;
  return thumbnailOf(file->viewer, side, thumbnail);
}
