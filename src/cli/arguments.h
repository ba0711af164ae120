// The command line of korilan-cli.
#pragma once

#include <span>
#include <string>
#include <vector>

enum class CliCommand { kHelp, kInfo, kConvert, kVideo, kSound };
enum class ImageFormat { kBmp, kPpm };

struct CliRequest {
  CliCommand command = CliCommand::kHelp;
  bool json = false;
  bool shown = false;
  ImageFormat format = ImageFormat::kBmp;
  std::string outPath = {};      // -o; "-" is standard output
  std::string outDirectory = {}; // -d
  int frame = 0;                 // of a video
  bool allFrames = false;        // of a video, each to a file of its own
  unsigned jobs = 0;             // 0: as many as the computer has cores
  std::vector<std::string> files = {};
};

// Parses the arguments after the program's name into `request`. Returns a one-line error message, empty if valid.
std::string parseArguments(std::span<const std::string> arguments, CliRequest &request);

// The output of `korilan-cli --help`.
extern const char *const kCliHelp;
