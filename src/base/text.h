// UTF-8 text counted in characters, as paths and names are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Number of characters.
size_t characterCount(std::string_view text);

// The last `count` characters, or the whole text where it is shorter.
std::string_view lastCharacters(std::string_view text, size_t count);

// `path` with its last three characters, the letters of its extension, replaced by `letters`.
std::string withLastLetters(std::string_view path, std::string_view letters);

// A count as people read it: 27143 is "27,143".
std::string grouped(int64_t count);

// The colour 0x00RRGGBB as people write it: "#RRGGBB", in capital digits; higher bits do not count.
std::string colourCode(uint32_t colour);

// A to Z for a to z; other characters stay.
std::string upperCased(std::string_view text);
