// Values as JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A UTF-8 text in quotation marks; bytes that are no character become U+FFFD.
std::string jsonText(std::string_view text);

std::string jsonTruth(bool value);

// [width,height]
std::string jsonSize(int32_t width, int32_t height);

// An object, built member by member.
struct JsonObject {
  std::string text = "{";

  // `value` is JSON.
  void member(const char *key, const std::string &value);

  std::string end() const { return text + "}"; }
};
