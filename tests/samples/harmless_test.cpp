// Damaged files of every kind. What they show is not looked at closely: the sanitizers are, and that nothing is lost.
#include "core/bitmap_export.h"
#include "core/file_kinds.h"
#include "samples/opened_sample.h"
#include "support/faulty_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace {

using Bytes = std::vector<uint8_t>;
using samples::SamplePicture;

// Sweeps that take many minutes run only when asked for.
bool longSweeps() { return std::getenv("KORILAN_LONG") != nullptr; }

// A few values of a byte stand for all; the lowest and the highest are among them.
int valueStep() { return longSweeps() ? 1 : 17; }

struct DamagedKind : testing::TestWithParam<const char *> {
  std::vector<const SamplePicture *> pictures;
  TestViewer test;
  std::vector<uint32_t> before;

  DamagedKind() {
    for (const SamplePicture &sample : allSamples()) {
      if (extensionOf(sample) == GetParam()) pictures.push_back(&sample);
    }
    openBefore();
  }

  void openBefore() {
    test.open("before.SC8", Bytes{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C});
    before = test.viewer.frameBits;
  }

  // The shortest sample that shows a picture, or where all are refused the shortest.
  const SamplePicture &smallest() const {
    const auto longer = [](const SamplePicture *left, const SamplePicture *right) {
      return std::pair(left->width == 0, left->bytes.size()) < std::pair(right->width == 0, right->bytes.size());
    };
    return **std::min_element(pictures.begin(), pictures.end(), longer);
  }

  // The shortest well-formed sample, or where all are refused the shortest.
  const SamplePicture &smallestWhole() const {
    const auto longer = [](const SamplePicture *left, const SamplePicture *right) {
      const auto rank = [](const SamplePicture &sample) {
        return std::tuple(sample.width == 0, sample.name.starts_with("odd/"), sample.bytes.size());
      };
      return rank(*left) < rank(*right);
    };
    return **std::min_element(pictures.begin(), pictures.end(), longer);
  }

  // Whatever the file holds, the frame is whole, and where no picture was loaded the one before stands.
  void open(const SamplePicture &sample, const Bytes &bytes) {
    openSample(test, sample, bytes);
    const ViewerState &viewer = test.viewer;
    const auto pixels = static_cast<size_t>(viewer.frameWidth) * static_cast<size_t>(viewer.frameHeight);
    ASSERT_EQ(viewer.frameBits.size(), pixels) << sample.name;
    if (!viewer.window.Label4.starts_with("***")) {
      before = viewer.frameBits;
    } else {
      ASSERT_TRUE(viewer.frameBits == before) << sample.name << ": " << viewer.window.Label4;
    }
  }

  void openCut(const SamplePicture &sample, size_t length) {
    open(sample, Bytes(sample.bytes.begin(), sample.bytes.begin() + static_cast<std::ptrdiff_t>(length)));
  }
};

TEST_P(DamagedKind, CutAnywhere) {
  const size_t firstLengths = longSweeps() ? 1024 : 160;
  const size_t furtherLengths = longSweeps() ? 100 : 20;
  for (const SamplePicture *sample : pictures) {
    const size_t first = std::min(sample->bytes.size(), firstLengths);
    for (size_t length = 0; length <= first; ++length) openCut(*sample, length);
    for (size_t i = 1; i <= furtherLengths; ++i) {
      openCut(*sample, first + (sample->bytes.size() - first) * i / furtherLengths);
    }
  }
}

TEST_P(DamagedKind, SmallFileCutAtEveryLength) {
  constexpr size_t kSmall = 2000;
  const SamplePicture &sample = smallest();
  const size_t longest = longSweeps() ? sample.bytes.size() : std::min(sample.bytes.size(), kSmall);
  for (size_t length = 0; length <= longest; ++length) openCut(sample, length);
}

TEST_P(DamagedKind, FirstBytesOfAnyValue) {
  constexpr size_t kFirstBytes = 64;
  const SamplePicture &sample = smallest();
  Bytes bytes = sample.bytes;
  for (size_t i = 0; i < std::min(bytes.size(), kFirstBytes); ++i) {
    for (int value = 0; value < 256; value += valueStep()) {
      bytes[i] = static_cast<uint8_t>(value);
      open(sample, bytes);
    }
    bytes[i] = sample.bytes[i];
  }
}

TEST_P(DamagedKind, AnyReadMayFail) {
  const SamplePicture &sample = smallestWhole();
  test.viewer.platform.files = &faultyFiles();
  const auto openFaulty = [&](int failingRead, bool staysFailed) {
    diskFaults() = {.failingRead = failingRead, .readsStayFailed = staysFailed};
    open(sample, sample.bytes);
    if (videoOpen(test.viewer)) Image1_Click(test.viewer);
    const int reads = diskFaults().reads;
    diskFaults() = {};
    return reads;
  };
  const int reads = openFaulty(0, false);
  ASSERT_GE(reads, 3);
  for (int failing = 1; failing <= reads; ++failing) {
    for (const bool staysFailed : {false, true}) {
      SCOPED_TRACE(testing::Message() << sample.name << ", read " << failing << (staysFailed ? " and all others" : ""));
      openBefore();
      openFaulty(failing, staysFailed);
      open(sample, sample.bytes); // nothing of the fault is left
      ASSERT_TRUE(sample.width == 0 || test.viewer.frameBits == sample.expected);
    }
  }
}

TEST_P(DamagedKind, AnyStepOfASaveMayFail) {
  const SamplePicture &sample = smallestWhole();
  test.viewer.platform.files = &faultyFiles();
  open(sample, sample.bytes);
  if (sample.width == 0) return;
  const std::string path = bitmapPath(test.viewer);
  const Bytes old{1, 2, 3};
  for (int failing = 1;; ++failing) {
    memoryDisk()[path] = old;
    test.platform.lastMessage.clear();
    diskFaults() = {.failingOutputStep = failing};
    menuSaveBMP_Click(test.viewer);
    const bool failed = diskFaults().outputSteps >= failing;
    diskFaults() = {};
    EXPECT_EQ(test.platform.lastMessage, failed ? "Could not save " + path + "\n\ndisk is broken" : "");
    EXPECT_EQ(memoryDisk().at(path) == old, failed);
    if (!failed) break;
  }
}

std::vector<const char *> readableExtensions() {
  std::vector<const char *> extensions;
  for (const FileKind &kind : kFileKinds) {
    extensions.push_back(kind.extension);
  }
  return extensions;
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedKind, testing::ValuesIn(readableExtensions()),
                         [](const auto &kind) { return std::string(kind.param + 1); });

} // namespace
