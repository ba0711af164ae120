#include "cli/info.h"

#include "base/json.h"
#include "core/colour_count.h"
#include "video/playback.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace {

std::string number(int64_t value) { return std::to_string(value); }

std::string paletteWords(const ViewerState &viewer) {
  constexpr size_t kMaxEntries = 64;
  constexpr size_t kUsualEntries = 16;
  const size_t count = viewer.colourCount == kMaxEntries ? kMaxEntries : kUsualEntries;
  std::string words = "[";
  for (size_t i = 0; i < count; ++i) words += (i == 0 ? "" : ",") + number(viewer.palette[i]);
  return words + "]";
}

// 64-bit FNV-1a: for each byte the exclusive or, then the product with the prime. A zero byte is the product alone.
constexpr uint64_t kHashStart = 0xCBF29CE484222325;
constexpr uint64_t kHashPrime = 0x100000001B3;

uint64_t addBytes(uint64_t hash, uint32_t word, int count) {
  for (int i = 0; i < count; ++i) hash = (hash ^ (word >> 8 * i & 0xFF)) * kHashPrime;
  return hash;
}

// Of width, height and the words of the frame, each as four bytes, the lowest first; the highest one of a frame is 0.
std::string pixelHash(const ViewerState &viewer) {
  constexpr int kDigits = 16;
  uint64_t hash = addBytes(kHashStart, static_cast<uint32_t>(viewer.frameWidth), 4);
  hash = addBytes(hash, static_cast<uint32_t>(viewer.frameHeight), 4);
  for (const uint32_t word : viewer.frameBits) {
    hash = (addBytes(hash, word, 2) ^ (word >> 16 & 0xFF)) * (kHashPrime * kHashPrime);
  }
  std::string digits;
  for (int digit = kDigits - 1; digit >= 0; --digit) digits += "0123456789abcdef"[hash >> 4 * digit & 15];
  return digits;
}

void addVideoMembers(JsonObject &line, const ViewerState &viewer) {
  const VideoPlayer &player = *viewer.player;
  line.member("frameCount", number(player.frames(viewer)));
  line.member("framesPerSecond", number(player.rate(viewer)));
  line.member("isRgb", jsonTruth(player.hasSound && viewer.evaPlayer.isRgb == kTrue));
  line.member("currentFrame", number(viewer.run.currentFrame));
  line.member("statusLine", jsonText(viewer.window.Label4));
}

} // namespace

std::string infoJson(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  const bool shown = viewer.pictureShown == kTrue;
  JsonObject line;
  line.member("path", jsonText(viewer.filePath));
  line.member("fileExtension", jsonText(viewer.fileExtension));
  line.member("typeDescription", jsonText(viewer.typeDescription));
  line.member("fileLoaded", jsonTruth(viewer.fileLoaded == kTrue));
  line.member("bitsPerPixel", number(viewer.bitsPerPixel));
  line.member("colourMode", number(viewer.colourMode));
  line.member("colourCount", number(viewer.colourCount));
  line.member("hasPalette", jsonTruth(viewer.hasPalette == kTrue));
  line.member("isPacked", jsonTruth(viewer.isPacked == kTrue));
  line.member("spriteMode", jsonTruth(viewer.spriteMode == kTrue));
  line.member("imageWidth", number(viewer.imageWidth));
  line.member("imageHeight", number(viewer.imageHeight));
  line.member("caption", jsonText(window.caption));
  line.member("label1", jsonText(window.Label1));
  line.member("label2", jsonText(window.Label2));
  line.member("label3", jsonText(window.Label3));
  line.member("label4", jsonText(window.Label4));
  line.member("doubleHeight", jsonTruth(window.menuDoubleHeight.checked));
  line.member("palette", paletteWords(viewer));
  line.member("mainView", jsonSize(window.mainViewWidth, window.mainViewHeight));
  line.member("target", jsonSize(window.stretch.targetWidth, window.stretch.targetHeight));
  line.member("colourCountShown", number(shown ? shownColourCount(viewer) : 0));
  line.member("pixels", shown ? jsonText(pixelHash(viewer)) : "null");
  line.member("error", viewer.loadError.empty() ? "null" : jsonText(viewer.loadError));
  line.member("shown", jsonTruth(shown));
  if (viewer.player != nullptr) addVideoMembers(line, viewer);
  return line.end();
}

std::string infoText(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  const Stretch &stretch = window.stretch;
  std::vector<std::string> fields{viewer.typeDescription, window.Label1, window.Label2, window.Label3,
                                  "shown " + std::to_string(stretch.targetWidth) + "x" +
                                      std::to_string(stretch.targetHeight)};
  if (viewer.player != nullptr) {
    fields.push_back(number(viewer.player->frames(viewer)) + " frames");
    fields.push_back(number(playbackRate(viewer)) + " a second");
  }
  std::string text = viewer.filePath + ":";
  std::string_view separator = " ";
  for (std::string &field : fields) {
    field.erase(field.find_last_not_of(' ') + 1);
    if (field.empty()) continue;
    text += std::string(separator) + field;
    separator = ", ";
  }
  return text;
}
