#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::string>;

TEST(CliArguments, WrongUsageIsNamedInOneLine) {
  const struct {
    Arguments arguments;
    const char *wrong;
  } rows[] = {
      {{}, "no command given; korilan-cli --help lists them"},
      {{"shrink"}, "unknown command 'shrink'; korilan-cli --help lists them"},
      {{"info"}, "info needs at least one file"},
      {{"info", "--shown", "a.SC5"}, "unknown option '--shown'"},
      {{"convert", "--json", "a.SC5"}, "unknown option '--json'"},
      {{"convert", "-o"}, "-o needs a value"},
      {{"convert", "-o", "x.bmp", "a.SC5", "b.SC5"}, "-o takes one file; use -d for several"},
      {{"convert", "-o", "x.bmp", "-d", "out", "a.SC5"}, "-o and -d exclude each other"},
      {{"convert", "-o", "a.SC5", "a.SC5"}, "-o names the file itself"},
      {{"convert", "--format", "png", "a.SC5"}, "--format takes bmp or ppm, not 'png'"},
      {{"convert", "--jobs", "0", "a.SC5"}, "--jobs takes a number from 1 to 256, not '0'"},
      {{"convert", "--jobs", "4x", "a.SC5"}, "--jobs takes a number from 1 to 256, not '4x'"},
      {{"convert", "--frame", "-1", "a.EVA"}, "--frame takes a number from 0 on, not '-1'"},
      {{"convert", "--frame", "1", "--all-frames", "a.EVA"}, "--frame and --all-frames exclude each other"},
      {{"convert", "--all-frames", "-o", "x.bmp", "a.EVA"}, "-o takes one frame; use -d for all"},
      {{"info", "--all-frames", "a.EVA"}, "unknown option '--all-frames'"},
      {{"video", "a.EVA"}, "video needs -o OUT"},
      {{"sound", "a.EVA", "b.EVA", "-o", "x.wav"}, "sound takes one file"},
      {{"video", "a.EVA", "-d", "out"}, "unknown option '-d'"},
      {{"convert", "--jobs", "257", "a.SC5"}, "--jobs takes a number from 1 to 256, not '257'"},
  };
  for (const auto &row : rows) {
    CliRequest request;
    EXPECT_EQ(parseArguments(row.arguments, request), row.wrong);
  }
}

TEST(CliArguments, OptionsReachTheRequest) {
  CliRequest request;
  EXPECT_EQ(
      parseArguments(Arguments{"convert", "a.SC5", "--shown", "--jobs", "3", "-d", "out", "--", "-b.SC8"}, request),
      "");
  EXPECT_EQ(request.command, CliCommand::kConvert);
  EXPECT_TRUE(request.shown);
  EXPECT_EQ(request.jobs, 3U);
  EXPECT_EQ(request.outDirectory, "out");
  EXPECT_EQ(request.files, (Arguments{"a.SC5", "-b.SC8"}));
  EXPECT_EQ(request.format, ImageFormat::kBmp);

  EXPECT_EQ(parseArguments(Arguments{"convert", "-o", "x.ppm", "a.SC5"}, request), "");
  EXPECT_EQ(request.format, ImageFormat::kPpm);
  EXPECT_EQ(parseArguments(Arguments{"convert", "--format", "bmp", "-o", "x.ppm", "a.SC5"}, request), "");
  EXPECT_EQ(request.format, ImageFormat::kBmp);
  EXPECT_EQ(parseArguments(Arguments{"info", "--json", "a.SC5"}, request), "");
  EXPECT_TRUE(request.json);
  EXPECT_EQ(parseArguments(Arguments{"convert", "--help"}, request), "");
  EXPECT_EQ(request.command, CliCommand::kHelp);
}

} // namespace
