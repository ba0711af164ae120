#include "pixels/huffman_code.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr size_t kMaxSymbols = 288;
constexpr size_t kMaxLength = 15;

struct Leaf {
  uint32_t count;
  uint16_t symbol;
};

// How many codes each length has.
using LengthCounts = std::array<uint32_t, kMaxLength + 1>;

// Depths of a Huffman tree's leaves, rarest leaf first. Nodes are made in the order of their counts, so the two lowest
// are always next in one of two queues.
void measureDepths(std::span<const Leaf> leaves, std::span<uint32_t> depths) {
  struct Node {
    uint64_t count;
    size_t parent;
  };
  std::array<Node, 2 * kMaxSymbols> nodes{};
  const size_t count = leaves.size();
  for (size_t i = 0; i < count; ++i) nodes[i].count = leaves[i].count;
  size_t leaf = 0;
  size_t inner = count;
  for (size_t next = count; next < 2 * count - 1; ++next) {
    for (int child = 0; child < 2; ++child) {
      const bool takesLeaf = leaf < count && (inner == next || nodes[leaf].count <= nodes[inner].count);
      Node &lowest = takesLeaf ? nodes[leaf++] : nodes[inner++];
      nodes[next].count += lowest.count;
      lowest.parent = next;
    }
  }
  std::array<uint32_t, 2 * kMaxSymbols> depth{};
  for (size_t node = 2 * count - 2; node-- > 0;) depth[node] = depth[nodes[node].parent] + 1;
  std::copy_n(depth.begin(), count, depths.begin());
}

// Lengths that a prefix code can have, none above `maxLength`: codes that are too long are shortened, and others made
// longer until all fit.
LengthCounts limitedLengths(std::span<const uint32_t> depths, size_t maxLength) {
  LengthCounts lengths{};
  uint32_t space = 0; // in codes of the greatest length
  for (const uint32_t depth : depths) {
    const size_t length = std::min<size_t>(depth, maxLength);
    ++lengths[length];
    space += uint32_t{1} << (maxLength - length);
  }
  for (; space > uint32_t{1} << maxLength; --space) {
    size_t longer = maxLength - 1;
    while (lengths[longer] == 0) --longer;
    --lengths[longer];
    lengths[longer + 1] += 2;
    --lengths[maxLength];
  }
  return lengths;
}

uint16_t reversed(uint32_t bits, int length) {
  uint32_t result = 0;
  for (int i = 0; i < length; ++i) result |= (bits >> i & 1) << (length - 1 - i);
  return static_cast<uint16_t>(result);
}

// Codes of one length follow one another in the order of the symbols.
void numberCodes(const LengthCounts &lengths, std::span<HuffmanCode> codes) {
  LengthCounts next{};
  uint32_t first = 0;
  for (size_t length = 1; length < lengths.size(); ++length) {
    next[length] = first;
    first = (first + lengths[length]) << 1;
  }
  for (HuffmanCode &code : codes) {
    if (code.length != 0) code.bits = reversed(next[code.length]++, code.length);
  }
}

} // namespace

void makeHuffmanCode(std::span<const uint32_t> counts, int maxLength, std::span<HuffmanCode> codes) {
  std::array<Leaf, kMaxSymbols> leaves{};
  size_t used = 0;
  for (size_t symbol = 0; symbol < counts.size(); ++symbol) {
    codes[symbol] = {};
    if (counts[symbol] != 0) leaves[used++] = {counts[symbol], static_cast<uint16_t>(symbol)};
  }
  if (used == 0) return;
  std::sort(leaves.begin(), leaves.begin() + static_cast<std::ptrdiff_t>(used), [](const Leaf &a, const Leaf &b) {
    return a.count != b.count ? a.count < b.count : a.symbol < b.symbol; // the same file on every system
  });
  std::array<uint32_t, kMaxSymbols> depths{1};
  if (used > 1) measureDepths(std::span(leaves).first(used), depths);
  LengthCounts lengths = limitedLengths(std::span(depths).first(used), static_cast<size_t>(maxLength));
  const LengthCounts numbered = lengths;
  size_t length = static_cast<size_t>(maxLength);
  for (const Leaf &leaf : std::span(leaves).first(used)) { // the rarest symbols get the longest codes
    while (lengths[length] == 0) --length;
    --lengths[length];
    codes[leaf.symbol].length = static_cast<uint8_t>(length);
  }
  numberCodes(numbered, codes);
}
