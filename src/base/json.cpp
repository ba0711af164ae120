#include "base/json.h"

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

} // namespace

std::string jsonText(std::string_view text) {
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

std::string jsonTruth(bool value) { return value ? "true" : "false"; }

std::string jsonSize(int32_t width, int32_t height) {
  return "[" + std::to_string(width) + "," + std::to_string(height) + "]";
}

void JsonObject::member(const char *key, const std::string &value) {
  if (text.size() > 1) text += ',';
  text += jsonText(key) + ":" + value;
}
