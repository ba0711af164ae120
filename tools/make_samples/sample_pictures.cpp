#include "sample_pictures.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "disk_image_maker.h"
#include "sample_groups.h"

namespace samples {

std::vector<SamplePicture> allSamplePictures() {
  Samples all;
  for (const auto add : {addScreenSamples, addCopySamples, addPaintSamples, addHamSamples, addG9bSamples,
                         addSymbosSamples, addVscreenSamples, addVideoSamples, addOddVariants}) {
    add(all);
  }
  Samples ordered;
  for (const bool odd : {false, true}) {
    std::copy_if(all.begin(), all.end(), std::back_inserter(ordered),
                 [odd](const SamplePicture &sample) { return sample.name.starts_with("odd/") == odd; });
  }
  return ordered;
}

std::vector<SampleDisk> allSampleDisks() {
  const std::vector<SamplePicture> pictures = allSamplePictures();
  // Those whose extension occurs in the text, in a folder or, if that is empty, in the root.
  const auto filesOf = [&pictures](const std::string &folder, std::string_view extensions) {
    std::vector<FileOnDisk> files;
    for (const SamplePicture &picture : pictures) {
      const std::string extension = picture.name.substr(picture.name.rfind('.'));
      if (picture.name.starts_with("odd/") || extensions.find(extension) == std::string_view::npos) continue;
      files.push_back({folder + picture.name, picture.bytes});
      for (const CompanionFile &companion : picture.companions) {
        files.push_back({folder + companion.name, companion.bytes});
      }
    }
    return files;
  };
  std::vector<FileOnDisk> folders = filesOf("", ".SC5");
  for (const auto &[folder, extensions] :
       {std::pair{"PAINT/", ".CMP .STP .PCT"}, {"SPRITES/", ".TGS .SC4"}, {"SYMBOS/", ".SGX"}}) {
    for (FileOnDisk &file : filesOf(folder, extensions)) folders.push_back(std::move(file));
  }
  return {{"SCREENS.DSK", makeDiskImage({}, filesOf("", ".SC2 .SC5 .SC6 .SC7 .SC8 .SCA .SCB .SCC"))},
          {"COPIES.DSK", makeDiskImage({.media = 0xF8, .sectors = 720, .sectorsOfFat = 2, .hasBootSector = false},
                                       filesOf("", ".GL5 .GL6 .GL7 .GL8 .GLA .GLB .GLC"))},
          {"FOLDERS.DSK", makeDiskImage({.step = 7}, folders)}};
}

} // namespace samples
