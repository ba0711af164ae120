// Every generated sample opened in a viewer and compared with what its drawing says.
#include "core/file_kinds.h"
#include "samples/opened_sample.h"
#include "screens/copy_loaders.h"
#include "support/scarce_memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace {

using samples::SamplePicture;

// FNV-1a over the four bytes of each word, lowest first.
uint64_t hashOf(const std::vector<uint32_t> &words) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const uint32_t word : words) {
    for (const int shift : {0, 8, 16, 24}) hash = (hash ^ (word >> shift & 0xFF)) * 0x100000001B3;
  }
  return hash;
}

TEST(Samples, AreShownAsDrawnOrRefused) {
  for (const SamplePicture &sample : allSamples()) {
    SCOPED_TRACE(sample.name);
    TestViewer test;
    openSample(test, sample, sample.bytes);
    EXPECT_EQ(test.viewer.window.Label4, sample.width > 0 ? sample.status : sample.error);
    EXPECT_EQ(test.viewer.pictureShown == kTrue, sample.width > 0);
    EXPECT_EQ(test.viewer.frameWidth, sample.width);
    EXPECT_EQ(test.viewer.frameHeight, sample.height);
    const auto [shown, drawn] = std::mismatch(test.viewer.frameBits.begin(), test.viewer.frameBits.end(),
                                              sample.expected.begin(), sample.expected.end());
    EXPECT_TRUE(shown == test.viewer.frameBits.end() && drawn == sample.expected.end())
        << "first wrong pixel: " << shown - test.viewer.frameBits.begin();
  }
}

// What stood in the memory that a viewer gets, and what it showed before, makes no difference.
TEST(Samples, AreShownWithoutAnythingOld) {
  for (const uint8_t fill : {uint8_t{0x55}, uint8_t{0xAA}}) {
    scarceMemory().fill = fill;
    for (const SamplePicture &sample : allSamples()) {
      TestViewer test;
      openSample(test, sample, sample.bytes);
      EXPECT_TRUE(test.viewer.frameBits == sample.expected) << sample.name << " on " << int{fill};
    }
    scarceMemory().fill.reset();
  }
}

TEST(Samples, AreShownAsDrawnAfterEachOtherKind) {
  std::map<std::string, const SamplePicture *> oneOfEachKind; // well-formed, the smallest
  for (const SamplePicture &sample : allSamples()) {
    if (sample.width == 0 || sample.name.starts_with("odd/")) continue;
    const SamplePicture *&kept = oneOfEachKind[extensionOf(sample)];
    if (kept == nullptr || sample.bytes.size() < kept->bytes.size()) kept = &sample;
  }
  ASSERT_EQ(oneOfEachKind.size(), kFileKinds.size() - 1); // one is always refused
  TestViewer test;
  for (const auto &[extension, first] : oneOfEachKind) {
    for (const auto &[otherExtension, second] : oneOfEachKind) {
      for (const SamplePicture *sample : {first, second}) openSample(test, *sample, sample->bytes);
      EXPECT_TRUE(test.viewer.frameBits == second->expected) << second->name << " after " << first->name;
    }
  }
}

// The list is written from the drawings, not from what the viewer shows. A change of a sample is taken over by copying
// the lines that the failure prints.
TEST(Samples, ChangeOnlyWithTheirGoldenList) {
  std::ostringstream lines;
  for (const SamplePicture &sample : allSamples()) {
    lines << std::hex << hashOf(sample.expected) << std::dec << ' ' << sample.width << 'x' << sample.height << ' '
          << sample.name << '\n';
  }
  std::ifstream file(KORILAN_GOLDEN_FOLDER "/frames.txt");
  std::ostringstream golden;
  golden << file.rdbuf();
  EXPECT_EQ(lines.str(), golden.str());
}

TEST(Samples, CoverEveryKindTwice) {
  for (const FileKind &kind : kFileKinds) {
    if (kind.load == loadScreen12Copy) continue; // always refused
    const auto shows = [&](const SamplePicture &sample) {
      return sample.width > 0 && extensionOf(sample) == kind.extension && !sample.name.starts_with("odd/");
    };
    EXPECT_GE(std::count_if(allSamples().begin(), allSamples().end(), shows), 2) << kind.extension;
  }
}

} // namespace
