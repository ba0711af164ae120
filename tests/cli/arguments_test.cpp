#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::string>;

// "2 bmp shown frame 0 jobs 3 out->x: a.SC5", or what is wrong.
std::string textOf(const Arguments &arguments) {
  CliRequest request;
  if (std::string wrong = parseArguments(arguments, request); !wrong.empty()) return wrong;
  std::string text = std::to_string(static_cast<int>(request.command)) +
                     (request.format == ImageFormat::kPpm ? " ppm" : " bmp") + (request.json ? " json" : "") +
                     (request.shown ? " shown" : "") + (request.allFrames ? " all" : "") + " frame " +
                     std::to_string(request.frame) + " jobs " + std::to_string(request.jobs) + " " +
                     request.outDirectory + "->" + request.outPath + ":";
  for (const std::string &file : request.files) text += " " + file;
  return text;
}

TEST(CliArguments, ReachTheRequestOrAreNamedInOneLine) {
  const std::pair<Arguments, const char *> rows[] = {
      {{"info"}, "info needs at least one file"},
      {{"info", "--all-frames", "a"}, "unknown option '--all-frames'"},
      {{"convert", "-o", "x", "a", "b"}, "-o takes one file; use -d for several"},
      {{"convert", "-o", "x", "-d", "out", "a"}, "-o and -d exclude each other"},
      {{"convert", "-o", "a", "a"}, "-o names the file itself"},
      {{"convert", "--format", "png", "a"}, "--format takes bmp or ppm, not 'png'"},
      {{"convert", "--jobs", "257", "a"}, "--jobs takes a number from 1 to 256, not '257'"},
      {{"convert", "--frame", "4x", "a"}, "--frame takes a number from 0 on, not '4x'"},
      {{"convert", "--frame", "1", "--all-frames", "a"}, "--frame and --all-frames exclude each other"},
      {{"convert", "--all-frames", "-o", "x", "a"}, "-o takes one frame; use -d for all"},
      {{"sound", "a", "b", "-o", "x"}, "sound takes one file"},
      {{"convert", "a", "--shown", "-d", "out", "--", "-b", "--help"}, "2 bmp shown frame 0 jobs 0 out->: a -b --help"},
      {{"convert", "-o", "x.ppm", "--frame", "7", "a"}, "2 ppm frame 7 jobs 0 ->x.ppm: a"},
      {{"convert", "--format", "ppm", "--all-frames", "--jobs", "256", "a"}, "2 ppm all frame 0 jobs 256 ->: a"},
      {{"info", "--json", "--frame", "0", "a"}, "1 bmp json frame 0 jobs 0 ->: a"},
      {{"convert", "--nothing", "-h"}, "0 bmp frame 0 jobs 0 ->:"},
  };
  for (const auto &[arguments, text] : rows) EXPECT_EQ(textOf(arguments), text);
}

} // namespace
