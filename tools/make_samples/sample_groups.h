#pragma once

// The samples of each family of formats.

#include "sample_pictures.h"

namespace samples {

using Samples = std::vector<SamplePicture>;

void addScreenSamples(Samples &samples); // BLOAD files, those of DD-Graph and Designer Plus among them
void addCopySamples(Samples &samples);   // COPY files and stamps
void addPaintSamples(Samples &samples);  // drawings and pages of paint programs
void addHamSamples(Samples &samples);
void addG9bSamples(Samples &samples);
void addSymbosSamples(Samples &samples);
void addVscreenSamples(Samples &samples);
void addVideoSamples(Samples &samples);
void addOddVariants(Samples &samples); // of all the others

} // namespace samples
