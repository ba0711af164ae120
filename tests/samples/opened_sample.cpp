#include "samples/opened_sample.h"

#include "base/text.h"

const std::vector<samples::SamplePicture> &allSamples() {
  static const std::vector<samples::SamplePicture> pictures = samples::allSamplePictures();
  return pictures;
}

std::string extensionOf(const samples::SamplePicture &sample) { return upperCased(lastCharacters(sample.name, 4)); }

void openSample(TestViewer &test, const samples::SamplePicture &sample, const std::vector<uint8_t> &bytes) {
  for (const samples::CompanionFile &companion : sample.companions) memoryDisk()[companion.name] = companion.bytes;
  test.open(sample.name, bytes);
}
