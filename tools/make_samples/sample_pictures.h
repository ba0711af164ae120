#pragma once

// Sample picture files of every format, drawn and encoded by code of their own, so that the
// viewer and its samples cannot share a mistake.

#include <cstdint>
#include <string>
#include <vector>

namespace samples {

// A file that is read along with another and is no picture of its own.
struct CompanionFile {
  std::string name; // as of a sample
  std::vector<std::uint8_t> bytes;
};

struct SamplePicture {
  std::string name;                // UTF-8; may hold one folder, "odd/short_body.SC5"
  std::vector<std::uint8_t> bytes; // the whole file
  int width = 0;                   // of the picture to be shown; 0 x 0: the file is refused
  int height = 0;
  std::vector<std::uint32_t> expected;        // width * height words 0x00RRGGBB, top row first
  std::string error;                          // error line of a refused file; "" when it ends silently
  std::vector<CompanionFile> companions = {}; // on the disk beside the sample
  std::string status = {};                    // status line of a shown file; "" for pictures
  // Of a video: each frame as it should be shown, as many as the file counts. Frame 0 is the one expected above, also
  // where the file counts none.
  std::vector<std::vector<std::uint32_t>> frames = {};
  std::vector<std::uint8_t> sound = {}; // the whole track, unsigned 8-bit mono; empty when there is none
};

// All samples, normal ones first. The bytes are the same with every compiler and on every machine.
std::vector<SamplePicture> allSamplePictures();

// The two halves of the above: well-formed pictures of every extension; files in "odd/" with unusual
// or broken headers, bodies, palettes and names.
std::vector<SamplePicture> normalSamplePictures();
std::vector<SamplePicture> oddSamplePictures();

} // namespace samples
