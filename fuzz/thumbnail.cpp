// A stream of any kind as a file manager gives it. Byte 0 chooses the kind, byte 1 the side of the thumbnail and how
// many bytes a read gives; the rest is the stream.
#include "fuzz_viewer.h"

#include "core/file_kinds.h"
#include "thumbnails/thumbnail_source.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  std::span<const uint8_t> input(data, size);
  const FileKind &kind = kFileKinds[takeByte(input) % kFileKinds.size()];
  const int32_t side = takeByte(input) + 1;
  const auto read = [&](std::span<uint8_t> into) {
    const size_t given = std::min({into.size(), input.size(), size_t{64} * static_cast<size_t>(side)});
    std::copy_n(input.begin(), given, into.begin());
    input = input.subspan(given);
    return given;
  };
  std::string path;
  if (takeStream(kind, read, path) != TakeResult::kTaken) std::abort();
  Thumbnail thumbnail;
  if (makeThumbnail(path, side, thumbnail)) {
    if (std::min(thumbnail.width, thumbnail.height) < 1 || std::max(thumbnail.width, thumbnail.height) > side) {
      std::abort();
    }
    if (std::ssize(thumbnail.words) != int64_t{thumbnail.width} * thumbnail.height) std::abort();
  }
  removeMemoryFile(path);
  return 0;
}
