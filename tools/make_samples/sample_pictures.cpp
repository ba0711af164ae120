#include "sample_pictures.h"

#include <algorithm>
#include <string_view>

#include "disk_image_maker.h"
#include "sample_groups.h"

namespace samples {

std::vector<SamplePicture> allSamplePictures() {
  Samples all;
  for (const auto add : {addScreenSamples, addCopySamples, addPaintSamples, addHamSamples, addG9bSamples,
                         addSymbosSamples, addVscreenSamples, addVideoSamples, addOddVariants}) {
    add(all);
  }
  std::stable_partition(all.begin(), all.end(),
                        [](const SamplePicture &sample) { return !sample.name.starts_with("odd/"); });
  return all;
}

std::vector<SamplePicture> allSampleDisks() {
  const std::vector<SamplePicture> pictures = allSamplePictures();
  const auto filesOf = [&pictures](std::string_view extensions, bool inFolders = false) {
    std::vector<FileOnDisk> files;
    for (const auto &[name, bytes, companions] : pictures) {
      const std::string extension = name.substr(name.rfind('.'));
      if (name.starts_with("odd/") || extensions.find(extension) == std::string_view::npos) continue;
      const std::string folder = inFolders && extension != ".SC5" ? extension.substr(1) + "/" : "";
      files.push_back({folder + name, bytes});
      for (const CompanionFile &file : companions) files.push_back({folder + file.name, file.bytes});
    }
    return files;
  };
  return {{"SCREENS.DSK", makeDiskImage({}, filesOf(".SC2 .SC5 .SC6 .SC7 .SC8 .SCA .SCB .SCC"))},
          {"COPIES.DSK", makeDiskImage({.media = 0xF8, .sectors = 720, .sectorsOfFat = 2, .hasBootSector = false},
                                       filesOf(".GL5 .GL6 .GL7 .GL8 .GLA .GLB .GLC"))},
          {"FOLDERS.DSK", makeDiskImage({.step = 7}, filesOf(".SC5 .CMP .STP .PCT .TGS .SC4", true))}};
}

} // namespace samples
