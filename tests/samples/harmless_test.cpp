// Damaged samples on failing disks. The sanitizers look on, and nothing that was shown is lost.
#include "samples/samples.h"
#include "core/video_commands.h"

#include <cstdlib>

namespace {

using samples::SamplePicture;

// The first `length` bytes: the frame is whole, or if the file is refused the one before.
void openCut(TestViewer &test, const SamplePicture &sample, size_t length) {
  ViewerState &viewer = test.viewer;
  const std::vector<uint32_t> before = viewer.frameBits;
  openSample(test, sample, {sample.bytes.begin(), sample.bytes.begin() + static_cast<std::ptrdiff_t>(length)});
  ASSERT_EQ(std::ssize(viewer.frameBits), int64_t{viewer.frameWidth} * viewer.frameHeight) << sample.name << length;
  ASSERT_TRUE(!viewer.window.Label4.starts_with("***") || viewer.frameBits == before) << sample.name << length;
}

TEST(Harmless, SamplesCutAnywhere) {
  const bool longSweep = std::getenv("KORILAN_LONG") != nullptr; // takes many minutes
  const size_t firstLengths = longSweep ? 4096 : 64, furtherLengths = longSweep ? 500 : 10;
  TestViewer test;
  for (const SamplePicture &sample : allSamples()) {
    const size_t size = sample.bytes.size(), first = std::min(size, firstLengths);
    for (size_t length = 0; length < first; ++length) openCut(test, sample, length);
    for (size_t i = 0; i <= furtherLengths; ++i) openCut(test, sample, first + (size - first) * i / furtherLengths);
  }
}

TEST(Harmless, AnyReadMayFail) {
  for (const auto &[kind, all] : samplesByKind()) {
    const SamplePicture &sample = *all[0];
    TestViewer test;
    const auto openAndPlay = [&](int failingRead, bool staysFailed) {
      diskFaults() = {.failingRead = failingRead, .readsStayFailed = staysFailed};
      openCut(test, sample, sample.bytes.size());
      Image1_Click(test.viewer); // of a video only
      return diskFaults().reads;
    };
    const int reads = openAndPlay(0, false);
    const std::vector<uint32_t> whole = test.viewer.frameBits;
    for (int failing = 1; failing <= 2 * reads; ++failing) {
      openAndPlay((failing + 1) / 2, failing % 2 == 0);
      openAndPlay(0, false); // nothing of the fault is left
      ASSERT_TRUE(test.viewer.frameBits == whole) << sample.name << ", read " << failing / 2;
    }
  }
}

} // namespace
