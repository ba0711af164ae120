#include "shell/sound_device.h"

#include "shell/system_library.h"

#include <cstring>

namespace {

// The image: 20 bytes in front of the format, a WAVEFORMATEX without its last field; the samples from byte 44 on.
constexpr size_t kFormatOffset = 20;
constexpr size_t kFormatBytes = offsetof(WAVEFORMATEX, cbSize);
constexpr size_t kSamplesOffset = 44;

// The library is loaded at the first sound.
struct WaveOut {
  HMODULE library = systemLibrary("winmm.dll");
  decltype(waveOutOpen) *open = libraryFunction<decltype(waveOutOpen)>(library, "waveOutOpen");
  decltype(waveOutPrepareHeader) *prepare =
      libraryFunction<decltype(waveOutPrepareHeader)>(library, "waveOutPrepareHeader");
  decltype(waveOutUnprepareHeader) *unprepare =
      libraryFunction<decltype(waveOutUnprepareHeader)>(library, "waveOutUnprepareHeader");
  decltype(waveOutWrite) *write = libraryFunction<decltype(waveOutWrite)>(library, "waveOutWrite");
  decltype(waveOutPause) *pause = libraryFunction<decltype(waveOutPause)>(library, "waveOutPause");
  decltype(waveOutRestart) *restart = libraryFunction<decltype(waveOutRestart)>(library, "waveOutRestart");
  decltype(waveOutReset) *reset = libraryFunction<decltype(waveOutReset)>(library, "waveOutReset");
  decltype(waveOutClose) *close = libraryFunction<decltype(waveOutClose)>(library, "waveOutClose");
};

const WaveOut &waveOut() {
  static const WaveOut functions;
  return functions;
}

// Jumps to the sample that is due if the device has fallen behind, or if its clock and that of the frames have drifted
// apart. The frames write their samples 83 ms ahead at the least.
void keepStep(SoundDevice &sound) {
  constexpr int64_t kMaxBehind = 20; // milliseconds; what is heard is 60 ms behind what is handed over
  constexpr int64_t kMaxAhead = 70;
  if (sound.held) return;
  const int64_t elapsed = GetTickCount() - sound.startTicks;
  const int64_t handedOver = sound.next * 1000 / sound.rate;
  if (handedOver < elapsed - kMaxBehind || handedOver > elapsed + kMaxAhead) sound.next = elapsed * sound.rate / 1000;
}

void fill(SoundDevice &sound, SoundBuffer &buffer) {
  keepStep(sound);
  for (char &sample : buffer.samples) {
    sample = static_cast<char>(sound.ring[static_cast<size_t>(sound.next++) % sound.ring.size()]);
  }
}

// Refills the buffers in their order, each as soon as it has been heard.
DWORD WINAPI feed(void *context) {
  SoundDevice &sound = *static_cast<SoundDevice *>(context);
  for (size_t turn = 0;; turn = (turn + 1) % sound.buffers.size()) {
    SoundBuffer &buffer = sound.buffers[turn];
    const auto queued = [&] { return (buffer.header.dwFlags & WHDR_INQUEUE) != 0; };
    while (queued() && !sound.ending) WaitForSingleObject(sound.bufferDone, INFINITE);
    if (sound.ending) return 0;
    fill(sound, buffer);
    if (waveOut().write(sound.output, &buffer.header, sizeof buffer.header) != MMSYSERR_NOERROR) return 0;
  }
}

} // namespace

void startLoop(SoundDevice &sound, std::span<const uint8_t> image) {
  stopLoop(sound);
  WAVEFORMATEX format{};
  std::memcpy(&format, image.data() + kFormatOffset, kFormatBytes);
  sound.ring = image.subspan(kSamplesOffset);
  sound.rate = format.nSamplesPerSec;
  sound.next = 0;
  sound.held = sound.ending = false;
  sound.bufferDone = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  if (waveOut().open == nullptr ||
      waveOut().open(&sound.output, WAVE_MAPPER, &format, reinterpret_cast<DWORD_PTR>(sound.bufferDone), 0,
                     CALLBACK_EVENT) != MMSYSERR_NOERROR) {
    sound.output = nullptr;
    CloseHandle(sound.bufferDone);
    return;
  }
  for (SoundBuffer &buffer : sound.buffers) {
    buffer.header = {};
    buffer.header.lpData = buffer.samples.data();
    buffer.header.dwBufferLength = static_cast<DWORD>(buffer.samples.size());
    waveOut().prepare(sound.output, &buffer.header, sizeof buffer.header);
  }
  sound.startTicks = GetTickCount();
  sound.feeder = CreateThread(nullptr, 0, feed, &sound, 0, nullptr);
  SetThreadPriority(sound.feeder, THREAD_PRIORITY_TIME_CRITICAL);
}

void holdLoop(SoundDevice &sound) {
  if (sound.output == nullptr || sound.held) return;
  sound.heldTicks = GetTickCount();
  sound.held = true;
  waveOut().pause(sound.output);
}

void resumeLoop(SoundDevice &sound) {
  if (sound.output == nullptr || !sound.held) return;
  sound.startTicks += GetTickCount() - sound.heldTicks;
  sound.held = false;
  waveOut().restart(sound.output);
}

void stopLoop(SoundDevice &sound) {
  if (sound.output == nullptr) return;
  sound.ending = true;
  SetEvent(sound.bufferDone);
  WaitForSingleObject(sound.feeder, INFINITE); // returns at once if no thread could be started
  CloseHandle(sound.feeder);
  waveOut().reset(sound.output);
  for (SoundBuffer &buffer : sound.buffers) waveOut().unprepare(sound.output, &buffer.header, sizeof buffer.header);
  waveOut().close(sound.output);
  CloseHandle(sound.bufferDone);
  sound.output = nullptr;
}
