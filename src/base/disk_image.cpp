#include "base/disk_image.h"

#include "base/disk_names.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>

//  folder entry  0  name, 8 characters, and extension, 3; filled with spaces   26  first cluster
//               11  attributes                                                28  length, 4 bytes

namespace {

constexpr size_t kEntryBytes = kDiskEntryBytes;
constexpr int64_t kFirstCluster = 2; // number of the cluster at `dataStart`

bool isCluster(const DiskImage &disk, int64_t cluster) {
  return cluster >= kFirstCluster && cluster < kFirstCluster + disk.layout.clusterCount;
}

// 0 behind the last one.
int64_t nextCluster(const DiskImage &disk, int64_t cluster) {
  const auto at = static_cast<size_t>(cluster * 3 / 2);
  if (at + 1 >= disk.fat.size()) return 0;
  const int64_t next = cluster % 2 == 0 ? wordAt(disk.fat, at) & 0xFFF : wordAt(disk.fat, at) >> 4;
  return isCluster(disk, next) ? next : 0;
}

using ClusterSet = std::vector<bool>;

ClusterSet noClusters(const DiskImage &disk) {
  return ClusterSet(static_cast<size_t>(kFirstCluster + disk.layout.clusterCount));
}

// The chain from `cluster` on, up to one that is in `met`; adds it there.
std::vector<uint16_t> takeChain(const DiskImage &disk, int64_t cluster, ClusterSet &met) {
  std::vector<uint16_t> clusters;
  for (; isCluster(disk, cluster) && !met[static_cast<size_t>(cluster)]; cluster = nextCluster(disk, cluster)) {
    met[static_cast<size_t>(cluster)] = true;
    clusters.push_back(static_cast<uint16_t>(cluster));
  }
  return clusters;
}

int64_t startOf(const DiskImage &disk, uint16_t cluster) {
  return disk.layout.dataStart + (cluster - kFirstCluster) * disk.layout.clusterBytes;
}

struct Entry {
  std::string name;
  bool isFolder = false;
  int64_t firstCluster = 0;
  int64_t length = 0;
};

// Gives each entry a name of its own: a disk may have several of one name.
void makeDistinct(std::vector<Entry> &entries) {
  std::map<std::string, int> names; // with the last number given to each
  for (Entry &entry : entries) {
    const auto [first, isNew] = names.emplace(entry.name, 1);
    if (isNew) continue;
    const size_t dot = std::min(entry.name.rfind('.'), entry.name.size());
    const std::string name = entry.name;
    do entry.name = std::string(name).insert(dot, "~" + std::to_string(++first->second));
    while (!names.emplace(entry.name, 1).second);
  }
}

// Adds the entries that `bytes` hold. Returns false after the last one of the folder.
bool addEntries(std::span<const uint8_t> bytes, std::vector<Entry> &entries) {
  constexpr size_t kMaxEntries = 4096; // no folder of a floppy has more
  constexpr uint8_t kEnd = 0x00, kDeleted = 0xE5;
  constexpr uint8_t kHidden = 0x02, kVolumeLabel = 0x08, kFolder = 0x10;
  for (; bytes.size() >= kEntryBytes; bytes = bytes.subspan(kEntryBytes)) {
    if (bytes[0] == kEnd || entries.size() == kMaxEntries) return false;
    const uint8_t attributes = bytes[11];
    const bool isFolder = (attributes & kFolder) != 0;
    const bool isLink = isFolder && bytes[0] == '.'; // to the folder itself or the one above
    if (bytes[0] == kDeleted || isLink || (attributes & (kHidden | kVolumeLabel)) != 0) continue;
    const int64_t length = wordAt(bytes, 28) | wordAt(bytes, 30) << 16;
    entries.push_back({diskName(bytes.first<kDiskNameBytes>()), isFolder, wordAt(bytes, 26), length});
  }
  return true;
}

// Reads `bytes` at `start`, with zeros behind the image's end.
void readImage(const DiskImage &disk, int64_t start, std::span<uint8_t> bytes) {
  const size_t given = disk.files->readAt(disk.handle, start, bytes.data(), bytes.size());
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(given), bytes.end(), uint8_t{0});
}

std::vector<Entry> readRoot(const DiskImage &disk) {
  std::vector<uint8_t> bytes(static_cast<size_t>(disk.layout.rootBytes));
  readImage(disk, disk.layout.rootStart, bytes);
  std::vector<Entry> entries;
  addEntries(bytes, entries);
  makeDistinct(entries);
  return entries;
}

// `met`: the clusters of all folders read so far, since folders may be chained to each other.
std::vector<Entry> readSubFolder(const DiskImage &disk, int64_t firstCluster, ClusterSet &met) {
  std::vector<uint8_t> bytes(static_cast<size_t>(disk.layout.clusterBytes));
  std::vector<Entry> entries;
  for (const uint16_t cluster : takeChain(disk, firstCluster, met)) {
    readImage(disk, startOf(disk, cluster), bytes);
    if (!addEntries(bytes, entries)) break;
  }
  makeDistinct(entries);
  return entries;
}

const Entry *findEntry(const std::vector<Entry> &entries, std::string_view name, bool isFolder) {
  const auto isNamed = [&](const Entry &entry) { return entry.isFolder == isFolder && entry.name == name; };
  const auto isLike = [&, wanted = upperCased(name)](const Entry &entry) {
    return entry.isFolder == isFolder && upperCased(entry.name) == wanted;
  };
  auto found = std::find_if(entries.begin(), entries.end(), isNamed);
  if (found == entries.end()) found = std::find_if(entries.begin(), entries.end(), isLike);
  return found != entries.end() ? &*found : nullptr;
}

