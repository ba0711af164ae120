#include "disk_image_maker.h"

#include <algorithm>
#include <map>
#include <utility>

namespace samples {

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kCluster = 2 * kSector;
constexpr int kRootEntries = 112;

struct Disk {
  int step;
  std::vector<int> fat; // each cluster's next one; the first two entries are none
  Bytes data = {};
  int used = 0; // clusters
};

// The number of the n-th cluster that is filled.
int clusterOf(const Disk &disk, int n) { return 2 + n * disk.step % static_cast<int>(disk.fat.size() - 2); }

// Returns the first cluster.
int store(Disk &disk, const Bytes &bytes) {
  const int first = bytes.empty() ? 0 : clusterOf(disk, disk.used);
  for (std::size_t at = 0; at < bytes.size(); at += kCluster) {
    const auto cluster = static_cast<std::size_t>(clusterOf(disk, disk.used++));
    const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const auto count = static_cast<std::ptrdiff_t>(std::min(kCluster, bytes.size() - at));
    place(disk.data, kCluster * (cluster - 2), Bytes(from, from + count));
    disk.fat[cluster] = at + kCluster < bytes.size() ? clusterOf(disk, disk.used) : 0xFFF;
  }
  return first;
}

void appendEntry(Bytes &folder, const std::string &name, int attributes, int cluster, std::size_t length) {
  const std::size_t dot = name[0] == '.' ? std::string::npos : name.find('.');
  std::string padded = name.substr(0, dot);
  padded.resize(8, ' ');
  if (dot != std::string::npos) padded += name.substr(dot + 1);
  padded.resize(11, ' ');
  append(folder, bytesOf(padded));
  append(folder, {byteOf(attributes)});
  folder.resize(folder.size() + 10);
  const int bytes = static_cast<int>(length);
  appendWords(folder, {0x6000, 0x0F21, cluster, bytes, bytes >> 16}); // time, date
}

} // namespace

Bytes makeDiskImage(const DiskForm &form, const std::vector<FileOnDisk> &files) {
  const std::size_t fatBytes = kSector * static_cast<std::size_t>(form.sectorsOfFat);
  const std::size_t rootStart = kSector + 2 * fatBytes, dataStart = rootStart + 32 * kRootEntries;
  const std::size_t imageBytes = kSector * static_cast<std::size_t>(form.sectors);
  Disk disk{.step = form.step, .fat = std::vector<int>(2 + (imageBytes - dataStart) / kCluster)};
  std::map<std::string, Bytes> folders{{"", {}}};
  for (const FileOnDisk &file : files) {
    const std::size_t room = kCluster * (disk.fat.size() - 2 - static_cast<std::size_t>(disk.used));
    if (room < file.bytes.size() + 3 * kCluster) continue; // for the folders, too
    const std::size_t nameStart = file.path.find('/') + 1;
    Bytes &folder = folders[file.path.substr(0, nameStart)];
    appendEntry(folder, file.path.substr(nameStart), 0, store(disk, file.bytes), file.bytes.size());
  }
  Bytes root = folders[""];
  for (const auto &[path, entries] : folders) {
    if (path.empty()) continue;
    Bytes links;
    appendEntry(links, ".", 0x10, clusterOf(disk, disk.used), 0);
    appendEntry(links, "..", 0x10, 0, 0);
    append(links, entries);
    appendEntry(root, path.substr(0, path.size() - 1), 0x10, store(disk, links), 0);
  }
  disk.fat[0] = 0xF00 | form.media;
  disk.fat[1] = 0xFFF;
  disk.fat.resize(fatBytes / 3 * 2);
  Bytes fat;
  for (std::size_t i = 0; i < disk.fat.size(); i += 2) {
    append(fat, {byteOf(disk.fat[i]), byteOf(disk.fat[i] >> 8 | disk.fat[i + 1] << 4), byteOf(disk.fat[i + 1] >> 4)});
  }
  Bytes image;
  if (form.hasBootSector) {
    append(image, bytesOf("\xEB\xFE\x90KORILAN "));
    append(image, {0, 2, 2, 1, 0, 2}); // bytes a sector, sectors a cluster, sectors before the FATs, FATs
    appendWords(image, {kRootEntries, form.sectors, form.media | form.sectorsOfFat << 8, 9 << 8, 2 << 8});
  }
  for (const auto &[start, part] :
       {std::pair{kSector, fat}, {kSector + fatBytes, fat}, {rootStart, root}, {dataStart, disk.data}}) {
    place(image, start, part);
  }
  image.resize(imageBytes);
  return image;
}

} // namespace samples
