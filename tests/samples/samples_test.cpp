// Every sample opened in a viewer: frames and sound are those of golden/frames.txt. KORILAN_GOLDEN=FILE in the
// environment writes the list of what is shown now, for a review of the changes.
#include "core/file_kinds.h"
#include "samples/samples.h"
#include "support/scarce_memory.h"
#include "core/video_commands.h"

#include <cstdlib>
#include <fstream>
#include <iomanip>

namespace {

using samples::SamplePicture;
using Words = std::vector<uint32_t>;

constexpr uint32_t kMarker = 0x12345678; // no colour

// Behind a short COPY file video memory keeps its bytes: intended.
constexpr std::string_view kKeepsMemory = "odd/short_body.GL5";

// FNV-1a over the four bytes of each word, lowest first.
std::string hashOf(const Words &words) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const uint32_t word : words) {
    for (const int shift : {0, 8, 16, 24}) hash = (hash ^ (word >> shift & 0xFF)) * 0x100000001B3;
  }
  std::ostringstream digits;
  digits << std::hex << std::setw(16) << std::setfill('0') << hash;
  return digits.str();
}

// All frames from the last to the first, so that none profits from the one before, and the sound of each.
std::string videoLines(ViewerState &viewer, const std::string &name) {
  Words frames, sound;
  const int32_t count = viewer.window.HScroll1.maximum + 1;
  const EvaPlayer &player = viewer.evaPlayer;
  for (int32_t frame = count - 1; frame >= 0; --frame) {
    std::ranges::fill(viewer.frameBits, kMarker);
    HScroll1_Change(viewer, frame);
    frames.insert(frames.end(), viewer.frameBits.begin(), viewer.frameBits.end());
    if (!viewer.player->hasSound) continue;
    const int32_t slot = player.framesPerSecond == 12 ? 1312 : 1575;
    const auto first = viewer.soundImages.looping.begin() + 44 + frame % player.framesPerSecond * slot;
    sound.insert(sound.end(), first, first + slot);
  }
  const std::string line = hashOf(frames) + " " + std::to_string(count) + " frames of " + name + "\n";
  return !viewer.player->hasSound ? line : line + hashOf(sound) + " sound of " + name + "\n";
}

// The sample's lines of the list.
std::string shownLines(TestViewer &test, const SamplePicture &sample) {
  ViewerState &viewer = test.viewer;
  const Words &frame = viewer.frameBits;
  std::ranges::fill(viewer.frameBits, kMarker);
  viewer.window.Label4.clear();
  viewer.loadError.clear();
  openSample(test, sample, sample.bytes);
  std::string what = " \"" + viewer.typeDescription + "\" " + sample.name;
  const std::string status = viewer.window.Label4.empty() ? viewer.loadError : viewer.window.Label4;
  if (!status.empty()) what += ": " + status;
  if (std::ranges::count(frame, kMarker) == std::ssize(frame)) return "-" + what + "\n";
  const std::string size = std::to_string(viewer.frameWidth) + "x" + std::to_string(viewer.frameHeight);
  return hashOf(frame) + " " + size + what + "\n" + (viewer.player != nullptr ? videoLines(viewer, sample.name) : "");
}

TEST(Samples, AreShownAsInTheGoldenList) {
  std::ifstream list(KORILAN_GOLDEN_FOLDER "/frames.txt");
  std::string line, lines;
  for (const SamplePicture &sample : allSamples()) {
    TestViewer fresh;
    const std::string shown = shownLines(fresh, sample);
    lines += shown;
    std::string golden;
    for (auto i = std::ranges::count(shown, '\n'); i > 0 && std::getline(list, line); --i) golden += line + "\n";
    EXPECT_EQ(shown, golden);
    if (sample.name == kKeepsMemory) continue;
    scarceMemory().fill = 0xAA;
    TestViewer used;
    for (const char *before : {"COAST32K.G9B", "PLASMA.HAM", "HUES.SGX", "DESK.SR7", "WHEEL.SR5"}) {
      openSample(used, sampleNamed(before), sampleNamed(before).bytes);
    }
    EXPECT_EQ(shownLines(used, sample), shown) << "in a used viewer";
    scarceMemory().fill.reset();
  }
  if (const char *path = std::getenv("KORILAN_GOLDEN")) std::ofstream(path) << lines;
  EXPECT_FALSE(std::getline(list, line)) << "one sample too many: " << line;
}

TEST(Samples, AreShownAlikeAfterEachOtherKind) {
  const auto kinds = samplesByKind();
  ASSERT_EQ(kinds.size(), kFileKinds.size() - 1); // ".GLC" is always refused
  TestViewer test;
  for (const auto &[extension, all] : kinds) {
    EXPECT_GE(all.size(), 2U) << extension;
    TestViewer fresh;
    const std::string shown = shownLines(fresh, *all[0]);
    for (const auto &[before, others] : kinds) {
      openSample(test, *others[0], others[0]->bytes);
      EXPECT_EQ(shownLines(test, *all[0]), shown) << "after " << before;
    }
  }
}

} // namespace
