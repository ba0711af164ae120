#include "base/text.h"

#include <algorithm>

namespace {

// UTF-8: all bytes of a character but the first are 10xxxxxx.
bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

} // namespace

size_t characterCount(std::string_view text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

std::string_view lastCharacters(std::string_view text, size_t count) {
  size_t start = text.size();
  while (start > 0 && count > 0) {
    --start;
    if (startsCharacter(text[start])) --count;
  }
  return text.substr(start);
}

std::string withThousandsSeparators(int64_t count) {
  constexpr size_t kGroupDigits = 3;
  std::string digits = std::to_string(count);
  for (size_t end = digits.size(); end > kGroupDigits + (count < 0 ? 1 : 0); end -= kGroupDigits) {
    digits.insert(end - kGroupDigits, ",");
  }
  return digits;
}

std::string colourCode(uint32_t colour) {
  std::string code = "#";
  for (int shift = 20; shift >= 0; shift -= 4) code += "0123456789ABCDEF"[colour >> shift & 15];
  return code;
}

std::string upperCased(std::string_view text) {
  std::string upper(text);
  for (char &byte : upper) {
    if (byte >= 'a' && byte <= 'z') byte = static_cast<char>(byte - 'a' + 'A');
  }
  return upper;
}
