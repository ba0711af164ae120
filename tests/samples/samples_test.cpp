// Every generated sample opened in a viewer and compared with what its drawing says.
#include "encoders.h"
#include "sample_pictures.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

using samples::SamplePicture;

const std::vector<SamplePicture> &allSamples() {
  static const std::vector<SamplePicture> pictures = samples::allSamplePictures();
  return pictures;
}

// FNV-1a over the four bytes of each word, lowest first.
uint64_t hashOf(const std::vector<uint32_t> &words) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const uint32_t word : words) {
    for (const int shift : {0, 8, 16, 24}) hash = (hash ^ (word >> shift & 0xFF)) * 0x100000001B3;
  }
  return hash;
}

std::string extensionOf(const std::string &name) {
  std::string extension = name.substr(name.size() - 4);
  for (char &letter : extension) letter = static_cast<char>(std::toupper(letter));
  return extension;
}

TEST(Samples, AreShownAsDrawnOrRefused) {
  for (const SamplePicture &sample : allSamples()) {
    SCOPED_TRACE(sample.name);
    TestViewer test;
    test.open(sample.name, sample.bytes);
    EXPECT_EQ(test.viewer.window.Label4, sample.error);
    EXPECT_EQ(test.viewer.pictureShown == kTrue, sample.width > 0);
    EXPECT_EQ(test.viewer.frameWidth, sample.width);
    EXPECT_EQ(test.viewer.frameHeight, sample.height);
    const auto [shown, drawn] = std::mismatch(test.viewer.frameBits.begin(), test.viewer.frameBits.end(),
                                              sample.expected.begin(), sample.expected.end());
    EXPECT_TRUE(shown == test.viewer.frameBits.end() && drawn == sample.expected.end())
        << "first wrong pixel: " << shown - test.viewer.frameBits.begin();
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
  std::map<std::string, int> shown;
  for (const SamplePicture &sample : samples::normalSamplePictures()) {
    if (sample.width > 0) ++shown[extensionOf(sample.name)];
  }
  for (const char *extension :
       {".SC2", ".SR2", ".SC4", ".SR4", ".SC5", ".SR5", ".SC6", ".SR6", ".SC7", ".SR7", ".SC8", ".SR8",
        ".GE8", ".PIC", ".SCA", ".SRA", ".S10", ".SCB", ".SRB", ".S11", ".SCC", ".SRC", ".S12"}) {
    EXPECT_GE(shown[extension], 2) << extension;
  }
}

// Opens the first `length` bytes of a sample over a picture that was there before; whatever the length, the viewer
// either shows a picture of the sample's size or leaves the one before as it was. (A refused sample has no size: cut
// before its bad field it may pass, since bytes beyond the end read as zero.)
void openPrefix(const SamplePicture &sample, size_t length, TestViewer &test, const std::vector<uint32_t> &before) {
  test.open(sample.name, {sample.bytes.begin(), sample.bytes.begin() + static_cast<std::ptrdiff_t>(length)});
  const bool kept = test.viewer.frameBits == before;
  const bool drawn =
      sample.width == 0 || (test.viewer.frameWidth == sample.width && test.viewer.frameHeight == sample.height);
  ASSERT_TRUE(kept || drawn) << sample.name << " cut to " << length;
}

TEST(Samples, CutAnywhereAreHarmless) {
  constexpr size_t kFirstLengths = 1024;
  constexpr size_t kFurtherLengths = 100;
  for (const SamplePicture &sample : allSamples()) {
    TestViewer test;
    test.open("before.SC8", samples::bloadFile(samples::Bytes(54272, 0x1C), 0xD3FF));
    const std::vector<uint32_t> before = test.viewer.frameBits;
    const size_t first = std::min(sample.bytes.size(), kFirstLengths);
    for (size_t length = 0; length <= first; ++length) openPrefix(sample, length, test, before);
    for (size_t i = 1; i <= kFurtherLengths; ++i) {
      openPrefix(sample, first + (sample.bytes.size() - first) * i / kFurtherLengths, test, before);
    }
  }
}

// One file of each kind that is small enough to be cut at every length.
TEST(Samples, SmallFilesCutAtEveryLength) {
  std::set<std::string> done;
  for (SamplePicture sample : samples::normalSamplePictures()) {
    constexpr size_t kSmall = 2000;
    if (!done.insert(extensionOf(sample.name) + static_cast<char>(sample.bytes[0])).second) continue;
    if (sample.bytes.size() > kSmall) sample.bytes.resize(kSmall);
    TestViewer test;
    for (size_t length = 0; length <= sample.bytes.size(); ++length) openPrefix(sample, length, test, {});
  }
}

} // namespace
