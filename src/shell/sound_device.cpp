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

// More precise than the tick count, which goes on in steps of 16.
int64_t milliseconds() {
  LARGE_INTEGER count, frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return count.QuadPart * 1000 / frequency.QuadPart;
}

// Jumps if the device has run dry, or if its clock and that of the frames have drifted apart. In milliseconds from the
// sample that is due: what is handed over is heard 45 later; the frames write their samples 83 ahead at the least.
void keepStep(SoundDevice &sound) {
  constexpr int64_t kLeast = -20;
  constexpr int64_t kMost = 68;
  constexpr int kEnough = 100; // some devices take a few buffers at a time
  if (sound.held) return;
  const int64_t due = milliseconds() - sound.start;
  const int64_t ahead = sound.next * 1000 / sound.rate - due;
  sound.early = ahead > kMost ? sound.early + 1 : 0;
  if (ahead >= kLeast && sound.early < kEnough) return;
  sound.next = (due + (ahead < kLeast ? 20 : 45)) * sound.rate / 1000;
  sound.early = 0;
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
  sound.next = sound.early = 0;
  sound.held = sound.ending = false;
  sound.bufferDone = CreateEventW(nullptr, FALSE, FALSE, nullptr);
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
  sound.start = milliseconds();
  sound.feeder = CreateThread(nullptr, 0, feed, &sound, 0, nullptr);
  SetThreadPriority(sound.feeder, THREAD_PRIORITY_TIME_CRITICAL);
}

void holdLoop(SoundDevice &sound) {
  if (sound.output == nullptr || sound.held) return;
  sound.heldAt = milliseconds();
  sound.held = true;
  waveOut().pause(sound.output);
}

void resumeLoop(SoundDevice &sound) {
  if (sound.output == nullptr || !sound.held) return;
  sound.start += milliseconds() - sound.heldAt;
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
