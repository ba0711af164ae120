// The file behind a thumbnail: a copy in memory of what a file manager gives as a stream without a name.
#pragma once

#include "base/memory_files.h"
#include "pixels/thumbnail.h"
#include "state/file_kind.h"

#include <cstdint>
#include <string>

// Whether file managers are offered thumbnails of this kind: neither of an extension that other programs use, too, nor
// of a picture in two files.
bool hasThumbnails(const FileKind &kind);

// Bytes of a picture file; a longer one has no thumbnail. Of a video only its start is read, which holds the header and
// the first frame: at most 33,279 bytes.
inline constexpr size_t kMaxPictureBytes = size_t{64} << 20;
inline constexpr size_t kVideoStartBytes = size_t{64} << 10;

enum class TakeResult { kTaken, kTooLong, kNoMemory };

// Copies what `read` gives into a memory file of that kind and sets `path`; on failure there is none.
TakeResult takeStream(const FileKind &kind, const ReadBytes &read, std::string &path);

// The thumbnail of a memory file, with the pixels that `korilan-cli thumb` writes; `side` is at most
// kMaxThumbnailSide. Returns false if the file is refused, or there is not enough memory.
bool makeThumbnail(const std::string &path, int32_t side, Thumbnail &thumbnail);
