// Codecs of other formats at the pictures of the samples: what reading such a picture takes elsewhere.
#include "bench_support.h"
#include "pixels/bitmap.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <span>

#ifdef KORILAN_PEER_SPNG
#include <spng.h>
#endif
#ifdef KORILAN_PEER_STB
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_ONLY_BMP
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop
#endif
#ifdef KORILAN_PEER_GIF
#include <gif_lib.h>
#endif
#ifdef KORILAN_PEER_YUV
#include <libyuv.h>
#endif

namespace {

using Bytes = std::vector<uint8_t>;

[[maybe_unused]] void countBytes(benchmark::State &state, const ShownPicture &picture) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * picture.words.size() * sizeof(uint32_t)));
}

// The colours of a picture, each once, or nothing where there are more than 256.
[[maybe_unused]] std::vector<uint32_t> coloursOf(const ShownPicture &picture) {
  std::vector<uint32_t> colours = picture.words;
  std::sort(colours.begin(), colours.end());
  colours.erase(std::unique(colours.begin(), colours.end()), colours.end());
  if (colours.size() > 256) colours.clear();
  return colours;
}

[[maybe_unused]] Bytes indexed(const ShownPicture &picture, const std::vector<uint32_t> &colours) {
  Bytes entries;
  for (const uint32_t word : picture.words) {
    entries.push_back(static_cast<uint8_t>(std::lower_bound(colours.begin(), colours.end(), word) - colours.begin()));
  }
  return entries;
}

#ifdef KORILAN_PEER_SPNG
// With a palette where the colours allow, as the picture would be kept.
Bytes encodePng(const ShownPicture &picture) {
  spng_ctx *context = spng_ctx_new(SPNG_CTX_ENCODER);
  spng_set_option(context, SPNG_ENCODE_TO_BUFFER, 1);
  spng_ihdr header{};
  header.width = static_cast<uint32_t>(picture.width);
  header.height = static_cast<uint32_t>(picture.height);
  header.bit_depth = 8;
  const std::vector<uint32_t> colours = coloursOf(picture);
  header.color_type = colours.empty() ? SPNG_COLOR_TYPE_TRUECOLOR : SPNG_COLOR_TYPE_INDEXED;
  spng_set_ihdr(context, &header);
  Bytes pixels;
  if (colours.empty()) {
    for (const uint32_t word : picture.words) {
      for (const int shift : {16, 8, 0}) pixels.push_back(static_cast<uint8_t>(word >> shift));
    }
  } else {
    spng_plte palette{};
    palette.n_entries = static_cast<uint32_t>(colours.size());
    for (size_t i = 0; i < colours.size(); ++i) {
      palette.entries[i] = {static_cast<uint8_t>(colours[i] >> 16), static_cast<uint8_t>(colours[i] >> 8),
                            static_cast<uint8_t>(colours[i]), 255};
    }
    spng_set_plte(context, &palette);
    pixels = indexed(picture, colours);
  }
  spng_encode_image(context, pixels.data(), pixels.size(), SPNG_FMT_PNG, SPNG_ENCODE_FINALIZE);
  size_t size = 0;
  int error = 0;
  void *buffer = spng_get_png_buffer(context, &size, &error);
  const auto *start = static_cast<const uint8_t *>(buffer);
  const Bytes file(start, start + size);
  std::free(buffer);
  spng_ctx_free(context);
  return file;
}

void readPngBySpng(benchmark::State &state, const ShownPicture *picture) {
  const Bytes file = encodePng(*picture);
  Bytes pixels(picture->words.size() * 4);
  for (auto step : state) {
    spng_ctx *context = spng_ctx_new(0);
    spng_set_png_buffer(context, file.data(), file.size());
    if (spng_decode_image(context, pixels.data(), pixels.size(), SPNG_FMT_RGBA8, 0) != 0) state.SkipWithError("png");
    spng_ctx_free(context);
  }
  countBytes(state, *picture);
}
#endif

#ifdef KORILAN_PEER_STB
void readByStb(benchmark::State &state, const ShownPicture &picture, const Bytes &file) {
  for (auto step : state) {
    int width = 0;
    int height = 0;
    int channels = 0;
    stbi_uc *pixels = stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &channels, 4);
    if (pixels == nullptr) state.SkipWithError("not read");
    stbi_image_free(pixels);
  }
  countBytes(state, picture);
}

void readBmpByStb(benchmark::State &state, const ShownPicture *picture) {
  Bytes file;
  putBitmap({picture->words, picture->width, picture->height}, BitmapHeader::kFile,
            [&file](std::span<const uint8_t> piece) {
              file.insert(file.end(), piece.begin(), piece.end());
              return std::string();
            });
  readByStb(state, *picture, file);
}

#ifdef KORILAN_PEER_SPNG
void readPngByStb(benchmark::State &state, const ShownPicture *picture) {
  readByStb(state, *picture, encodePng(*picture));
}
#endif
#endif

