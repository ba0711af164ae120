// Paging through a folder of good and damaged files of every kind, over and over.
#include "core/folder_navigation.h"
#include "samples/opened_sample.h"
#include "support/scarce_memory.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#ifdef _WIN32
#include "base/resource_counts.h"
#endif

namespace {

size_t filesHeld() {
#ifdef _WIN32
  return static_cast<size_t>(resourceCounts().files);
#else
  std::error_code error;
  const std::filesystem::directory_iterator held("/proc/self/fd", error);
  return static_cast<size_t>(std::distance(begin(held), end(held)));
#endif
}

TEST(Soak, PagingKeepsNoMemoryAndNoFile) {
  const TemporaryFolder folder("soak");
  std::string name;
  for (const samples::SamplePicture &sample : allSamples()) {
    name = sample.name.substr(sample.name.find_last_of('/') + 1);
    folder.write(std::u8string(name.begin(), name.end()), sample.bytes);
    const std::vector<uint8_t> half(sample.bytes.begin(), sample.bytes.begin() + std::ssize(sample.bytes) / 2);
    folder.write(u8"half " + std::u8string(name.begin(), name.end()), half);
  }
  TestViewer test;
  test.viewer.platform.files = &systemFiles();
  openPath(test.viewer, folder.path + name);
  const auto page = [&](int count) {
    for (int i = 0; i < count; ++i) {
      openNextFile(test.viewer);
      test.platform.log.clear();
    }
  };
  page(1);
  const int files = test.viewer.folderFileCount;
  ASSERT_GT(files, 600); // names that differ in case only are one on some systems
  page(files);           // all buffers have their sizes now
  const int opens = std::getenv("KORILAN_LONG") != nullptr ? 100'000 : files;
  const int64_t blocks = liveBlocks();
  const size_t held = filesHeld();
  for (int opened = 0; opened < opens; opened += files) {
    page(files);
    ASSERT_EQ(liveBlocks(), blocks) << opened;
    ASSERT_EQ(filesHeld(), held) << opened;
  }
  std::printf("%d opens: %d blocks, %zu files held throughout\n", opens, static_cast<int>(blocks), held);
}

} // namespace
