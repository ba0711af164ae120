#include "shell/recording.h"

#include "shell/driven_window.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <system_error>

namespace {

const char *recordingPath() { return std::getenv("KORILAN_RECORDING"); }

// By the time between the first and the last rise through the middle.
double toneOf(std::span<const uint8_t> samples) {
  constexpr int kInaudible = 8;
  const auto [lowest, highest] = std::minmax_element(samples.begin(), samples.end());
  if (*highest - *lowest < kInaudible) return 0;
  const double middle = (*lowest + *highest) / 2.0;
  std::vector<double> rises;
  for (size_t i = 1; i < samples.size(); ++i) {
    if (samples[i - 1] >= middle || samples[i] < middle) continue;
    rises.push_back(static_cast<double>(i) - (samples[i] - middle) / (samples[i] - samples[i - 1]));
  }
  if (rises.size() < 2) return -1;
  return static_cast<double>(rises.size() - 1) * kRecordedRate / (rises.back() - rises.front());
}

} // namespace

bool recordingUnderWay() { return recordingPath() != nullptr; }

size_t recordedSamples() {
  std::error_code error;
  const auto size = std::filesystem::file_size(recordingPath(), error);
  return error ? 0 : static_cast<size_t>(size);
}

bool waitForSamples(size_t count) {
  return waitUntil([&] { return recordedSamples() >= count; });
}

std::vector<double> recordedTones(size_t first) {
  std::ifstream file(recordingPath(), std::ios::binary);
  file.seekg(static_cast<std::streamoff>(first));
  const std::vector<uint8_t> samples{std::istreambuf_iterator<char>(file), {}};
  std::vector<double> tones;
  for (size_t at = 0; at + kStretch <= samples.size(); at += kStretch) {
    tones.push_back(toneOf(std::span(samples).subspan(at, kStretch)));
  }
  return tones;
}

bool silenceFollows() {
  const size_t first = recordedSamples() + kRecordedRate / 5;
  if (!waitForSamples(first + kRecordedRate)) return false;
  const std::vector<double> tones = recordedTones(first);
  return std::count(tones.begin(), tones.end(), 0.0) == std::ssize(tones);
}
