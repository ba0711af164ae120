#include "sample_pictures.h"

#include <algorithm>
#include <iterator>

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

} // namespace samples
