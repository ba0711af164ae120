#pragma once

// The samples of each family of formats, well-formed ones and odd ones.

#include "sample_builders.h"

namespace samples {

// COPY files.
void addCopySamples(std::vector<SamplePicture> &pictures, Gallery &gallery);
void addOddCopySamples(std::vector<SamplePicture> &pictures, Gallery &gallery);

// DD-Graph and Dynamic Publisher files.
void addPaintSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);
void addOddPaintSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);

// HAM pictures.
void addHamSamples(std::vector<SamplePicture> &pictures);
void addOddHamSamples(std::vector<SamplePicture> &pictures);

// G9B pictures.
void addG9bSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);
void addOddG9bSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);

// SymbOS graphics.
void addSymbosSamples(std::vector<SamplePicture> &pictures);
void addOddSymbosSamples(std::vector<SamplePicture> &pictures);

// VSCREEN level files.
void addVscreenSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);
void addOddVscreenSamples(std::vector<SamplePicture> &pictures, Gallery &gallery);

// EVA, EV8 and SymbOS videos.
void addVideoSamples(std::vector<SamplePicture> &pictures);
void addOddVideoSamples(std::vector<SamplePicture> &pictures);

} // namespace samples
