#include "pixels/deflate.h"

#include "pixels/huffman_code.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

using Symbol = Deflater::Symbol;

constexpr size_t kMinMatch = 4;
constexpr size_t kMaxMatch = 258;
constexpr size_t kLiterals = 256;
constexpr size_t kEndOfBlock = 256;
constexpr size_t kLengthCodes = 286;
constexpr size_t kDistanceCodes = 30;
constexpr int kMaxCodeLength = 15;

// Where each code's range of lengths or distances begins, and how many bits follow the code.
template <size_t kCount> struct Ranges {
  std::array<uint16_t, kCount> first;
  std::array<uint8_t, kCount> extraBits;
};

// Lengths minus 3; the longest one has a code of its own.
constexpr Ranges<29> kLengths = []() {
  Ranges<29> ranges{};
  uint32_t next = 0;
  for (size_t code = 0; code < 28; ++code) {
    ranges.first[code] = static_cast<uint16_t>(next);
    ranges.extraBits[code] = static_cast<uint8_t>(code < 8 ? 0 : code / 4 - 1);
    next += 1U << ranges.extraBits[code];
  }
  ranges.first[28] = kMaxMatch - 3;
  return ranges;
}();

constexpr Ranges<kDistanceCodes> kDistances = []() {
  Ranges<kDistanceCodes> ranges{};
  uint32_t next = 1;
  for (size_t code = 0; code < kDistanceCodes; ++code) {
    ranges.first[code] = static_cast<uint16_t>(next);
    ranges.extraBits[code] = static_cast<uint8_t>(code < 4 ? 0 : code / 2 - 1);
    next += 1U << ranges.extraBits[code];
  }
  return ranges;
}();

constexpr std::array<uint8_t, 256> kCodeOfLength = []() {
  std::array<uint8_t, 256> codes{};
  for (size_t code = 0; code < 29; ++code) {
    for (size_t length = kLengths.first[code]; length < codes.size(); ++length)
      codes[length] = static_cast<uint8_t>(code);
  }
  return codes;
}();

size_t codeOfDistance(uint32_t distance) {
  if (distance <= 4) return distance - 1;
  const auto magnitude = static_cast<uint32_t>(std::bit_width(distance - 1)) - 1;
  return 2 * magnitude + ((distance - 1) >> (magnitude - 1) & 1);
}

constexpr size_t kWordBytes = sizeof(uint64_t);
static_assert(std::endian::native == std::endian::little); // words are stored and loaded as they are

