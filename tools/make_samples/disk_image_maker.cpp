#include "disk_image_maker.h"

#include <algorithm>
#include <map>

namespace samples {

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kCluster = 2 * kSector;
constexpr int kRootEntries = 112;

struct Disk {
  DiskForm form;
  Bytes image;
  std::size_t dataStart;
  int clusters;
  int used = 0;
};

std::size_t fatStart(const Disk &disk, int copy) {
  return kSector * static_cast<std::size_t>(1 + copy * disk.form.sectorsOfFat);
}

// The number of the n-th cluster that is filled.
int clusterOf(const Disk &disk, int n) { return 2 + n * disk.form.step % disk.clusters; }

void setNext(Disk &disk, int cluster, int next) {
  for (const int copy : {0, 1}) {
    std::uint8_t *pair = disk.image.data() + fatStart(disk, copy) + cluster / 2 * 3;
    if (cluster % 2 == 0) {
      pair[0] = byteOf(next);
      pair[1] = byteOf((pair[1] & 0xF0) | next >> 8);
    } else {
      pair[1] = byteOf((pair[1] & 0x0F) | next << 4);
      pair[2] = byteOf(next >> 4);
    }
  }
}

bool hasRoom(const Disk &disk, std::size_t bytes) {
  return (bytes + kCluster - 1) / kCluster <= static_cast<std::size_t>(disk.clusters - disk.used);
}

// Returns the first cluster.
int store(Disk &disk, const Bytes &bytes) {
  const int first = disk.used;
  for (std::size_t at = 0; at < bytes.size(); at += kCluster) {
    const int cluster = clusterOf(disk, disk.used++);
    const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const auto count = static_cast<std::ptrdiff_t>(std::min(kCluster, bytes.size() - at));
    place(disk.image, disk.dataStart + kCluster * static_cast<std::size_t>(cluster - 2), Bytes(from, from + count));
    setNext(disk, cluster, at + kCluster < bytes.size() ? clusterOf(disk, disk.used) : 0xFFF);
  }
  return bytes.empty() ? 0 : clusterOf(disk, first);
}

void appendEntry(Bytes &folder, const std::string &name, int attributes, int cluster, std::size_t length) {
  const std::size_t dot = name.find('.', 1); // not that of "." and ".."
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
  Disk disk{
      .form = form, .image = Bytes(kSector * static_cast<std::size_t>(form.sectors)), .dataStart = 0, .clusters = 0};
  disk.dataStart = fatStart(disk, 2) + 32 * kRootEntries;
  disk.clusters = static_cast<int>((disk.image.size() - disk.dataStart) / kCluster);
  if (form.hasBootSector) {
    Bytes boot{0xEB, 0xFE, 0x90};
    append(boot, bytesOf("KORILAN "));
    append(boot, {0, 2, 2, 1, 0, 2}); // bytes a sector, sectors a cluster, sectors before the FATs, FATs
    appendWords(boot, {kRootEntries, form.sectors});
    append(boot, {form.media});
    appendWords(boot, {form.sectorsOfFat, 9, 2}); // the last two: sectors a track, heads
    place(disk.image, 0, boot);
  }
  for (const int copy : {0, 1}) place(disk.image, fatStart(disk, copy), {form.media, 0xFF, 0xFF});
  std::map<std::string, Bytes> folders{{"", {}}};
  for (const FileOnDisk &file : files) {
    if (!hasRoom(disk, file.bytes.size() + kCluster)) continue; // the folder may need a cluster, too
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
  place(disk.image, fatStart(disk, 2), root);
  return disk.image;
}

} // namespace samples
