#include "cli/film.h"

#include "support/temporary_folder.h"
#include "video/sound_track.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(CliFilm, ColoursByTheStandard) {
  // Black, white, the three primaries and a grey, as BT.601 gives them in 8 bits.
  const std::pair<uint32_t, std::array<uint8_t, 3>> rows[] = {{0x000000, {16, 128, 128}}, {0xFFFFFF, {235, 128, 128}},
                                                              {0xFF0000, {82, 90, 240}},  {0x00FF00, {144, 54, 34}},
                                                              {0x0000FF, {41, 240, 110}}, {0x808080, {126, 128, 128}}};
  for (const auto &[colour, parts] : rows) EXPECT_EQ(yCbCr(colour), parts) << std::hex << colour;
}

TEST(CliFilm, VideoHoldsEveryFrameInThreePlanes) {
  const TemporaryFolder folder("film_video");
  TestViewer test; // a rate of 0 counts as 1
  test.open("a.VID", vidFile({0, 2, 4, 2, 7, 4}, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}));
  ASSERT_TRUE(writeVideo({.outPath = folder.path + "out", .files = {folder.write(u8"a.VID", memoryDisk()["a.VID"])}}));
  std::string expected = "YUV4MPEG2 W4 H2 F1:1 Ip A1:1 C444\n";
  for (const int32_t frame : {0, 1}) {
    HScroll1_Change(test.viewer, frame);
    expected += "FRAME\n";
    for (size_t plane = 0; plane < 3; ++plane) {
      for (const uint32_t word : test.viewer.frameBits) expected += static_cast<char>(yCbCr(word)[plane]);
    }
  }
  EXPECT_EQ(folder.read(u8"out"), Bytes(expected.begin(), expected.end()));
}

TEST(CliFilm, SoundIsTheWholeTrack) {
  const TemporaryFolder folder("film_sound");
  for (const auto &[rate, frames, format] : {std::tuple(kRate12, 14U, kSound12), {kRate10, 11U, kSound10}}) {
    const std::string path = folder.write(u8"a.EVA", evaFile(frames, rate));
    ASSERT_TRUE(writeSound({.outPath = folder.path + "out", .files = {path}}));
    const auto header = waveHeader(format, frames * format.samplesPerFrame);
    Bytes expected(header.begin(), header.end());
    for (uint8_t n = 1; n <= frames; ++n) expected.insert(expected.end(), format.samplesPerFrame, 8 * n);
    expected.resize(expected.size() + expected.size() % 2); // parts of the file have even lengths
    EXPECT_EQ(expected.size(), 8 + header[4] + header[5] * 256U);
    EXPECT_TRUE(folder.read(u8"out") == expected);
  }
}

TEST(CliFilm, WhatIsNoFilmIsRefusedAndLeavesNoFile) {
  const Bytes film = vidFile({}, {});
  for (const auto &[file, out, wrong] : {std::tuple(kScreen8File, "out", "*** Error: o_O"),
                                         {film, "out.wav", "holds no sound"},
                                         {vidFile({10, 0}, {}), "out", "holds no frames"},
                                         {vidFile({10, 1, 0}, {}), "out", "holds no frames"},
                                         {film, "a.VID", "would be replaced by itself"}}) {
    const TemporaryFolder folder("film_refused");
    const CliRequest request{.outPath = folder.path + out, .files = {folder.write(u8"a.VID", file)}};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(std::string_view(out) == "out.wav" ? writeSound(request) : writeVideo(request));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), request.files[0] + ": " + wrong + "\n");
    EXPECT_EQ(folder.fileCount(), 1U);
    EXPECT_EQ(folder.read(u8"a.VID"), file);
  }
}

} // namespace