template <typename Word> Word wordAt(const uint8_t *bytes) {
  Word word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

void flushOutput(Deflater &deflater) {
  const std::span<const uint8_t> whole = std::span(deflater.output).first(deflater.outputBytes);
  if (deflater.failure.empty() && !whole.empty()) deflater.failure = deflater.put(whole);
  deflater.outputBytes = 0;
}

// At most 56 bits.
inline void putBits(Deflater &deflater, uint64_t bits, int count) {
  deflater.bits |= bits << deflater.bitCount;
  deflater.bitCount += count;
  std::memcpy(&deflater.output[deflater.outputBytes], &deflater.bits, kWordBytes);
  const int whole = deflater.bitCount / 8;
  deflater.outputBytes += static_cast<size_t>(whole);
  deflater.bits >>= 8 * whole;
  deflater.bitCount -= 8 * whole;
  if (deflater.outputBytes > Deflater::kOutputBytes - kWordBytes) flushOutput(deflater);
}

void putCode(Deflater &deflater, const HuffmanCode &code) { putBits(deflater, code.bits, code.length); }

// The codes of a block.
struct BlockCodes {
  std::array<HuffmanCode, kLengthCodes> lengths; // and literals
  std::array<HuffmanCode, kDistanceCodes> distances;
};

BlockCodes codesFor(std::span<const Symbol> symbols) {
  std::array<uint32_t, kLengthCodes> lengthCounts{};
  std::array<uint32_t, kDistanceCodes> distanceCounts{};
  lengthCounts[kEndOfBlock] = 1;
  for (const Symbol symbol : symbols) {
    const uint32_t distance = symbol & 0xFFFF;
    const uint32_t value = symbol >> 16;
    ++lengthCounts[distance == 0 ? value : kLiterals + 1 + kCodeOfLength[value]];
    if (distance != 0) ++distanceCounts[codeOfDistance(distance)];
  }
  BlockCodes codes;
  makeHuffmanCode(lengthCounts, kMaxCodeLength, codes.lengths);
  makeHuffmanCode(distanceCounts, kMaxCodeLength, codes.distances);
  return codes;
}

// The lengths of both codes, one after the other, by a code of their own: 16 repeats the last length 3 to 6 times, 17
// and 18 repeat 0.
void putLengths(Deflater &deflater, std::span<const uint8_t> lengths) {
  constexpr std::array<uint8_t, 19> kOrder{16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
  constexpr int kMaxLengthOfLengths = 7;
  struct Item {
    uint8_t code;
    uint8_t repeats;
  };
  std::vector<Item> items;
  for (size_t i = 0; i < lengths.size();) {
    const auto differs = [&](uint8_t length) { return length != lengths[i]; };
    const auto begin = lengths.begin() + static_cast<std::ptrdiff_t>(i);
    const auto run = static_cast<size_t>(std::find_if(begin, lengths.end(), differs) - begin);
    const bool repeated = i > 0 && lengths[i] == lengths[i - 1];
    Item item{lengths[i], 1};
    if (lengths[i] == 0 && run >= 3) {
      item.repeats = static_cast<uint8_t>(std::min<size_t>(run, 138));
      item.code = item.repeats < 11 ? 17 : 18;
    } else if (repeated && run >= 3) {
      item = {16, static_cast<uint8_t>(std::min<size_t>(run, 6))};
    }
    items.push_back(item);
    i += item.repeats;
  }
  std::array<uint32_t, 19> counts{};
  for (const Item &item : items) ++counts[item.code];
  std::array<HuffmanCode, 19> codes;
  makeHuffmanCode(counts, kMaxLengthOfLengths, codes);
  size_t used = kOrder.size();
  while (codes[kOrder[used - 1]].length == 0) --used; // stays above 4: some length is not 0
  putBits(deflater, used - 4, 4);
  for (size_t i = 0; i < used; ++i) putBits(deflater, codes[kOrder[i]].length, 3);
  for (const auto &[code, repeats] : items) {
    putCode(deflater, codes[code]);
    if (code == 16) putBits(deflater, repeats - 3U, 2);
    if (code == 17) putBits(deflater, repeats - 3U, 3);
    if (code == 18) putBits(deflater, repeats - 11U, 7);
  }
}

void putSymbols(Deflater &deflater, const BlockCodes &codes) {
  for (const Symbol symbol : deflater.symbols) {
    const uint32_t distance = symbol & 0xFFFF;
    const uint32_t value = symbol >> 16;
    if (distance == 0) {
      putCode(deflater, codes.lengths[value]);
      continue;
    }
    const size_t lengthCode = kCodeOfLength[value];
    const HuffmanCode &length = codes.lengths[kLiterals + 1 + lengthCode];
    const uint64_t pastLength = value - kLengths.first[lengthCode];
    putBits(deflater, length.bits | pastLength << length.length, length.length + kLengths.extraBits[lengthCode]);
    const size_t distanceCode = codeOfDistance(distance);
    const HuffmanCode &reach = codes.distances[distanceCode];
    const uint64_t pastReach = distance - kDistances.first[distanceCode];
    putBits(deflater, reach.bits | pastReach << reach.length, reach.length + kDistances.extraBits[distanceCode]);
  }
}

void putBlock(Deflater &deflater, bool last) {
  constexpr uint64_t kDynamicCodes = 2;
  const BlockCodes codes = codesFor(deflater.symbols);
  std::vector<uint8_t> lengths;
  for (const HuffmanCode &code : codes.lengths) lengths.push_back(code.length);
  for (const HuffmanCode &code : codes.distances) lengths.push_back(code.length);
  putBits(deflater, uint64_t{last} | kDynamicCodes << 1, 3);
  putBits(deflater, kLengthCodes - 257, 5);
  putBits(deflater, kDistanceCodes - 1, 5);
  putLengths(deflater, lengths);
  putSymbols(deflater, codes);
  putCode(deflater, codes.lengths[kEndOfBlock]);
  deflater.symbols.clear();
}

void addSymbol(Deflater &deflater, uint32_t value, size_t distance) {
  deflater.symbols.push_back(value << 16 | static_cast<uint32_t>(distance));
  if (deflater.symbols.size() == Deflater::kBlockSymbols) putBlock(deflater, false);
}

// Makes `position` the latest place of its four bytes. Returns the one before + 1, or 0 if there is none.
size_t exchangeNewest(Deflater &deflater, size_t position) {
  constexpr uint32_t kMixer = 2654435761; // 2^32 over the golden ratio
  const auto word = wordAt<uint32_t>(&deflater.input[position]);
  uint32_t &newest = deflater.newest[word * kMixer >> (32 - Deflater::kHashBits)];
  return std::exchange(newest, static_cast<uint32_t>(position) + 1);
}

// How many bytes from `later` on repeat those from `earlier` on, at most `most`.
size_t matchLength(const uint8_t *earlier, const uint8_t *later, size_t most) {
  size_t length = 0;
  for (; length + kWordBytes <= most; length += kWordBytes) {
    const uint64_t difference = wordAt<uint64_t>(earlier + length) ^ wordAt<uint64_t>(later + length);
    if (difference != 0) return length + static_cast<size_t>(std::countr_zero(difference)) / 8;
  }
  while (length < most && earlier[length] == later[length]) ++length;
  return length;
}

// Compresses up to `end`; room for a whole match is behind it unless the input has ended. Takes the latest match.
void compressUpTo(Deflater &deflater, size_t end) {
  const std::span<const uint8_t> input = deflater.input;
  const size_t hashed = input.size() < kMinMatch ? 0 : input.size() - kMinMatch + 1; // places with bytes enough
  while (deflater.position < end) {
    const size_t position = deflater.position;
    size_t length = 0;
    size_t distance = 0;
    if (position < hashed) {
      const size_t earlier = exchangeNewest(deflater, position);
      distance = position + 1 - earlier;
      const bool within = earlier != 0 && distance <= Deflater::kWindowBytes;
      if (within)
        length = matchLength(&input[earlier - 1], &input[position], std::min(kMaxMatch, input.size() - position));
    }
    if (length < kMinMatch) {
      addSymbol(deflater, input[position], 0);
      ++deflater.position;
      continue;
    }
    addSymbol(deflater, static_cast<uint32_t>(length - 3), distance);
    deflater.position += length;
    for (size_t next = position + 1; next < std::min(deflater.position, hashed); ++next) exchangeNewest(deflater, next);
  }
}

// Keeps the window and what is not yet compressed. More than the window is compressed.
void dropOldInput(Deflater &deflater) {
  const size_t dropped = deflater.position - Deflater::kWindowBytes;
  deflater.input.erase(deflater.input.begin(), deflater.input.begin() + static_cast<std::ptrdiff_t>(dropped));
  deflater.position -= dropped;
  for (uint32_t &place : deflater.newest) place = place > dropped ? place - static_cast<uint32_t>(dropped) : 0;
}

// Adler-32.
void addToChecksum(std::array<uint32_t, 2> &sums, std::span<const uint8_t> bytes) {
  constexpr uint32_t kModulus = 65521;
  constexpr size_t kMostBeforeOverflow = 5552;
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(bytes.size(), kMostBeforeOverflow));
    for (const uint8_t byte : part) {
      sums[0] += byte;
      sums[1] += sums[0];
    }
    for (uint32_t &sum : sums) sum %= kModulus;
    bytes = bytes.subspan(part.size());
  }
}

} // namespace

