#include "cli/info.h"

#include "core/colour_count.h"
#include "video/playback.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace {

// Length of the UTF-8 character at the start of `text`; 0 if it is invalid.
size_t characterLength(std::string_view text) {
  const auto byteAt = [text](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byteAt(0);
  if (lead < 0x80) return 1;
  const size_t length = lead >= 0xF0 && lead <= 0xF4 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((byteAt(i) & 0xC0) != 0x80) return 0;
  }
  const unsigned char second = byteAt(1);
  const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool noCharacter = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
  return overlong || noCharacter ? 0 : length;
}

std::string quoted(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    const size_t length = characterLength(text);
    const char first = text[0];
    if (length == 0) {
      json += "\\ufffd";
    } else if (first == '"' || first == '\\') {
      json += '\\';
      json += first;
    } else if (static_cast<unsigned char>(first) < 0x20) {
      json += first < 0x10 ? "\\u000" : "\\u001";
      json += "0123456789abcdef"[first & 15];
    } else {
      json += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return json + '"';
}

// A JSON object, built member by member.
struct JsonLine {
  std::string text = "{";

  void member(const char *key, const std::string &value) {
    if (text.size() > 1) text += ',';
    text += quoted(key) + ":" + value;
  }
};

std::string number(int64_t value) { return std::to_string(value); }
std::string truth(bool value) { return value ? "true" : "false"; }
std::string size(int32_t width, int32_t height) { return "[" + number(width) + "," + number(height) + "]"; }

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

void addVideoMembers(JsonLine &line, const ViewerState &viewer) {
  const VideoPlayer &player = *viewer.player;
  line.member("frameCount", number(player.frames(viewer)));
  line.member("framesPerSecond", number(player.rate(viewer)));
  line.member("isRgb", truth(player.hasSound && viewer.evaPlayer.isRgb == kTrue));
  line.member("currentFrame", number(viewer.run.currentFrame));
  line.member("statusLine", quoted(viewer.window.Label4));
}

} // namespace

std::string infoJson(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  const bool shown = viewer.pictureShown == kTrue;
  JsonLine line;
  line.member("path", quoted(viewer.filePath));
  line.member("fileExtension", quoted(viewer.fileExtension));
  line.member("typeDescription", quoted(viewer.typeDescription));
  line.member("fileLoaded", truth(viewer.fileLoaded == kTrue));
  line.member("bitsPerPixel", number(viewer.bitsPerPixel));
  line.member("colourMode", number(viewer.colourMode));
  line.member("colourCount", number(viewer.colourCount));
  line.member("hasPalette", truth(viewer.hasPalette == kTrue));
  line.member("isPacked", truth(viewer.isPacked == kTrue));
  line.member("spriteMode", truth(viewer.spriteMode == kTrue));
  line.member("imageWidth", number(viewer.imageWidth));
  line.member("imageHeight", number(viewer.imageHeight));
  line.member("caption", quoted(window.caption));
  line.member("label1", quoted(window.Label1));
  line.member("label2", quoted(window.Label2));
  line.member("label3", quoted(window.Label3));
  line.member("label4", quoted(window.Label4));
  line.member("doubleHeight", truth(window.menuDoubleHeight.checked));
  line.member("palette", paletteWords(viewer));
  line.member("mainView", size(window.mainViewWidth, window.mainViewHeight));
  line.member("target", size(window.stretch.targetWidth, window.stretch.targetHeight));
  line.member("colourCountShown", number(shown ? shownColourCount(viewer) : 0));
  line.member("pixels", shown ? quoted(pixelHash(viewer)) : "null");
  line.member("error", viewer.loadError.empty() ? "null" : quoted(viewer.loadError));
  line.member("shown", truth(shown));
  if (viewer.player != nullptr) addVideoMembers(line, viewer);
  return line.text + "}";
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
