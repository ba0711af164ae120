// Samples as the tests take them.
#pragma once

#include "sample_pictures.h"
#include "support/test_viewer.h"

#include <cstdint>
#include <string>
#include <vector>

// All samples; drawn once for each program.
const std::vector<samples::SamplePicture> &allSamples();

// Upper case, with the dot.
std::string extensionOf(const samples::SamplePicture &sample);

// Opens `bytes` under the sample's name, with its companion files beside it.
void openSample(TestViewer &test, const samples::SamplePicture &sample, const std::vector<uint8_t> &bytes);
