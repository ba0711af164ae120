#include "cli/film.h"
#include "cli/info.h"
#include "cli/convert.h"
#include "cli/opened_file.h"
#include "core/bitmap_export.h"
#include "samples/opened_sample.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#ifndef _WIN32
#include "support/full_disk.h"
#endif

namespace {

using Bytes = std::vector<uint8_t>;
using samples::SamplePicture;

const SamplePicture &sampleNamed(const std::string &name) {
  return *std::find_if(allSamples().begin(), allSamples().end(),
                       [&](const SamplePicture &sample) { return sample.name == name; });
}

// A video sample on the disk, and the request that turns it into `out`.
struct FilmFile {
  const SamplePicture &sample;
  TemporaryFolder folder;
  CliRequest request;

  FilmFile(const std::string &name, CliCommand command, const std::u8string &out)
      : sample(sampleNamed(name)),
        folder(std::string("film_") + testing::UnitTest::GetInstance()->current_test_info()->name()) {
    const std::string fileName = name.substr(name.find_last_of('/') + 1);
    request.command = command;
    request.files = {folder.write(std::u8string(fileName.begin(), fileName.end()), sample.bytes)};
    request.outPath = folder.path + std::string(out.begin(), out.end());
  }
};

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

TEST(CliFilm, ColoursByTheStandard) {
  // Black, white, the three primaries and a grey, as BT.601 gives them in 8 bits.
  const struct {
    uint32_t colour;
    std::array<uint8_t, 3> parts;
  } rows[] = {
      {0x000000, {16, 128, 128}}, {0xFFFFFF, {235, 128, 128}}, {0xFF0000, {82, 90, 240}},
      {0x00FF00, {144, 54, 34}},  {0x0000FF, {41, 240, 110}},  {0x808080, {126, 128, 128}},
  };
  for (const auto &row : rows) EXPECT_EQ(yCbCr(row.colour), row.parts) << std::hex << row.colour;
}

TEST(CliFilm, VideoHoldsEveryFrameInThreePlanes) {
  // A rate of 0 counts as 1.
  for (const auto &[name, rate] : {std::pair("ZOOM.EVA", "10"), std::pair("BALLOONS.EV8", "10"),
                                   std::pair("CASTLE.VID", "12"), std::pair("odd/rate_0.VID", "1")}) {
    SCOPED_TRACE(name);
    FilmFile film(name, CliCommand::kVideo, u8"out.y4m");
    ASSERT_TRUE(writeVideo(film.request));
    const Bytes file = film.folder.read(u8"out.y4m");
    Bytes wanted = bytesOf("YUV4MPEG2 W" + std::to_string(film.sample.width) + " H" +
                           std::to_string(film.sample.height) + " F" + rate + ":1 Ip A1:1 C444\n");
    for (const auto &frame : film.sample.frames) {
      const Bytes frameHeader = bytesOf("FRAME\n");
      wanted.insert(wanted.end(), frameHeader.begin(), frameHeader.end());
      for (size_t plane = 0; plane < 3; ++plane) {
        for (const uint32_t colour : frame) wanted.push_back(yCbCr(colour)[plane]);
      }
    }
    EXPECT_TRUE(file == wanted);
  }
}

TEST(CliFilm, SoundIsTheWholeTrack) {
  const struct {
    const char *name;
    uint8_t rateLow, rateHigh;
  } rows[] = {{"BOUNCE.EVA", 0x80, 0x3D}, {"ZOOM.EVA", 0x86, 0x3D}, {"odd/byte_above_half.EVA", 0x86, 0x3D}};
  for (const auto &row : rows) {
    SCOPED_TRACE(row.name);
    FilmFile film(row.name, CliCommand::kSound, u8"out.wav");
    ASSERT_TRUE(writeSound(film.request));
    Bytes file = film.folder.read(u8"out.wav");
    const Bytes &track = film.sample.sound;
    const auto word = [](size_t number) {
      return Bytes{static_cast<uint8_t>(number), static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number >> 16),
                   static_cast<uint8_t>(number >> 24)};
    };
    Bytes wanted;
    for (const Bytes &part :
         {bytesOf("RIFF"), word(36 + track.size() + track.size() % 2), bytesOf("WAVEfmt "), word(16), Bytes{1, 0, 1, 0},
          Bytes{row.rateLow, row.rateHigh, 0, 0}, Bytes{row.rateLow, row.rateHigh, 0, 0}, Bytes{1, 0, 8, 0},
          bytesOf("data"), word(track.size()), track, Bytes(track.size() % 2)}) {
      wanted.insert(wanted.end(), part.begin(), part.end());
    }
    EXPECT_TRUE(file == wanted) << file.size() << " bytes, not " << wanted.size();
  }
}

