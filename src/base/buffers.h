// Memory whose size comes from a file: video memory, pictures, frames, packed bodies.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

// Zero-initialised memory, written only through written(): clearing touches no more than that has handed out.
class VideoMemory {
public:
  // Ends the program if there is not enough memory.
  explicit VideoMemory(size_t size);

  // The copy has size 0 if there is not enough memory.
  VideoMemory(const VideoMemory &other);
  VideoMemory(VideoMemory &&other) noexcept = default;
  VideoMemory &operator=(const VideoMemory &) = delete;
  VideoMemory &operator=(VideoMemory &&other) noexcept = default;
  ~VideoMemory() = default;

  // Keeps the bytes that fit. Returns false, with nothing changed, if there is not enough memory.
  bool resize(size_t size);

  // The first `end` bytes, or all if there are fewer, to be written.
  std::span<uint8_t> written(size_t end);

  // Zeroes all bytes from `position` on.
  void clearFrom(size_t position);

  // Declares that all bytes from `end` on are zero, for who was handed out more than was written: spares their
  // clearing.
  void keepZeroFrom(size_t end) { used = std::min(used, end); }

  const uint8_t *data() const { return bytes.get(); }
  size_t size() const { return length; }
  const uint8_t *begin() const { return data(); }
  const uint8_t *end() const { return data() + length; }
  const uint8_t &operator[](size_t position) const { return bytes[position]; }

private:
  struct Free {
    void operator()(uint8_t *block) const { std::free(block); }
  };

  std::unique_ptr<uint8_t[], Free> bytes;
  size_t length = 0;
  size_t used = 0; // all bytes from here on are zero
};

// Reserves room for `count` items. Returns false, with the buffer unchanged, if there is not enough memory. All other
// allocations are small: if one fails, the program ends with a message.
bool reserve(VideoMemory &memory, size_t size);
bool reserve(std::vector<uint8_t> &buffer, size_t count);
bool reserve(std::vector<uint32_t> &buffer, size_t count);

// Frees excess capacity that a far larger picture has left.
void shrink(std::vector<uint32_t> &buffer);
