#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::string>;

// "3 bmp shown frame 0 jobs 3 out->x: a.SC5", or what is wrong.
std::string textOf(const Arguments &arguments) {
  CliRequest request;
  if (std::string wrong = parseArguments(arguments, request); !wrong.empty()) return wrong;
  std::string text = std::to_string(static_cast<int>(request.command)) + " " + lettersOf(request.format) +
                     (request.json ? " json" : "") + (request.shown ? " shown" : "") +
                     (request.allFrames ? " all" : "") + (request.size != 0 ? " " + std::to_string(request.size) : "") +
                     " frame " + std::to_string(request.frame) + " jobs " + std::to_string(request.jobs) + " " +
                     request.outDirectory + "->" + request.outPath + ":";
  for (const std::string &file : request.files) text += " " + file;
  return text + (request.type.empty() ? "" : " is " + request.type);
}

TEST(CliArguments, ReachTheRequestOrAreNamedInOneLine) {
  const std::pair<Arguments, const char *> rows[] = {
      {{"info"}, "info needs at least one file"},
      {{"info", "--all-frames", "a"}, "unknown option '--all-frames'"},
      {{"convert", "-o", "x", "a", "b"}, "-o takes one file; use -d for several"},
      {{"convert", "-o", "x", "-d", "out", "a"}, "-o and -d exclude each other"},
      {{"convert", "-o", "a", "a"}, "the output is the file itself"},
      {{"convert", "--format=gif", "a"}, "--format takes bmp, png or ppm, not 'gif'"},
      {{"convert", "--jobs", "257", "a"}, "--jobs takes a number from 1 to 256, not '257'"},
      {{"convert", "--frame", "4x", "a"}, "--frame takes a number from 0 on, not '4x'"},
      {{"convert", "--frame", "1", "--all-frames", "a"}, "--frame and --all-frames exclude each other"},
      {{"convert", "--all-frames", "-o", "x", "a"}, "-o takes one frame; use -d for all"},
      {{"sound", "a", "b", "-o", "x"}, "sound takes one file"},
      {{"video", "a", "-o", "b.EVA"}, "video writes a file that ends in .y4m, not in .EVA"},
      {{"thumb", "--size", "9", "a.SC5", "b.SC5"}, "thumb writes a file that ends in .png, not in .SC5"},
      {{"convert", "a", "--shown", "-d", "out", "--", "-b", "--help"}, "3 bmp shown frame 0 jobs 0 out->: a -b --help"},
      {{"convert", "-o", "x.ppm", "--frame", "7", "a"}, "3 ppm frame 7 jobs 0 ->x.ppm: a"},
      {{"convert", "--format", "ppm", "--all-frames", "--jobs", "256", "a"}, "3 ppm all frame 0 jobs 256 ->: a"},
      {{"info", "--json", "--frame", "0", "a"}, "2 bmp json frame 0 jobs 0 ->: a"},
      {{"convert", "--format=png", "-dout", "a"}, "3 png frame 0 jobs 0 out->: a"},
      {{"convert", "--format=png", "-o", "x.gif", "a"}, "-o takes a name that ends in .bmp, .png or .ppm, not in .gif"},
      {{"convert", "-ox.PPM", "--format=bmp", "a"}, "3 bmp frame 0 jobs 0 ->x.PPM: a"},
      {{"convert", "-o", ".png", "a"}, "3 bmp frame 0 jobs 0 ->.png: a"},
      {{"convert", "--shown=1", "a"}, "--shown takes no value"},
      {{"thumb", "--size=4096", "a", "x.png"}, "4 bmp 4096 frame 0 jobs 0 ->x.png: a"},
      {{"thumb", "--size=4097", "a", "x"}, "--size takes a number from 1 to 4096, not '4097'"},
      {{"thumb", "a", "x"}, "thumb needs --size N"},
      {{"thumb", "--size=1", "a"}, "thumb takes a file and the PNG file to write"},
      {{"info", "-"}, "- needs --type .EXT"},
      {{"info", "--type", ".TXT", "-"},
       "--type takes the ending of a kind of file that Korilan opens, as .SC5, not '.TXT'"},
      {{"info", "--type", ".SC5", "a"}, "--type is for standard input, -"},
      {{"info", "--type=.sc5", "a", "-"}, "2 bmp frame 0 jobs 0 ->: a - is .sc5"},
      {{"info", "--type=.sc5", "-", "-"}, "standard input is given twice"},
      {{"convert", "--type=.EVA", "--all-frames", "-"}, "--all-frames of - needs -d"},
      {{"convert", "--type=.EVA", "-o-", "-"}, "3 bmp frame 0 jobs 0 ->-: - is .EVA"},
      {{"convert", "--version"}, "1 bmp frame 0 jobs 0 ->:"},
      {{"info", "--kinds", "a"}, "7 bmp frame 0 jobs 0 ->:"},
      {{"convert", "--nothing", "-h"}, "0 bmp frame 0 jobs 0 ->:"},
  };
  for (const auto &[arguments, text] : rows) EXPECT_EQ(textOf(arguments), text);
}

} // namespace
