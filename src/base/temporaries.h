// The files that are being written, so that a signal which ends the program can remove them.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>

// Paths of unfinished files. Each stays valid until it is forgotten.
template <typename Character> struct Temporaries {
  static constexpr size_t kMaxFiles = 512; // far more than threads write at a time

  std::array<std::atomic<const Character *>, kMaxFiles> paths{};
  static_assert(std::atomic<const Character *>::is_always_lock_free); // a signal may read it

  void remember(const Character *path) {
    for (auto &slot : paths) {
      const Character *free = nullptr;
      if (slot.compare_exchange_strong(free, path)) return;
    }
  }

  void forget(const Character *path) {
    for (auto &slot : paths) {
      const Character *mine = path;
      if (slot.compare_exchange_strong(mine, nullptr)) return;
    }
  }

  template <typename Remove> void removeAll(Remove remove) const {
    for (const auto &slot : paths) {
      if (const Character *path = slot.load(); path != nullptr) remove(path);
    }
  }
};
