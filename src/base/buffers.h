// Memory of the sizes that files ask for: video memory, pictures, frames, packed bodies, bitmaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

// Bytes that are zero where nothing was written. The system provides fresh ones only where they are touched, and
// `used` says how far there is something to clear: a small file in a large memory costs no more than its own bytes.
class VideoMemory {
public:
  // Where memory is lacking the program ends.
  explicit VideoMemory(size_t size);

  // Keeps what fits. Returns false, with all as it was, when memory is lacking.
  bool resize(size_t size);

  // Makes zeros of all from there on.
  void clearFrom(size_t position);

  // Bytes up to there were written.
  void use(size_t end);

  uint8_t *data() { return bytes.get(); }
  const uint8_t *data() const { return bytes.get(); }
  size_t size() const { return length; }
  uint8_t *begin() { return data(); }
  const uint8_t *begin() const { return data(); }
  uint8_t *end() { return data() + length; }
  const uint8_t *end() const { return data() + length; }
  uint8_t &operator[](size_t position) { return bytes[position]; }
  const uint8_t &operator[](size_t position) const { return bytes[position]; }

private:
  struct Free {
    void operator()(uint8_t *block) const { std::free(block); }
  };

  std::unique_ptr<uint8_t[], Free> bytes;
  size_t length = 0;
  size_t used = 0; // from here on all is zero
};

// Makes room for `count` items, so that the buffer can then be sized up to there. Returns false, with the buffer as it
// was, when memory is lacking. All other memory is small; where that is lacking the program ends with a message.
bool provideRoom(VideoMemory &memory, size_t size);
bool provideRoom(std::vector<uint8_t> &buffer, size_t count);
bool provideRoom(std::vector<uint32_t> &buffer, size_t count);

// Gives back what a far larger picture left.
void releaseRoom(std::vector<uint32_t> &buffer);