TEST(CliFilm, WhatIsNoFilmIsRefusedAndLeavesNoFile) {
  const struct {
    const char *name;
    CliCommand command;
  } rows[] = {{"HARBOUR.SC5", CliCommand::kVideo},       {"HARBOUR.SC5", CliCommand::kSound},
              {"MOON.VID", CliCommand::kSound},          {"odd/no_frames.VID", CliCommand::kVideo},
              {"odd/bad_magic.VID", CliCommand::kVideo}, {"odd/rate_7.EVA", CliCommand::kSound}};
  for (const auto &row : rows) {
    SCOPED_TRACE(row.name);
    FilmFile film(row.name, row.command, u8"out");
    EXPECT_FALSE(row.command == CliCommand::kVideo ? writeVideo(film.request) : writeSound(film.request));
    EXPECT_EQ(film.folder.fileCount(), 1U);
  }
  FilmFile onto("BOUNCE.EVA", CliCommand::kVideo, u8"BOUNCE.EVA");
  EXPECT_FALSE(writeVideo(onto.request));
  EXPECT_EQ(onto.folder.read(u8"BOUNCE.EVA"), onto.sample.bytes);
}

#ifndef _WIN32
TEST(CliFilm, OnAFullDiskTheOldFileStays) {
  for (const auto &[command, write] : {std::pair{CliCommand::kVideo, &writeVideo},
                                       {CliCommand::kSound, &writeSound},
                                       {CliCommand::kConvert, &convertFiles}}) {
    FilmFile film("ZOOM.EVA", command, u8"out");
    const auto writes = [&film, write = write] { return write(film.request); };
    ASSERT_TRUE(writes());
    const size_t whole = film.folder.read(u8"out").size();
    const Bytes old{1, 2, 3};
    film.folder.write(u8"out", old);
    for (size_t room = 0; room < whole; room += whole / 30) { // more often than once in a frame
      const FullDisk disk(room);
      EXPECT_FALSE(writes()) << room;
      EXPECT_EQ(film.folder.read(u8"out"), old) << room;
      EXPECT_EQ(film.folder.fileCount(), 2U) << room;
    }
  }
}
#endif

TEST(CliFilm, FramesAreShownByNumber) {
  FilmFile film("BOUNCE.EVA", CliCommand::kConvert, u8"");
  film.request.outPath.clear();
  film.request.frame = 12;
  EXPECT_TRUE(convertFiles(film.request));
  EXPECT_EQ(film.folder.read(u8"BOUNCE - 0012.bmp"), encodeBitmap(film.sample.frames[12], 128, 106));
  film.request.frame = 36; // one behind the last
  EXPECT_FALSE(convertFiles(film.request));
  EXPECT_EQ(film.folder.fileCount(), 2U);
  film.request.frame = 0;
  film.request.allFrames = true;
  EXPECT_TRUE(convertFiles(film.request));
  EXPECT_EQ(film.folder.fileCount(), 1U + 36);

  const auto file = std::make_unique<OpenedFile>();
  openFile(*file, film.request.files[0]);
  EXPECT_TRUE(showFrame(*file, 35));
  const std::string json = infoJson(file->viewer);
  EXPECT_TRUE(json.ends_with(R"("shown":true,"frameCount":36,"framesPerSecond":12,"isRgb":false,)"
                             R"("currentFrame":35,"statusLine":"Frame: 35"})"))
      << json;
}

} // namespace
