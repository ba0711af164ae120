#include "base/disk_image.h"

#include "base/disk_names.h"
#include "disk_image_maker.h"
#include "support/bytes.h"
#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr size_t kFat = 512, kRoot = 7 * 512, kData = kRoot + 112 * 32;

// Clusters 2 to 4: A.BIN; 5 and 6: B.BIN; 7: F/C.BIN; 8: the folder F.
Bytes smallDisk(samples::DiskForm form = {}) {
  return samples::makeDiskImage(form, {{"A.BIN", Bytes(2500, 'a')}, {"B.BIN", Bytes(1500, 'b')}, {"F/C.BIN", {'c'}}});
}

size_t clusterStart(size_t cluster) { return kData + (cluster - 2) * 1024; }

void setNext(Bytes &image, size_t cluster, unsigned next) { // of an even one
  image[kFat + cluster / 2 * 3] = static_cast<uint8_t>(next);
  image[kFat + cluster / 2 * 3 + 1] = static_cast<uint8_t>((image[kFat + cluster / 2 * 3 + 1] & 0xF0) | next >> 8);
}

// "A.BIN a2500, B.BIN b1500, F\C.BIN c1": all files with their bytes, each and how often; 0 as z. "-" for no disk.
std::string contents(const Bytes &image) {
  memoryDisk()["d"] = image;
  DiskImage disk;
  if (!openDisk(disk, memoryFiles(), "d")) return "-";
  std::string text;
  for (const std::string &path : listAllFiles(disk)) {
    DiskFile file;
    EXPECT_TRUE(findFile(disk, path, file)) << path;
    Bytes bytes(static_cast<size_t>(file.length) + 1);
    EXPECT_EQ(readFile(disk, file, 0, bytes.data(), bytes.size()), bytes.size() - 1);
    bytes.pop_back();
    text += (text.empty() ? "" : ", ") + path + " ";
    for (size_t i = 0, start = 0; i < bytes.size(); ++i) {
      if (i + 1 < bytes.size() && bytes[i + 1] == bytes[i]) continue;
      text += (bytes[i] == 0 ? 'z' : static_cast<char>(bytes[i])) + std::to_string(i + 1 - start);
      start = i + 1;
    }
  }
  closeDisk(disk);
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

TEST(DiskImage, ShowsWhatCanBeRead) {
  const std::string b = ", B.BIN b1500", c = ", F/C.BIN c1", whole = "A.BIN a2500" + b + c;
  const Bytes disk = smallDisk();
  const auto changed = [&disk](const std::function<void(Bytes & image)> &change) {
    Bytes image = disk;
    change(image);
    return contents(image);
  };
  EXPECT_EQ(contents(disk), whole);
  EXPECT_EQ(contents(smallDisk({.step = 7})), whole); // fragmented
  EXPECT_EQ(contents(smallDisk({.media = 0xF8, .sectors = 720, .sectorsOfFat = 2, .hasBootSector = false})), whole);
  EXPECT_EQ(contents(smallDisk({.sectorsOfFat = 1, .step = 400})).substr(0, 16), "A.BIN a2048z452,"); // FAT too short
  EXPECT_EQ(changed([](Bytes &d) { d[0x0B] = 0, d[kFat] = 0; }), whole);                              // by its length
  for (const unsigned next : {0U, 1U, 2U, 715U, 0xFF7U, 0xFFFU}) { // a loop to itself, or outside
    EXPECT_EQ(changed([next](Bytes &d) { setNext(d, 2, next); }), "A.BIN a1024z1476" + b + c) << next;
  }
  EXPECT_EQ(changed([](Bytes &d) { setNext(d, 4, 2); }), whole);                               // longer than its length
  EXPECT_EQ(changed([](Bytes &d) { setNext(d, 2, 5); }), "A.BIN a1024b1476" + b + c);          // across another file
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 31] = 0xFF; }), "A.BIN a2500z727612" + b + c);    // 713 clusters
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 28] = d[kRoot + 29] = 0; }), "A.BIN " + b + c);   // empty
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot] = 0xE5; }), b.substr(2) + c);                      // deleted
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 11] = 0x02; }), b.substr(2) + c);                 // hidden
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 11] = 0x08; }), b.substr(2) + c);                 // label
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 32] = 0; }), "A.BIN a2500");                      // end
  EXPECT_EQ(changed([](Bytes &d) { d[kRoot + 32] = 'A'; }), "A.BIN a2500, A~2.BIN b1500" + c); // one name twice
  const auto makeFolder = [](Bytes &d, uint8_t cluster) {
    d[clusterStart(8) + 64 + 11] = 0x10;
    d[clusterStart(8) + 64 + 26] = cluster;
  };
  for (const uint8_t cluster : {uint8_t{8}, uint8_t{0}}) { // F in itself, or the root
    EXPECT_EQ(changed([&](Bytes &d) { makeFolder(d, cluster); }), "A.BIN a2500" + b) << int{cluster};
  }
  EXPECT_EQ(changed([](Bytes &d) { d.resize(clusterStart(2) + 100); }), "A.BIN a100z2400, B.BIN z1500");
  EXPECT_EQ(changed([](Bytes &d) { d.resize(512); }), "-");
  for (size_t length = 0; length < kData; length += 7) changed([length](Bytes &d) { d.resize(length); });
  DiskImage image;
  DiskFile file;
  memoryDisk()["d"] = disk;
  ASSERT_TRUE(openDisk(image, memoryFiles(), "d"));
  EXPECT_TRUE(findFile(image, "f\\c.bin", file));
  for (const char *path : {"", "C.BIN", "F", "A.BIN\\C.BIN", "G\\C.BIN", "F\\"})
    EXPECT_FALSE(findFile(image, path, file));
  closeDisk(image);
}