// The entries of a folder by its path, which ends in a separator or is empty.
std::vector<Entry> readFolder(const DiskImage &disk, std::string_view folder) {
  std::vector<Entry> entries = readRoot(disk);
  ClusterSet met = noClusters(disk);
  while (!folder.empty()) {
    const size_t nameEnd = std::min(folder.find_first_of(kFolderSeparators), folder.size() - 1);
    const std::string_view name = folder.substr(0, nameEnd);
    folder.remove_prefix(nameEnd + 1);
    if (name.empty() || name == ".") continue;
    const Entry *entry = findEntry(entries, name, true);
    if (entry == nullptr) return {};
    entries = readSubFolder(disk, entry->firstCluster, met);
  }
  return entries;
}

} // namespace

bool openDisk(DiskImage &disk, const FileOps &files, const std::string &path) {
  closeDisk(disk);
  disk.files = &files;
  disk.handle = files.openForReading(path.c_str());
  if (disk.handle == nullptr) return false;
  std::array<uint8_t, kDiskStartBytes> start{};
  readImage(disk, 0, start);
  const std::optional<DiskLayout> layout = findDiskLayout(start, files.length(disk.handle));
  if (!layout) {
    closeDisk(disk);
    return false;
  }
  disk.layout = *layout;
  const int64_t usedBytes = (kFirstCluster + layout->clusterCount) * 3 / 2 + 1; // 12 bits a cluster
  disk.fat.resize(static_cast<size_t>(std::min(layout->fatBytes, usedBytes)));
  readImage(disk, layout->fatStart, disk.fat);
  return true;
}

void closeDisk(DiskImage &disk) {
  if (disk.handle != nullptr) disk.files->close(disk.handle);
  disk = {};
}

bool findFile(const DiskImage &disk, std::string_view path, DiskFile &file) {
  const size_t nameStart = folderLength(path);
  const std::vector<Entry> entries = readFolder(disk, path.substr(0, nameStart));
  const Entry *entry = findEntry(entries, path.substr(nameStart), false);
  if (entry == nullptr) return false;
  ClusterSet met = noClusters(disk);
  file.clusters = takeChain(disk, entry->firstCluster, met);
  file.length = std::min(entry->length, disk.layout.clusterCount * disk.layout.clusterBytes); // no longer than the disk
  return true;
}

size_t readFile(const DiskImage &disk, const DiskFile &file, int64_t offset, uint8_t *into, size_t count) {
  const int64_t clusterBytes = disk.layout.clusterBytes;
  const auto left = static_cast<uint64_t>(std::max(int64_t{0}, file.length - offset));
  const auto given = static_cast<size_t>(std::min(left, static_cast<uint64_t>(count)));
  std::span<uint8_t> rest(into, given);
  while (!rest.empty()) {
    auto index = static_cast<size_t>(offset / clusterBytes);
    if (index >= file.clusters.size()) break;
    const int64_t start = startOf(disk, file.clusters[index]) + offset % clusterBytes;
    int64_t bytes = clusterBytes - offset % clusterBytes;
    // Clusters side by side are read at once.
    for (; index + 1 < file.clusters.size() && file.clusters[index + 1] == file.clusters[index] + 1; ++index) {
      bytes += clusterBytes;
    }
    bytes = std::min<int64_t>(bytes, std::ssize(rest));
    readImage(disk, start, rest.first(static_cast<size_t>(bytes)));
    rest = rest.subspan(static_cast<size_t>(bytes));
    offset += bytes;
  }
  std::fill(rest.begin(), rest.end(), uint8_t{0});
  return given;
}

std::vector<std::string> listFolder(const DiskImage &disk, std::string_view folder) {
  std::vector<std::string> names;
  for (Entry &entry : readFolder(disk, folder)) {
    if (!entry.isFolder) names.push_back(std::move(entry.name));
  }
  return names;
}

std::vector<std::string> listAllFiles(const DiskImage &disk) {
  constexpr size_t kMaxFiles = 32'767; // more than a floppy holds
  constexpr size_t kMaxDepth = 32;     // the machine's system knows 31: its paths have 63 characters
  struct Folder {
    std::string path;
    size_t depth = 0;
    int64_t firstCluster = 0;
  };
  std::vector<std::string> paths;
  ClusterSet met = noClusters(disk), begun = met;
  std::vector<Folder> pending; // the next one last
  std::vector<Entry> entries = readRoot(disk);
  for (Folder current;;) {
    for (const Entry &entry : entries) {
      if (!entry.isFolder && paths.size() < kMaxFiles) paths.push_back(current.path + entry.name);
    }
    for (auto entry = entries.rbegin(); entry != entries.rend() && current.depth < kMaxDepth; ++entry) {
      if (!entry->isFolder || !isCluster(disk, entry->firstCluster)) continue;
      // Of two folders that begin with one cluster, only one can be read.
      auto isBegun = begun[static_cast<size_t>(entry->firstCluster)];
      if (isBegun) continue;
      isBegun = true;
      pending.push_back(
          {current.path + entry->name + kFolderSeparators.back(), current.depth + 1, entry->firstCluster});
    }
    if (pending.empty()) return paths;
    current = std::move(pending.back());
    pending.pop_back();
    entries = readSubFolder(disk, current.firstCluster, met);
  }
}
