#include "shell/sound_device.h"

#include "shell/system_library.h"

#include <windows.h>

#include <mmsystem.h>

namespace {

constexpr DWORD kLoopFlags = SND_ASYNC | SND_MEMORY | SND_LOOP;
constexpr DWORD kStopFlags = SND_MEMORY | SND_PURGE | SND_NOWAIT;
static_assert(kLoopFlags == 13 && kStopFlags == 8260);

// Loads the library at the first sound.
void play(std::span<const uint8_t> image, DWORD flags) {
  static const auto playSound = libraryFunction<decltype(PlaySoundA)>(systemLibrary("winmm.dll"), "PlaySoundA");
  if (playSound != nullptr) playSound(reinterpret_cast<LPCSTR>(image.data()), nullptr, flags);
}

} // namespace

void playLooping(std::span<const uint8_t> image) { play(image, kLoopFlags); }

void playOnce(std::span<const uint8_t> silence) { play(silence, kStopFlags); }
