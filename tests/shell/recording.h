// The sound that is heard, as something outside records it: unsigned 8-bit mono, 44100 Hz, growing while a test runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

inline constexpr size_t kRecordedRate = 44100;

// Samples of the stretches in which the recording is looked at; there are twenty a second.
inline constexpr size_t kStretch = kRecordedRate / 20;

// Whether somebody records; the variable KORILAN_RECORDING then names the file.
bool recordingUnderWay();

// Samples recorded so far.
size_t recordedSamples();

// Waits until there are that many. False when the recording does not grow.
bool waitForSamples(size_t count);

// The tone of each whole stretch from the sample `first` on, in Hz: 0 for silence, a negative number for sound that
// has none.
std::vector<double> recordedTones(size_t first);

// Whether the next second is silent. A fifth of a second before it is left to what is on its way to be heard.
bool silenceFollows();
