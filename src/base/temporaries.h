// The files that are being written, so that a signal which ends the program can remove them.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <thread>

// Paths of unfinished files. Each stays valid until it is forgotten.
template <typename Character> struct Temporaries {
  static constexpr size_t kMaxFiles = 512; // far more than threads write at a time

  std::array<std::atomic<const Character *>, kMaxFiles> paths{};
  static_assert(std::atomic<const Character *>::is_always_lock_free); // a signal may read it

  static constexpr std::chrono::milliseconds kWait{1};
  std::atomic<int> filesInCreation{0};
  std::atomic<bool> programEnds{false};

  // Calls `createFile` and returns whether it has created the file at `path`, which then stays remembered. Does not
  // return if the program ends: nobody would remove the file.
  template <typename Create> bool create(const Character *path, Create createFile) {
    remember(path);
    ++filesInCreation;
    if (programEnds) --filesInCreation;
    while (programEnds) std::this_thread::sleep_for(kWait);
    const bool created = createFile();
    --filesInCreation;
    if (!created) forget(path);
    return created;
  }

  void forget(const Character *path) {
    for (auto &slot : paths) {
      const Character *mine = path;
      if (slot.compare_exchange_strong(mine, nullptr)) return;
    }
  }

  // For the end of the program. Waits for files that other threads are creating, but not for long: the signal may have
  // interrupted a thread that creates one, and a file system may hang.
  template <typename Remove> void removeAll(Remove remove) {
    constexpr int kMostWaits = 100;
    programEnds = true;
    for (int wait = 0; filesInCreation > 0 && wait < kMostWaits; ++wait) std::this_thread::sleep_for(kWait);
    for (const auto &slot : paths) {
      if (const Character *path = slot.load(); path != nullptr) remove(path);
    }
  }

private:
  void remember(const Character *path) {
    for (auto &slot : paths) {
      const Character *free = nullptr;
      if (slot.compare_exchange_strong(free, path)) return;
    }
  }
};
