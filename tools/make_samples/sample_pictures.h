#pragma once

// Sample files of every kind, drawn and encoded by code of their own, so that the viewer and its samples cannot share
// a mistake.

#include <string>
#include <vector>

#include "bytes.h"

namespace samples {

// A file that is read along with another and is no picture of its own.
struct CompanionFile {
  std::string name; // as of a sample
  Bytes bytes;
};

struct SamplePicture {
  std::string name; // UTF-8; may hold one folder, "odd/short_body.SC5"
  Bytes bytes;      // the whole file
  std::vector<CompanionFile> companions = {};
};

// Well-formed files of every kind, at least two of each that shows something; then, in "odd/", files with unusual or
// broken headers, bodies, palettes and names. The bytes are the same with every compiler and on every machine.
std::vector<SamplePicture> allSamplePictures();

// Disk images that hold some of the pictures: of 720 KB; of 360 KB without a boot sector; with folders and fragmented.
std::vector<SamplePicture> allSampleDisks();

} // namespace samples