#ifdef KORILAN_PEER_GIF
int appendGif(GifFileType *gif, const GifByteType *bytes, int count) {
  auto &file = *static_cast<Bytes *>(gif->UserData);
  file.insert(file.end(), bytes, bytes + count);
  return count;
}

int takeGif(GifFileType *gif, GifByteType *bytes, int count) {
  auto &file = *static_cast<std::span<const uint8_t> *>(gif->UserData);
  const size_t taken = std::min(file.size(), static_cast<size_t>(count));
  std::memcpy(bytes, file.data(), taken);
  file = file.subspan(taken);
  return static_cast<int>(taken);
}

Bytes encodeGif(const ShownPicture &picture) {
  Bytes file;
  const std::vector<uint32_t> colours = coloursOf(picture);
  int error = 0;
  GifFileType *gif = EGifOpen(&file, appendGif, &error);
  ColorMapObject *map = GifMakeMapObject(256, nullptr);
  for (size_t i = 0; i < colours.size(); ++i) {
    map->Colors[i] = {static_cast<uint8_t>(colours[i] >> 16), static_cast<uint8_t>(colours[i] >> 8),
                      static_cast<uint8_t>(colours[i])};
  }
  EGifPutScreenDesc(gif, picture.width, picture.height, 8, 0, map);
  EGifPutImageDesc(gif, 0, 0, picture.width, picture.height, false, nullptr);
  Bytes entries = indexed(picture, colours);
  for (int y = 0; y < picture.height; ++y) EGifPutLine(gif, entries.data() + y * picture.width, picture.width);
  EGifCloseFile(gif, &error);
  GifFreeMapObject(map);
  return file;
}

// Reads the entries and looks their colours up, as whoever shows the picture has to.
void readGif(benchmark::State &state, const ShownPicture *picture) {
  const Bytes file = encodeGif(*picture);
  std::vector<uint32_t> pixels(picture->words.size());
  for (auto step : state) {
    std::span<const uint8_t> rest(file);
    int error = 0;
    GifFileType *gif = DGifOpen(&rest, takeGif, &error);
    if (gif == nullptr || DGifSlurp(gif) != GIF_OK) {
      state.SkipWithError("gif");
      break;
    }
    const GifColorType *colours = gif->SColorMap->Colors;
    const GifByteType *entries = gif->SavedImages[0].RasterBits;
    for (size_t i = 0; i < pixels.size(); ++i) {
      const GifColorType &colour = colours[entries[i]];
      pixels[i] = static_cast<uint32_t>(colour.Red << 16 | colour.Green << 8 | colour.Blue);
    }
    benchmark::DoNotOptimize(pixels.data());
    DGifCloseFile(gif, &error);
  }
  countBytes(state, *picture);
}
#endif

#ifdef KORILAN_PEER_YUV
// Three planes of full size into words: the work that YJK asks for, in its best-known form.
void convertYuv(benchmark::State &state, const ShownPicture *picture) {
  const size_t pixels = picture->words.size();
  Bytes planes(3 * pixels);
  for (size_t i = 0; i < planes.size(); ++i) planes[i] = static_cast<uint8_t>(i * 37 >> 3);
  Bytes target(4 * pixels);
  const int width = picture->width;
  for (auto step : state) {
    libyuv::I444ToARGB(planes.data(), width, planes.data() + pixels, width, planes.data() + 2 * pixels, width,
                       target.data(), 4 * width, width, picture->height);
    benchmark::ClobberMemory();
  }
  countBytes(state, *picture);
}
#endif

[[maybe_unused]] void add(const char *peer, const char *name,
                          void (*read)(benchmark::State &state, const ShownPicture *picture)) {
  benchmark::RegisterBenchmark((std::string(peer) + "/" + name).c_str(), read, &shownPictureOf(name));
}

} // namespace

void addPeerBenchmarks() {
  for (const char *name :
       {"COAST.SC5", "COAST.SC7", "COAST.SC8", "COAST.SC6", "COAST.SCA", "PLASMA.SRC", "COAST.SC4", "CHART.CMP",
        "NEWS.PCT", "CHART.SR5", "DESK.SR7", "WHEELYUV.G9B", "COAST64.G9B", "DESK.G9B", "AMBER.G9B"}) {
#ifdef KORILAN_PEER_SPNG
    add("png_spng", name, readPngBySpng);
#endif
#ifdef KORILAN_PEER_STB
    add("bmp_stb", name, readBmpByStb);
#ifdef KORILAN_PEER_SPNG
    add("png_stb", name, readPngByStb);
#endif
#endif
#ifdef KORILAN_PEER_GIF
    if (!coloursOf(shownPictureOf(name)).empty()) add("gif", name, readGif);
#endif
  }
#ifdef KORILAN_PEER_YUV
  for (const char *name : {"COAST.SCA", "PLASMA.SRC", "SUNSET.EVA", "COAST.EV8", "COAST.VID", "PLASMA.VID"}) {
    add("yuv", name, convertYuv);
  }
#endif
}
