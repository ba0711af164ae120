// UTF-8 text, measured in characters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Number of characters.
size_t characterCount(std::string_view text);

// The last `count` characters, or all if there are fewer.
std::string_view lastCharacters(std::string_view text, size_t count);

// 27143 as "27,143".
std::string withThousandsSeparators(int64_t count);

// The colour 0x00RRGGBB as "#RRGGBB" in upper-case digits; the top byte is ignored.
std::string colourCode(uint32_t colour);

// Whether `left` comes before `right` if each number in them counts by its value and small letters as capitals: "PIC2"
// before "pic10". A strict order of all names; equal but for zeros and capitals, they are in the order of their bytes.
bool numberedBefore(std::string_view left, std::string_view right);

// Maps a-z to A-Z; other characters stay.
std::string upperCased(std::string_view text);
