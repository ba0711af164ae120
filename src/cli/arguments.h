// The command line of korilan-cli.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

enum class CliCommand { kHelp, kVersion, kInfo, kConvert, kThumb, kVideo, kSound, kKinds };
enum class ImageFormat { kBmp, kPng, kPpm };

inline constexpr const char *kStandardStream = "-"; // as a path

struct CliRequest {
  CliCommand command = CliCommand::kHelp;
  bool json = false;
  bool shown = false;
  ImageFormat format = ImageFormat::kBmp;
  std::string outPath = {};      // -o, or of a thumbnail; may be kStandardStream
  std::string outDirectory = {}; // -d
  std::string palette = {};      // a palette file for all pictures
  std::string type = {};         // extension of standard input
  int frame = 0;                 // of a video
  bool allFrames = false;        // of a video, each to a file of its own
  bool noClobber = false;        // existing files stay
  bool recursive = false;        // folders are taken
  int32_t size = 0;              // longest side of a thumbnail
  unsigned jobs = 0;             // 0: as many as the computer has cores
  std::vector<std::string> files = {};
};

// Parses the arguments after the program's name into `request`, paths with the system's separators. Returns a one-line
// error message, empty if valid.
std::string parseArguments(std::span<const std::string> arguments, CliRequest &request);

// Why the request does not take that many files; empty if it does.
std::string tooManyFiles(const CliRequest &request, size_t files);

// The letters of a format's extension.
std::string lettersOf(ImageFormat format);
