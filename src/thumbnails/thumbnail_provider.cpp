#include "thumbnails/thumbnail_provider.h"

#include "thumbnails/com_object.h"
#include "thumbnails/thumbnail_source.h"

#include <windows.h>

#include <propsys.h>
#include <thumbcache.h>

#include <algorithm>
#include <new>

namespace {

// 32 bits a pixel, top row first; nullptr if there is not enough memory.
HBITMAP bitmapOf(const Thumbnail &thumbnail) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = thumbnail.width;
  info.bmiHeader.biHeight = -thumbnail.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void *bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap != nullptr) std::copy(thumbnail.words.begin(), thumbnail.words.end(), static_cast<uint32_t *>(bits));
  return bitmap;
}

HRESULT resultOf(TakeResult result) {
  switch (result) {
  case TakeResult::kTaken: return S_OK;
  case TakeResult::kTooLong: return HRESULT_FROM_WIN32(ERROR_FILE_TOO_LARGE);
  default: return E_OUTOFMEMORY;
  }
}

class ThumbnailProvider final : public ComObject<IThumbnailProvider, IInitializeWithStream> {
public:
  explicit ThumbnailProvider(const FileKind &ofKind) : kind(ofKind) {}
  ~ThumbnailProvider() override { removeMemoryFile(path); }
  ThumbnailProvider(const ThumbnailProvider &) = delete;
  ThumbnailProvider &operator=(const ThumbnailProvider &) = delete;

  HRESULT STDMETHODCALLTYPE Initialize(IStream *stream, DWORD) override {
    if (stream == nullptr) return E_INVALIDARG;
    if (!path.empty()) return HRESULT_FROM_WIN32(ERROR_ALREADY_INITIALIZED);
    HRESULT failure = S_OK;
    const auto read = [&](std::span<uint8_t> into) -> size_t {
      ULONG given = 0;
      const HRESULT result = stream->Read(into.data(), static_cast<ULONG>(into.size()), &given);
      if (FAILED(result)) failure = result;
      return FAILED(result) ? 0 : given;
    };
    const TakeResult taken = takeStream(kind, read, path);
    if (!FAILED(failure)) return resultOf(taken);
    removeMemoryFile(path);
    path.clear();
    return failure;
  }

  HRESULT STDMETHODCALLTYPE GetThumbnail(UINT side, HBITMAP *bitmap, WTS_ALPHATYPE *alpha) override {
    if (bitmap == nullptr || alpha == nullptr) return E_POINTER;
    *bitmap = nullptr;
    *alpha = WTSAT_UNKNOWN;
    if (side == 0) return E_INVALIDARG;
    if (path.empty()) return E_UNEXPECTED;
    Thumbnail thumbnail;
    constexpr UINT kMaxSide = kMaxThumbnailSide;
    if (!makeThumbnail(path, static_cast<int32_t>(std::min(side, kMaxSide)), thumbnail)) return WTS_E_FAILEDEXTRACTION;
    *bitmap = bitmapOf(thumbnail);
    if (*bitmap == nullptr) return E_OUTOFMEMORY;
    *alpha = WTSAT_RGB;
    return S_OK;
  }

private:
  const FileKind &kind;
  std::string path; // of the memory file; empty before the first Initialize()
};

} // namespace

HRESULT createThumbnailProvider(const FileKind &kind, REFIID id, void **provider) {
  return takeInterface(new (std::nothrow) ThumbnailProvider(kind), id, provider);
}
