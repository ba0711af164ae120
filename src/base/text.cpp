#include "base/text.h"

#include <algorithm>

namespace {

// UTF-8: all bytes of a character but the first are 10xxxxxx.
bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

char upperCased(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; }

// Removes the number at the start of `text`; returns its digits without leading zeros.
std::string_view takeNumber(std::string_view &text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  std::string_view digits = text.substr(0, static_cast<size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

// Removes the number or the letter at the start of both texts. Negative if the left one comes first, 0 if they are
// equal.
int compareStarts(std::string_view &left, std::string_view &right) {
  if (isDigit(left.front()) && isDigit(right.front())) {
    const std::string_view leftDigits = takeNumber(left);
    const std::string_view rightDigits = takeNumber(right);
    if (leftDigits.size() != rightDigits.size()) return leftDigits.size() < rightDigits.size() ? -1 : 1;
    return leftDigits.compare(rightDigits);
  }
  const auto leftLetter = static_cast<unsigned char>(upperCased(left.front()));
  const auto rightLetter = static_cast<unsigned char>(upperCased(right.front()));
  left.remove_prefix(1);
  right.remove_prefix(1);
  return leftLetter - rightLetter;
}

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

bool numberedBefore(std::string_view left, std::string_view right) {
  std::string_view restOfLeft = left, restOfRight = right;
  while (!restOfLeft.empty() && !restOfRight.empty()) {
    const int order = compareStarts(restOfLeft, restOfRight);
    if (order != 0) return order < 0;
  }
  if (restOfLeft.empty() != restOfRight.empty()) return restOfLeft.empty();
  return left < right;
}

std::string upperCased(std::string_view text) {
  std::string upper(text);
  for (char &byte : upper) byte = upperCased(byte);
  return upper;
}