TEST(DiskImage, AreasOfEachDiskOfTheMachine) {
  std::array<uint8_t, kDiskStartBytes> start{};
  const auto areas = [&start](int64_t bytes) {
    const auto found = findDiskLayout(start, bytes);
    return found ? std::array{found->fatBytes, found->rootStart, found->dataStart, found->clusterBytes,
                              found->clusterCount}
                 : std::array<int64_t, 5>{};
  };
  using Areas = std::array<int64_t, 5>;
  const Areas none{}, single{1024, 2560, 6144, 1024, 354}, twice{1536, 3584, 7168, 1024, 713};
  uint8_t media = 0xF8;
  for (const Areas &expected : {single, twice, Areas{512, 1536, 5120, 1024, 315}, Areas{1024, 2560, 6144, 1024, 634},
                                Areas{1024, 2560, 4608, 512, 351}, single, Areas{512, 1536, 3584, 512, 313},
                                Areas{512, 1536, 5120, 1024, 315}}) {
    start[512] = media++;
    EXPECT_EQ(areas(1 << 20), expected) << int{start[512]};
    EXPECT_EQ(areas(expected[1]), none);
  }
  start[512] = 0xF7;
  EXPECT_EQ(areas(737280), twice);
  EXPECT_EQ(areas(368640), single);
  EXPECT_EQ(areas(368641), none);
  const Bytes boot = smallDisk();
  using Row = std::tuple<size_t, uint8_t, bool>;
  for (const auto &[at, value, plausible] :
       {Row{11, 1, false}, Row{12, 4, false}, Row{13, 0, false}, Row{13, 3, false}, Row{13, 4, true}, Row{14, 0, false},
        Row{14, 2, true}, Row{16, 0, false}, Row{16, 1, true}, Row{16, 3, false}, Row{17, 113, false},
        Row{17, 0, false}, Row{17, 128, true}, Row{19, 0xA1, false}, Row{20, 0, true}, Row{20, 6, false},
        Row{22, 0, false}, Row{22, 2, true}}) {
    std::copy_n(boot.begin(), 512, start.begin());
    start[at] = value;
    EXPECT_EQ(areas(737281) != none, plausible) << at << " " << int{value};
  }
}

TEST(DiskImage, NamesOfOtherBytesDiffer) {
  std::set<std::string> names;
  for (int byte = 0; byte < 256; ++byte) {
    std::array<uint8_t, kDiskNameBytes> bytes{'A', static_cast<uint8_t>(byte), 'B', ' ', ' ', ' ', ' ', ' ', 'S', 'C',
                                              '5'};
    const std::string name = diskName(bytes), plain = {'A', static_cast<char>(byte), 'B', '.', 'S', 'C', '5'};
    const bool stays =
        byte >= ' ' && byte < 0x7F && std::string_view("\"*./:<>?\\|").find(plain[1]) == std::string::npos;
    EXPECT_EQ(name == plain, stays) << byte;
    EXPECT_TRUE(names.insert(name).second) << byte;
  }
  EXPECT_EQ(diskName(std::array<uint8_t, kDiskNameBytes>{0x05, 'A', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '}),
            "σA");
}

} // namespace
