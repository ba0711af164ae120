#include "core/picture_list.h"

#include "base/disk_files.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/file_kinds.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

// A file is listed if its last four characters occur anywhere in this text, so "5 .G" is listed too: intended, one
// search covers the whole list.
constexpr std::string_view kSupportedExtensions =
    ".GE5 .GE8 .DAT .CMP .PCT .STP .PIC .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 "
    ".SCB .SRB .S11 .SCC .SRC .S12 .GL5 .GL6 .GL7 .GL8 .GLA .GLB .GLC .HAM .G9B .SCR .TGS .SGX .VID .EVA .EV8";

// folderFileCount has 16 bits.
constexpr size_t kMaxFiles = std::numeric_limits<int16_t>::max();

bool supported(const std::string &name) {
  return kSupportedExtensions.find(upperCased(lastCharacters(name, kExtensionLength))) != std::string_view::npos;
}

// Sorts the files of each folder, which stand side by side.
void orderByNumber(std::vector<std::string> &paths) {
  const auto folderOf = [](std::string_view path) { return path.substr(0, folderLength(path)); };
  for (auto start = paths.begin(); start != paths.end();) {
    const std::string folder(folderOf(*start));
    const auto end = std::find_if(start, paths.end(), [&](const auto &path) { return folderOf(path) != folder; });
    std::sort(start, end, numberedBefore);
    start = end;
  }
}

std::vector<std::string> listed(const ViewerState &viewer, std::vector<std::string> paths, auto wanted) {
  std::erase_if(paths, [wanted](const std::string &path) { return !wanted(path); });
  if (viewer.display.orderByNumber) orderByNumber(paths);
  if (paths.size() > kMaxFiles) paths.resize(kMaxFiles);
  return paths;
}

} // namespace

std::vector<std::string> listPictures(const ViewerState &viewer, const std::string &folder) {
  const bool isDisk = !folder.empty() && diskLength(folder) == folder.size();
  if (!isDisk) return listed(viewer, viewer.platform.files->listFolder(folder.c_str()), supported);
  return listed(viewer, listDiskImage(systemFileOf(folder)).value_or(std::vector<std::string>()), isOpened);
}

std::vector<std::string> listDiskImages(const ViewerState &viewer, const std::string &folder) {
  return listed(viewer, viewer.platform.files->listFolder(folder.c_str()), isDiskImageName);
}
