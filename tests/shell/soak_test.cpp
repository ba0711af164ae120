// Paging in the window, over and over: the program's memory and handles stay as they are.
#include "shell/shown_sample.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <windows.h>

#include <psapi.h>

namespace {

SIZE_T memoryHeld(const DrivenWindow &driven) {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(driven.process.hProcess, &counters, sizeof counters);
  return counters.PagefileUsage;
}

// The next caption, without the pause of waitUntil. A key that comes while the file before is still being opened is
// passed over.
std::string pageDown(const DrivenWindow &driven, const std::string &caption) {
  std::string next = caption;
  for (int polls = 0; next == caption && polls < 5000; ++polls) {
    if (polls % 10 == 0) PostMessageA(driven.window, WM_KEYDOWN, VK_NEXT, 0);
    Sleep(1);
    next = textOf(driven, 0);
  }
  return next;
}

TEST(Soak, PagingInTheWindowKeepsMemoryAndHandles) {
  const TemporaryFolder folder("shell_soak");
  int files = 0;
  for (const samples::SamplePicture &sample : allSamples()) {
    if (sample.width == 0 && sample.name.ends_with(".VID")) continue; // shows a message
    if (files == 100) break;
    const std::string name = "x" + std::to_string(files++) + sample.name.substr(sample.name.size() - 4);
    const bool damaged = files % 3 == 0 && !sample.name.ends_with(".VID");
    const auto length = std::ssize(sample.bytes) / (damaged ? 2 : 1);
    folder.write(std::u8string(name.begin(), name.end()), {sample.bytes.begin(), sample.bytes.begin() + length});
  }
  const std::string countsPath = folder.path + "counts";
  SetEnvironmentVariableA("KORILAN_COUNTS", countsPath.c_str());
  const DrivenWindow driven(folder.path + "x0.SC2");
  SetEnvironmentVariableA("KORILAN_COUNTS", nullptr);

  const int rounds = std::getenv("KORILAN_LONG") != nullptr ? 50 : 2;
  std::string caption = textOf(driven, 0);
  SIZE_T memory = 0;
  for (int round = 0; round < rounds; ++round) {
    for (int i = 0; i < files; ++i) {
      const std::string next = pageDown(driven, caption);
      ASSERT_NE(next, caption) << round << ", " << i;
      caption = next;
    }
    if (round == 0) memory = memoryHeld(driven);
  }
  std::printf("%d opens: %zu KiB after the first round, %zu KiB at the end\n", rounds * files,
              static_cast<size_t>(memory / 1024), static_cast<size_t>(memoryHeld(driven) / 1024));
  EXPECT_LT(memoryHeld(driven), memory + 4 * 1024 * 1024);
  choose(driven, "Close"); // the file that is open
  choose(driven, "Exit");
  EXPECT_EQ(exitCodeOf(driven), 0);
  const std::vector<uint8_t> counts = folder.read(u8"counts");
  const std::string text(counts.begin(), counts.end());
  EXPECT_EQ(text, "files 0, bitmaps 0, fonts 0\n");
}

} // namespace