Deflater::Deflater(const PutBytes &target) : put(target), newest(size_t{1} << kHashBits) {
  constexpr uint64_t kMethod = 0x78; // deflate, window of 32 KB
  constexpr uint64_t kNoDictionary = 0x01;
  input.reserve(kInputBytes);
  symbols.reserve(kBlockSymbols);
  output.resize(kOutputBytes);
  putBits(*this, kMethod | kNoDictionary << 8, 16);
}

void addBytes(Deflater &deflater, std::span<const uint8_t> bytes) {
  addToChecksum(deflater.checksum, bytes);
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(bytes.size(), Deflater::kInputBytes - deflater.input.size()));
    deflater.input.insert(deflater.input.end(), part.begin(), part.end());
    bytes = bytes.subspan(part.size());
    if (deflater.input.size() < Deflater::kInputBytes) continue;
    compressUpTo(deflater, Deflater::kInputBytes - kMaxMatch);
    dropOldInput(deflater);
  }
}

std::string finishStream(Deflater &deflater) {
  compressUpTo(deflater, deflater.input.size());
  putBlock(deflater, true);
  putBits(deflater, 0, (8 - deflater.bitCount) % 8);
  for (const uint32_t sum : {deflater.checksum[1], deflater.checksum[0]}) { // highest byte first
    putBits(deflater, sum >> 8 | (sum & 0xFF) << 8, 16);
  }
  flushOutput(deflater);
  return deflater.failure;
}
