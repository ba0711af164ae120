// Samples as the tests take them.
#pragma once

#include "sample_pictures.h"
#include "support/temporary_folder.h"
#include "support/test_viewer.h"

// Drawn once for each program.
inline const std::vector<samples::SamplePicture> &allSamples() {
  static const std::vector<samples::SamplePicture> pictures = samples::allSamplePictures();
  return pictures;
}

inline const samples::SamplePicture &sampleNamed(const std::string &name) {
  return *std::ranges::find(allSamples(), name, &samples::SamplePicture::name);
}

// Writes the first sample whose name ends like that; returns its path.
inline std::string writeSample(const TemporaryFolder &folder, const std::string &ending) {
  const auto sample = std::ranges::find_if(allSamples(), [&](auto &each) { return each.name.ends_with(ending); });
  const std::string name = sample->name.substr(sample->name.rfind('/') + 1);
  return folder.write(std::u8string(name.begin(), name.end()), sample->bytes);
}

// The well-formed ones by their extensions, "SC5".
inline std::map<std::string, std::vector<const samples::SamplePicture *>> samplesByKind() {
  std::map<std::string, std::vector<const samples::SamplePicture *>> kinds;
  for (const samples::SamplePicture &sample : allSamples()) {
    if (!sample.name.starts_with("odd/")) kinds[sample.name.substr(sample.name.size() - 3)].push_back(&sample);
  }
  return kinds;
}

// Opens `bytes` under the sample's name, with its companion files beside it.
inline void openSample(TestViewer &test, const samples::SamplePicture &sample, const std::vector<uint8_t> &bytes) {
  for (const samples::CompanionFile &companion : sample.companions) memoryDisk()[companion.name] = companion.bytes;
  test.open(sample.name, bytes);
}
